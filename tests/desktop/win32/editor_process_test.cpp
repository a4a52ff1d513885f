// The style editor in the real program, which is killed in the middle of its work: the next start offers what was
// written last, and Yes gives it.
#include <gmock/gmock.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/host_window.h"
#include "desktop/win32/system/win32_services.h"
#include "windows/style_editor/editor_fixture.h"

// This needs the system's types.
#include <commctrl.h>

namespace kestrun {
namespace {

constexpr const wchar_t* kEditorTitle = L"Kestrun - Editor V1.1";
constexpr const char* kManifest = "language VBScript\r\ninclude main.vbs";
constexpr const char* kModule = "'the code of the module";
constexpr int kFileNameCombo = 0x47C;  // of the system's file dialogues
// So large that a copy of it, or adding it, takes long enough to be met in the middle.
constexpr size_t kLargeBytes = 40'000'000;

class EditorProcessTest : public EditorTest {
 protected:
  EditorProcessTest() {
    native_files.Copy(ProgramBesideTests("kestrun.exe"), Path("kestrun.exe"));
    // With the mark of UTF-8: the folder's name has letters that no code page holds.
    WriteFile(Path("packit.ini"), "\xEF\xBB\xBF[FOLDERS]\r\nDFLW=" + Folder() + "\r\n[launcher]\r\nPATH=" + Folder() +
                                      "\r\nCHECKLWPATH=False\r\nFIRSTRUN=False\r\n[BANNERS]\r\nSHOW=False\r\n");
    // Where an earlier version has run, the first start of this one asks about maps.
    Win32UserSettings().Save("Kes_Trun", "DEFAULT", "ASKEDFORMAPS", "True");
    style =
        MakeStyle("night.stl",
                  {{"assembly.txt", kManifest}, {"main.vbs", kModule}, {"large.bmp", std::string(kLargeBytes, 'l')}});
  }
  ~EditorProcessTest() override { EndProcess(process); }

  void Start() { process = StartProcess(ToWide("\"" + Path("kestrun.exe") + "\" -edit " + style)); }
  void Kill() { EndProcess(process); }

  // ---- the window ----
  static HWND EditorWindow() {
    const HWND window = FindWindowW(nullptr, kEditorTitle);
    return window && IsWindowVisible(window) ? window : nullptr;
  }
  static bool IsOfClass(HWND window, const wchar_t* name) { return _wcsicmp(ClassOf(window).c_str(), name) == 0; }
  static HWND Code() {
    for (const HWND child : ChildrenOf(EditorWindow())) {
      if (IsOfClass(child, L"Edit") && IsWindowVisible(child)) return child;
    }
    return nullptr;
  }
  static std::string CodeText() { return Code() ? FromWide(TextOf(Code())) : std::string(); }
  // The upper one of the two.
  static HWND Tree() {
    HWND upper = nullptr;
    RECT place{};
    for (const HWND child : ChildrenOf(EditorWindow())) {
      RECT other{};
      if (!IsOfClass(child, WC_TREEVIEWW) || !GetWindowRect(child, &other)) continue;
      if (upper && other.top > place.top) continue;
      upper = child;
      place = other;
    }
    return upper;
  }
  static LPARAM Next(WPARAM way, LPARAM from) { return SendMessageW(Tree(), TVM_GETNEXTITEM, way, from); }
  // The first entry in the folder of that number, from 0; 0 while there is none.
  static LPARAM FirstEntryOf(int folder_number) {
    if (!Tree()) return 0;
    const LPARAM root = Next(TVGN_ROOT, 0);
    LPARAM folder = root ? Next(TVGN_CHILD, root) : 0;
    for (int number = 0; folder && number < folder_number; ++number) folder = Next(TVGN_NEXT, folder);
    return folder ? Next(TVGN_CHILD, folder) : 0;
  }
  // Of a program that is at work the number before.
  static LRESULT NodeCount() {
    static DWORD_PTR count = 0;
    SendMessageTimeoutW(Tree(), TVM_GETCOUNT, 0, 0, SMTO_ABORTIFHUNG, 1, &count);
    return static_cast<LRESULT>(count);
  }

