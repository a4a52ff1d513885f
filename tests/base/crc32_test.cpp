#include "base/crc32.h"

#include <gtest/gtest.h>

#include "formats/zip/cls_crc32.h"
#include "formats/zip_sample.h"

namespace kestrun {
namespace {

TEST(Crc32Test, ThePublishedCheckValue) {
  Cls_CRC32 crc;
  EXPECT_EQ(crc.CalcCRC32File(AsBytes("123456789")), 0xCBF43926U);
  EXPECT_EQ(crc.CalcCRC32File({}), 0U);
}

TEST(Crc32Test, ByteByByteGivesTheSameAsAWholeBuffer) {
  Cls_CRC32 crc;
  for (const char one : std::string("123456789")) crc.CalcCRC32Byte(static_cast<uint8_t>(one));
  EXPECT_EQ(crc.CRC32(), 0xCBF43926U);
  crc.ResetCRC32();
  EXPECT_EQ(crc.CRC32(), 0U);
}

TEST(Crc32Test, TheResultOfABufferIsKeptAsTheState) {
  Cls_CRC32 crc;
  const uint32_t result = crc.CalcCRC32File(AsBytes("123456789"));
  EXPECT_EQ(crc.CRC32(), ~result);
  crc.SetCRC32(0x12345678);
  EXPECT_EQ(crc.CRC32(), ~0x12345678U);
}

TEST(Crc32Test, TheTableIsThatOfTheReflectedPolynomial) {
  EXPECT_EQ(Cls_CRC32::GetcrcTable(0), 0U);
  EXPECT_EQ(Cls_CRC32::GetcrcTable(1), 0x77073096U);
  EXPECT_EQ(Cls_CRC32::GetcrcTable(128), 0xEDB88320U);
  EXPECT_EQ(Cls_CRC32::GetcrcTable(255), 0x2D02EF8DU);
}

// The quick ways against one byte at a time, for every length around their blocks and every alignment.
TEST(Crc32Test, AllWaysAgreeForEveryLength) {
  const std::string noise = Noise(2300);
  for (size_t bytes = 0; bytes <= 2200; ++bytes) {
    const ByteView view = AsBytes(noise).subspan(bytes % 17, bytes);
    uint32_t state = 0x1234ABCD;
    for (const uint8_t byte : view) state = crc32::Next(state, byte);
    ASSERT_EQ(crc32::Update(0x1234ABCD, view), state) << bytes;
    ASSERT_EQ(crc32::UpdateByTables(0x1234ABCD, view), state) << bytes;
  }
}

}  // namespace
}  // namespace kestrun
