// Byte layout of a zip archive (docs/formats/zip.md), as PKWARE's APPNOTE has it: the records that the reader looks at.
// All fields little-endian; offsets below are from the record's signature on.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/bytes.h"

namespace kestrun::zip {

inline constexpr uint32_t kCentralSignature = 0x02014B50;
inline constexpr uint32_t kLocalSignature = 0x04034B50;
inline constexpr uint32_t kDescriptorSignature = 0x08074B50;
inline constexpr uint32_t kEndSignature = 0x06054B50;

inline constexpr size_t kSignatureBytes = 4;
// Fixed parts, the signature included.
inline constexpr size_t kCentralBytes = 46;
inline constexpr size_t kLocalBytes = 30;
inline constexpr size_t kDescriptorBytes = 16;
inline constexpr size_t kEndBytes = 22;

// In front of the data of an encrypted member, counted in its compressed size.
inline constexpr size_t kEncryptionHeaderBytes = 12;

// A member as the central directory tells it.
struct Item {
  uint16_t version_made_by = 0;  // low byte: version times ten, high byte: system
  uint16_t version_needed = 0;
  uint16_t flags = 0;
  uint16_t method = 0;
  uint16_t time = 0;
  uint16_t date = 0;
  uint32_t crc32 = 0;
  uint32_t compressed_size = 0;
  uint32_t uncompressed_size = 0;
  uint16_t disk_start = 0;
  uint16_t internal_attributes = 0;
  uint32_t external_attributes = 0;
  uint32_t local_offset = 0;
  // Where the three texts lie one behind the other among the texts of the directory.
  uint16_t name_bytes = 0;
  uint16_t extra_bytes = 0;
  uint16_t comment_bytes = 0;
  size_t text_at = 0;

  [[nodiscard]] bool IsEncrypted() const { return (flags & 1) != 0; }
};

// What the reader needs of a local header, which may differ from what the central directory says.
struct LocalHeader {
  uint32_t compressed_size = 0;
  uint16_t name_bytes = 0;
  uint16_t extra_bytes = 0;
};

struct EndRecord {
  uint16_t entries = 0;
  uint32_t directory_offset = 0;
  uint16_t comment_bytes = 0;
};

// Each takes the whole fixed part, the signature included.
[[nodiscard]] Item ParseCentralHeader(ByteView record);
[[nodiscard]] LocalHeader ParseLocalHeader(ByteView record);
[[nodiscard]] EndRecord ParseEndRecord(ByteView record);

}  // namespace kestrun::zip
