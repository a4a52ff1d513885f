#include "support/headless_fixture.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

using FixtureTest = HeadlessTest;

TEST_F(FixtureTest, WrittenFileIsReadBack) {
  WriteFile(Path("a.txt"), "content");
  EXPECT_EQ(ReadFile(Path("a.txt")), "content");
}

TEST_F(FixtureTest, PlatformUsesTheFixturesFolders) {
  EXPECT_EQ(platform().program().Folder(), Path("program"));
  EXPECT_TRUE(platform().files().IsFolder(Path("program")));
  EXPECT_TRUE(platform().files().IsFolder(platform().shell().TemporaryFolder()));
}

TEST_F(FixtureTest, ExpectedBoxGetsItsAnswer) {
  desktop.dialogs().ExpectBox("Overwrite?", BoxAnswer::kYes);
  EXPECT_EQ(MsgBox("Overwrite?", BoxButtons::kYesNo), BoxAnswer::kYes);
}

}  // namespace
}  // namespace kestrun
