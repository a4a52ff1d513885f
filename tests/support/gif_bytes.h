// Small animated GIFs, block by block. Nothing in them is ever decoded by the tests' own desktop.
#pragma once

#include <string>
#include <vector>

namespace kestrun {

inline std::string GifWord(int value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

// The header and the screen, with a table of 32 colours.
inline std::string GifScreen(int width, int height) {
  return "GIF89a" + GifWord(width) + GifWord(height) + std::string("\x84\0\0", 3) + std::string(96, '\x20');
}

inline std::string GifRepeat(int count) {
  return std::string("\x21\xFF\x0BNETSCAPE2.0\x03\x01", 16) + GifWord(count) + '\0';
}

struct GifFrameSpan {
  int delay_hundredths = 10;
  int left = 0;
  int top = 0;
  int width = 1;
  int height = 1;
};

inline std::string GifFrame(const GifFrameSpan& frame) {
  const std::string extension =
      std::string("\x21\xF9\x04\0", 4) + GifWord(frame.delay_hundredths) + std::string(2, '\0');
  const std::string image = "\x2C" + GifWord(frame.left) + GifWord(frame.top) + GifWord(frame.width) +
                            GifWord(frame.height) + std::string("\0\x02\x02\x44\x01\0", 6);
  return extension + image;
}

// A whole file. The block before the first frame ends with a zero, which is the first byte that a frame is known by.
inline std::string AnimatedGifFile(const std::vector<GifFrameSpan>& frames, int repeat_count = 0) {
  std::string file = GifScreen(frames.front().width, frames.front().height) + GifRepeat(repeat_count);
  for (const GifFrameSpan& frame : frames) file += GifFrame(frame);
  return file + ";";
}

}  // namespace kestrun
