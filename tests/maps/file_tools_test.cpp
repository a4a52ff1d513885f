#include "maps/file_tools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "program/folders.h"
#include "program/frame_fixture.h"
#include "support/error_number.h"
#include "support/failing_files.h"
#include "support/forwarding_files.h"
#include "support/zip_builder.h"

namespace kestrun {
namespace {

// Files whose scratch file for icons stands in the test's own folder, not on drive C.
class ScratchFolderFiles final : public ForwardingFiles {
 public:
  ScratchFolderFiles(FileSystem& files, std::string folder) : ForwardingFiles(files), folder_(std::move(folder)) {}

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    opened.emplace_back(path);
    return files().Open(Moved(path), mode);
  }
  bool Exists(std::string_view path) override { return files().Exists(Moved(path)); }
  bool IsFolder(std::string_view path) override { return files().IsFolder(Moved(path)); }
  void Delete(std::string_view path) override { files().Delete(Moved(path)); }

  std::vector<std::string> opened;

 private:
  [[nodiscard]] std::string Moved(std::string_view path) const {
    return path.starts_with("c:\\") ? folder_ + std::string(path.substr(2)) : std::string(path);
  }

  std::string folder_;
};

class FileToolsTest : public FrameTest {
 protected:
  // A folder with files and folders in it.
  void MakeTree(const std::string& name) {
    native_files.MakeFolder(Path(name));
    native_files.MakeFolder(Path(name + "\\inner"));
    native_files.MakeFolder(Path(name + "\\empty"));
    WriteFile(Path(name + "\\a.bms"), "BMS");
    WriteFile(Path(name + "\\inner\\b.bms"), "BMS");
  }

  ScratchFolderFiles scratch_files{native_files, Folder()};
};

// ---- checksum ----------------------------------------------------------------------------------------------------

TEST_F(FileToolsTest, TheChecksumTakesInAZeroByteBehindTheFile) {
  WriteFile(Path("a.bms"), "BMS desert");
  EXPECT_EQ(static_cast<uint32_t>(FileChecksum(Path("a.bms"))), ReferenceCrc(std::string_view("BMS desert\0", 11)));
  EXPECT_NE(static_cast<uint32_t>(FileChecksum(Path("a.bms"))), ReferenceCrc("BMS desert"));
}

TEST_F(FileToolsTest, CopiesHaveOneChecksumAndAnEmptyFileThatOfAZeroByte) {
  WriteFile(Path("a.bms"), "BMS desert");
  WriteFile(Path("b.bms"), "BMS desert");
  WriteFile(Path("c.bms"), "BMS deserT");
  WriteFile(Path("empty.bms"), "");
  EXPECT_EQ(FileChecksum(Path("a.bms")), FileChecksum(Path("b.bms")));
  EXPECT_NE(FileChecksum(Path("a.bms")), FileChecksum(Path("c.bms")));
  EXPECT_EQ(static_cast<uint32_t>(FileChecksum(Path("empty.bms"))), ReferenceCrc(std::string_view("\0", 1)));
}

TEST_F(FileToolsTest, TheChecksumOfAMissingFileIsAnError) {
  EXPECT_EQ(ErrorNumberOf([&] { return FileChecksum(Path("none.bms")); }), error::kFileNotFound);
}

// ---- folders -----------------------------------------------------------------------------------------------------

TEST_F(FileToolsTest, AFolderGoesWithAllItHolds) {
  MakeTree("tree");
  EXPECT_TRUE(DeleteFolder(Path("tree\\")));
  EXPECT_FALSE(FileIsThere(Path("tree")));
  EXPECT_TRUE(FileIsThere(Path("maps")));
}

TEST_F(FileToolsTest, AFolderThatWasNotThereAndAFileAreNotDeleted) {
  EXPECT_FALSE(DeleteFolder(Path("none")));
  WriteFile(Path("file"), "x");
  EXPECT_FALSE(DeleteFolder(Path("file")));
  EXPECT_TRUE(FileIsThere(Path("file")));
  EXPECT_FALSE(DeleteFolder(""));
  EXPECT_FALSE(DeleteFolder("\\"));
}

// A layer that would let everything go, and has a root and a share.
class OpenToAllFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  bool IsFolder(std::string_view) override { return true; }
  bool Exists(std::string_view) override { return true; }
  std::vector<FolderEntry> List(std::string_view) override { return {{"Oasis.bms", false, 3}}; }
  void Delete(std::string_view path) override { deleted.emplace_back(path); }
  void RemoveFolder(std::string_view path) override {
    deleted.emplace_back(path);
    Raise(error::kPathFileAccess);
  }

  std::vector<std::string> deleted;
};

TEST_F(FileToolsTest, ARootOfADriveOrAShareIsNeverDeleted) {
  OpenToAllFiles files(native_files);
  desktop.UseFiles(files);
  for (const char* root : {"", "\\", "/", "//", "\\\\", "c:", "c:\\", "c:/", "c:\\\\", "\\\\server\\maps",
                           "\\\\server\\maps\\", "//server/maps", "\\\\server"}) {
    EXPECT_FALSE(DeleteFolder(root)) << root;
  }
  EXPECT_TRUE(files.deleted.empty());
  EXPECT_FALSE(DeleteFolder("\\\\server\\maps\\old"));
  EXPECT_FALSE(files.deleted.empty());
  desktop.UseFiles(native_files);
}

