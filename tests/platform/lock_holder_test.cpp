#include <gtest/gtest.h>

#include "platform/files.h"

namespace kestrun {
namespace {

TEST(LockHolderTest, TheTextNamesProcessAndProgram) {
  EXPECT_EQ(FormatLockHolder({4711, "kestrun beta"}), "4711 kestrun beta\n");
  const LockHolder holder = ParseLockHolder("4711 kestrun beta\n");
  EXPECT_EQ(holder.process, 4711U);
  EXPECT_EQ(holder.program, "kestrun beta");
}

TEST(LockHolderTest, AnyOtherTextNamesNobody) {
  for (const std::string_view text : {"", "4711", "4711 kestrun", "kestrun\n", "-1 kestrun\n", "99999999999 kestrun\n",
                                      "4711 a\nb\n", "4711\n", "4711kestrun\n"}) {
    const LockHolder holder = ParseLockHolder(text);
    EXPECT_EQ(holder.process, 0U) << text;
    EXPECT_EQ(holder.program, "") << text;
  }
}

TEST(LockHolderTest, TheFolderOfAPathEndsBeforeItsLastSeparator) {
  EXPECT_EQ(FolderPart("C:\\game\\dflw.pff"), "C:\\game");
  EXPECT_EQ(FolderPart("/game/dflw.pff"), "/game");
  EXPECT_EQ(FolderPart("/dflw.pff"), "/");
  EXPECT_EQ(FolderPart("dflw.pff"), ".");
}

}  // namespace
}  // namespace kestrun
