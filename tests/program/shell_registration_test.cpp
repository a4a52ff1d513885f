#include "program/shell_registration.h"

#include <gtest/gtest.h>

#include "program/frame_fixture.h"

namespace kestrun {
namespace {

constexpr RegistryRoot kClasses = RegistryRoot::kClassesRoot;
constexpr RegistryRoot kUser = RegistryRoot::kCurrentUser;
constexpr RegistryRoot kMachine = RegistryRoot::kLocalMachine;
constexpr const char* kAppPath = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwkestrun.exe";

struct FileKind {
  const char* extension;
  const char* in_capitals;
  const char* class_name;
  const char* icon;
  bool (*associate)();
  bool (*remove)();
  bool (*is_associated)();
};
constexpr FileKind kMaps{".bms", ".BMS", "Kestrun Map", ",1", &AssociateBms, &RemoveBms, &IsBmsAssociated};
constexpr FileKind kLists{".lst", ".LST", "Auto Host List", ",2", &AssociateLst, &RemoveLst, &IsLstAssociated};
constexpr FileKind kStyles{".stl", ".STL", "Kestrun Style File", ",3", &AssociateStl, &RemoveStl, &IsStlAssociated};

class ShellRegistrationTest : public FrameTest {
 protected:
  [[nodiscard]] HeadlessRegistry& registry() { return desktop.registry(); }
  [[nodiscard]] std::string Self() { return desktop.program().folder + "\\" + desktop.program().exe_name + ".exe"; }
  [[nodiscard]] std::string Class(const std::string& key) {
    return registry().Read(kClasses, key, "").value_or("(none)");
  }
  void GiveMapsTo(const std::string& command) {
    registry().Write(kClasses, ".bms", "", "Other Map");
    registry().Write(kClasses, "Other Map\\shell\\open\\command", "", command);
  }
  void ExpectQuestion(const FileKind& kind, const std::string& command, BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("The program \r\n" + command + "\r\nis the default program for " + kind.extension +
                       " files do you want to change it to \r\n" + Self(),
                   answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kQuestion);
  }
  void ExpectRemoval(const FileKind& kind, BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox(std::string("Are you sure you want to remove this program as default editor for ") +
                       kind.in_capitals + " files?",
                   answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kQuestion);
  }
};

// ---- files ---------------------------------------------------------------------------------------------------------

TEST_F(ShellRegistrationTest, FilesOfNobodyAreTakenWithoutAQuestion) {
  for (const FileKind& kind : {kMaps, kLists, kStyles}) {
    SCOPED_TRACE(kind.extension);
    EXPECT_FALSE(kind.is_associated());
    EXPECT_TRUE(kind.associate());
    EXPECT_EQ(Class(kind.extension), kind.class_name);
    EXPECT_EQ(Class(std::string(kind.class_name) + "\\shell\\open\\command"), Self() + " %1");
    EXPECT_EQ(Class(std::string(kind.class_name) + "\\DefaultIcon"), Self() + kind.icon);
    EXPECT_TRUE(kind.is_associated());
  }
}

TEST_F(ShellRegistrationTest, FilesThatAreThisProgramsAlreadyAreNotAskedAboutAgain) {
  ASSERT_TRUE(AssociateBms());
  EXPECT_TRUE(AssociateBms());
}

TEST_F(ShellRegistrationTest, FilesOfAnotherProgramGiveTheQuestionWithItsCommand) {
  GiveMapsTo("C:\\other.exe \"%1\"");
  ExpectQuestion(kMaps, "C:\\other.exe \"%1\"", BoxAnswer::kNo);
  EXPECT_FALSE(AssociateBms());
  EXPECT_EQ(Class(".bms"), "Other Map");
  ExpectQuestion(kMaps, "C:\\other.exe \"%1\"", BoxAnswer::kYes);
  EXPECT_TRUE(AssociateBms());
  EXPECT_EQ(Class(".bms"), "Kestrun Map");
  EXPECT_EQ(Class("Other Map\\shell\\open\\command"), "C:\\other.exe \"%1\"");
}

TEST_F(ShellRegistrationTest, TheComparisonIsExact) {
  GiveMapsTo(Self() + " %1");
  EXPECT_TRUE(IsBmsAssociated());  // whatever the class is called
  GiveMapsTo(Self() + " \"%1\"");
  EXPECT_FALSE(IsBmsAssociated());
  GiveMapsTo(Self() + " %2");
  EXPECT_FALSE(IsBmsAssociated());
  desktop.program().exe_name = "Kestrun";
  GiveMapsTo(desktop.program().folder + "\\KESTRUN.exe %1");
  EXPECT_FALSE(IsBmsAssociated());
}

TEST_F(ShellRegistrationTest, RemovingAsksAndLeavesTheClassBehind) {
  for (const FileKind& kind : {kMaps, kLists, kStyles}) {
    SCOPED_TRACE(kind.extension);
    ASSERT_TRUE(kind.associate());
    ExpectRemoval(kind, BoxAnswer::kNo);
    EXPECT_FALSE(kind.remove());
    EXPECT_TRUE(kind.is_associated());
    ExpectRemoval(kind, BoxAnswer::kYes);
    EXPECT_TRUE(kind.remove());
    EXPECT_FALSE(kind.is_associated());
    EXPECT_EQ(Class(kind.extension), "(none)");
    EXPECT_EQ(Class(std::string(kind.class_name) + "\\shell\\open\\command"), Self() + " %1");
  }
}

TEST_F(ShellRegistrationTest, RemovingWhenAnotherProgramOwnsTheFilesChangesNothingAndGivesNoBox) {
  GiveMapsTo("C:\\other.exe %1");
  EXPECT_FALSE(RemoveBms());
  EXPECT_EQ(Class(".bms"), "Other Map");
}

TEST_F(ShellRegistrationTest, ASystemThatRefusesIsFalse) {
  registry().CloseForWriting(kClasses);
  registry().CloseForWriting(kUser);
  EXPECT_FALSE(AssociateBms());
  EXPECT_FALSE(CreateAssociation(".x", "c", "C", ""));
  EXPECT_FALSE(RegisterProtocol());
}

TEST_F(ShellRegistrationTest, ASystemThatRefusesInTheMiddleLeavesTheFilesWithTheirProgram) {
  GiveMapsTo("C:\\other.exe %1");
  registry().MergeClasses();
  constexpr int kChanges = 3;
  for (int allowed = 0; allowed < kChanges; ++allowed) {
    SCOPED_TRACE(allowed);
    registry().RefuseAfter(allowed);
    ExpectQuestion(kMaps, "C:\\other.exe %1", BoxAnswer::kYes);
    EXPECT_FALSE(AssociateBms());
    EXPECT_FALSE(IsBmsAssociated());
    EXPECT_EQ(Class(".bms"), "Other Map");
    EXPECT_EQ(Class("Other Map\\shell\\open\\command"), "C:\\other.exe %1");
  }
  registry().RefuseAfter(kChanges);
  ExpectQuestion(kMaps, "C:\\other.exe %1", BoxAnswer::kYes);
  EXPECT_TRUE(AssociateBms());
  EXPECT_TRUE(IsBmsAssociated());
}

// Each value goes into the user's classes and then into the machine's.
TEST_F(ShellRegistrationTest, ARefusalBetweenTheUsersAndTheMachinesClassesLeavesThemToTheirProgram) {
  GiveMapsTo("C:\\other.exe %1");
  registry().RefuseAfter(5);
  ExpectQuestion(kMaps, "C:\\other.exe %1", BoxAnswer::kYes);
  EXPECT_FALSE(AssociateBms());
  EXPECT_FALSE(IsBmsAssociated());
  EXPECT_EQ(Class(".bms"), "Other Map");
}

// The class is this program's already, and names the file of an older folder: its command alone would tell that all of
// it is taken over.
TEST_F(ShellRegistrationTest, AMovedCopyWhoseIconIsRefusedDoesNotClaimTheFiles) {
  registry().MergeClasses();
  ASSERT_TRUE(AssociateBms());
  const std::string before = Self();
  desktop.program().folder = Path("moved");
  registry().RefuseAfter(0);
  ExpectQuestion(kMaps, before + " %1", BoxAnswer::kYes);
  EXPECT_FALSE(AssociateBms());
  registry().RefuseAfter(1);
  ExpectQuestion(kMaps, before + " %1", BoxAnswer::kYes);
  EXPECT_FALSE(AssociateBms());
  EXPECT_FALSE(IsBmsAssociated());
  EXPECT_EQ(Class("Kestrun Map\\shell\\open\\command"), before + " %1");
}

TEST_F(ShellRegistrationTest, WithoutAnIconNoneIsWritten) {
  EXPECT_TRUE(CreateAssociation(".map", "C:\\maps.exe", "Maps", ""));
  EXPECT_EQ(Class("Maps\\shell\\open\\command"), "C:\\maps.exe %1");
  EXPECT_FALSE(registry().HasKey(kClasses, "Maps\\DefaultIcon"));
}

// ---- the user's classes and the machine's --------------------------------------------------------------------------

TEST_F(ShellRegistrationTest, WhereTheClassesAreMergedOnlyTheUsersAreWritten) {
  registry().MergeClasses();
  EXPECT_TRUE(AssociateBms());
  EXPECT_TRUE(IsBmsAssociated());
  EXPECT_EQ(registry().Read(kUser, "Software\\Classes\\.bms", ""), "Kestrun Map");
  registry().CloseForWriting(kClasses);
  ExpectRemoval(kMaps, BoxAnswer::kYes);
  EXPECT_TRUE(RemoveBms());
  EXPECT_EQ(Class(".bms"), "(none)");
}

TEST_F(ShellRegistrationTest, AnotherProgramOfTheMachineComesBackWhenTheUsersEntryGoes) {
  GiveMapsTo("C:\\other.exe %1");
  registry().MergeClasses();
  ExpectQuestion(kMaps, "C:\\other.exe %1", BoxAnswer::kYes);
  ASSERT_TRUE(AssociateBms());
  EXPECT_TRUE(IsBmsAssociated());
  ExpectRemoval(kMaps, BoxAnswer::kYes);
  EXPECT_TRUE(RemoveBms());
  EXPECT_EQ(Class(".bms"), "Other Map");
}

TEST_F(ShellRegistrationTest, WhereTheyAreNotMergedTheMachinesAreWrittenToo) {
  EXPECT_TRUE(AssociateBms());
  EXPECT_EQ(registry().Read(kUser, "Software\\Classes\\.bms", ""), "Kestrun Map");
  EXPECT_EQ(registry().Read(kClasses, ".bms", ""), "Kestrun Map");
}

TEST_F(ShellRegistrationTest, AUserWithoutRightsOnTheMachineCanAssociateAllTheSame) {
  registry().MergeClasses();
  registry().CloseForWriting(kClasses);
  registry().CloseForWriting(kMachine);
  EXPECT_TRUE(AssociateBms());
  EXPECT_TRUE(RegisterProtocol());
  EXPECT_FALSE(RegisterAppPath());
}

// ---- the protocol and the App Paths entry --------------------------------------------------------------------------

TEST_F(ShellRegistrationTest, TheProtocolIsWrittenWhole) {
  std::string current = "x";
  EXPECT_FALSE(IsProtocolRegistered(current));
  EXPECT_EQ(current, "");
  EXPECT_TRUE(RegisterProtocol());
  EXPECT_EQ(Class("Kestrun"), "URL:kestrun Protocol");
  EXPECT_EQ(registry().Read(kClasses, "Kestrun", "URL Protocol"), "");
  EXPECT_EQ(Class("Kestrun\\DefaultIcon"), Self() + ", 2");
  EXPECT_EQ(Class("Kestrun\\Shell"), "open");
  EXPECT_EQ(Class("Kestrun\\Shell\\Open"), "&Load this Map");
  EXPECT_EQ(Class("Kestrun\\Shell\\Open\\Command"), Self() + " \"%1\"");
  EXPECT_TRUE(IsProtocolRegistered(current));
  EXPECT_EQ(current, Self() + " \"%1\"");
}

TEST_F(ShellRegistrationTest, AProtocolThatIsRefusedInTheMiddleIsNotRegistered) {
  registry().MergeClasses();
  constexpr int kChanges = 6;
  std::string current = "x";
  for (int allowed = 0; allowed < kChanges; ++allowed) {
    registry().RefuseAfter(allowed);
    EXPECT_FALSE(RegisterProtocol()) << allowed;
    EXPECT_FALSE(IsProtocolRegistered(current)) << allowed;
    EXPECT_EQ(current, "") << allowed;
  }
  registry().RefuseAfter(kChanges);
  EXPECT_TRUE(RegisterProtocol());
  EXPECT_TRUE(IsProtocolRegistered(current));
}

TEST_F(ShellRegistrationTest, AnAppPathThatIsRefusedInTheMiddleIsNotRegistered) {
  std::string current = "x";
  registry().RefuseAfter(1);
  EXPECT_FALSE(RegisterAppPath());
  EXPECT_FALSE(IsAppPathRegistered(current));
  EXPECT_EQ(current, "");
}

TEST_F(ShellRegistrationTest, TheProtocolsComparisonIgnoresCase) {
  registry().Write(kClasses, "Kestrun\\Shell\\Open\\Command", "", ToUpper(Self()) + " \"%1\"");
  std::string current;
  EXPECT_TRUE(IsProtocolRegistered(current));
}

TEST_F(ShellRegistrationTest, ClearingTheProtocolLeavesTheKeysAndAnEmptyCommand) {
  ASSERT_TRUE(RegisterProtocol());
  ClearProtocol();
  std::string current = "x";
  EXPECT_FALSE(IsProtocolRegistered(current));
  EXPECT_EQ(current, "");
  EXPECT_EQ(Class("Kestrun"), "URL:kestrun Protocol");
}

TEST_F(ShellRegistrationTest, TheAppPathNamesFileAndFolder) {
  std::string current = "x";
  EXPECT_FALSE(IsAppPathRegistered(current));
  EXPECT_TRUE(RegisterAppPath());
  EXPECT_EQ(registry().Read(kMachine, kAppPath, ""), Self());
  EXPECT_EQ(registry().Read(kMachine, kAppPath, "Path"), desktop.program().folder);
  EXPECT_TRUE(IsAppPathRegistered(current));
  registry().Write(kMachine, kAppPath, "", ToUpper(Self()));
  EXPECT_TRUE(IsAppPathRegistered(current));
  registry().Write(kMachine, kAppPath, "", "C:\\other.exe");
  EXPECT_FALSE(IsAppPathRegistered(current));
  EXPECT_EQ(current, "C:\\other.exe");
}

TEST_F(ShellRegistrationTest, AMovedProgramFolderMakesAllTestsFalse) {
  for (const FileKind& kind : {kMaps, kLists, kStyles}) ASSERT_TRUE(kind.associate());
  ASSERT_TRUE(RegisterProtocol());
  ASSERT_TRUE(RegisterAppPath());
  desktop.program().folder = Path("moved");
  for (const FileKind& kind : {kMaps, kLists, kStyles}) EXPECT_FALSE(kind.is_associated());
  std::string current;
  EXPECT_FALSE(IsProtocolRegistered(current));
  EXPECT_FALSE(IsAppPathRegistered(current));
}

// ---- shortcuts -----------------------------------------------------------------------------------------------------

TEST_F(ShellRegistrationTest, TheShortcutToThisCopySaysAllThatIsToBeSaid) {
  EXPECT_TRUE(RegistryShellIntegration().create_shortcut("C:\\SendTo\\DFLW.lnk"));
  EXPECT_EQ(desktop.shell().shortcuts.at("C:\\SendTo\\DFLW.lnk"),
            (Shortcut{Self(), desktop.program().folder + "\\", "", "", 0, "DFLW, 0, 0", 0, 5}));
}

TEST_F(ShellRegistrationTest, TheExtensionOfAShortcutIsAddedOnce) {
  EXPECT_TRUE(CreateShortcut("C:\\a", "C:\\t\\x.exe", true, "C:\\w", "-a", "C:\\i.ico", 3, "", 0, 1));
  EXPECT_TRUE(CreateShortcut("C:\\b.LNK", "C:\\t\\x.exe", true, "(auto)", "", "", 0, "", 0, 1));
  EXPECT_EQ(desktop.shell().shortcuts.at("C:\\a.lnk"),
            (Shortcut{"C:\\t\\x.exe", "C:\\w", "-a", "C:\\i.ico", 3, "", 0, 1}));
  EXPECT_EQ(desktop.shell().shortcuts.at("C:\\b.LNK").work_folder, "C:\\t\\");
}

TEST_F(ShellRegistrationTest, WithoutATargetNoShortcutIsWritten) {
  EXPECT_FALSE(CreateShortcut("C:\\a", "", true, "", "", "", 0, "", 0, 1));
  desktop.shell().refuses_shortcuts = true;
  EXPECT_FALSE(CreateShortcut("C:\\a", "C:\\x.exe", true, "", "", "", 0, "", 0, 1));
  EXPECT_TRUE(desktop.shell().shortcuts.empty());
}

}  // namespace
}  // namespace kestrun
