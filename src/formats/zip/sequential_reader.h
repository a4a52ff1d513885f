// Reads a file front to back through a buffer, for formats of many small records.
#pragma once

#include <algorithm>

#include "platform/files.h"

namespace kestrun {

class SequentialReader {
 public:
  // The file must outlive this object.
  explicit SequentialReader(File& file, uint64_t position = 0) : file_(file), position_(position) {}

  [[nodiscard]] uint64_t position() const { return position_; }
  void Skip(uint64_t bytes) { position_ += bytes; }

  // The next bytes, fewer only at the end of the file. Valid until the next call.
  [[nodiscard]] ByteView Read(size_t bytes) {
    if (position_ + bytes > start_ + buffered_) Fill(bytes);
    if (position_ >= start_ + buffered_) return {};
    const auto from = static_cast<size_t>(position_ - start_);
    const size_t count = std::min(bytes, buffered_ - from);
    position_ += count;
    return ByteView(buffer_).subspan(from, count);
  }

 private:
  static constexpr size_t kBufferBytes = size_t{64} << 10;

  // Short reads are not repeated: the file layer gives fewer bytes at the end of the file only.
  void Fill(size_t bytes) {
    const size_t wanted = std::max(bytes, kBufferBytes);
    if (buffer_.size() < wanted) buffer_.resize(wanted);
    start_ = position_;
    buffered_ = file_.ReadAt(position_, buffer_);
  }

  File& file_;
  uint64_t position_;
  uint64_t start_ = 0;
  size_t buffered_ = 0;
  Bytes buffer_;
};

}  // namespace kestrun
