#include "maps/map_picture.h"

#include <gtest/gtest.h>

#include "forms/picture_loading.h"
#include "program/frame_fixture.h"
#include "program/path_text.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

constexpr const char* kPictureUrl = "http://maps.example/desert.jpg";

class MapPictureTest : public FrameTest {
 protected:
  void StorePicture(const std::string& map, const std::string& picture) {
    WriteNumberedSetting(setting::kPreviewPicture, map, picture);
  }
  [[nodiscard]] std::string TempPath(std::string_view name) const { return Path("temp\\") + std::string(name); }
  // An existing file whose path a settings file can hold, other than those in the test's own folder.
  static constexpr const char* kThere = "/dev/null";
};

// ---- where the picture is ----------------------------------------------------------------------------------------

TEST_F(MapPictureTest, AMapWithoutAPictureHasNone) {
  std::string url = "before";
  EXPECT_EQ(GetMapPath("c:\\maps\\Desert.bms", &url), "");
  EXPECT_EQ(url, "");
}

TEST_F(MapPictureTest, APictureOnTheWebIsFetchedAndTheAddressIsStillTold) {
  StorePicture("Desert.bms", kPictureUrl);
  desktop.internet().Reply(kPictureUrl, "\xFF\xD8\xFF");
  std::string url;
  EXPECT_EQ(GetMapPath("c:\\maps\\Desert.bms", &url), TempPath("preview.jpg"));
  EXPECT_EQ(url, kPictureUrl);
  EXPECT_EQ(ReadFile(TempPath("preview.jpg")), "\xFF\xD8\xFF");
}

TEST_F(MapPictureTest, ADownloadThatFailsIsSilent) {
  StorePicture("Desert.bms", kPictureUrl);
  std::string url;
  EXPECT_EQ(GetMapPath("c:\\maps\\Desert.bms", &url), "");
  EXPECT_EQ(url, kPictureUrl);
}

TEST_F(MapPictureTest, AWholePathWinsOverAFileName) {
  StorePicture("Desert.bms", "http://maps.example/byname.jpg");
  StorePicture("c:\\maps\\Desert.bms", "http://maps.example/bypath.jpg");
  std::string url;
  static_cast<void>(GetMapPath("c:\\maps\\Desert.bms", &url));
  EXPECT_EQ(url, "http://maps.example/bypath.jpg");
  static_cast<void>(GetMapPath("d:\\other\\Desert.bms", &url));
  EXPECT_EQ(url, "http://maps.example/byname.jpg");
}

TEST_F(MapPictureTest, AZippedMapKeepsThePictureOfItsMap) {
  StorePicture("Desert.bms", kPictureUrl);
  std::string url;
  static_cast<void>(GetMapPath("c:\\maps\\Desert.zip", &url));
  EXPECT_EQ(url, kPictureUrl);
}

TEST_F(MapPictureTest, OnlyASmallZipEndingIsReplaced) {
  StorePicture("Desert.bms", kPictureUrl);
  std::string url;
  static_cast<void>(GetMapPath("c:\\maps\\Desert.ZIP", &url));
  EXPECT_EQ(url, "");
}

TEST_F(MapPictureTest, AnAddressIsLookedUpByItsNameWithBlanksAndWithoutAskingTheServer) {
  StorePicture("Desert Storm.bms", kPictureUrl);
  std::string url;
  static_cast<void>(GetMapPath("http://maps.example/old/Desert%20Storm.bms", &url));
  EXPECT_EQ(url, kPictureUrl);
  for (const SentRequest& request : desktop.internet().requests) EXPECT_EQ(request.url, kPictureUrl);
}

TEST_F(MapPictureTest, AStoredFileIsGivenWhileItExists) {
  StorePicture("Desert.bms", "kestrun_no_such_picture.jpg");
  EXPECT_EQ(GetMapPath("Desert.bms"), "");
#ifndef _WIN32
  StorePicture("Oasis.bms", kThere);
  EXPECT_EQ(GetMapPath("Oasis.bms"), kThere);
#endif
}

// ---- kinds -------------------------------------------------------------------------------------------------------

TEST_F(MapPictureTest, TheFirstThreeBytesTellTheKind) {
  const auto kind = [&](std::string_view content) {
    WriteFile(Path("picture"), content);
    return ImageKind(Path("picture"));
  };
  EXPECT_EQ(kind("\xFF\xD8\xFF\xE0"), image_kind::kJpeg);
  EXPECT_EQ(kind("\x89PNG"), image_kind::kPng);
  EXPECT_EQ(kind("GIF89a"), image_kind::kGif);
  EXPECT_EQ(kind("BM?"), image_kind::kBitmap);
  EXPECT_EQ(kind("text"), image_kind::kOther);
  EXPECT_EQ(kind("BM"), image_kind::kOther);
  EXPECT_EQ(kind(""), image_kind::kOther);
  EXPECT_EQ(ImageKind(Path("none")), image_kind::kMissing);
}

// ---- loading -----------------------------------------------------------------------------------------------------

TEST_F(MapPictureTest, APictureFileBecomesAPicture) {
  desktop.pictures().Answer("jpeg", {2, 1, {0xFF112233, 0xFF445566}});
  WriteFile(Path("a.jpg"), "jpeg");
  const Ref<Picture> picture = LoadPictureFile(Path("a.jpg"));
  EXPECT_EQ(picture->width_pixels(), 2);
  EXPECT_EQ(picture->pixels()[1], 0xFF445566);
}

TEST_F(MapPictureTest, AMissingFileAndOneThatIsNoPictureAreErrors) {
  EXPECT_EQ(ErrorNumberOf([&] { return LoadPictureFile(Path("none.jpg")); }), error::kFileNotFound);
  WriteFile(Path("a.jpg"), "no picture");
  EXPECT_EQ(ErrorNumberOf([&] { return LoadPictureFile(Path("a.jpg")); }), 481);
  WriteFile(Path("empty.jpg"), "");
  EXPECT_EQ(ErrorNumberOf([&] { return LoadPictureFile(Path("empty.jpg")); }), 481);
}

TEST_F(MapPictureTest, AMapWhosePictureIsBrokenShowsNone) {
  StorePicture("Desert.bms", kPictureUrl);
  desktop.internet().Reply(kPictureUrl, "<html>not found</html>");
  EXPECT_FALSE(LoadMapPicture("Desert.bms"));
  desktop.pictures().Answer("jpeg", {1, 1, {0xFF112233}});
  desktop.internet().Reply(kPictureUrl, "jpeg");
  EXPECT_TRUE(LoadMapPicture("Desert.bms"));
}

}  // namespace
}  // namespace kestrun
