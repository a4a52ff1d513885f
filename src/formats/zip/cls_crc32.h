// The checksum of zip archives, byte by byte and over whole buffers.
#pragma once

#include <cstdint>

#include "base/bytes.h"
#include "base/crc32.h"

namespace kestrun {

class Cls_CRC32 {
 public:
  void ResetCRC32() { state_ = crc32::kStart; }
  void CalcCRC32Byte(uint8_t byte) { state_ = crc32::Next(state_, byte); }
  [[nodiscard]] uint32_t CRC32() const { return ~state_; }
  void SetCRC32(uint32_t state) { state_ = state; }
  [[nodiscard]] static uint32_t GetcrcTable(uint8_t index) { return crc32::TableEntry(index); }
  // Over the whole buffer from the start; keeps the result as the state and gives it.
  uint32_t CalcCRC32File(ByteView bytes) { return state_ = ~crc32::Update(crc32::kStart, bytes); }

 private:
  uint32_t state_ = crc32::kStart;
};

}  // namespace kestrun
