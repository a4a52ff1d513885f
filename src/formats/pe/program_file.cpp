#include "formats/pe/program_file.h"

#include <array>
#include <optional>

#include "base/bytes.h"

namespace kestrun {
namespace {

// Offsets and widths, in bytes, of docs/formats/pe.md.
constexpr size_t kDosHeaderBytes = 64;
constexpr size_t kNewHeaderAt = 60;
constexpr size_t kFileHeaderBytes = 24;  // with the signature before it
constexpr size_t kSectionCountAt = 6;
constexpr size_t kOptionalBytesAt = 20;
constexpr size_t kCharacteristicsAt = 22;
constexpr uint16_t kIsExecutable = 0x0002;
constexpr uint16_t kIsLibrary = 0x2000;
constexpr size_t kSectionBytes = 40;
constexpr size_t kRawBytesAt = 16;
constexpr size_t kRawOffsetAt = 20;
constexpr uint16_t kMostSections = 96;
// In the optional header: its kind, and where the entry for the signature stands by that.
constexpr uint16_t kKind32 = 0x10B;
constexpr uint16_t kKind64 = 0x20B;
constexpr size_t kSignature32At = 128;
constexpr size_t kSignature64At = 144;

template <size_t kBytes>
std::optional<std::array<uint8_t, kBytes>> ReadBlock(File& file, uint64_t at) {
  std::array<uint8_t, kBytes> block{};
  if (file.ReadAt(at, block) < kBytes) return std::nullopt;
  return block;
}

uint32_t Number(ByteView bytes, size_t at, size_t count) {
  uint32_t number = 0;
  for (size_t i = count; i-- > 0;) number = number << 8 | bytes[at + i];
  return number;
}

bool ReachesTo(File& file, uint64_t offset, uint64_t bytes) { return bytes == 0 || offset + bytes <= file.Size(); }

bool HasItsSignature(File& file, uint64_t optional_at, uint32_t optional_bytes) {
  const auto kind = ReadBlock<2>(file, optional_at);
  if (!kind) return false;
  const uint32_t value = Number(*kind, 0, 2);
  if (value != kKind32 && value != kKind64) return false;
  const size_t entry_at = value == kKind32 ? kSignature32At : kSignature64At;
  if (optional_bytes < entry_at + 8) return true;  // it tells of none
  const auto entry = ReadBlock<8>(file, optional_at + entry_at);
  return entry && ReachesTo(file, Number(*entry, 0, 4), Number(*entry, 4, 4));
}

bool HasItsSections(File& file, uint64_t table_at, uint32_t count) {
  for (uint32_t section = 0; section < count; ++section) {
    const auto row = ReadBlock<kSectionBytes>(file, table_at + uint64_t{section} * kSectionBytes);
    if (!row || !ReachesTo(file, Number(*row, kRawOffsetAt, 4), Number(*row, kRawBytesAt, 4))) return false;
  }
  return true;
}

}  // namespace

bool IsWholeWindowsProgram(File& file) {
  const auto dos = ReadBlock<kDosHeaderBytes>(file, 0);
  if (!dos || (*dos)[0] != 'M' || (*dos)[1] != 'Z') return false;
  const uint64_t header_at = Number(*dos, kNewHeaderAt, 4);
  const auto header = ReadBlock<kFileHeaderBytes>(file, header_at);
  if (!header || Number(*header, 0, 4) != Number(AsBytes(std::string_view("PE\0\0", 4)), 0, 4)) return false;
  const uint32_t characteristics = Number(*header, kCharacteristicsAt, 2);
  if (!(characteristics & kIsExecutable) || (characteristics & kIsLibrary)) return false;
  const uint32_t sections = Number(*header, kSectionCountAt, 2);
  const uint32_t optional_bytes = Number(*header, kOptionalBytesAt, 2);
  const uint64_t optional_at = header_at + kFileHeaderBytes;
  return sections > 0 && sections <= kMostSections && HasItsSignature(file, optional_at, optional_bytes) &&
         HasItsSections(file, optional_at + optional_bytes, sections);
}

}  // namespace kestrun
