// Add-ins in the real program: one that is loaded into kestrun.exe and one that is a program of its own, registered,
// listed and switched on and off as a user does it, beside the simulated game. What they saw stands in their logs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/host_window.h"

namespace kestrun {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const wchar_t* kManagerTitle = L"Add-In Manager";
constexpr const wchar_t* kInputTitle = L"Kestrun";
constexpr int kFileNameCombo = 0x047C;  // of the system's file dialogue

class AddInRoadTest : public testing::Test {
 protected:
  AddInRoadTest() {
    for (const char* name : {"Alpha", "Bravo", "Charlie"}) files.WriteAll(Path(std::string(name) + ".bms"), Mission());
    files.WriteAll(Path("alpha.jpg"), AsBytes("picture"));
    for (const char* program : {"kestrun.exe", "tour_inside.dll", "tour_outside.exe"}) {
      files.Copy(ProgramBesideTests(program), Path(program));
    }
    WriteText(Path("rotation.lst"), "[LIST]\r\nMAP0=" + Path("Alpha.bms") + "\r\nMAP1=" + Path("Bravo.bms") +
                                        "\r\nMAP2=" + Path("Charlie.bms") + "\r\nTOTAL=3\r\n");
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder.path() + "\\" + name; }
  [[nodiscard]] static Bytes Mission() {
    MissionFields fields;
    fields.mission_name = "A map";
    return WriteMission(fields);
  }
  // With the mark of UTF-8: the folder's name has letters that no code page holds.
  void WriteText(const std::string& path, const std::string& text) {
    files.WriteAll(path, AsBytes("\xEF\xBB\xBF" + text));
  }

  void Start(const std::string& add_ins) {
    WriteText(Path("packit.ini"), "[FOLDERS]\r\nDFLW=" + game_folder->path() +
                                      "\r\n[launcher]\r\nPATH=" + folder.path() +
                                      "\r\nCHECKLWPATH=False\r\nFIRSTRUN=False\r\nDFVERSION=0\r\nGAMETIMER=1\r\n"
                                      "[IMAGE]\r\nAlpha.bms=" +
                                      Path("alpha.jpg") + "\r\n" + add_ins);
    game = std::make_unique<GameProcess>(0, "-round 900 -pause 3500 -leave 0", game_folder);
    ASSERT_TRUE(game->IsThere());
    ASSERT_TRUE(game->Logs("map"));
    host = std::make_unique<HostWindow>(Path("kestrun.exe"), Path("rotation.lst"));
    ASSERT_TRUE(host->IsThere()) << ScreenReport();
  }

  [[nodiscard]] std::string Log(const std::string& program) const {
    std::string log;
    Attempt([&] { log = AsChars(Win32FileSystem().ReadAll(Path(program + ".log"))); });
    return log;
  }
  // A tour waits for the game and for keys; from another process it takes longer still.
  [[nodiscard]] bool Logs(const std::string& program, std::string_view text) const {
    const auto is_there = [&] { return Log(program).find(text) != std::string::npos; };
    return WaitFor(is_there) || WaitFor(is_there) || WaitFor(is_there) || WaitFor(is_there);
  }

  // Chooses the add-in's item, and once more when the system could not start its program, which it now and then cannot.
  [[nodiscard]] bool SwitchOnProgram(const std::string& program) const {
    if (!HostWindow::Choose(L'd', L't')) return false;
    if (!WaitFor([&] { return !Log(program).empty() || HostWindow::Box(); })) return false;
    if (!HostWindow::Box()) return true;
    std::cout << "The add-in did not start: " << FromWide(BoxText()) << "\n";
    CloseBox();
    return HostWindow::Choose(L'd', L't');
  }

  [[nodiscard]] std::string Ini() const { return std::string(AsChars(Win32FileSystem().ReadAll(Path("packit.ini")))); }

