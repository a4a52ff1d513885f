#include "desktop/win32/system/handles.h"

#include <gtest/gtest.h>

#include <vector>

namespace kestrun {
namespace {

std::vector<int> closed;

struct NumberTraits {
  using Handle = int;
  static Handle Empty() { return 0; }
  static void Close(Handle handle) { closed.push_back(handle); }
};
using Number = UniqueHandle<NumberTraits>;

class HandlesTest : public testing::Test {
 protected:
  HandlesTest() { closed.clear(); }
};

TEST_F(HandlesTest, AHandleIsReleasedOnceAtTheEndOfItsOwner) {
  { const Number number(7); }
  EXPECT_EQ(closed, std::vector<int>{7});
}

TEST_F(HandlesTest, OverwritingReleasesTheOldOne) {
  Number number(7);
  number = Number(8);
  EXPECT_EQ(closed, std::vector<int>{7});
  number.Reset(9);
  EXPECT_EQ(closed, (std::vector<int>{7, 8}));
}

TEST_F(HandlesTest, MovingToItselfKeepsTheHandle) {
  Number number(7);
  Number& same = number;
  number = std::move(same);
  EXPECT_EQ(number.get(), 7);
  EXPECT_TRUE(closed.empty());
}

TEST_F(HandlesTest, AReleasedHandleIsTheCallers) {
  Number number(7);
  EXPECT_EQ(number.Release(), 7);
  EXPECT_FALSE(number.IsValid());
  EXPECT_TRUE(closed.empty());
}

}  // namespace
}  // namespace kestrun
