#include "formats/gif/gif_frames.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"

namespace kestrun::gif {
namespace {

constexpr std::array<uint8_t, 3> kMarker{0x00, 0x21, 0xF9};
constexpr size_t kRepeatAt = 125;  // of the count in an application extension behind a table of 32 colours

// Offsets in a frame's bytes: of the graphic control extension, and of the image descriptor right behind it.
constexpr size_t kDelay = 3;
constexpr size_t kLeft = 8;
constexpr size_t kTop = 10;

// Blocks of a file.
constexpr size_t kScreenAt = 6;
constexpr size_t kScreenBytes = 7;
constexpr uint8_t kExtension = 0x21;
constexpr uint8_t kImage = 0x2C;
constexpr size_t kImageBytes = 10;
constexpr uint8_t kHasColors = 0x80;

uint16_t FieldAt(ByteView frame, size_t offset) {
  if (offset + 2 > frame.size()) Raise(error::kInvalidProcedureCall);
  return LoadU16(frame, offset);
}

size_t ColorTableBytes(uint8_t flags) { return (flags & kHasColors) == 0 ? 0 : size_t{3} << ((flags & 7) + 1); }

// Behind a chain of sub-blocks, each with its length in front, and the empty one that ends them.
size_t SkipSubBlocks(ByteView gif, size_t at) {
  while (at < gif.size() && gif[at] != 0) at += size_t{gif[at]} + 1;
  return at + 1;
}

int64_t Area(ByteView gif, size_t width_at) {
  return int64_t{LoadU16(gif, width_at)} * int64_t{LoadU16(gif, width_at + 2)};
}

}  // namespace

FrameReader::FrameReader(ByteView file) : file_(file) {
  const size_t marker = FindMarker(0);
  if (marker == file.size()) return;
  header_ = file.first(marker + 2);
  position_ = marker + kMarker.size();
}

size_t FrameReader::FindMarker(size_t from) const {
  const auto rest = file_.subspan(from);
  const auto found = std::search(rest.begin(), rest.end(), kMarker.begin(), kMarker.end());
  return from + static_cast<size_t>(found - rest.begin());
}

std::optional<Frame> FrameReader::Next() {
  if (position_ > file_.size()) return std::nullopt;
  Frame frame;
  if (header_.empty()) {
    position_ = file_.size() + 1;
    frame.bytes = file_;
    return frame;
  }
  const size_t start = position_ - 1;
  const size_t marker = FindMarker(position_);
  const bool is_last = marker == file_.size();
  frame.bytes = file_.subspan(start, (is_last ? marker : marker + 2) - start);
  position_ = is_last ? file_.size() + 1 : marker + kMarker.size();
  frame.delay_ms = FieldAt(frame.bytes, kDelay) * 10;
  if (!is_first_) {
    frame.left_pixels = FieldAt(frame.bytes, kLeft);
    frame.top_pixels = FieldAt(frame.bytes, kTop);
  }
  is_first_ = false;
  return frame;
}

Bytes FrameReader::PictureOf(const Frame& frame) const {
  Bytes picture(header_.begin(), header_.end());
  picture.insert(picture.end(), frame.bytes.begin(), frame.bytes.end());
  return picture;
}

int FrameReader::repeat_count() const { return header_.size() < kRepeatAt + 2 ? 0 : LoadU16(header_, kRepeatAt); }

int64_t LargestPicturePixels(ByteView gif) {
  if (gif.size() < kScreenAt + kScreenBytes) return 0;
  int64_t largest = Area(gif, kScreenAt);
  size_t at = kScreenAt + kScreenBytes + ColorTableBytes(gif[kScreenAt + 4]);
  while (at < gif.size()) {
    if (gif[at] == kExtension) {
      at = SkipSubBlocks(gif, at + 2);
    } else if (gif[at] == kImage && at + kImageBytes <= gif.size()) {
      largest = std::max(largest, Area(gif, at + 5));
      // One byte tells the size of the first code.
      at = SkipSubBlocks(gif, at + kImageBytes + ColorTableBytes(gif[at + 9]) + 1);
    } else {
      break;
    }
  }
  return largest;
}

}  // namespace kestrun::gif