  // ---- the manager ----
  static HWND Manager() { return FindWindowW(nullptr, kManagerTitle); }
  static void OpenManager() {
    ASSERT_TRUE(HostWindow::Choose(L'd', L'i'));
    ASSERT_TRUE(WaitFor([] { return Manager() && IsWindowVisible(Manager()); }));
  }
  // The manager's button, the system's dialogue, and the box with the result.
  void RegisterFile(const std::string& path) {
    ASSERT_TRUE(PressIn(&Manager, L"Register OCX"));
    const auto dialog = [] { return FindWindowW(nullptr, L"Select file"); };
    ASSERT_TRUE(WaitFor([&] { return dialog() && GetDlgItem(dialog(), kFileNameCombo); }));
    const std::wstring text = ToWide(path);
    SendMessageW(GetDlgItem(dialog(), kFileNameCombo), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    PostMessageW(dialog(), WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitFor([&] { return !dialog() && BoxText() != L""; })) << "no box with the result";
  }
  static std::wstring BoxText() {
    const HWND box = HostWindow::Box();
    const HWND text = box ? GetDlgItem(box, 0xFFFF) : nullptr;
    return text ? TextOf(text) : L"";
  }
  static void CloseBox() {
    PostMessageW(HostWindow::Box(), WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitFor([] { return HostWindow::Box() == nullptr; }));
  }
  static void AnswerInput(const std::wstring& text) {
    const auto input = [] { return FindWindowW(nullptr, kInputTitle); };
    const auto box = [&input]() -> HWND {
      for (const HWND child : input() ? ChildrenOf(input()) : std::vector<HWND>()) {
        if (_wcsicmp(ClassOf(child).c_str(), L"Edit") == 0) return child;
      }
      return nullptr;
    };
    ASSERT_TRUE(WaitFor([&] { return box() && IsWindowVisible(box()) && TextOf(box()).empty(); }));
    const HWND answered = box();
    for (const wchar_t letter : text) PostMessageW(answered, WM_CHAR, letter, 0);
    ASSERT_TRUE(WaitFor([&] { return TextOf(answered) == text; }));
    ASSERT_TRUE(PressIn(input, L"OK"));
    ASSERT_TRUE(WaitFor([&] { return !IsWindow(answered); }));
  }
  static void AddToList(const std::wstring& name, const std::wstring& id) {
    ASSERT_TRUE(PressIn(&Manager, L"Add"));
    AnswerInput(name);
    AnswerInput(id);
  }

  // ---- other windows and programs ----
  static DWORD WaitForProgram(const std::string& command) {
    const ProcessHandle process = StartProcess(ToWide(command));
    DWORD code = 99;
    if (WaitForSingleObject(process.get(), kPatienceMs) == WAIT_OBJECT_0) GetExitCodeProcess(process.get(), &code);
    return code;
  }
  // Of the auto host's process.
  void CloseOtherWindows() const {
    EnumWindows(
        [](HWND window, LPARAM wanted) CALLBACK -> BOOL {
          DWORD process = 0;
          GetWindowThreadProcessId(window, &process);
          if (process == static_cast<DWORD>(wanted) && IsWindowVisible(window)) PostMessageW(window, WM_CLOSE, 0, 0);
          return TRUE;
        },
        static_cast<LPARAM>(host->Id()));
  }

  // What the tour saw, wherever its object lives.
  void ExpectWholeTour(const std::string& log) const {
    for (const char* line : {
             "AHForm\r\nSetInfo\r\nfield Random=False\r\nfield Rename=D08M03.BMS\r\nfield NextMap=False\r\n"
             "field Errors=0\r\nfield DfVersion=0\r\nfield MemoryAdress=0\r\nfield GameTimer=0\r\n"
             "field GameEndAddr=0\r\nfield PState=False\r\nfield LTime=0\r\nfield Edited=False\r\n",
             "written Errors=3 NextMap=True\r\n",
             "rows Alpha.bms,Bravo.bms,Charlie.bms\r\nmoved up Alpha.bms,Charlie.bms,Bravo.bms\r\n"
             "moved down Alpha.bms,Bravo.bms,Charlie.bms\r\n",
             "window frmputlist\r\nno window -1\r\nadd-in 1 is this one\r\n",
             "picture alpha.jpg url ",
             "bad index: 9 Subscript out of range\r\n",
             "running True\r\ninserted row 0\r\n",
             "done\r\n",
         }) {
      EXPECT_THAT(log, HasSubstr(line));
    }
    EXPECT_THAT(log, Not(HasSubstr("failed")));
    const size_t controls = log.find("controls ");
    ASSERT_NE(controls, std::string::npos) << log;
    const std::string counts = log.substr(controls + 9, log.find('\r', controls) - controls - 9);
    const size_t found = counts.find(" found ");
    EXPECT_EQ(counts.substr(0, found), counts.substr(found + 7)) << "controls without their names";
    EXPECT_GT(std::stoi(counts), 80);
    EXPECT_TRUE(game->Logs("hello from the tour")) << game->Log();
  }

  Win32FileSystem files;
  TemporaryFolder folder;
  std::shared_ptr<TemporaryFolder> game_folder = std::make_shared<TemporaryFolder>();
  std::unique_ptr<GameProcess> game;
  std::unique_ptr<HostWindow> host;
};

TEST_F(AddInRoadTest, ALibraryIsRegisteredAndListedInTheManagerAndSwitchedOnAndOffInTheMenu) {
  Start("");
  OpenManager();
  RegisterFile(Path("kestrun.exe"));
  EXPECT_EQ(BoxText(), L"Can't register") << "a program has no such entry";
  CloseBox();
  RegisterFile(Path("tour_inside.dll"));
  EXPECT_EQ(BoxText(), L"OK");
  CloseBox();
  AddToList(L"&Tour inside", L"TourInside.Tour");
  ASSERT_TRUE(PressIn(&Manager, L"Save"));
  ASSERT_TRUE(WaitFor([] { return Manager() == nullptr; }));
  ASSERT_TRUE(HostWindow::Choose(L'd', L't'));
  ASSERT_TRUE(Logs("tour_inside.dll", "done")) << Log("tour_inside.dll") << FromWide(BoxText()) << Ini();
  ExpectWholeTour(Log("tour_inside.dll"));
  EXPECT_TRUE(HostWindow::HasButton(L"Reset")) << "the run that the add-in has started goes on";
  EXPECT_EQ(HostWindow::CurrentMap(), "Alpha.bms");
  EXPECT_EQ(files.ReadAll(game_folder->path() + "\\D08M03.BMS"), Mission());
  ASSERT_TRUE(HostWindow::Choose(L'd', L't'));
  EXPECT_TRUE(Logs("tour_inside.dll", "released"));
}

// The add-in keeps the window, and a list in it, beyond its own end and that of the window.
TEST_F(AddInRoadTest, WhatALibraryKeepsAfterTheWindowWasClosedIsError424AndKeepsNoProcess) {
  ASSERT_EQ(WaitForProgram("regsvr32.exe /s \"" + Path("tour_inside.dll") + "\""), 0U);
  Start("[AUTO HOST ADDINS]\r\nTOT=1\r\nNAME1=&Tour\r\nCLSID1=TourInside.Tour\r\n");
  ASSERT_TRUE(HostWindow::Choose(L'd', L't'));
  ASSERT_TRUE(Logs("tour_inside.dll", "done")) << Log("tour_inside.dll") << FromWide(BoxText());
  PostMessageW(HostWindow::window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(Logs("tour_inside.dll", "released"));
  EXPECT_TRUE(Logs("tour_inside.dll",
                   "window after its end: 424 Object required\r\nlist after its end: 424 Object required\r\n"))
      << Log("tour_inside.dll");
  CloseOtherWindows();
  EXPECT_EQ(host->WaitForTheEnd(), 0U);
}

TEST_F(AddInRoadTest, AProgramOfItsOwnIsSwitchedOnAndOffAndEndsByItself) {
  ASSERT_EQ(WaitForProgram("\"" + Path("tour_outside.exe") + "\" -regserver"), 0U);
  Start("[AUTO HOST ADDINS]\r\nTOT=1\r\nNAME1=&Tour\r\nCLSID1={0D2B84F7-93C1-4A65-B702-4E8D61F31C29}\r\n");
  ASSERT_TRUE(SwitchOnProgram("tour_outside.exe"));
  ASSERT_TRUE(Logs("tour_outside.exe", "done")) << Log("tour_outside.exe") << FromWide(BoxText());
  ExpectWholeTour(Log("tour_outside.exe"));
  ASSERT_TRUE(HostWindow::Choose(L'd', L't'));
  EXPECT_TRUE(Logs("tour_outside.exe", "released"));
  PostMessageW(HostWindow::window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(Logs("tour_outside.exe",
                   "window after its end: 424 Object required\r\nlist after its end: 424 Object required\r\n"))
      << Log("tour_outside.exe");
  CloseOtherWindows();
  EXPECT_EQ(host->WaitForTheEnd(), 0U);
}

TEST_F(AddInRoadTest, AnAddInThatIsNotThereIsTheErrorBoxAndTheEntryStaysOff) {
  Start("[AUTO HOST ADDINS]\r\nTOT=1\r\nNAME1=&Tour\r\n");
  for (int click = 0; click < 2; ++click) {
    ASSERT_TRUE(HostWindow::Choose(L'd', L't'));
    ASSERT_TRUE(WaitFor([] { return BoxText() != L""; }));
    EXPECT_EQ(BoxText(), L"Error: 429\r\nActiveX component can't create object");
    CloseBox();
  }
}

}  // namespace
}  // namespace kestrun
