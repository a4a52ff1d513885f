#include "formats/zip/cls_crc32.h"

#include <array>

namespace kestrun {
namespace {

constexpr std::array<uint32_t, 256> kTable = [] {
  std::array<uint32_t, 256> table{};
  for (uint32_t at = 0; at < table.size(); ++at) {
    uint32_t value = at;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320U : 0U);
    table[at] = value;
  }
  return table;
}();

}  // namespace

uint32_t Cls_CRC32::GetcrcTable(uint32_t index) { return kTable[index]; }

uint32_t Cls_CRC32::CalcCRC32File(ByteView bytes) {
  ResetCRC32();
  for (const uint8_t byte : bytes) CalcCRC32Byte(byte);
  state_ = CRC32();
  return state_;
}

}  // namespace kestrun
