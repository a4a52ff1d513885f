// Byte buffers and little-endian fields, as every file format of the program has them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kestrun {

using Bytes = std::vector<uint8_t>;
using ByteView = std::span<const uint8_t>;
using MutableByteView = std::span<uint8_t>;

[[nodiscard]] inline ByteView AsBytes(std::string_view text) {
  return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

[[nodiscard]] inline std::string_view AsChars(ByteView bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Little-endian reads and writes at a byte offset; the caller has checked that the field lies inside.
[[nodiscard]] inline uint16_t LoadU16(ByteView bytes, size_t offset) {
  return static_cast<uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

[[nodiscard]] inline uint32_t LoadU32(ByteView bytes, size_t offset) {
  return static_cast<uint32_t>(LoadU16(bytes, offset)) | (static_cast<uint32_t>(LoadU16(bytes, offset + 2)) << 16);
}

inline void StoreU16(MutableByteView bytes, size_t offset, uint16_t value) {
  bytes[offset] = static_cast<uint8_t>(value);
  bytes[offset + 1] = static_cast<uint8_t>(value >> 8);
}

inline void StoreU32(MutableByteView bytes, size_t offset, uint32_t value) {
  StoreU16(bytes, offset, static_cast<uint16_t>(value));
  StoreU16(bytes, offset + 2, static_cast<uint16_t>(value >> 16));
}

}  // namespace kestrun
