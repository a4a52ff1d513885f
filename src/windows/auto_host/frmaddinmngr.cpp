#include "windows/auto_host/frmaddinmngr.h"

#include "base/text.h"
#include "game/add_ins/add_ins.h"
#include "maps/file_tools.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmAddinMngr::kName, [] { return MakeRef<FrmAddinMngr>(); });

constexpr int kStyleTimerMs = 100;
constexpr int kWidth = 5400;
constexpr int kButtonWidth = 1500;
constexpr int kButtonStep = 480;
constexpr int kListTop = 300;
constexpr int kListHeight = 4 * kButtonStep - kControlGap + 15;
constexpr int kFrameHeightInside = kListTop + kListHeight + kFramePad;
constexpr int kEndTop = kWindowMargin + kFrameHeightInside + kWindowMargin;

}  // namespace

FrmAddinMngr::FrmAddinMngr() : Form(kName) {
  LayOut();
  SetCommand({&Command1.Click}, [this] { AddOne(); });
  SetCommand({&Command2.Click}, [this] { RemoveOne(); });
  SetCommand({&Command3.Click}, [this] { SaveAll(); });
  SetCommand({&Command4.Click}, [this] { RegisterFile(); });
  SetCommand({&Command5.Click}, [this] { Unload(); });
  SetCommand({&Command6.Click}, [this] { ShowProperties(); });
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void FrmAddinMngr::LayOut() {
  LayOutDialog(*this, "Add-In Manager");
  SetClientSize(kWidth + 2 * kWindowMargin, kEndTop + kDialogButtonHeight + kWindowMargin);
  Frame1.Caption = "Add-Ins:";
  Frame1.Move(kWindowMargin, kWindowMargin, kWidth, kFrameHeightInside);
  const int right = kWidth - kFramePad - kButtonWidth;
  LstAddins.SetContainer(Frame1);
  LstAddins.Move(kFramePad, kListTop, right - kControlGap - kFramePad, kListHeight);
  LstAddins.ToolTipText = "The add-ins in the order of the menu.";
  struct Row {
    CommandButton& button;
    const char* caption;
    const char* tip;
  };
  int top = kListTop;
  for (const Row& row : {Row{Command1, "Add", "Add add-in"}, Row{Command2, "Remove", "Remove add-in"},
                         Row{Command6, "Properties", "Show its name and identifier"},
                         Row{Command4, "Register OCX", "Browse and register addin."}}) {
    row.button.SetContainer(Frame1);
    PlaceButton(row.button, {right, top, kButtonWidth, kDialogButtonHeight}, row.caption, row.tip);
    top += kButtonStep;
  }
  PlaceEndButtons({Command3, "Save", "Save list"}, {Command5, "Cancel"}, kWindowMargin + kWidth, kEndTop);
}

void FrmAddinMngr::Load() {
  StartStyleTimer(Timer1);
  RunCommand([this] {
    for (const AddIn& add_in : ReadAddIns("")) {
      LstAddins.AddItem(add_in.name);
      ids_.push_back(add_in.id);
    }
    FitListWidth(*this, LstAddins);
  });
}

// What was entered is taken as it is; a Cancel gives an empty text.
void FrmAddinMngr::AddOne() {
  Dialogs& dialogs = platform().dialogs();
  const std::string name = dialogs.AskText("Please enter a name for the addin.", "", "").value_or("");
  const std::string id = dialogs.AskText("Please enter CLASSID or PROGID HERE!", "", "").value_or("");
  LstAddins.AddItem(name);
  ids_.push_back(id);
  FitListWidth(*this, LstAddins);
}

void FrmAddinMngr::RemoveOne() {
  const int row = LstAddins.ListIndex;
  if (row < 0 || !AskYesNo("Are you sure you want to remove addin?")) return;
  ids_.erase(ids_.begin() + row);
  LstAddins.RemoveItem(row);
}

void FrmAddinMngr::ShowProperties() {
  const int row = LstAddins.ListIndex;
  if (row < 0) return;
  const std::string line_break(kCrLf);
  MsgBox("Name: " + LstAddins.List(row) + line_break + "ClsID:" + line_break + ids_[static_cast<size_t>(row)]);
}

void FrmAddinMngr::SaveAll() {
  std::vector<AddIn> add_ins;
  for (size_t row = 0; row < ids_.size(); ++row) add_ins.push_back({LstAddins.List(static_cast<int>(row)), ids_[row]});
  WriteAddIns(add_ins);
  if (auto* host = static_cast<frmputlist*>(LoadedWindow(frmputlist::kName))) host->LoadAddins();
  Unload();
}

void FrmAddinMngr::RegisterFile() {
  CommonDialog1.DialogTitle = "Select file";
  CommonDialog1.Filter = "Add-in files (*.exe;*.dll)|*.exe;*.dll|All files (*.*)|*.*";
  if (!CommonDialog1.ShowOpen() || !FileExists(CommonDialog1.FileName)) return;
  MsgBox(clsRegister().RegSvr32(CommonDialog1.FileName, false) ? "OK" : "Can't register");
}

}  // namespace kestrun
