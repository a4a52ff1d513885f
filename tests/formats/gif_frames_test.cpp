#include "formats/gif/gif_frames.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "support/error_number.h"
#include "support/gif_bytes.h"

namespace kestrun::gif {
namespace {

std::string PictureText(const FrameReader& reader, const Frame& frame) {
  const Bytes picture = reader.PictureOf(frame);
  return std::string(AsChars(picture));
}

TEST(GifFramesTest, EachFrameIsTheHeaderAndItsOwnBlocks) {
  const std::string file = AnimatedGifFile({{10, 0, 0, 4, 2}, {25, 3, 1, 1, 1}});
  const std::string header = GifScreen(4, 2) + GifRepeat(0) + "\x21";
  FrameReader reader(AsBytes(file));

  const auto first = reader.Next();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->delay_ms, 100);
  EXPECT_EQ(PictureText(reader, *first), header + GifFrame({10, 0, 0, 4, 2}).substr(1) + "\x21");

  const auto second = reader.Next();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->delay_ms, 250);
  EXPECT_EQ(second->left_pixels, 3);
  EXPECT_EQ(second->top_pixels, 1);
  EXPECT_EQ(PictureText(reader, *second), header + GifFrame({25, 3, 1, 1, 1}).substr(1) + ";");
  EXPECT_FALSE(reader.Next());
  EXPECT_FALSE(reader.Next());
}

TEST(GifFramesTest, ThePlaceOfTheFirstFrameIsNotRead) {
  const std::string file = AnimatedGifFile({{10, 7, 5, 4, 2}});
  FrameReader reader(AsBytes(file));
  const auto frame = reader.Next();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->left_pixels, 0);
  EXPECT_EQ(frame->top_pixels, 0);
}

TEST(GifFramesTest, TheRepeatCountStandsBehindATableOf32Colours) {
  const std::string file = AnimatedGifFile({{10}}, 0x0203);
  EXPECT_EQ(FrameReader(AsBytes(file)).repeat_count(), 0x0203);
}

TEST(GifFramesTest, ADifferentHeaderLayoutGivesAWrongRepeatCountWithoutHarm) {
  std::string file = AnimatedGifFile({{10}}, 5);
  file.insert(13, 3, 'c');
  FrameReader reader(AsBytes(file));
  EXPECT_NE(reader.repeat_count(), 5);
  EXPECT_TRUE(reader.Next());
}

TEST(GifFramesTest, AHeaderOfLessThan127BytesHasNoRepeatCount) {
  const std::string file = std::string(100, 'x') + '\0' + GifFrame({10});
  EXPECT_EQ(FrameReader(AsBytes(file)).repeat_count(), 0);
}

TEST(GifFramesTest, AFileWithoutAMarkerIsOneFrameThatDoesNotMove) {
  const std::string file = "GIF87a and a picture";
  FrameReader reader(AsBytes(file));
  const auto frame = reader.Next();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->delay_ms, 0);
  EXPECT_EQ(PictureText(reader, *frame), file);
  EXPECT_FALSE(reader.Next());
}

TEST(GifFramesTest, AnEmptyFileIsOneEmptyFrame) {
  FrameReader reader(ByteView{});
  ASSERT_TRUE(reader.Next());
  EXPECT_FALSE(reader.Next());
}

TEST(GifFramesTest, AMarkerAtTheLastByteIsAFrameThatEndsBeforeItsFields) {
  const std::string file = GifScreen(1, 1) + std::string("\0\x21\xF9", 3);
  FrameReader reader(AsBytes(file));
  EXPECT_EQ(ErrorNumberOf([&] { return reader.Next(); }), error::kInvalidProcedureCall);
}

TEST(GifFramesTest, ASecondFrameThatEndsBeforeItsPlaceIsAnError) {
  const std::string file = AnimatedGifFile({{10}}).substr(0, 128 + 21) + std::string("\0\x21\xF9\x04\0\1\0", 7);
  FrameReader reader(AsBytes(file));
  EXPECT_TRUE(reader.Next());
  EXPECT_EQ(ErrorNumberOf([&] { return reader.Next(); }), error::kInvalidProcedureCall);
}

TEST(GifFramesTest, TheLargestPictureIsTheScreenOrALargerFrame) {
  EXPECT_EQ(LargestPicturePixels(AsBytes(AnimatedGifFile({{10, 0, 0, 40, 20}}))), 800);
  EXPECT_EQ(LargestPicturePixels(AsBytes(GifScreen(2, 2) + GifFrame({10, 0, 0, 65535, 65535}))), 65535LL * 65535);
  EXPECT_EQ(LargestPicturePixels(AsBytes(GifScreen(2, 2) + GifFrame({10, 0, 0, 3, 3}) + GifFrame({10, 0, 0, 9, 9}))),
            81);
}

TEST(GifFramesTest, ThePicturesOfACutFileAreCountedAsFarAsItGoes) {
  const std::string file = GifScreen(2, 2) + GifFrame({10, 0, 0, 3, 3});
  for (size_t length = 0; length <= file.size(); ++length) {
    const int64_t pixels = LargestPicturePixels(AsBytes(file).first(length));
    EXPECT_TRUE(pixels == 0 || pixels == 4 || pixels == 9) << length;
  }
}

}  // namespace
}  // namespace kestrun::gif
