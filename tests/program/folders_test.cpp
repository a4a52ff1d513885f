#include <gtest/gtest.h>

#include "program/folders.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class FoldersTest : public HeadlessTest {};

TEST_F(FoldersTest, KnownFoldersEndInOneBackslash) {
  desktop.shell().windows_folder = "C:\\Windows";
  desktop.shell().system_folder = "C:\\Windows\\system32\\";
  desktop.shell().shell_folders[9] = "C:\\SendTo";
  EXPECT_EQ(SpecialFolder(1025), Path("temp") + "\\");
  EXPECT_EQ(SpecialFolder(1026), "C:\\Windows\\");
  EXPECT_EQ(SpecialFolder(1027), "C:\\Windows\\system32\\");
  EXPECT_EQ(SpecialFolder(9), "C:\\SendTo\\");
}

TEST_F(FoldersTest, AnUnknownFolderAndTheGivenPathAreEmpty) {
  EXPECT_EQ(SpecialFolder(12345), "");
  EXPECT_EQ(SpecialFolder(-1), "");
  EXPECT_EQ(SpecialFolder(1024), "");
}

TEST_F(FoldersTest, AKnownFolderIsCutAtItsFirstNul) {
  desktop.shell().windows_folder = std::string("C:\\Windows\0junk", 15);
  EXPECT_EQ(SpecialFolder(1026), "C:\\Windows\\");
}

TEST_F(FoldersTest, APickedFolderGetsABackslashUnlessItHasOne) {
  desktop.dialogs().ExpectFolder("Pick", "C:\\Карты 地図 é😀").WithRoot(17).StartingAt("");
  EXPECT_EQ(BrowseForFolder("Pick", 17, "C:\\ignored"), "C:\\Карты 地図 é😀\\");
  desktop.dialogs().ExpectFolder("Pick", "C:\\");
  EXPECT_EQ(BrowseForFolder("Pick", 17, ""), "C:\\");
}

TEST_F(FoldersTest, ACancelledPickIsEmpty) {
  desktop.dialogs().ExpectFolder("Pick", std::nullopt);
  EXPECT_EQ(BrowseForFolder("Pick", 17, ""), "");
}

TEST_F(FoldersTest, TheDialogueOpensAtTheGivenPathOrAtAKnownFolder) {
  desktop.dialogs().ExpectFolder("Pick", std::nullopt).StartingAt("C:\\start");
  EXPECT_EQ(BrowseForFolder("Pick", 1024, "C:\\start"), "");
  desktop.dialogs().ExpectFolder("Pick", std::nullopt).StartingAt(Path("temp") + "\\");
  EXPECT_EQ(BrowseForFolder("Pick", 1025, "C:\\start", true, true), "");
}

}  // namespace
}  // namespace kestrun