TEST_F(FileToolsTest, AFolderThatStaysIsNotReportedAsDeleted) {
  MakeTree("tree");
  // The calls before: the tree while it is full, the empty folder, the inner one while it is full, and again when it is
  // not.
  FailingFiles failing(native_files, 4, error::kPermissionDenied);
  desktop.UseFiles(failing);
  EXPECT_FALSE(DeleteFolder(Path("tree")));
  desktop.UseFiles(native_files);
}

// A link or a folder that the system does not let go is not one that is full.
TEST_F(FileToolsTest, AFolderThatIsHeldKeepsWhatItHolds) {
  MakeTree("tree");
  FailingFiles failing(native_files, 0, error::kPermissionDenied);
  desktop.UseFiles(failing);
  EXPECT_FALSE(DeleteFolder(Path("tree")));
  desktop.UseFiles(native_files);
  EXPECT_TRUE(FileIsThere(Path("tree\\a.bms")));
  EXPECT_TRUE(FileIsThere(Path("tree\\inner\\b.bms")));
}

#ifdef _WIN32
TEST_F(FileToolsTest, ReadOnlyFilesGoAsWell) {
  MakeTree("tree");
  const std::u8string file(reinterpret_cast<const char8_t*>(Path("tree\\a.bms").c_str()));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  EXPECT_TRUE(DeleteFolder(Path("tree")));
}
#else
TEST_F(FileToolsTest, ALinkInTheFolderGoesAndWhatItLeadsToStays) {
  MakeTree("tree");
  MakeTree("kept");
  std::filesystem::create_directory_symlink(Folder() + "/kept", Folder() + "/tree/link");
  EXPECT_TRUE(DeleteFolder(Path("tree")));
  EXPECT_TRUE(FileIsThere(Path("kept\\inner\\b.bms")));
}

TEST_F(FileToolsTest, ALinkInThePlaceOfTheFolderGoesAndWhatItLeadsToStays) {
  MakeTree("kept");
  std::filesystem::create_directory_symlink(Folder() + "/kept", Folder() + "/link");
  EXPECT_TRUE(DeleteFolder(Path("link")));
  EXPECT_FALSE(std::filesystem::is_symlink(Folder() + "/link"));
  EXPECT_TRUE(FileIsThere(Path("kept\\inner\\b.bms")));
}
#endif

// ---- icons -------------------------------------------------------------------------------------------------------

TEST_F(FileToolsTest, TheIconOfATypeComesFromAScratchFileThatGoesAgain) {
  desktop.UseFiles(scratch_files);
  const Ref<Picture> icon = GetIcon("zip", 1);
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->width_pixels(), 16);
  ASSERT_EQ(desktop.pictures().icon_requests.size(), 1U);
  EXPECT_EQ(desktop.pictures().icon_requests[0], (HeadlessPictures::IconRequest{"c:\\tmp1304930549302.zip", 1}));
  EXPECT_EQ(scratch_files.opened, std::vector<std::string>{"c:\\tmp1304930549302.zip"});
  EXPECT_FALSE(FileIsThere(Path("tmp1304930549302.zip")));
  desktop.UseFiles(native_files);
}

TEST_F(FileToolsTest, AnEmptyExtensionAsksForNothing) {
  EXPECT_FALSE(GetIcon("", 0));
  EXPECT_TRUE(desktop.pictures().icon_requests.empty());
}

TEST_F(FileToolsTest, WithoutAnIconOfTheShellThereIsAFixedPicture) {
  desktop.UseFiles(scratch_files);
  desktop.pictures().has_icons = false;
  EXPECT_TRUE(GetIcon("zip", 0));
  desktop.UseFiles(native_files);
}

TEST_F(FileToolsTest, ADriveThatCannotBeWrittenHasItsScratchFileInTheTemporaryFolder) {
  FailingFiles failing(native_files, 0, error::kPermissionDenied);
  desktop.UseFiles(failing);
  EXPECT_TRUE(GetIcon("zip", 0));
  const std::string scratch = SpecialFolder(folder::kTemporary) + "tmp1304930549302.zip";
  ASSERT_EQ(desktop.pictures().icon_requests.size(), 1U);
  EXPECT_EQ(desktop.pictures().icon_requests[0], (HeadlessPictures::IconRequest{scratch, 0}));
  EXPECT_FALSE(FileIsThere(scratch));
  desktop.UseFiles(native_files);
}

TEST_F(FileToolsTest, AScratchFileThatCannotBeMadeAnywhereIsReported) {
  desktop.shell().temporary_folder = Path("no such folder") + "\\";
  FailingFiles failing(native_files, 0, error::kPermissionDenied);
  desktop.UseFiles(failing);
  desktop.dialogs().ExpectFileFailure("Error: GetIcon()76\r\nPath not found",
                                      Path("no such folder") + "\\tmp1304930549302.zip");
  EXPECT_FALSE(GetIcon("zip", 0));
  EXPECT_TRUE(desktop.pictures().icon_requests.empty());
  desktop.UseFiles(native_files);
}

// ---- lists -------------------------------------------------------------------------------------------------------

TEST_F(FileToolsTest, AListScrollsAsFarAsItsWidestEntryAndATenth) {
  Form form("frmtest");
  auto& list = form.Add<ListBox>("List1");
  list.AddItem("short");
  list.AddItem("the widest of the three");
  list.AddItem("medium one");
  FitListWidth(form, list);
  const int widest_twips = desktop.windowing().TextWidth("the widest of the three", form.Font);
  EXPECT_EQ(list.HorizontalExtent, static_cast<int>(std::lround(widest_twips / 15.0 * 1.1)));
  list.Clear();
  FitListWidth(form, list);
  EXPECT_EQ(list.HorizontalExtent, 0);
}

}  // namespace
}  // namespace kestrun
