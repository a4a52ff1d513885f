#include "base/to_size.h"

#include <gtest/gtest.h>

#include "base/bytes.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

constexpr uint64_t kMostOf32Bits = 0x7FFF'FFFF;

TEST(ToSizeTest, ASizeThatFitsStaysAsItIs) {
  EXPECT_EQ(ToSize(0), 0U);
  EXPECT_EQ(ToSize(4096), 4096U);
  EXPECT_EQ(ToSize(kMostOf32Bits, kMostOf32Bits), size_t{kMostOf32Bits});
}

TEST(ToSizeTest, ASizePastTheMemoryIsRefusedInsteadOfCut) {
  EXPECT_EQ(ErrorNumberOf([] { static_cast<void>(ToSize(0x8000'0000, kMostOf32Bits)); }), error::kOutOfMemory);
  EXPECT_EQ(ErrorNumberOf([] { static_cast<void>(ToSize(0x1'0000'0005, kMostOf32Bits)); }), error::kOutOfMemory);
  EXPECT_EQ(ErrorNumberOf([] { static_cast<void>(ToSize(~uint64_t{0})); }), error::kOutOfMemory);
}

TEST(ToSizeTest, TheMostIsWhatThisProcessCanHold) { EXPECT_EQ(kMostMemoryBytes, uint64_t{Bytes().max_size()}); }

}  // namespace
}  // namespace kestrun
