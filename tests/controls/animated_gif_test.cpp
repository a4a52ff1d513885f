#include "controls/animated_gif/animated_gif.h"

#include "formats/gif/gif_frames.h"
#include "forms/form.h"
#include "support/error_number.h"
#include "support/gif_bytes.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmbanner final : public Form {
 public:
  frmbanner() : Form("frmbanner") {}

  AnimatedGIF& AnimGIF1 = Add<AnimatedGIF>("AnimGIF1");
};

class AnimatedGifTest : public HeadlessTest {
 protected:
  // Writes a file whose frames the desktop decodes, each in its own size.
  std::string WriteGif(const std::vector<GifFrameSpan>& frames) {
    const std::string file = AnimatedGifFile(frames);
    gif::FrameReader reader(AsBytes(file));
    for (const GifFrameSpan& frame : frames) {
      const auto cut = reader.Next();
      const Bytes picture = reader.PictureOf(*cut);
      desktop.pictures().Answer(
          std::string(AsChars(picture)),
          {frame.width, frame.height, std::vector<uint32_t>(static_cast<size_t>(frame.width * frame.height))});
    }
    WriteFile(Path("banner.gif"), file);
    return Path("banner.gif");
  }

  std::string ShownFrames() const {
    std::string shown;
    for (int number = 0; number < gif.FrameCount(); ++number) shown += gif.ImgPic(number).Visible ? 'x' : '.';
    return shown;
  }

  Ref<frmbanner> form = MakeRef<frmbanner>();
  AnimatedGIF& gif = form->AnimGIF1;
};

TEST_F(AnimatedGifTest, ANewControlHasOneEmptyFrameAndStandsStill) {
  EXPECT_EQ(gif.FrameCount(), 1);
  EXPECT_EQ(gif.ImgPic(0).Name(), "ImgPic");
  EXPECT_FALSE(gif.AnimationTimer.Enabled);
  EXPECT_EQ(gif.Url.get(), kSite);
  EXPECT_FALSE(gif.Stretch);
}

TEST_F(AnimatedGifTest, EachFrameStandsAtItsPlaceOverTheFirst) {
  gif.LoadNewPicture(WriteGif({{10, 0, 0, 40, 20}, {20, 3, 5, 8, 4}}), 1);
  ASSERT_EQ(gif.FrameCount(), 2);
  EXPECT_EQ(gif.ImgPic(1).Left, 45);
  EXPECT_EQ(gif.ImgPic(1).Top, 75);
  EXPECT_EQ(gif.ImgPic(1).Width, 120);
  EXPECT_EQ(gif.ImgPic(0).Tag.get(), "100");
  EXPECT_EQ(gif.ImgPic(1).Tag.get(), "200");
  EXPECT_EQ(ShownFrames(), "x.");
}

TEST_F(AnimatedGifTest, WithoutStretchTheControlTakesTheSizeOfTheFirstFrameAndItsOwnBorder) {
  gif.LoadNewPicture(WriteGif({{10, 0, 0, 40, 20}}), 1);
  EXPECT_EQ(gif.Width, 600);
  EXPECT_EQ(gif.Height, 300);
  gif.BorderStyle = 1;
  EXPECT_EQ(gif.Width, 600 + kSunkenEdgesTwips);
  gif.Width = 5000;
  EXPECT_EQ(gif.Width, 600 + kSunkenEdgesTwips);
}

TEST_F(AnimatedGifTest, WithStretchTheFramesGrowWithTheFirst) {
  gif.LoadNewPicture(WriteGif({{10, 0, 0, 40, 20}, {10, 10, 5, 20, 10}}), 1);
  gif.Stretch = true;
  gif.Move(0, 0, 1200, 900);
  EXPECT_EQ(gif.ImgPic(0).Width, 1200);
  EXPECT_EQ(gif.ImgPic(0).Height, 900);
  EXPECT_EQ(gif.ImgPic(1).Left, 300);
  EXPECT_EQ(gif.ImgPic(1).Top, 225);
  EXPECT_EQ(gif.ImgPic(1).Width, 600);
  EXPECT_EQ(gif.ImgPic(1).Height, 450);
}

TEST_F(AnimatedGifTest, FramesPileUpUntilTheLoopStartsAgain) {
  gif.LoadNewPicture(WriteGif({{10}, {20}, {30}}), 1);
  EXPECT_EQ(gif.AnimationTimer.Interval, 100);
  desktop.clock().AdvanceMs(100);
  EXPECT_EQ(ShownFrames(), "xx.");
  EXPECT_EQ(gif.AnimationTimer.Interval, 200);
  desktop.clock().AdvanceMs(200);
  EXPECT_EQ(ShownFrames(), "xxx");
  EXPECT_EQ(gif.CurrentFrame(), 2);
  desktop.clock().AdvanceMs(300);
  EXPECT_EQ(ShownFrames(), "x..");
  EXPECT_EQ(gif.AnimationTimer.Interval, 100);
}

