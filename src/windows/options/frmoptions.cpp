// What the options window does: loading, browsing, dropping, and the marks of what is missing. Saving stands in
// frmoptions_save.cpp.
#include "windows/options/frmoptions.h"

#include <algorithm>

#include "base/convert.h"
#include "base/text.h"
#include "forms/drop_target.h"
#include "platform/platform.h"
#include "program/default_copy.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/shell_integration.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmoptions::kName, [] { return MakeRef<frmoptions>(); });

constexpr int kStyleTimerMs = 20;
constexpr const char* kProgramFilter =
    "All supported programs|*.exe;*.bat;*.cmd|Windows Programs (*.exe)|*.exe|MS-DOS batch files "
    "(*.bat;*.cmd)|*.bat;*.cmd|All files (*.*)|*.*|";
constexpr const char* kStyleFilter = "Style files (*.stl)|*.stl|All files (*.*)|*.*";
constexpr std::string_view kStyleExtension = "stl";

bool IsFolder(const std::string& path) {
  bool is_folder = false;
  Attempt([&] { is_folder = platform().files().IsFolder(path); });
  return is_folder;
}

bool IsWholePath(const std::string& text) { return text.find_first_of("\\/:") != std::string::npos; }

void Tick(CheckBox& box, bool on) { box.Value = on ? 1 : 0; }

// A box shows what the shell says; one that has nothing behind it cannot be changed.
void ShowState(CheckBox& box, const std::function<bool()>& state, bool can_change) {
  box.Enabled = state && can_change;
  Attempt([&] { Tick(box, state && state()); });
}

}  // namespace

