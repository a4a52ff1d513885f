#include "controls/image_list/image_list.h"

#include <algorithm>

#include "forms/form.h"
#include "script/script_engine.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmpictures final : public Form {
 public:
  frmpictures() : Form("frmpictures") {}

  McImageList& ImageList = Add<McImageList>("ImageList");
};

Ref<Picture> Dot(int width = 1, int height = 1) {
  return MakeRef<Picture>(width, height, std::vector<uint32_t>(static_cast<size_t>(width * height), 0xFF102030));
}

// Keeps each call as a line of text; a character is 6 by 10 pixels.
class RecordingCanvas final : public Canvas {
 public:
  explicit RecordingCanvas(PixelSize size) : size_(size) {}

  [[nodiscard]] PixelSize Size() const override { return size_; }
  [[nodiscard]] int Dpi() const override { return 96; }
  [[nodiscard]] Color Translate(Color color) const override { return color; }
  void Fill(const PixelRect& area, Color) override { Note("fill", area); }
  void Frame(const PixelRect& area, Color) override { Note("frame", area); }
  void HorizontalLine(int, int, int, Color) override { calls.emplace_back("line"); }
  void Line(PixelPoint, PixelPoint, Color, int) override { calls.emplace_back("line"); }
  void FocusRectangle(const PixelRect& area) override { Note("focus", area); }
  void Text(std::string_view text, const PixelRect& area, const FontDescription&, Color, TextPlacement) override {
    Note("text " + std::string(text), area);
  }
  [[nodiscard]] PixelSize MeasureText(std::string_view text, const FontDescription&) override {
    return {static_cast<int>(text.size()) * 6, 10};
  }
  void DrawPicture(const Picture&, const PixelRect& area) override { Note("picture", area); }
  void DrawPixels(std::span<const uint32_t>, PixelSize, const PixelRect& area) override { Note("pixels", area); }
  void PushClip(const PixelRect& area) override { Note("clip", area); }
  void PopClip() override { calls.emplace_back("unclip"); }

  std::vector<std::string> calls;

 private:
  void Note(const std::string& what, const PixelRect& area) {
    calls.push_back(what + " " + std::to_string(area.left) + "," + std::to_string(area.top) + "-" +
                    std::to_string(area.right) + "," + std::to_string(area.bottom));
  }

  PixelSize size_;
};

class ImageListTest : public HeadlessTest {
 protected:
  void AddThree() {
    for (const Ref<Picture>& picture : {first, second, third}) list.AddNewImage(picture);
  }

  Ref<frmpictures> form = MakeRef<frmpictures>();
  McImageList& list = form->ImageList;
  Ref<Picture> first = Dot();
  Ref<Picture> second = Dot();
  Ref<Picture> third = Dot();
};

TEST_F(ImageListTest, ANewListIsEmpty) {
  EXPECT_EQ(list.ImageCount(), 0);
  EXPECT_EQ(list.CurrentImage(), 0);
  EXPECT_FALSE(list.HasBody());
}

TEST_F(ImageListTest, AddedPicturesStandBehindEachOtherFromZero) {
  AddThree();
  EXPECT_EQ(list.ImageCount(), 3);
  EXPECT_EQ(list.ListImages(0), first);
  EXPECT_EQ(list.ListImages(2), third);
  EXPECT_EQ(list.CurrentImage(), 0);
  EXPECT_EQ(list.Image(), first);
}

TEST_F(ImageListTest, ANegativeCurrentImageGivesZero) {
  AddThree();
  list.SetCurrentImage(1);
  list.SetCurrentImage(-1);
  EXPECT_EQ(list.CurrentImage(), 0);
}

TEST_F(ImageListTest, ACurrentImagePastTheEndGivesTheLast) {
  AddThree();
  list.SetCurrentImage(3);
  EXPECT_EQ(list.CurrentImage(), 2);
}

TEST_F(ImageListTest, AnyCurrentImageOfAnEmptyListIsZero) {
  list.SetCurrentImage(5);
  EXPECT_EQ(list.CurrentImage(), 0);
}

TEST_F(ImageListTest, SteppingForwardFromTheLastPictureWrapsToTheFirst) {
  AddThree();
  list.SetCurrentImage(1);
  EXPECT_EQ(list.CyclePic(-1), third);
  EXPECT_EQ(list.CyclePic(-1), first);
  EXPECT_EQ(list.CurrentImage(), 0);
}

TEST_F(ImageListTest, SteppingBackFromTheFirstPictureWrapsToTheLast) {
  AddThree();
  EXPECT_EQ(list.CyclePic(0), third);
  EXPECT_EQ(list.CyclePic(0), second);
  EXPECT_EQ(list.CurrentImage(), 1);
}

