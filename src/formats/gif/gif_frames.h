// Cuts an animated GIF into one GIF for each frame by looking for the bytes between them, without decoding any. Format:
// GIF89a (CompuServe, 1989).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/bytes.h"

namespace kestrun::gif {

struct Frame {
  ByteView bytes;  // from the label of its graphic control extension up to and including the next one's introducer
  int delay_ms = 0;
  int left_pixels = 0;  // where it stands on the first frame
  int top_pixels = 0;
};

// Goes over the frames of a file that outlives the reader. A frame begins at the three bytes of a block terminator and
// a graphic control extension: 00 21 F9. Those bytes inside a picture's data are taken for a frame as well.
class FrameReader {
 public:
  explicit FrameReader(ByteView file);

  // The next frame; nothing behind the last. A file without an extension is one frame that does not move. Error 5 for a
  // frame that ends before its fields.
  [[nodiscard]] std::optional<Frame> Next();
  // The frame as a GIF of its own: the file's header, and the frame. It has no trailer; decoders do without.
  [[nodiscard]] Bytes PictureOf(const Frame& frame) const;
  // How often the animation is to be shown, 0 for ever, from the place where most writers have it. Any other number
  // where a file is laid out in another way.
  [[nodiscard]] int repeat_count() const;

 private:
  [[nodiscard]] size_t FindMarker(size_t from) const;

  ByteView file_;
  ByteView header_;
  size_t position_ = 0;  // behind the last marker; past the end once all frames are out
  bool is_first_ = true;
};

// The pixels of the largest picture that a decoder makes of these bytes: the screen's, or those of a frame that is
// larger. Follows the blocks as far as they are whole.
[[nodiscard]] int64_t LargestPicturePixels(ByteView gif);

}  // namespace kestrun::gif
