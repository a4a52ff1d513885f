// What a hostile GIF takes of the memory: less than 64 MB, whatever it says.
#include "support/allocation_peak.h"

#ifdef KESTRUN_COUNTS_MEMORY
#include "controls/animated_gif/animated_gif.h"
#include "formats/gif/gif_frames.h"
#include "forms/form.h"
#include "support/gif_bytes.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr long long kMostBytes = 64'000'000;

class frmbanner final : public Form {
 public:
  frmbanner() : Form("frmbanner") {}
  AnimatedGIF& AnimGIF1 = Add<AnimatedGIF>("AnimGIF1");
};

class AnimatedGifMemoryTest : public HeadlessTest {
 protected:
  // Writes the file, and lays down the picture that the desktop makes of each frame.
  void Write(const std::string& file, const std::vector<GifFrameSpan>& frames) {
    gif::FrameReader reader(AsBytes(file));
    for (const GifFrameSpan& frame : frames) {
      const size_t pixels = static_cast<size_t>(frame.width) * static_cast<size_t>(frame.height);
      desktop.pictures().Answer(std::string(AsChars(reader.PictureOf(*reader.Next()))),
                                {frame.width, frame.height, std::vector<uint32_t>(pixels)});
    }
    WriteFile(Path("banner.gif"), file);
  }
  [[nodiscard]] long long PeakOfLoading() {
    AllocationPeak peak;
    gif.LoadNewPicture(Path("banner.gif"), kAnimatedGif);
    return AllocationPeak::Bytes();
  }

  Ref<frmbanner> form = MakeRef<frmbanner>();
  AnimatedGIF& gif = form->AnimGIF1;
};

TEST_F(AnimatedGifMemoryTest, ThreeOfTheLargestFramesThatAreShownInAFileOfTheLargestSize) {
  const std::vector<GifFrameSpan> frames{{10, 0, 0, 2000, 1000}, {20, 0, 0, 2000, 1000}, {30, 0, 0, 2000, 1000}};
  std::string file = AnimatedGifFile(frames);
  file.resize(8 * 1024 * 1024, 'x');
  Write(AnimatedGifFile(frames), frames);
  // The last frame has all the rest of the file.
  gif::FrameReader reader(AsBytes(file));
  static_cast<void>(reader.Next());
  static_cast<void>(reader.Next());
  desktop.pictures().Answer(std::string(AsChars(reader.PictureOf(*reader.Next()))),
                            {2000, 1000, std::vector<uint32_t>(2'000'000)});
  WriteFile(Path("banner.gif"), file);
  const long long peak = PeakOfLoading();
  EXPECT_LT(peak, kMostBytes);
  EXPECT_GT(peak, 24'000'000) << "the pixels of all three";
  EXPECT_TRUE(gif.ImgPic(2).Picture.get());
}

TEST_F(AnimatedGifMemoryTest, AFrameOf65535Pixels) {
  WriteFile(Path("banner.gif"), AnimatedGifFile({{10, 0, 0, 65535, 65535}, {10}}));
  EXPECT_LT(PeakOfLoading(), 1'000'000);
  EXPECT_EQ(gif.ImgPic(0).Picture.get(), nullptr);
}

TEST_F(AnimatedGifMemoryTest, ThousandsOfFramesBehindAHeaderOfMegabytes) {
  // The header is all that stands before the first marker, and each frame begins with it.
  std::string file = GifScreen(1, 1) + std::string(4'000'000, 'h') + '\0';
  for (int count = 0; count < 60'000; ++count) file += GifFrame({1}).substr(0, 15) + '\0';
  WriteFile(Path("banner.gif"), file);
  EXPECT_LT(PeakOfLoading(), kMostBytes);
  EXPECT_LE(gif.FrameCount(), 17);
}

TEST_F(AnimatedGifMemoryTest, ThousandsOfSmallFrames) {
  std::string file = GifScreen(1, 1) + '\0';
  for (int count = 0; count < 60'000; ++count) file += GifFrame({1}).substr(0, 15) + '\0';
  WriteFile(Path("banner.gif"), file);
  EXPECT_LT(PeakOfLoading(), kMostBytes);
  EXPECT_EQ(gif.FrameCount(), 4096);
}

TEST_F(AnimatedGifMemoryTest, AFileThatIsTooLargeIsNotRead) {
  WriteFile(Path("banner.gif"), GifScreen(1, 1) + std::string(9'000'000, 'x'));
  desktop.dialogs().ExpectBox("Error Loading GIF file: Invalid file name 481\r\nInvalid picture");
  EXPECT_LT(PeakOfLoading(), 1'000'000);
}

TEST_F(AnimatedGifMemoryTest, AMarkerAtTheLastByte) {
  WriteFile(Path("banner.gif"), GifScreen(1, 1) + std::string("\0\x21\xF9", 3));
  desktop.dialogs().ExpectBox("Error Loading GIF file: Invalid file name 5\r\nInvalid procedure call or argument");
  EXPECT_LT(PeakOfLoading(), 1'000'000);
}

}  // namespace
}  // namespace kestrun
#endif  // KESTRUN_COUNTS_MEMORY
