// What a GIF takes of the process's memory while Windows' own decoder makes its pictures: less than 64 MB, whatever it
// says.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

#include "base/text.h"
#include "controls/animated_gif/animated_gif.h"
#include "desktop/win32/window_fixture.h"
#include "support/gif_bytes.h"
// Behind windows.h, which it needs.
#include <psapi.h>

namespace kestrun {
namespace {

constexpr size_t kMostBytes = 64'000'000;

size_t PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

// The most that the process had above what it has at the start, looked at on a thread of its own all the time.
class MemoryPeak {
 public:
  MemoryPeak() : before_(PrivateBytes()), thread_([this] { Watch(); }) {}
  ~MemoryPeak() {
    if (thread_.joinable()) Bytes();
  }
  MemoryPeak(const MemoryPeak&) = delete;
  MemoryPeak& operator=(const MemoryPeak&) = delete;

  size_t Bytes() {
    ends_ = true;
    thread_.join();
    return most_;
  }

 private:
  void Watch() {
    do most_ = std::max(most_, std::max(PrivateBytes(), before_) - before_);
    while (!ends_);
  }

  const size_t before_;
  size_t most_ = 0;
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};

// A frame of one colour that can be decoded: the code that clears the table (GIF89a, appendix F) and two pixels, again
// and again, so that no code ever gets longer than three bits.
std::string SolidFrame(int width, int height) {
  // Eight times "4, 0, 0" from the lowest bit on.
  const std::string sixteen_pixels = [] {
    std::string bytes(9, '\0');
    for (size_t code = 0; code < 24; code += 3) {
      const size_t bit = code * 3 + 2;  // of the 4
      bytes[bit / 8] = static_cast<char>(bytes[bit / 8] | 1 << bit % 8);
    }
    return bytes;
  }();
  std::string data;
  for (int pixel = 0; pixel < width * height; pixel += 16) data += sixteen_pixels;
  data += '\x05';  // the end
  std::string frame = std::string("\x21\xF9\x04\0\x0A\0\0\0", 8) + "\x2C" + GifWord(0) + GifWord(0) + GifWord(width) +
                      GifWord(height) + std::string("\0\x02", 2);
  for (size_t at = 0; at < data.size(); at += 255) {
    const std::string block = data.substr(at, 255);
    frame += static_cast<char>(block.size()) + block;
  }
  return frame + '\0';
}

class BannerForm final : public Form {
 public:
  BannerForm() : Form("frmbanner") {}
  AnimatedGIF& AnimGIF1 = Add<AnimatedGIF>("AnimGIF1");
};

class BannerMemoryTest : public RealWindowTest {
 protected:
  BannerMemoryTest() {
    form->Show();
    Pump();
  }
  ~BannerMemoryTest() override {
    form->Hide();
    platform.files().Delete(file);
  }

  // The most that loading a file takes, over what the process had.
  size_t PeakOfLoading(const std::string& gif) {
    platform.files().WriteAll(file, AsBytes(gif));
    MemoryPeak peak;
    form->AnimGIF1.LoadNewPicture(file, kAnimatedGif);
    Pump();
    return peak.Bytes();
  }

  const Ref<BannerForm> form = MakeRef<BannerForm>();
  const std::string file =
      platform.shell().TemporaryFolder() + "\\kestrun banner " + std::to_string(GetCurrentProcessId()) + ".gif";
};

TEST_F(BannerMemoryTest, TheLargestFramesThatAreShownInAFileOfTheLargestSize) {
  std::string gif = GifScreen(2000, 1000) + GifRepeat(0);
  for (int frame = 0; frame < 3; ++frame) gif += SolidFrame(2000, 1000);
  gif.resize(8 * 1024 * 1024, ';');
  const size_t peak = PeakOfLoading(gif);
  ASSERT_EQ(form->AnimGIF1.FrameCount(), 3);
  const Ref<Picture> last = form->AnimGIF1.ImgPic(2).Picture;
  ASSERT_TRUE(last);
  EXPECT_EQ(last->pixels().size(), 2'000'000U);
  EXPECT_LT(peak, kMostBytes);
  EXPECT_GT(peak, 24'000'000U) << "the pixels of all three";
}

TEST_F(BannerMemoryTest, OneFrameOfTheMostPixels) {
  const size_t peak = PeakOfLoading(GifScreen(2000, 1500) + GifRepeat(0) + SolidFrame(2000, 1500) + ";");
  EXPECT_TRUE(form->AnimGIF1.ImgPic(0).Picture.get());
  EXPECT_LT(peak, kMostBytes);
  EXPECT_GT(peak, 12'000'000U) << "its pixels";
}

TEST_F(BannerMemoryTest, AFrameOf65535Pixels) {
  EXPECT_LT(PeakOfLoading(AnimatedGifFile({{10, 0, 0, 65535, 65535}, {10}})), 4'000'000U);
  EXPECT_EQ(form->AnimGIF1.ImgPic(0).Picture.get(), nullptr);
}

TEST_F(BannerMemoryTest, HundredsOfFramesOfOnePixel) {
  std::string gif = GifScreen(1, 1) + GifRepeat(0);
  for (int frame = 0; frame < 400; ++frame) gif += SolidFrame(1, 1);
  EXPECT_LT(PeakOfLoading(gif + ";"), kMostBytes);
  EXPECT_EQ(form->AnimGIF1.FrameCount(), 400);
}

}  // namespace
}  // namespace kestrun
