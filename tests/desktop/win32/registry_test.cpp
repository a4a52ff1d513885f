// The program's entries in the real registry, and a real shortcut.
#include <gtest/gtest.h>

#include "desktop/win32/system/shell_link.h"
#include "desktop/win32/win32_platform.h"
#include "program/registry_access.h"
#include "program/shell_registration.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr RegistryRoot kClasses = RegistryRoot::kClassesRoot;
constexpr RegistryRoot kUser = RegistryRoot::kCurrentUser;
constexpr RegistryRoot kMachine = RegistryRoot::kLocalMachine;
constexpr const char* kAppPath = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwkestrun.exe";
constexpr const char* kTestKey = "Software\\Kestrun Tests";

class RealRegistryTest : public testing::Test {
 protected:
  RealRegistryTest() { Forget(); }
  ~RealRegistryTest() override { Forget(); }

  // Keys below first: one with keys below it stays.
  void Forget() {
    for (const char* key :
         {".bms", "Kestrun Map\\shell\\open\\command", "Kestrun Map\\shell\\open", "Kestrun Map\\shell",
          "Kestrun Map\\DefaultIcon", "Kestrun Map", "Other Map\\shell\\open\\command", "Other Map\\shell\\open",
          "Other Map\\shell", "Other Map", "Kestrun\\Shell\\Open\\Command", "Kestrun\\Shell\\Open", "Kestrun\\Shell",
          "Kestrun\\DefaultIcon", "Kestrun"}) {
      registry().DeleteKey(kUser, std::string("Software\\Classes\\") + key);
      registry().DeleteKey(kClasses, key);
    }
    registry().DeleteKey(kUser, std::string(kTestKey) + "\\Inner");
    registry().DeleteKey(kUser, kTestKey);
    registry().DeleteKey(kMachine, kAppPath);
  }
  Registry& registry() { return platform.registry(); }
  [[nodiscard]] std::string Self() {
    return platform.program().Folder() + "\\" + platform.program().ExeName() + ".exe";
  }
  [[nodiscard]] std::string Class(const std::string& key) {
    return registry().Read(kClasses, key, "").value_or("(none)");
  }
  void GiveMapsTo(const std::string& command) {
    registry().Write(kClasses, ".bms", "", "Other Map");
    registry().Write(kClasses, "Other Map\\shell\\open\\command", "", command);
  }
  // Presses a button of the next message box.
  void AnswerWith(int button) {
    wanted_button = button;
    SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR timer, DWORD) CALLBACK {
      const HWND box = FindWindowW(L"#32770", nullptr);
      if (!box || !IsWindowVisible(box)) return;
      KillTimer(nullptr, timer);
      PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(wanted_button), 0);
    });
  }

  static inline int wanted_button = 0;
  Win32Platform platform;
  PlatformInstallation installation{platform};
};

TEST_F(RealRegistryTest, ValuesOfEachTypeComeBack) {
  ASSERT_TRUE(registry().CreateKey(kUser, std::string(kTestKey) + "\\Inner"));
  RegWrite(kUser, kTestKey, "text", "Карта é", registry_type::kString);
  RegWrite(kUser, kTestKey, "number", int32_t{-2}, registry_type::kNumber);
  ASSERT_TRUE(registry().WriteValue(kUser, kTestKey, "bytes", Bytes{1, 0, 255}));
  EXPECT_EQ(registry().ReadValue(kUser, kTestKey, "TEXT"), RegistryValue(std::string("Карта é")));
  EXPECT_EQ(registry().ReadValue(kUser, kTestKey, "number"), RegistryValue(0xFFFFFFFEu));
  EXPECT_EQ(registry().ReadValue(kUser, kTestKey, "bytes"), RegistryValue(Bytes{1, 0, 255}));
  EXPECT_EQ(registry().ReadValue(kUser, kTestKey, "none"), std::nullopt);
  EXPECT_FALSE(registry().DeleteKey(kUser, kTestKey));  // it has a key below it
  EXPECT_TRUE(RegDeleteSubkey(kUser, kTestKey, "\\Inner\\"));
  EXPECT_TRUE(registry().DeleteKey(kUser, kTestKey));
  EXPECT_FALSE(registry().HasKey(kUser, kTestKey));
}

