#include "program/registry_access.h"

#include <gtest/gtest.h>

#include "base/byte_array.h"
#include "base/convert.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr RegistryRoot kRoot = RegistryRoot::kCurrentUser;

class RegistryAccessTest : public HeadlessTest {
 protected:
  RegistryAccessTest() {
    RegCreateKey(kRoot, "Tests\\Inner");
    RegWrite(kRoot, "Tests", "text", "Oasis", registry_type::kString);
    RegWrite(kRoot, "Tests", "number", int32_t{-2}, registry_type::kNumber);
    desktop.registry().WriteValue(kRoot, "Tests", "bytes", Bytes{0x41, 0xE9});
  }
};

TEST_F(RegistryAccessTest, EachTypeComesBackAsItsOwn) {
  EXPECT_EQ(ToText(RegRead(kRoot, "tests", "TEXT", registry_type::kString, false)), "Oasis");
  EXPECT_EQ(ToLong(RegRead(kRoot, "Tests", "number", registry_type::kNumber, false)), -2);
  EXPECT_EQ(ToText(RegRead(kRoot, "Tests", "bytes", registry_type::kBinary, false)), "A\xC3\xA9");
  EXPECT_EQ(FromByteArray(RegRead(kRoot, "Tests", "bytes", registry_type::kBinary, true)), (Bytes{0x41, 0xE9}));
}

TEST_F(RegistryAccessTest, AnyTypeIsTakenWhereNoneIsExpected) {
  EXPECT_EQ(ToText(RegRead(kRoot, "Tests", "text", registry_type::kAny, false)), "Oasis");
  EXPECT_EQ(ToLong(RegRead(kRoot, "Tests", "number", registry_type::kAny, false)), -2);
}

TEST_F(RegistryAccessTest, AnotherTypeOrNoValueIsEmpty) {
  EXPECT_TRUE(RegRead(kRoot, "Tests", "text", registry_type::kNumber, false).Is(VarType::kEmpty));
  EXPECT_TRUE(RegRead(kRoot, "Tests", "number", registry_type::kString, false).Is(VarType::kEmpty));
  EXPECT_TRUE(RegRead(kRoot, "Tests", "none", registry_type::kAny, false).Is(VarType::kEmpty));
  EXPECT_TRUE(RegRead(kRoot, "Nowhere", "text", registry_type::kAny, false).Is(VarType::kEmpty));
}

TEST_F(RegistryAccessTest, AValueGoesIntoAKeyThatIsThere) {
  RegWrite(kRoot, "Nowhere", "text", "x", registry_type::kString);
  EXPECT_FALSE(desktop.registry().HasKey(kRoot, "Nowhere"));
}

TEST_F(RegistryAccessTest, ASubkeyMayHaveABackslashAtEitherEnd) {
  EXPECT_TRUE(RegDeleteSubkey(kRoot, "Tests", "\\Inner\\"));
  EXPECT_FALSE(desktop.registry().HasKey(kRoot, "Tests\\Inner"));
  EXPECT_TRUE(desktop.registry().HasKey(kRoot, "Tests"));
  EXPECT_FALSE(RegDeleteSubkey(kRoot, "Tests", "Inner"));
  EXPECT_FALSE(RegDeleteSubkey(kRoot, "Tests", "\\"));
}

TEST_F(RegistryAccessTest, ARefusalIsFalse) {
  desktop.registry().CloseForWriting(kRoot);
  EXPECT_FALSE(RegDeleteSubkey(kRoot, "Tests", "Inner"));
  RegWrite(kRoot, "Tests", "text", "other", registry_type::kString);
  EXPECT_EQ(ToText(RegRead(kRoot, "Tests", "text", registry_type::kString, false)), "Oasis");
}

}  // namespace
}  // namespace kestrun
