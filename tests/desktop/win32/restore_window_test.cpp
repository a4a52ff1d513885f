// The restore window on the screen: real buttons, keys and boxes, from a map that was put in to the stock mission that
// is back.
#include "windows/restore/frmrestore.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window_fixture.h"
#include "formats/pff/cls_pff.h"
#include "program/originals_hook.h"
#include "program/path_text.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr const char* kMission = "D08M03.BMS";

// What the boxes that came up said; each is answered by the button with the next identifier.
std::vector<std::wstring>& Said() {
  static std::vector<std::wstring> said;
  return said;
}
std::vector<WORD>& Answers() {
  static std::vector<WORD> answers;
  return answers;
}

BOOL CALLBACK TakeText(HWND part, LPARAM text) {
  const std::wstring shown = ReadWindowText(part);
  auto& longest = *reinterpret_cast<std::wstring*>(text);
  if (shown.size() > longest.size()) longest = shown;
  return TRUE;
}

BOOL CALLBACK AnswerBox(HWND window, LPARAM) {
  wchar_t kind[16]{};
  GetClassNameW(window, kind, 16);
  if (std::wstring_view(kind) != L"#32770" || !IsWindowVisible(window) || Answers().empty()) return TRUE;
  std::wstring text;
  EnumChildWindows(window, &TakeText, reinterpret_cast<LPARAM>(&text));
  Said().push_back(text);
  const WORD answer = Answers().front();
  Answers().erase(Answers().begin());
  PostMessageW(window, WM_COMMAND, answer, 0);
  return FALSE;
}

void CALLBACK LookForBox(HWND, UINT, UINT_PTR, DWORD) { EnumThreadWindows(GetCurrentThreadId(), &AnswerBox, 0); }

class RestoreOnScreenTest : public RealWindowTest {
 protected:
  RestoreOnScreenTest() {
    RemoveTree(AppFile("originals"));
    const std::string temporary = platform.shell().TemporaryFolder();
    game_ = temporary + (temporary.ends_with('\\') ? "" : "\\") + "kestrun restore " +
            std::to_string(GetCurrentProcessId());
    RemoveTree(game_);
    platform.files().MakeFolder(game_);
    SetIniValue(AppFile("packit.ini"), "FOLDERS", "DFLW", game_);
    ClsPFF archive;
    archive.NewPffFile(Archive());
    archive.PackFile(AsBytes(stock_), kMission);
    archive.SavePffFile();
    Put(kMission, std::string(700, 'm'));
    Said().clear();
    Answers().clear();
    timer_ = SetTimer(nullptr, 0, 50, &LookForBox);
  }
  ~RestoreOnScreenTest() override {
    KillTimer(nullptr, timer_);
    CloseAllWindows();
    RemoveTree(game_);
    RemoveTree(AppFile("originals"));
    platform.files().Delete(AppFile("packit.ini"));
  }

  [[nodiscard]] std::string Archive() const { return game_ + "\\dflw.pff"; }
  [[nodiscard]] std::string Loose() const { return game_ + "\\" + kMission; }
  // As the commands do it: into the archive and beside it.
  void Put(const std::string& name, const std::string& map) {
    ClsPFF archive;
    ASSERT_TRUE(archive.LoadPff(Archive()));
    const auto keeper = KeepOriginals();
    keeper->KeepEntry(archive, name, AsBytes(map), "map.bms");
    keeper->KeepFile(game_ + "\\" + name, AsBytes(map), "map.bms");
    keeper->Finish();
    archive.PackFile(AsBytes(map), name);
    archive.SavePffFile();
    platform.files().WriteAll(game_ + "\\" + name, AsBytes(map));
  }
  [[nodiscard]] std::string Entry(const std::string& name) const {
    ClsPFF archive;
    int32_t number = -1;
    if (!archive.LoadPff(Archive()) || !archive.PFFFileExists(name, number)) return "(none)";
    Bytes bytes;
    static_cast<void>(archive.ExtractFile(number, bytes, ""));
    return std::string(AsChars(bytes));
  }
  void RemoveTree(const std::string& folder) {
    FileSystem& files = platform.files();
    if (!files.Exists(folder)) return;
    for (const FolderEntry& entry : files.List(folder)) files.Delete(folder + "\\" + entry.name);
    files.RemoveFolder(folder);
  }

