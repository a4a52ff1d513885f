#include "support/headless_fixture.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "base/code_page.h"
#include "forms/form.h"

namespace kestrun {
namespace {

using FixtureTest = HeadlessTest;

TEST_F(FixtureTest, WrittenFileIsReadBack) {
  WriteFile(Path("a.txt"), "content");
  EXPECT_EQ(ReadFile(Path("a.txt")), "content");
  EXPECT_TRUE(FileIsThere(Path("a.txt")));
  EXPECT_FALSE(FileIsThere(Path("b.txt")));
}

TEST_F(FixtureTest, PlatformUsesTheFixturesFolders) {
  EXPECT_EQ(platform().program().Folder(), Path("program"));
  EXPECT_TRUE(platform().files().IsFolder(Path("program")));
  EXPECT_TRUE(platform().files().IsFolder(platform().shell().TemporaryFolder()));
}

TEST_F(FixtureTest, FolderHasANameThatNoSingleByteCodePageHolds) {
  EXPECT_TRUE(FirstUnencodable(Folder()));
  EXPECT_NE(Folder().find("Карты 地図 é😀"), std::string::npos);
}

TEST_F(FixtureTest, ExpectedBoxGetsItsAnswer) {
  desktop.dialogs().ExpectBox("Overwrite?", BoxAnswer::kYes);
  EXPECT_EQ(MsgBox("Overwrite?", BoxButtons::kYesNo), BoxAnswer::kYes);
}

TEST_F(FixtureTest, BoxNobodyExpectedFailsTheTestWithItsText) {
  EXPECT_NONFATAL_FAILURE(MsgBox("Something went wrong"), "nobody expected: Something went wrong");
}

TEST_F(FixtureTest, ModalWindowNobodyExpectedFailsTheTestWithItsName) {
  const Ref<Form> form = MakeRef<Form>("FrmOverWrite");
  EXPECT_NONFATAL_FAILURE(form->ShowModal(), "nobody expected: FrmOverWrite");
}

TEST_F(FixtureTest, BoxThatIsNeverShownFailsTheTestAtItsEnd) {
  desktop.dialogs().ExpectBox("Overwrite?");
  EXPECT_NONFATAL_FAILURE(TearDown(), "expected, but never shown: message box \"Overwrite?\"");
  MsgBox("Overwrite?");
}

TEST(TemporaryFolderTest, FolderIsRemovedWithAllItHolds) {
  NativeFileSystem files;
  std::string path;
  {
    const TemporaryFolder folder;
    path = folder.path();
    files.MakeFolder(path + "\\sub");
    files.WriteAll(path + "\\sub\\a.txt", {});
    EXPECT_TRUE(files.IsFolder(path));
  }
  EXPECT_FALSE(files.Exists(path));
}

TEST(TemporaryFolderTest, TwoFoldersAreTwo) {
  const TemporaryFolder first;
  const TemporaryFolder second;
  EXPECT_NE(first.path(), second.path());
}

}  // namespace
}  // namespace kestrun