TEST_F(ImageListTest, AnyOtherDirectionStays) {
  AddThree();
  list.SetCurrentImage(1);
  EXPECT_EQ(list.CyclePic(1), second);
  EXPECT_EQ(list.CyclePic(-2), second);
}

TEST_F(ImageListTest, RemovingTheOnlyPictureEmptiesTheList) {
  list.AddNewImage(first);
  list.RemoveImage(1);
  EXPECT_EQ(list.ImageCount(), 0);
  EXPECT_EQ(list.CurrentImage(), 0);
  list.RemoveImage(1);
  EXPECT_EQ(list.ImageCount(), 0);
}

TEST_F(ImageListTest, RemovingTakesTheCurrentPictureOnly) {
  AddThree();
  list.SetCurrentImage(1);
  list.RemoveImage(-1);
  EXPECT_EQ(list.ImageCount(), 2);
  EXPECT_EQ(list.CurrentImage(), 1);
  EXPECT_EQ(list.Image(), third);
}

TEST_F(ImageListTest, RemovingTheLastPictureMovesToTheOneBefore) {
  AddThree();
  list.SetCurrentImage(2);
  list.RemoveImage(1);
  EXPECT_EQ(list.CurrentImage(), 1);
  EXPECT_EQ(list.Image(), second);
}

TEST_F(ImageListTest, RemovingWithZeroDoesNothing) {
  AddThree();
  list.RemoveImage(0);
  EXPECT_EQ(list.ImageCount(), 3);
}

TEST_F(ImageListTest, MovingExchangesTheCurrentPictureWithAnother) {
  AddThree();
  list.MoveImageTo(1);
  EXPECT_EQ(list.ListImages(0), second);
  EXPECT_EQ(list.ListImages(1), first);
  EXPECT_EQ(list.CurrentImage(), 0);
}

TEST_F(ImageListTest, MovingPastTheEndMeansTheLastPicture) {
  AddThree();
  list.MoveImageTo(99);
  EXPECT_EQ(list.ListImages(0), third);
  EXPECT_EQ(list.ListImages(2), first);
}

