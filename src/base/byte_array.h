// Byte buffers as they cross to late binding: arrays whose elements are bytes.
#pragma once

#include "base/bytes.h"
#include "base/variant.h"

namespace kestrun {

[[nodiscard]] Variant ToByteArray(ByteView bytes);
// Error 13 for anything but an array, 6 for an element that is no byte.
[[nodiscard]] Bytes FromByteArray(const Variant& value);

}  // namespace kestrun