TEST_F(RealRegistryTest, MapsOfNobodyAreTakenAndGivenBack) {
  EXPECT_FALSE(IsBmsAssociated());
  EXPECT_TRUE(AssociateBms());
  EXPECT_TRUE(IsBmsAssociated());
  EXPECT_EQ(Class("Kestrun Map\\shell\\open\\command"), Self() + " %1");
  EXPECT_EQ(Class("Kestrun Map\\DefaultIcon"), Self() + ",1");
  AnswerWith(IDYES);
  EXPECT_TRUE(RemoveBms());
  EXPECT_FALSE(IsBmsAssociated());
  EXPECT_EQ(Class(".bms"), "(none)");
}

TEST_F(RealRegistryTest, MapsOfAnotherProgramAreAskedFor) {
  GiveMapsTo("C:\\other.exe %1");
  EXPECT_FALSE(RemoveBms());
  AnswerWith(IDNO);
  EXPECT_FALSE(AssociateBms());
  EXPECT_EQ(Class(".bms"), "Other Map");
  AnswerWith(IDYES);
  EXPECT_TRUE(AssociateBms());
  EXPECT_EQ(Class(".bms"), "Kestrun Map");
}

TEST_F(RealRegistryTest, ACopyInAnotherFolderIsNotThisOne) {
  GiveMapsTo("C:\\moved\\" + platform.program().ExeName() + ".exe %1");
  EXPECT_FALSE(IsBmsAssociated());
}

TEST_F(RealRegistryTest, TheProtocolIsRegisteredAndCleared) {
  std::string current;
  EXPECT_FALSE(IsProtocolRegistered(current));
  EXPECT_TRUE(RegisterProtocol());
  EXPECT_TRUE(IsProtocolRegistered(current));
  EXPECT_EQ(registry().Read(kClasses, "Kestrun", "URL Protocol"), "");
  ClearProtocol();
  EXPECT_FALSE(IsProtocolRegistered(current));
  EXPECT_EQ(current, "");
  EXPECT_TRUE(registry().HasKey(kClasses, "Kestrun\\Shell\\Open\\Command"));
}

// Wine lets every user write the machine's entries.
TEST_F(RealRegistryTest, TheMachinesAppPathNamesThisCopyUntilItNamesAnother) {
  std::string current = "x";
  EXPECT_FALSE(IsAppPathRegistered(current));
  EXPECT_EQ(current, "");
  ASSERT_TRUE(RegisterAppPath());
  EXPECT_EQ(registry().Read(kMachine, kAppPath, ""), Self());
  EXPECT_EQ(registry().Read(kMachine, kAppPath, "Path"), platform.program().Folder());
  EXPECT_TRUE(IsAppPathRegistered(current));
  ASSERT_TRUE(registry().Write(kMachine, kAppPath, "", "C:\\gone\\kestrun.exe"));
  EXPECT_FALSE(IsAppPathRegistered(current));
  EXPECT_EQ(current, "C:\\gone\\kestrun.exe");
}

TEST_F(RealRegistryTest, AWriteThatTheSystemRefusesIsSilent) {
  // A name that is too long for a key is refused whatever the user's rights are.
  const std::string too_long = std::string(kAppPath) + "\\" + std::string(300, 'x');
  EXPECT_FALSE(registry().Write(kMachine, too_long, "", "text"));
  EXPECT_FALSE(registry().HasKey(kMachine, too_long));
}

TEST_F(RealRegistryTest, AShortcutLeadsToItsTarget) {
  const TemporaryFolder folder;
  const std::string link = folder.path() + "\\DFLW.lnk";
  EXPECT_TRUE(RegistryShellIntegration().create_shortcut(link));
  EXPECT_TRUE(platform.files().Exists(link));
  EXPECT_EQ(ToLower(FollowLink(link)), ToLower(Self()));
  EXPECT_FALSE(RegistryShellIntegration().create_shortcut(folder.path() + "\\nowhere\\DFLW.lnk"));
}

}  // namespace
}  // namespace kestrun