TEST_F(ImageListTest, PositionsWithoutAPictureFailAsArraysDo) {
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(list.ListImages(0)); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(list.Image()); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(list.CyclePic(-1)); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { list.MoveImageTo(0); }), error::kSubscriptOutOfRange);
  AddThree();
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(list.ListImages(3)); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { list.SetListImages(-1, first); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { list.MoveImageTo(-1); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(list.ListImages(0), first);
}

TEST_F(ImageListTest, EachChangePaintsThePreviewAgain) {
  form->Show();
  auto& windowing = desktop.windowing();
  windowing.record_calls = true;
  const auto repaints = [&] {
    return std::count(windowing.calls.begin(), windowing.calls.end(),
                      PeerCall{PeerCall::Kind::kRepaint, "ImageList", {}});
  };
  list.AddNewImage(first);
  EXPECT_EQ(repaints(), 1);
  list.SetListImages(0, second);
  EXPECT_EQ(repaints(), 2);
  list.SetImage(third);
  EXPECT_EQ(list.ListImages(0), third);
  EXPECT_EQ(repaints(), 3);
  list.SetCurrentImage(0);
  EXPECT_EQ(repaints(), 4);
  list.MoveImageTo(0);
  EXPECT_EQ(repaints(), 5);
  list.RemoveImage(1);
  EXPECT_EQ(repaints(), 6);
}

TEST_F(ImageListTest, EachChangeIsMarked) {
  std::string marks;
  list.PropertyChangedMark = [&](std::string_view name) { marks += std::string(name) + " "; };
  list.AddNewImage(first);
  list.SetImage(second);
  list.SetCurrentImage(0);
  list.MoveImageTo(0);
  list.RemoveImage(1);
  EXPECT_EQ(marks, "AddNewImage ListImages CurrentImage MoveImageTo RemoveImage ");
}

TEST_F(ImageListTest, ThePreviewFitsThePictureAboveItsNumber) {
  list.AddNewImage(first);
  list.AddNewImage(Dot(40, 10));
  list.SetCurrentImage(1);
  RecordingCanvas canvas({42, 52});
  list.PaintPreview(canvas);
  const std::vector<std::string> expected{"fill 0,0-42,52", "frame 0,0-42,52", "picture 1,16-41,26",
                                          "text 1 1,41-41,51"};
  EXPECT_EQ(canvas.calls, expected);
}

TEST_F(ImageListTest, ThePreviewOfAnEmptyListIsItsFrame) {
  RecordingCanvas canvas({42, 52});
  list.PaintPreview(canvas);
  const std::vector<std::string> expected{"fill 0,0-42,52", "frame 0,0-42,52"};
  EXPECT_EQ(canvas.calls, expected);
}

TEST_F(ImageListTest, APreviewWithoutRoomLeavesThePictureOut) {
  list.AddNewImage(first);
  RecordingCanvas canvas({5, 8});
  list.PaintPreview(canvas);
  EXPECT_EQ(canvas.calls.size(), 3U);
}

TEST_F(ImageListTest, PicturesComeBackUnderTheirStoredNames) {
  AddThree();
  list.SetCurrentImage(2);
  PropertyBag bag;
  list.WriteProperties(bag);
  EXPECT_EQ(ToLong(bag.ReadProperty("ImageCount", 0)), 3);
  EXPECT_EQ(bag.ReadProperty("Images0", Variant()).object(), first.get());
  EXPECT_EQ(bag.ReadProperty("Images2", Variant()).object(), third.get());
  EXPECT_EQ(ToLong(bag.ReadProperty("CurrentImage", 0)), 2);

  McImageList& copy = form->Add<McImageList>("Copy");
  copy.PropertyChangedMark = [](std::string_view name) { ADD_FAILURE() << name; };
  copy.ReadProperties(bag);
  EXPECT_EQ(copy.ImageCount(), 3);
  EXPECT_EQ(copy.ListImages(1), second);
  EXPECT_EQ(copy.CurrentImage(), 2);
}

TEST_F(ImageListTest, WithACountOfZeroNoPictureIsRead) {
  PropertyBag empty;
  list.WriteProperties(empty);
  EXPECT_EQ(empty.Count(), 0U);
  PropertyBag bag;
  bag.WriteProperty("Images0", first, Variant::Nothing());
  list.ReadProperties(bag);
  EXPECT_EQ(list.ImageCount(), 0);
}

TEST_F(ImageListTest, AStoredCountThatNoListHasIsRefused) {
  list.AddNewImage(first);
  for (const int count : {-1, 65536, 2147483647}) {
    PropertyBag bag;
    bag.WriteProperty("ImageCount", count, 0);
    EXPECT_EQ(ErrorNumberOf([&] { list.ReadProperties(bag); }), error::kInvalidFileFormat) << count;
  }
  EXPECT_EQ(list.ListImages(0), first);
}

TEST_F(ImageListTest, MembersStandInTheOrderOfTheirSlots) {
  std::vector<std::string> names;
  for (const Member& row : list.Members().own) names.emplace_back(row.name);
  const std::vector<std::string> expected{"ListImages",  "ImageCount",  "Image",       "CurrentImage",
                                          "AddNewImage", "RemoveImage", "MoveImageTo", "CyclePic"};
  EXPECT_EQ(names, expected);
}

TEST_F(ImageListTest, PropertiesThatAreCommandsReadAsNothing) {
  AddThree();
  EXPECT_EQ(GetMember(list, "AddNewImage").object(), nullptr);
  EXPECT_TRUE(GetMember(list, "AddNewImage").Is(VarType::kObject));
  EXPECT_EQ(ToLong(GetMember(list, "RemoveImage")), 0);
  EXPECT_EQ(ToLong(GetMember(list, "MoveImageTo")), -1);
  PutMember(list, "ImageCount", 9);
  EXPECT_EQ(ToLong(GetMember(list, "ImageCount")), 3);
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(list, "AddNewImage", 5); }), error::kTypeMismatch);
}

TEST_F(ImageListTest, AScriptArrangesThePictures) {
  const auto engine = MakeScriptEngine();
  engine->SetLanguage("VBScript");
  engine->AddObject("List", Ref<Object>(&list));
  engine->AddObject("First", first);
  engine->AddObject("Second", second);
  ASSERT_TRUE(
      engine->AddCode("Set List.AddNewImage = First\nSet List.AddNewImage = Second\n"
                      "Set List.AddNewImage = First\nSet List.ListImages(2) = Second\n"
                      "List.RemoveImage = True\nList.MoveImageTo = 1\nList.CurrentImage = 7\n"
                      "Function Cycle()\n  Set Cycle = List.CyclePic(-1)\nEnd Function\n"
                      "Function Fail()\n  Set Fail = List.ListImages(8)\nEnd Function"))
      << engine->Error().Description;
  EXPECT_EQ(list.ImageCount(), 2);
  EXPECT_EQ(list.CurrentImage(), 1);
  EXPECT_EQ(engine->Run("Cycle", {}).object(), second.get());
  engine->Run("Fail", {});
  EXPECT_EQ(engine->Error().Number, error::kSubscriptOutOfRange);
}

}  // namespace
}  // namespace kestrun