frmoptions::frmoptions() : Form(kName) {
  LayOut();
  ConnectButtons();
  ConnectBoxes();
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void frmoptions::ConnectButtons() {
  const auto browse = [this](CommandButton& button, TextBox& target, const std::string& title) {
    SetCommand({&button.Click}, [this, &target, title] { Browse(target, title); });
  };
  browse(cmdbms, txtbms, "SELECT BMS ==> MIS EXE");
  browse(Command6, txtcolor, "SELECT COLOR EXE");
  browse(CmdPack, txtPack, "Select file.");
  browse(CmdBrowsePlaying, TxtPlaying, "Select file.");
  SetCommand({&Command10.Click}, [this] {
    if (PickFile("Select Style File", kStyleFilter)) txtStyleFile.Text = CommonDialog1.FileName.get();
  });
  SetCommand({&CmdEditor.Click}, [this] {
    if (PickFile("Select file.", kProgramFilter)) TakeEditor(CommonDialog1.FileName);
  });
  SetCommand({&CmdGame.Click}, [this] {
    if (PickFile("Select file.", kProgramFilter)) TakeGame(CommonDialog1.FileName);
  });
  SetCommand({&CmdGameFolder.Click}, [this] { BrowseFolder(TxtGameFolder, "Select your game folder"); });
  SetCommand({&CmdMapFolder.Click}, [this] { BrowseFolder(TxtMapFolder, "Select a new folder"); });
  SetCommand({&Command1.Click}, [this] { Save(); });
  SetCommand({&Command2.Click}, [this] { Unload(); });
}

void frmoptions::ConnectBoxes() {
  // A name without a folder is looked for in the game's, so a change of that one may change all.
  for (const PathBox& row : path_boxes_) row.box->Change = [this, &row] { Mark(row); };
  TxtGameFolder.Change = [this] { MarkMissing(); };
  for (CheckBox* box : {&ChPack, &ChPlaying}) box->Click = [this] { MarkMissing(); };
  SetCommand({&chshortcut.Click}, [this] { ChangeShortcut(); });
  CboStyles.Click = [this] {
    const int row = CboStyles.ListIndex;
    if (row >= 0 && !is_filling_) txtStyleFile.Text = offered_styles_[static_cast<size_t>(row)];
  };
  FilesDropped = [this](const std::vector<std::string>& paths) { TakeDropped(paths); };
}

// ---- loading -------------------------------------------------------------------------------------------------------

void frmoptions::Load() {
  is_filling_ = true;
  LoadPaths();
  LoadShell();
  OfferStyles();
  is_filling_ = false;
  MarkMissing();
  StartStyleTimer(Timer1);
}

void frmoptions::LoadPaths() {
  Attempt([this] { Tick(chshortcut, FileExists(SendToShortcut())); });
  chshortcut.Enabled = static_cast<bool>(shell_integration().create_shortcut);
  struct Row {
    TextBox& box;
    const Setting& setting;
  };
  for (const Row& row : {Row{txtcolor, setting::kColorPicker}, Row{txtbms, setting::kConverter},
                         Row{txtStyleFile, setting::kStyle}, Row{TxtGame, setting::kGameProgram},
                         Row{TxtEditor, setting::kEditorProgram}, Row{txtPack, setting::kPackProgram},
                         Row{TxtPlaying, setting::kPlayingProgram}, Row{TxtDFLWParameters, setting::kGameParameters}}) {
    Attempt([&] { row.box.Text = ReadSetting(row.setting); });
  }
  // Where no game folder is known the user is asked for it, once.
  Attempt([this] { TxtGameFolder.Text = GameFolder(); });
  const GameFolderUnasked unasked;
  Attempt([this] { TxtMapFolder.Text = ReadSetting(setting::kMapFolder); });
  Attempt([this] { Tick(ChPack, TextToBoolean(ReadSetting(setting::kRunAfterPack))); });
  Attempt([this] { Tick(ChPlaying, TextToBoolean(ReadSetting(setting::kRunAfterPlaying))); });
}

void frmoptions::LoadShell() {
  const ShellIntegration& shell = shell_integration();
  ShowState(Check1, shell.is_bms_associated, shell.associate_bms && shell.remove_bms);
  ShowState(Check2, shell.is_lst_associated, shell.associate_lst && shell.remove_lst);
  ShowState(Check3, shell.is_stl_associated, shell.associate_stl && shell.remove_stl);
  Attempt([this] { Tick(ChDefault, IsDefaultCopy()); });
  const auto is_registered = [&shell] {
    std::string current;
    return shell.is_protocol_registered(current);
  };
  ShowState(ChProtocol, shell.is_protocol_registered ? is_registered : std::function<bool()>(),
            shell.register_protocol && shell.clear_protocol);
}

// The styles that lie beside the program or in its folder "styles", by their names.
void frmoptions::OfferStyles() {
  CboStyles.Clear();
  CboStyles.AddItem("No style");
  offered_styles_ = {std::string()};
  for (const std::string& folder : {platform().program().Folder(), AppFile("styles")}) {
    if (!IsFolder(folder)) continue;
    for (const FolderEntry& entry : platform().files().List(folder)) {
      if (entry.is_folder || !HasExtension(entry.name, kStyleExtension)) continue;
      CboStyles.AddItem(entry.name.substr(0, entry.name.size() - kStyleExtension.size() - 1));
      offered_styles_.push_back(folder + "\\" + entry.name);
    }
  }
  const bool has_none = txtStyleFile.Text.get().empty() || txtStyleFile.Text.get() == kNoStyle;
  for (size_t row = 0; row < offered_styles_.size(); ++row) {
    const bool is_current = row == 0 ? has_none : EqualsNoCase(offered_styles_[row], txtStyleFile.Text.get());
    if (is_current) CboStyles.ListIndex = static_cast<int>(row);
  }
}

// ---- picking and dropping ------------------------------------------------------------------------------------------

bool frmoptions::PickFile(const std::string& title, const std::string& filter) {
  SetUpFileDialog(CommonDialog1, title, filter);
  return CommonDialog1.ShowOpen();
}

void frmoptions::Browse(TextBox& target, const std::string& title) {
  if (PickFile(title, kProgramFilter)) target.Text = CommonDialog1.FileName.get();
}

void frmoptions::BrowseFolder(TextBox& target, const std::string& prompt) {
  const std::string picked = BrowseForFolder(prompt, folder::kMyComputer, "");
  if (!picked.empty()) target.Text = ParentFolder(picked);
}

bool frmoptions::IsOutsideGameFolder(const std::string& path) {
  return !EqualsNoCase(ParentFolder(path), WithoutLastBackslash(TxtGameFolder.Text));
}

void frmoptions::TakeEditor(const std::string& path) {
  const std::string name = GetFileName(path);
  if (IsOutsideGameFolder(path) && AskYesNo("This file is not located in your game folder!" + std::string(kCrLf) +
                                            "Do you want to copy it to your game folder?")) {
    platform().files().Copy(path, WithoutLastBackslash(TxtGameFolder.Text) + "\\" + name);
  }
  TxtEditor.Text = name;
}

void frmoptions::TakeGame(const std::string& path) {
  if (IsOutsideGameFolder(path) && AskYesNo("This file is not located in your game folder!" + std::string(kCrLf) +
                                            "Do you want to change your game folder to this file? CLICK YES")) {
    TxtGameFolder.Text = ParentFolder(path);
  }
  TxtGame.Text = GetFileName(path);
}

// A path goes into the box that it was dropped on, by the same rules as one that is browsed for; a style file anywhere
// into its own.
void frmoptions::TakeDropped(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  const std::string& path = paths.front();
  const bool is_style = HasExtension(path, kStyleExtension);
  Control* target = is_style ? &txtStyleFile : DropTarget();
  const auto row =
      std::find_if(path_boxes_.begin(), path_boxes_.end(), [&](const PathBox& each) { return each.box == target; });
  if (row == path_boxes_.end()) return;
  RunCommand([&] {
    const bool is_folder = IsFolder(path);
    if (row->kind == PathKind::kFolder) {
      row->box->Text = is_folder ? path : ParentFolder(path);
    } else if (is_folder) {
      return;
    } else if (target == &TxtEditor) {
      TakeEditor(path);
    } else if (target == &TxtGame) {
      TakeGame(path);
    } else {
      row->box->Text = path;
    }
  });
}

// ---- what is missing -----------------------------------------------------------------------------------------------

bool frmoptions::IsMissing(const PathBox& row) {
  const std::string text = row.box->Text;
  if (text.empty() || (row.only_when && row.only_when->Value == 0)) return false;
  switch (row.kind) {
    case PathKind::kFolder: return !IsFolder(text);
    case PathKind::kFile: return !FileExists(text);
    case PathKind::kStyle:
      // Most people have no default style.
      return text != kNoStyle && !EqualsNoCase(text, DefaultOf(setting::kStyle)) && !FileExists(text);
    case PathKind::kGameFile: break;
  }
  return !FileExists(IsWholePath(text) ? text : WithoutLastBackslash(TxtGameFolder.Text) + "\\" + text);
}

void frmoptions::MarkMissing() {
  for (const PathBox& row : path_boxes_) Mark(row);
}

void frmoptions::Mark(const PathBox& row) {
  if (!is_filling_) row.mark->Visible = IsMissing(row);
}

// ---- the Send To menu ----------------------------------------------------------------------------------------------

// Acts at once. The box shows what came of it.
void frmoptions::ChangeShortcut() {
  if (is_filling_) return;
  const std::string link = SendToShortcut();
  if (chshortcut.Value != 0) {
    if (shell_integration().create_shortcut && shell_integration().create_shortcut(link)) return;
    is_filling_ = true;
    Tick(chshortcut, FileExists(link));
    is_filling_ = false;
  } else {
    Attempt([&] { platform().files().Delete(link); });
  }
}

}  // namespace kestrun
