// The program manager in the real program: saving its list starts a new instance and ends the old one.
#include <gtest/gtest.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/host_window.h"
#include "desktop/win32/system/win32_services.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kMainTitle = L"Kestrun";
constexpr const wchar_t* kManagerTitle = L"Program Manager";
constexpr wchar_t kActionsKey = L'c';
constexpr wchar_t kYourProgramKey = L'y';

DWORD ProcessOf(HWND window) {
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  return id;
}

// The main window of any process but one; null when there is none.
struct MainWindowSearch {
  DWORD not_of;
  HWND found = nullptr;
};
HWND FindMainWindow(DWORD not_of = 0) {
  MainWindowSearch search{not_of};
  EnumWindows(
      [](HWND window, LPARAM target) CALLBACK -> BOOL {
        auto& wanted = *reinterpret_cast<MainWindowSearch*>(target);
        const bool is_main = IsWindowVisible(window) && CaptionOf(window) == kMainTitle && GetMenu(window) != nullptr;
        if (is_main && ProcessOf(window) != wanted.not_of) wanted.found = window;
        return wanted.found == nullptr;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}
HWND MainWindow() { return FindMainWindow(); }
HWND Manager() { return FindWindowW(nullptr, kManagerTitle); }

class RestartProcessTest : public testing::Test {
 protected:
  RestartProcessTest() {
    files.Copy(ProgramBesideTests("kestrun.exe"), Path("kestrun.exe"));
    // With the mark of UTF-8: the folder's name has letters that no code page holds.
    files.WriteAll(
        Path("packit.ini"),
        AsBytes("\xEF\xBB\xBF[FOLDERS]\r\nDFLW=" + folder.path() + "\r\n[launcher]\r\nPATH=" + folder.path() +
                "\r\nCHECKLWPATH=False\r\nFIRSTRUN=False\r\n[BANNERS]\r\nSHOW=False\r\n"
                "[programs]\r\nTOT=0\r\n[program0]\r\nNAME=Notes\r\nPATH=notes.exe\r\n"));
    // Where an earlier version has run, the first start of this one asks about maps.
    Win32UserSettings().Save("Kes_Trun", "DEFAULT", "ASKEDFORMAPS", "True");
    process = StartProcess(ToWide("\"" + Path("kestrun.exe") + "\""));
  }
  ~RestartProcessTest() override {
    const HWND left = MainWindow();
    const ProcessHandle other(left ? OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, ProcessOf(left)) : nullptr);
    EndProcess(process);
    EndProcess(other);
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder.path() + "\\" + name; }
  // Opens the manager and saves its list as it is.
  static void SaveList() {
    ASSERT_TRUE(WaitFor([] { return MainWindow() != nullptr; })) << ScreenReport();
    ASSERT_TRUE(ChooseIn(&MainWindow, kActionsKey, kYourProgramKey)) << ScreenReport();
    ASSERT_TRUE(WaitFor([] { return Manager() && IsWindowVisible(Manager()); })) << ScreenReport();
    ASSERT_TRUE(PressIn(&Manager, L"Save"));
    ASSERT_TRUE(WaitFor([] { return HostWindow::Box() != nullptr; })) << ScreenReport();
  }

  TemporaryFolder folder;
  Win32FileSystem files;
  ProcessHandle process;
};

TEST_F(RestartProcessTest, YesStartsANewInstanceAndEndsThisOne) {
  SaveList();
  const DWORD old = GetProcessId(process.get());
  PostMessageW(HostWindow::Box(), WM_COMMAND, IDYES, 0);
  EXPECT_EQ(WaitForSingleObject(process.get(), kPatienceMs), DWORD{WAIT_OBJECT_0});
  EXPECT_TRUE(WaitFor([old] { return FindMainWindow(old) != nullptr; })) << ScreenReport();
}

TEST_F(RestartProcessTest, NoKeepsThisOne) {
  SaveList();
  PostMessageW(HostWindow::Box(), WM_COMMAND, IDNO, 0);
  EXPECT_TRUE(WaitFor([] { return !HostWindow::Box() && !Manager(); })) << ScreenReport();
  EXPECT_EQ(WaitForSingleObject(process.get(), 0), DWORD{WAIT_TIMEOUT});
  EXPECT_EQ(FindMainWindow(GetProcessId(process.get())), nullptr);
}

}  // namespace
}  // namespace kestrun
