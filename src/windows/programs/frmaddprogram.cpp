#include "windows/programs/frmaddprogram.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/keys.h"
#include "maps/file_tools.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "program/default_copy.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/user_programs.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/list_keys.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmaddprogram::kName, [] { return MakeRef<frmaddprogram>(); });

constexpr const char* kFilter =
    "All supported programs|*.exe;*.bat;*.cmd|Windows Programs (*.exe)|*.exe|MS-DOS batch files "
    "(*.bat;*.cmd)|*.bat;*.cmd|All files (*.*)|*.*|";
constexpr int kStyleTimerMs = 50;
constexpr int kWidth = 5400;
constexpr int kButtonWidth = 1380;
constexpr int kButtonStep = kDialogButtonHeight + kControlGap;
constexpr int kListTop = 300;
constexpr int kListHeight = 2100;
constexpr int kFrameHeightInside = kListTop + kListHeight + kFramePad;
constexpr int kEndTop = kWindowMargin + kFrameHeightInside + kWindowMargin;

}  // namespace

frmaddprogram::frmaddprogram() : Form(kName) {
  LayOut();
  Connect();
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void frmaddprogram::LayOut() {
  LayOutDialog(*this, "Program Manager");
  SetClientSize(kWidth + 2 * kWindowMargin, kEndTop + kDialogButtonHeight + kWindowMargin);
  Frame1.Caption = "Programs:";
  Frame1.Move(kWindowMargin, kWindowMargin, kWidth, kFrameHeightInside);
  const int right = kWidth - kFramePad - kButtonWidth;
  Lstprograms.SetContainer(Frame1);
  Lstprograms.Move(kFramePad, kListTop, right - kControlGap - kFramePad, kListHeight);
  Lstprograms.ToolTipText = "Your programs in the order of the actions menu.";
  struct Row {
    CommandButton& button;
    const char* caption;
    const char* tip;
  };
  int top = kListTop;
  for (const Row& row :
       {Row{Command1, "Add", "Add a program to the list."}, Row{Command2, "Remove", "Remove the selected program."},
        Row{Command5, "Properties", "Show its name and its path."}}) {
    row.button.SetContainer(Frame1);
    PlaceButton(row.button, {right, top, kButtonWidth, kDialogButtonHeight}, row.caption, row.tip);
    top += kButtonStep;
  }
  PlaceEndButtons({Command3, "Save", "Store the list."}, {Command4, "Cancel", "Close the window and store nothing."},
                  kWindowMargin + kWidth, kEndTop);
}

void frmaddprogram::Connect() {
  SetSilentCommand(Command1.Click, [this] { AddOne(); });
  SetSilentCommand(Command2.Click, [this] { RemoveOne(); });
  SetSilentCommand(Command5.Click, [this] { ShowProperties(); });
  SetCommand({&Command3.Click}, [this] { SaveAll(); });
  SetSilentCommand(Command4.Click, [this] { Unload(); });
  Lstprograms.DblClick = [this] { Command5.Press(); };
  Lstprograms.KeyDown = [this](int& key_code, int) {
    PressForKey(key_code, {{key::kInsert, Command1}, {key::kDelete, Command2}, {key::kEnter, Command5}});
  };
  FilesDropped = [this](const std::vector<std::string>& paths) { Attempt([&] { TakeDropped(paths); }); };
}

void frmaddprogram::Load() {
  RunCommand([this] { LoadPrograms(); });
  StartStyleTimer(Timer1);
}

void frmaddprogram::LoadPrograms() {
  const UserPrograms stored = ReadUserPrograms();
  highest_ = stored.highest;
  for (const UserProgram& program : stored.programs) {
    Lstprograms.AddItem(program.name);
    paths_.resize(static_cast<size_t>(program.number) + 1);
    paths_.back() = program.path;
  }
  FitListWidth(*this, Lstprograms);
}

void frmaddprogram::AddOne() {
  const std::string name = platform()
                               .dialogs()
                               .AskText("Enter a name for the program. This name will be in the actions menu.", "", "")
                               .value_or("");
  if (name.empty()) return;
  SetUpFileDialog(CommonDialog1, "Select program on HD ...", kFilter);
  if (CommonDialog1.ShowOpen()) AddProgram(name, CommonDialog1.FileName);
}

void frmaddprogram::AddProgram(const std::string& name, const std::string& path) {
  const auto number = static_cast<size_t>(Lstprograms.ListCount());
  Lstprograms.AddItem(name);
  paths_.resize(std::max(paths_.size(), number + 1));
  paths_[number] = path;
  highest_ = static_cast<int>(number);
  FitListWidth(*this, Lstprograms);
}

// Each takes the name of its file.
void frmaddprogram::TakeDropped(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    if (platform().files().IsFolder(path)) continue;
    const std::string file = GetFileName(path, true);
    AddProgram(file.substr(0, file.rfind('.')), path);
  }
}

void frmaddprogram::RemoveOne() {
  const int row = Lstprograms.ListIndex;
  if (row < 0) {
    MsgBox("Select program!");
    return;
  }
  Lstprograms.RemoveItem(row);
  paths_.erase(paths_.begin() + row);
  // A single program leaves its place empty.
  if (highest_ > 0) {
    --highest_;
  } else {
    paths_.emplace_back();
  }
  Lstprograms.ListIndex = std::min(row, Lstprograms.ListCount() - 1);
}

void frmaddprogram::ShowProperties() {
  const int row = Lstprograms.ListIndex;
  if (row < 0) return;
  const std::string line_break(kCrLf);
  MsgBox("Program properties:" + line_break + "Name:" + line_break + Lstprograms.List(row) + line_break +
         "Path:" + line_break + paths_.at(static_cast<size_t>(row)));
}

void frmaddprogram::SaveAll() {
  UserPrograms all;
  all.highest = highest_;
  paths_.resize(std::max(paths_.size(), static_cast<size_t>(highest_) + 1));
  for (int number = 0; number <= highest_; ++number) {
    all.programs.push_back({number, Lstprograms.List(number), paths_[static_cast<size_t>(number)]});
  }
  const std::string file = AppFile("packit.ini");
  if (!WriteUserPrograms(all)) throw FileError(error::kPathFileAccess, file);
  const bool restart =
      AskYesNo("You made changes to the list. You need to restart this program to refresh the actions list." +
                   std::string(kCrLf) + "Do you want to restart it now?",
               BoxIcon::kQuestion);
  if (restart) {
    Restart();
  } else {
    Unload();
  }
}

// A new instance, then the end of this one; without the first this one stays.
void frmaddprogram::Restart() {
  StartProgram(OwnPath(), platform().program().Folder());
  platform().processes().EndProcess();
}

}  // namespace kestrun
