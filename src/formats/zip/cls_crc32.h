// The checksum of zip archives: CRC-32, reflected polynomial 0xEDB88320.
#pragma once

#include <cstdint>

#include "base/bytes.h"

namespace kestrun {

class Cls_CRC32 {
 public:
  void ResetCRC32() { state_ = 0xFFFFFFFF; }
  void CalcCRC32Byte(uint8_t byte) { state_ = (state_ >> 8) ^ GetcrcTable((state_ ^ byte) & 255); }
  [[nodiscard]] uint32_t CRC32() const { return ~state_; }
  void SetCRC32(uint32_t state) { state_ = state; }
  [[nodiscard]] static uint32_t GetcrcTable(uint32_t index);
  // Over the whole buffer from the start; keeps the result and gives it.
  uint32_t CalcCRC32File(ByteView bytes);

 private:
  uint32_t state_ = 0xFFFFFFFF;
};

}  // namespace kestrun
