// Byte layout of a PFF archive (docs/formats/pff.md): header, file data, entry table, trailer. All fields
// little-endian.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace kestrun::pff {

inline constexpr size_t kHeaderBytes = 20;
inline constexpr size_t kEntryBytes = 36;
inline constexpr size_t kNameBytes = 16;
inline constexpr int32_t kSignature = 0x33464650;  // "PFF3"
inline constexpr std::array<uint8_t, 12> kTrailer{0xC0, 0xA8, 0x00, 0x03, 0, 0, 0, 0, 'K', 'I', 'N', 'G'};

struct Header {
  int32_t header_size = 0;
  int32_t version = 0;
  int32_t total_files = 0;
  int32_t item_size = 0;
  int32_t table_offset = 0;
};

struct Entry {
  uint32_t deleted = 0;
  int32_t offset = 0;
  int32_t length = 0;
  int32_t pack_date = 0;
  std::array<char, kNameBytes> name{};
  int32_t info = 0;
};

// Both structures are their own bytes on disk, so that a table of any length is read and written in one piece.
static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(Header) == kHeaderBytes && sizeof(Entry) == kEntryBytes);

template <class Record>
[[nodiscard]] MutableByteView RecordBytes(std::span<Record> records) {
  return {reinterpret_cast<uint8_t*>(records.data()), records.size_bytes()};
}
template <class Record>
[[nodiscard]] ByteView RecordBytes(std::span<const Record> records) {
  return {reinterpret_cast<const uint8_t*>(records.data()), records.size_bytes()};
}

[[nodiscard]] inline std::string_view NameBytes(const Entry& entry) { return {entry.name.data(), entry.name.size()}; }

// Cuts at 16 bytes and fills up with the padding.
[[nodiscard]] std::array<char, kNameBytes> PadName(std::string_view bytes, char padding);

// Takes every NUL and every character 127 away, wherever they stand, then blanks at both ends.
[[nodiscard]] std::string TrimName(std::string_view bytes);

// Looks names up without regard to case or padding, in the installed code page.
class NameMatcher {
 public:
  explicit NameMatcher(std::string_view name_bytes);
  [[nodiscard]] bool Matches(const Entry& entry) const;

 private:
  [[nodiscard]] bool DiffersEarly(const Entry& entry) const;

  const std::array<char, 256>* lower_;
  std::string wanted_;
};

}  // namespace kestrun::pff
