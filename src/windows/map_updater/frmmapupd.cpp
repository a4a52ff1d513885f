// The map updater's folders, menus and settings. The run stands in frmmapupd_run.cpp.
#include "windows/map_updater/frmmapupd.h"

#include "base/convert.h"
#include "base/text.h"
#include "base/text_file.h"
#include "forms/keys.h"
#include "forms/member_rows.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmmapupd::kName, [] { return MakeRef<frmmapupd>(); });

constexpr Member kRows[]{
    MethodRow<&frmmapupd::RunMapUpdate>("RunMapUpdate"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

constexpr int kStyleTimerMs = 50;
constexpr const char* kSelectMap = "Select map!";
constexpr const char* kWhatsThis =
    "This tool can keep your maps up to date. This is usefull is you have more then 1 PC and a LAN network where you "
    "can share files. If you edit a map on another PC and you save it there when you want to host it on another PC "
    "you always need to copy and search which files are new. This tools search for map files on a remote computer "
    "that aren't in your map folder or have a bigger file size on the remote computer. Then it copies those maps to "
    "your PC.";

}  // namespace

const MemberTable& frmmapupd::Members() const { return kTable; }

frmmapupd::frmmapupd() : Form(kName) {
  LayOut();
  Connect();
  ConnectPopUps();
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void frmmapupd::Connect() {
  const auto follow = [](TextBox& box, FileListBox& list) {
    box.Change = [&box, &list] {
      RunCommand([&] {
        if (!box.Text.get().empty()) list.SetPath(box.Text.get());
      });
    };
  };
  follow(TxtPC, lstmapsPC);
  follow(TxtRem, LstmapsRem);
  SetCommand({&CmdloadPC.Click}, [this] { BrowseFolder(TxtPC, setting::kUpdaterLocalFolder, "Select folder"); });
  SetCommand({&CmdloadRem.Click},
             [this] { BrowseFolder(TxtRem, setting::kUpdaterSharedFolder, "Select shared folder or network drive"); });
  SetCommand({&Command1.Click, &mnu_startupdating.Click}, [this] { RunMapUpdate(); });
  CmdStop.Click = [this] { stops_ = true; };
  SetCommand({&mnu_savelog.Click}, [this] { SaveLog(); });
  SetCommand({&mnu_fileexit.Click}, [this] { Unload(); });
  mnu_whatsthis.Click = [] { MsgBox(kWhatsThis); };
  SetCommand({&mnu_internethelp.Click}, [] { OpenWindow(window_name::kHelpDownload, ShowWay::kShowModal); });
  KeyDown = [this](int& key_code, int) {
    if (key_code != key::kEscape || !is_running_) return;
    key_code = 0;
    stops_ = true;
  };
  FilesDropped = [this](const std::vector<std::string>& paths) {
    if (!paths.empty() && platform().files().IsFolder(paths.front())) TxtRem.Text = paths.front();
  };
}

void frmmapupd::ConnectPopUps() {
  ConnectList(lstmapsPC, mnu_PCMAP, mnu_pcdelete, mnu_PCrename);
  ConnectList(LstmapsRem, mnu_REMMAP, mnu_delRem, mnu_renameRem);
  SetSilentCommand(mnu_pcdelete.Click, [this] { DeleteMap(TxtPC.Text, lstmapsPC); });
  SetSilentCommand(mnu_delRem.Click, [this] { DeleteMap(LstmapsRem.Path(), LstmapsRem); });
  SetSilentCommand(mnu_PCcopyto.Click, [this] { CopyMap(lstmapsPC.Path() + "\\", lstmapsPC); });
  // The remote list's path and name are joined as they are.
  SetSilentCommand(mnu_CopRem.Click, [this] { CopyMap(LstmapsRem.Path(), LstmapsRem); });
  SetSilentCommand(mnu_PCrename.Click, [this] { RenameMap(TxtPC, lstmapsPC); });
  SetSilentCommand(mnu_renameRem.Click, [this] { RenameMap(TxtRem, LstmapsRem); });
}

void frmmapupd::ConnectList(FileListBox& list, MenuItem& menu, MenuItem& remove, MenuItem& rename) {
  list.MouseUp = [this, &menu](int button, int, int, int) {
    if (button == mouse::kRight) PopupMenu(menu);
  };
  list.KeyDown = [this, &list, &menu, &remove, &rename](int& key_code, int) {
    switch (key_code) {
      case key::kMenu: PopupMenu(menu); break;
      case key::kDelete: remove.Click(); break;
      case key::kF2: rename.Click(); break;
      case key::kF5: list.Reload(); break;
      default: return;
    }
    key_code = 0;
  };
}

// ---- settings ------------------------------------------------------------------------------------------------------

void frmmapupd::Load() {
  mnu_internethelp.Enabled = IsWindowRegistered(window_name::kHelpDownload);
  RunCommand([this] { LoadSettings(); });
  StartStyleTimer(Timer1);
}

void frmmapupd::LoadSettings() {
  TxtPC.Text = ReadSetting(setting::kUpdaterLocalText);
  TxtRem.Text = ReadSetting(setting::kUpdaterSharedText);
  Option1.Value = TextToBoolean(ReadSetting(setting::kUpdaterOption1));
  Option2.Value = TextToBoolean(ReadSetting(setting::kUpdaterOption2));
  Check1.Value = TextToLong(ReadSetting(setting::kUpdaterCheck1));
  ChCRC.Value = TextToLong(ReadSetting(setting::kUpdaterCheckCrc));
}

void frmmapupd::Unloading() {
  stops_ = true;
  WriteSetting(setting::kUpdaterLocalText, TxtPC.Text);
  WriteSetting(setting::kUpdaterSharedText, TxtRem.Text);
  WriteSetting(setting::kUpdaterOption1, BooleanToText(Option1.Value));
  WriteSetting(setting::kUpdaterOption2, BooleanToText(Option2.Value));
  WriteSetting(setting::kUpdaterCheck1, std::to_string(Check1.Value));
  WriteSetting(setting::kUpdaterCheckCrc, std::to_string(ChCRC.Value));
}

// A Cancel gives an empty text, which is what is stored then.
void frmmapupd::BrowseFolder(TextBox& box, const Setting& setting, const std::string& prompt) {
  const std::string picked = BrowseForFolder(prompt, folder::kGivenPath, ReadSetting(setting));
  box.Text = picked;
  WriteSetting(setting, picked);
}

// ---- the commands of the lists -------------------------------------------------------------------------------------

// Commands for both lists ask whether a row of the local one is current.
bool frmmapupd::HasLocalRow() {
  if (lstmapsPC.ListIndex >= 0) return true;
  MsgBox(kSelectMap);
  return false;
}

void frmmapupd::DeleteMap(const std::string& folder, FileListBox& list) {
  const std::string name = list.FileName();
  if (name.empty()) {
    MsgBox(kSelectMap);
    return;
  }
  // An empty box leaves the list at the folder that it showed before: the path would be one of the drive's root.
  if (folder.empty()) {
    MsgBox(kLocalPathIsWrong);
    return;
  }
  TxtPC.Text = WithoutLastBackslash(TxtPC.Text);
  const std::string path = WithoutLastBackslash(folder) + "\\" + name;
  if (!AskYesNo("Are you sure you want to delete " + path + " ?")) return;
  platform().files().Delete(path);
  list.Reload();
}

void frmmapupd::CopyMap(const std::string& folder_and_separator, FileListBox& list) {
  const std::string name = list.FileName();
  SetUpFileDialog(CommonDialog1, "Copy map to ...", "BMS files (*.bms)|*.bms|all files (*.*)|*.*|");
  CommonDialog1.FileName = name;
  if (!CommonDialog1.ShowSave() || !HasLocalRow()) return;
  platform().files().CopyDurably(folder_and_separator + name, CommonDialog1.FileName.get());
  lstmapsPC.Reload();
}

// The old file stays.
void frmmapupd::RenameMap(TextBox& folder, FileListBox& list) {
  const std::string answer =
      platform().dialogs().AskText("Enter new file name. Don't forget the .bms!", "", "").value_or("");
  if (answer.empty() || !HasLocalRow()) return;
  const std::string name = list.FileName();
  folder.Text = WithoutLastBackslash(folder.Text);
  const std::string path = folder.Text.get() + "\\";
  platform().files().CopyDurably(path + name, path + answer);
  lstmapsPC.Reload();
}

// ---- the log -------------------------------------------------------------------------------------------------------

void frmmapupd::SaveLog() {
  SetUpFileDialog(CommonDialog1, "Select LOG or text file.",
                  "Log files (*.log)|*.log|Text files (*.txt)|*.txt|All files (*.*)|*.*|", "log");
  if (!CommonDialog1.ShowSave()) return;
  ShowLog();
  const std::string content = EncodeTextFile(txtlog.Text.get());
  platform().files().WriteAllDurably(CommonDialog1.FileName.get(), AsBytes(content));
}

}  // namespace kestrun
