// Base64 as the upload service reads it: RFC 4648's alphabet, no "=" at the end and no line breaks, so that a last
// group of one byte is two characters and one of two bytes is three.
#pragma once

#include <cstddef>
#include <string>

#include "base/bytes.h"

namespace kestrun {

class Cod_Base64 {
 public:
  Cod_Base64() = delete;

  // Puts the text in the place of the bytes.
  static void Encode(Bytes& bytes);

  // The same for callers that gather a longer text: appends the encoded bytes. The bytes are not part of the text.
  static void Append(std::string& text, ByteView bytes);

  // Characters that so many bytes become.
  [[nodiscard]] static constexpr size_t EncodedLength(size_t bytes) {
    return bytes / 3 * 4 + (bytes % 3 == 0 ? 0 : bytes % 3 + 1);
  }
};

}  // namespace kestrun
