// The smallest Windows program: headers and one section. It can be looked at and not run.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

namespace internal {

inline void PutNumber(std::string& bytes, size_t at, uint32_t number, size_t count) {
  for (size_t i = 0; i < count; ++i) bytes[at + i] = static_cast<char>(number >> (8 * i));
}

inline std::string PeBytes(uint32_t characteristics) {
  constexpr size_t kHeaderAt = 64;
  constexpr size_t kOptionalAt = kHeaderAt + 24;
  constexpr size_t kOptionalBytes = 240;
  constexpr size_t kSectionAt = kOptionalAt + kOptionalBytes;
  constexpr uint32_t kSectionOffset = 512;
  constexpr uint32_t kSectionBytes = 2560;
  std::string bytes(kSectionOffset + kSectionBytes, '\0');
  bytes.replace(0, 2, "MZ");
  PutNumber(bytes, 60, kHeaderAt, 4);
  bytes.replace(kHeaderAt, 2, "PE");
  PutNumber(bytes, kHeaderAt + 6, 1, 2);
  PutNumber(bytes, kHeaderAt + 20, kOptionalBytes, 2);
  PutNumber(bytes, kHeaderAt + 22, characteristics, 2);
  PutNumber(bytes, kOptionalAt, 0x20B, 2);
  PutNumber(bytes, kSectionAt + 16, kSectionBytes, 4);
  PutNumber(bytes, kSectionAt + 20, kSectionOffset, 4);
  return bytes;
}

}  // namespace internal

inline std::string ProgramBytes() { return internal::PeBytes(0x0022); }
inline std::string LibraryBytes() { return internal::PeBytes(0x2022); }

}  // namespace kestrun
