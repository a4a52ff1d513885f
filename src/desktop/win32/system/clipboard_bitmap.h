// Pictures as the clipboard carries them: a bitmap's header, its colours and its bits in one block, without the head
// that a file has (BITMAPINFO).
#pragma once

#include <optional>

#include "base/bytes.h"
#include "platform/pictures.h"

namespace kestrun {

// 24 bits a pixel. What shines through is white: programs that take the bitmap know of no transparency.
[[nodiscard]] Bytes ClipboardBitmap(const DecodedPicture& picture);
// The file that the block would be; nothing when it is too short for what its header says.
[[nodiscard]] std::optional<Bytes> BitmapFile(ByteView block);

}  // namespace kestrun