  frmrestore& Open() {
    auto& window = Window<frmrestore>();
    window.Show();
    Pump();
    return window;
  }
  void ClickOn(Control& button, std::vector<WORD> answers) {
    Answers() = std::move(answers);
    PostMessageW(HandleOf(button), BM_CLICK, 0, 0);
    for (int round = 0; round < 200 && (round < 3 || !Answers().empty()); ++round) {
      Pump();
      Sleep(10);
    }
    Pump();
  }

  const std::string stock_ = std::string(1000, 's');
  std::string game_;
  UINT_PTR timer_ = 0;
};

TEST_F(RestoreOnScreenTest, RestoreAllAsksOnceAndPutsEverythingBack) {
  frmrestore& window = Open();
  EXPECT_EQ(window.LstMissions.ListCount(), 2);
  EXPECT_TRUE(IsWindowEnabled(HandleOf(window.CmdRestoreAll)));
  ClickOn(window.CmdRestoreAll, {IDYES, IDOK});
  EXPECT_EQ(Said(), (std::vector<std::wstring>{L"The loose file \"D08M03.BMS\" was not in the game before. Remove it?",
                                               L"1 original is back. 1 added file is removed."}));
  EXPECT_EQ(Entry(kMission), stock_);
  EXPECT_FALSE(platform.files().Exists(Loose()));
  EXPECT_EQ(window.LstMissions.ListCount(), 0);
  EXPECT_FALSE(IsWindowEnabled(HandleOf(window.CmdRestoreAll)));
}

TEST_F(RestoreOnScreenTest, TheSelectedRowAloneIsRestoredByTheKeyboard) {
  frmrestore& window = Open();
  window.SetActiveControl(&window.LstMissions);
  SetFocus(HandleOf(window.LstMissions));
  PostMessageW(HandleOf(window.LstMissions), WM_KEYDOWN, VK_DOWN, 1);
  Pump();
  EXPECT_EQ(window.TxtWhere.Text.get(), "\"D08M03.BMS\" in " + Archive());
  Answers() = {IDOK};
  SetFocus(HandleOf(window.CmdRestore));
  PostMessageW(HandleOf(window.CmdRestore), WM_KEYDOWN, VK_RETURN, 1);
  for (int round = 0; round < 200 && !Answers().empty(); ++round) Pump(), Sleep(10);
  Pump();
  EXPECT_EQ(Said(), std::vector<std::wstring>{L"1 original is back."});
  EXPECT_EQ(Entry(kMission), stock_);
  EXPECT_TRUE(platform.files().Exists(Loose()));
}

TEST_F(RestoreOnScreenTest, WhatAnotherProgramPutThereIsKeptAndComesBackByTheListOfVersions) {
  const std::string foreign(900, 'f');
  {
    ClsPFF archive;
    ASSERT_TRUE(archive.LoadPff(Archive()));
    archive.PackFile(AsBytes(foreign), kMission);
    archive.SavePffFile();
  }
  frmrestore& window = Open();
  window.LstMissions.SetListIndex(1);
  EXPECT_FALSE(IsWindowEnabled(HandleOf(window.CboVersion)));
  ClickOn(window.CmdRestore, {IDYES, IDOK});
  ASSERT_EQ(Said().size(), 2U);
  EXPECT_EQ(Said()[0], L"\"D08M03.BMS\" holds something that Kestrun did not put there. Keep that too?");
  EXPECT_EQ(Entry(kMission), stock_);
  window.LstMissions.SetListIndex(1);
  Pump();
  const HWND versions = HandleOf(window.CboVersion);
  ASSERT_TRUE(IsWindowEnabled(versions));
  EXPECT_EQ(SendMessageW(versions, CB_GETCOUNT, 0, 0), 2);
  SetFocus(versions);
  PostMessageW(versions, WM_KEYDOWN, VK_DOWN, 1);
  Pump();
  EXPECT_EQ(window.CboVersion.ListIndex, 1);
  ClickOn(window.CmdRestore, {IDOK});
  EXPECT_EQ(Said().back(), L"1 further version is back.");
  EXPECT_EQ(Entry(kMission), foreign);
}

}  // namespace
}  // namespace kestrun