TEST_F(AnimatedGifTest, AGifWithOneFrameHasOneElementAndTheTimerRestartsItOnEachTick) {
  gif.LoadNewPicture(WriteGif({{10}}), 1);
  EXPECT_EQ(gif.FrameCount(), 1);
  desktop.clock().AdvanceMs(250);
  EXPECT_EQ(ShownFrames(), "x");
  EXPECT_TRUE(gif.AnimationTimer.Enabled);
  EXPECT_EQ(gif.AnimationTimer.Interval, 100);
}

TEST_F(AnimatedGifTest, ADelayOf0LeavesTheTimerIdleAfterThatFrame) {
  gif.LoadNewPicture(WriteGif({{10}, {0}, {10}}), 1);
  desktop.clock().AdvanceMs(100);
  EXPECT_EQ(gif.AnimationTimer.Interval, 0);
  desktop.clock().AdvanceMs(100'000);
  EXPECT_EQ(ShownFrames(), "xx.");
}

TEST_F(AnimatedGifTest, LoadingANewPictureRemovesTheOldFramesFirst) {
  gif.LoadNewPicture(WriteGif({{10}, {10}, {10}}), 1);
  gif.LoadNewPicture(WriteGif({{70}, {70}}), 1);
  EXPECT_EQ(gif.FrameCount(), 2);
  EXPECT_EQ(gif.Constituents().size(), 3U);
  EXPECT_EQ(gif.AnimationTimer.Interval, 700);
}

// As on systems whose loader wants the trailer that a frame lacks when another follows.
TEST_F(AnimatedGifTest, AFrameThatDecodesOnlyWithItsTrailerIsShownToo) {
  const std::string file = AnimatedGifFile({{}, {}});
  gif::FrameReader reader(AsBytes(file));
  Bytes first = reader.PictureOf(*reader.Next());
  ASSERT_EQ(first.back(), '!');
  first.back() = ';';
  desktop.pictures().Answer(std::string(AsChars(first)), {5, 1, std::vector<uint32_t>(5)});
  WriteFile(Path("banner.gif"), file);
  gif.LoadNewPicture(Path("banner.gif"), 1);
  ASSERT_TRUE(gif.ImgPic(0).Picture.get());
  EXPECT_EQ(gif.ImgPic(0).Picture.get()->width_pixels(), 5);
}

TEST_F(AnimatedGifTest, AStillPictureStopsTheAnimation) {
  gif.LoadNewPicture(WriteGif({{10}, {10}}), 1);
  desktop.pictures().Answer("jpeg", {30, 10, std::vector<uint32_t>(300)});
  WriteFile(Path("a.jpg"), "jpeg");
  gif.LoadNewPicture(Path("a.jpg"), 2);
  EXPECT_EQ(gif.FrameCount(), 1);
  EXPECT_FALSE(gif.AnimationTimer.Enabled);
  EXPECT_EQ(gif.Width, 450);
  EXPECT_TRUE(gif.ImgPic(0).Visible);
}

TEST_F(AnimatedGifTest, AMissingFileIsToldWithItsNumber) {
  desktop.dialogs().ExpectBox("Error Loading GIF file: Invalid file name 53\r\nFile not found");
  gif.LoadNewPicture(Path("none.gif"), 1);
  EXPECT_FALSE(gif.AnimationTimer.Enabled);
}

TEST_F(AnimatedGifTest, AMarkerAtTheEndIsToldAndTheFramesBeforeItStay) {
  const std::string file = AnimatedGifFile({{10}, {10}});
  WriteFile(Path("cut.gif"), file.substr(0, file.size() - 1) + std::string("\0\x21\xF9", 3));
  desktop.dialogs().ExpectBox("Error Loading GIF file: Invalid file name 5\r\nInvalid procedure call or argument");
  gif.LoadNewPicture(Path("cut.gif"), 1);
  EXPECT_EQ(gif.FrameCount(), 2);
}

TEST_F(AnimatedGifTest, ThousandsOfMarkersMakeNoMoreThan4096Frames) {
  std::string file = GifScreen(1, 1) + '\0';
  for (int count = 0; count < 60'000; ++count) file += GifFrame({1}).substr(0, 15) + '\0';
  WriteFile(Path("many.gif"), file);
  gif.LoadNewPicture(Path("many.gif"), 1);
  EXPECT_EQ(gif.FrameCount(), 4096);
}

TEST_F(AnimatedGifTest, AFrameOf65535PixelsIsNotDecoded) {
  WriteFile(Path("huge.gif"), AnimatedGifFile({{10, 0, 0, 65535, 65535}, {10}}));
  gif.LoadNewPicture(Path("huge.gif"), 1);
  EXPECT_EQ(gif.FrameCount(), 1);
  EXPECT_EQ(gif.ImgPic(0).Picture.get(), nullptr);
}

TEST_F(AnimatedGifTest, WhatWouldBringABoxUpIsKnownBefore) {
  const std::string file = WriteGif({{10, 0, 0, 4, 2}, {20, 0, 0, 4, 2}});
  EXPECT_TRUE(AnimatedGIF::CanLoad(file, kAnimatedGif));
  EXPECT_FALSE(AnimatedGIF::CanLoad(Path("none.gif"), kAnimatedGif));
  // The last frame is a marker without its fields.
  const std::string whole = ReadFile(file);
  WriteFile(file, whole.substr(0, whole.size() - 1) + std::string("\0\x21\xF9", 3));
  EXPECT_FALSE(AnimatedGIF::CanLoad(file, kAnimatedGif));
  WriteFile(file, AnimatedGifFile({{10, 0, 0, 65535, 65535}}));
  EXPECT_FALSE(AnimatedGIF::CanLoad(file, kAnimatedGif));
  WriteFile(file, "<html>");
  EXPECT_FALSE(AnimatedGIF::CanLoad(file, kAnimatedGif));
  EXPECT_FALSE(AnimatedGIF::CanLoad(file, 0));
  EXPECT_EQ(gif.FrameCount(), 1);
}

TEST_F(AnimatedGifTest, AClickOnAnyFrameIsAClickOnTheControl) {
  gif.LoadNewPicture(WriteGif({{10, 0, 0, 40, 20}, {10, 2, 1, 8, 4}}), 1);
  std::vector<std::string> heard;
  gif.Click = [&] { heard.emplace_back("click"); };
  gif.DblClick = [&] { heard.emplace_back("double"); };
  gif.MouseMove = [&](int, int, int x, int y) { heard.push_back(std::to_string(x) + "," + std::to_string(y)); };
  gif.ImgPic(0).Click();
  gif.ImgPic(1).DblClick();
  gif.ImgPic(1).MouseMove(0, 0, 10, 20);
  EXPECT_EQ(heard, (std::vector<std::string>{"click", "double", "40,35"}));
}

TEST_F(AnimatedGifTest, ALoadInTheMiddleOfALoadWins) {
  const std::string banner = WriteGif({{10}, {10}, {10}});
  desktop.pictures().Answer("jpeg", {30, 10, std::vector<uint32_t>(300)});
  WriteFile(Path("a.jpg"), "jpeg");
  desktop.clock().Post([&] { gif.LoadNewPicture(Path("a.jpg"), 2); });
  gif.LoadNewPicture(banner, 1);
  EXPECT_EQ(gif.FrameCount(), 1);
  EXPECT_EQ(gif.Width, 450);
  EXPECT_FALSE(gif.AnimationTimer.Enabled);
}

TEST_F(AnimatedGifTest, TheShellOpensTheUrl) {
  gif.Url = "http://127.0.0.1/news";
  gif.OpenUrl();
  ASSERT_EQ(desktop.shell().openings.size(), 1U);
  EXPECT_EQ(desktop.shell().openings[0].file, "http://127.0.0.1/news");
}

TEST_F(AnimatedGifTest, StoredPropertiesComeBack) {
  gif.BorderStyle = 1;
  gif.Url = "http://127.0.0.1/";
  gif.Stretch = true;
  PropertyBag bag;
  gif.WriteProperties(bag);
  const Ref<frmbanner> other = MakeRef<frmbanner>();
  other->AnimGIF1.ReadProperties(bag);
  EXPECT_EQ(other->AnimGIF1.BorderStyle, 1);
  EXPECT_EQ(other->AnimGIF1.Url.get(), "http://127.0.0.1/");
  EXPECT_TRUE(other->AnimGIF1.Stretch);
}

TEST_F(AnimatedGifTest, ScriptsReachItsMembersLateBound) {
  EXPECT_EQ(ToText(GetMember(gif, "Url")), kSite);
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(gif, "LoadNewPicture"); }), error::kWrongArgumentCount);
}

}  // namespace
}  // namespace kestrun