  // Opens the first entry of a folder by the keyboard, and waits for its text.
  static void OpenFirstOf(int folder, const std::string& text) {
    ASSERT_TRUE(WaitFor([&] { return FirstEntryOf(folder) != 0; })) << ScreenReport();
    SendMessageW(Tree(), TVM_SELECTITEM, TVGN_CARET, FirstEntryOf(folder));
    PostMessageW(Tree(), WM_SYSCHAR, L'p', 0);  // the access key of the tree's label
    PostMessageW(Tree(), WM_KEYDOWN, VK_RETURN, 0);
    ASSERT_TRUE(WaitFor([&] { return CodeText() == text; })) << CodeText() << "\n" << ScreenReport();
  }
  static void OpenManifest() { OpenFirstOf(0, kManifest); }
  static void OpenModule(const std::string& text) { OpenFirstOf(1, text); }
  // In front of what is there.
  static void TypeInFront(const std::string& text) {
    const std::string whole = text + CodeText();
    for (const char letter : text) PostMessageW(Code(), WM_CHAR, static_cast<WPARAM>(letter), 0);
    ASSERT_TRUE(WaitFor([&] { return CodeText() == whole; })) << CodeText();
  }
  static std::string BoxText() {
    const HWND text = HostWindow::Box() ? GetDlgItem(HostWindow::Box(), 0xFFFF) : nullptr;
    return text ? ReplaceAll(FromWide(TextOf(text)), kCrLf, "\n") : std::string();
  }

  // Starts the program again, and takes what it offers.
  void Recover() {
    Start();
    ASSERT_TRUE(WaitFor([&] { return BoxText() == RecoveryQuestion(style); })) << BoxText() << "\n" << ScreenReport();
    PostMessageW(HostWindow::Box(), WM_COMMAND, IDYES, 0);
    // A save of the working copy that was cut short is undone with a word.
    ASSERT_TRUE(WaitFor([&] {
      if (BoxText().find("was cut short") != std::string::npos) PostMessageW(HostWindow::Box(), WM_COMMAND, IDOK, 0);
      return FirstEntryOf(1) != 0;
    })) << BoxText()
        << "\n"
        << ScreenReport();
  }
  // Kills the program as soon as the condition holds.
  void KillWhen(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + kPatienceMs;
    while (!condition() && GetTickCount64() < end) ::Sleep(0);
    EXPECT_TRUE(condition() || GetTickCount64() < end) << ScreenReport();
    Kill();
  }

  std::string style;
  ProcessHandle process;
};

TEST_F(EditorProcessTest, KilledAfterTypingTheNextStartGivesWhatWasWrittenLast) {
  Start();
  OpenModule(kModule);
  TypeInFront("'written ");
  OpenManifest();  // another entry: what was typed is written
  OpenModule(std::string("'written ") + kModule);
  TypeInFront("'lost ");
  Kill();
  Recover();
  OpenModule(std::string("'written ") + kModule);
  Kill();
  EXPECT_THAT(ContentOf(style), testing::Contains(testing::Pair("main.vbs", kModule)));
}

TEST_F(EditorProcessTest, KilledInASaveTheProjectIsWholeAndTheNextStartGivesWhatWasWritten) {
  Start();
  OpenModule(kModule);
  TypeInFront("'saved ");
  ASSERT_TRUE(ChooseIn(&EditorWindow, L'f', L's')) << ScreenReport();
  // What stands beside the project until it is whole; the box comes behind it.
  KillWhen([&] { return FileIsThere(style + ".new") || HostWindow::Box() != nullptr; });
  const ArchiveContent content = ContentOf(style);
  ASSERT_EQ(content.size(), 3U);
  EXPECT_THAT(content[1].second, testing::AnyOf(kModule, std::string("'saved ") + kModule));
  EXPECT_EQ(content[2].second, std::string(kLargeBytes, 'l'));
  Recover();
  OpenModule(std::string("'saved ") + kModule);
}

TEST_F(EditorProcessTest, KilledInAnAddTheNextStartGivesAWholeProject) {
  WriteFile(Path("added.bmp"), std::string(kLargeBytes, 'a'));
  Start();
  OpenModule(kModule);
  TypeInFront("'typed ");
  OpenManifest();
  const LRESULT nodes = NodeCount();
  ASSERT_TRUE(ChooseIn(&EditorWindow, L'a', L'i')) << ScreenReport();
  const auto dialog = [] { return FindWindowW(nullptr, L"Select file"); };
  ASSERT_TRUE(WaitFor([&] { return dialog() && GetDlgItem(dialog(), kFileNameCombo); })) << ScreenReport();
  const std::wstring file = ToWide(Path("added.bmp"));
  SendMessageW(GetDlgItem(dialog(), kFileNameCombo), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()));
  PostMessageW(dialog(), WM_COMMAND, IDOK, 0);
  KillWhen([&] { return FileIsThere(WorkingCopy(style) + ".journal") || NodeCount() > nodes; });
  Recover();
  OpenModule(std::string("'typed ") + kModule);
  Kill();
  const ArchiveContent content = ContentOf(WorkingCopy(style));
  ASSERT_GE(content.size(), 3U);
  EXPECT_EQ(content[1].second, std::string("'typed ") + kModule);
  EXPECT_EQ(content[2].second, std::string(kLargeBytes, 'l'));
  if (content.size() > 3) {
    EXPECT_EQ(content[3].second, std::string(kLargeBytes, 'a'));
  }
}

}  // namespace
}  // namespace kestrun
