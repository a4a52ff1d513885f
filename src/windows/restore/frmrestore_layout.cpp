// Captions, tips and places of the restore window's controls.
#include "program/program_pictures.h"
#include "program/window_kit/place_controls.h"
#include "windows/restore/frmrestore.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 9000;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kLabelStep = 270;
constexpr int kBrowseWidth = 1260;

constexpr int kFoldersTop = kWindowMargin + kLabelStep;
constexpr int kFoldersHeight = 690;
constexpr int kMissionsTop = kFoldersTop + kFoldersHeight + kControlGap + kLabelStep;
constexpr int kMissionsHeight = 2400;
constexpr int kStateTop = kMissionsTop + kMissionsHeight + 60;
constexpr int kStateHeight = 2 * kLabelHeight;
constexpr int kDetailsTop = kStateTop + kStateHeight + kControlGap;
// Inside the frame.
constexpr int kFirstRow = 330;
constexpr int kRow = 405;
constexpr int kBoxLeft = 1500;
constexpr int kDetailsHeight = kFirstRow + 4 * kRow + kTextBoxHeight + kWindowMargin;
constexpr int kButtonsTop = kDetailsTop + kDetailsHeight + kWindowMargin;

struct Field {
  Label& label;
  TextBox& box;
  const char* caption;
  const char* tip;
};

}  // namespace

void frmrestore::LayOut() {
  Caption = "Restore stock missions";
  Icon = ProgramIcon();
  BorderStyle = static_cast<int>(FormBorder::kFixedSingle);
  StartUpPosition = static_cast<int>(StartPosition::kCenterOwner);
  MaxButton = false;
  KeyPreview = true;
  SetClientSize(kClientWidth, kButtonsTop + kDialogButtonHeight + kWindowMargin);
  LayOutLists();
  LayOutDetails();
  LayOutButtons();
  Timer1.Enabled = false;
  Timer1.Interval = 200;
}

void frmrestore::LayOutLists() {
  LblFolders.Caption = "Game &folder:";
  LblFolders.Move(kWindowMargin, kWindowMargin, kInside, kLabelHeight);
  LstFolders.Move(kWindowMargin, kFoldersTop, kInside - kBrowseWidth - kControlGap, kFoldersHeight);
  LstFolders.ToolTipText = "The folders in which something was replaced.";
  CmdBrowse.Caption = "&Browse";
  CmdBrowse.ToolTipText = "Choose the folder of a game that was moved.";
  CmdBrowse.Move(kClientWidth - kWindowMargin - kBrowseWidth, kFoldersTop, kBrowseWidth, kDialogButtonHeight);
  LblMissions.Caption = "&Differs from the original, or has further versions:";
  LblMissions.Move(kWindowMargin, kMissionsTop - kLabelStep, kInside, kLabelHeight);
  LstMissions.Move(kWindowMargin, kMissionsTop, kInside, kMissionsHeight);
  LstMissions.MultiSelect = true;
  LstMissions.SelColor = color::kHighlight;
  LstMissions.SelForeColor = color::kHighlightText;
  LstMissions.SelectionStyle = 0;
  LstMissions.FullRowSelect = true;
  LstMissions.AutoHideScrollBars = true;
  LstMissions.ToolTipText = "What was replaced in this folder. Ctrl and Shift select several.";
  LblState.Move(kWindowMargin, kStateTop, kInside, kStateHeight);
  LblState.WordWrap = true;
  LblState.UseMnemonic = false;
  for (Control* list : {static_cast<Control*>(&LstFolders), static_cast<Control*>(&LstMissions)}) {
    list->BackColor = color::kWindowBackground;
    list->ForeColor = color::kWindowText;
  }
}

void frmrestore::LayOutDetails() {
  FrmDetails.Caption = "Selected:";
  FrmDetails.Move(kWindowMargin, kDetailsTop, kInside, kDetailsHeight);
  int top = kFirstRow;
  for (const Field& field : {Field{LblWhere, TxtWhere, "Place:", "The file, and in an archive the entry."},
                             Field{LblNow, TxtNow, "There now:", "The map and its mission."},
                             Field{LblSince, TxtSince, "Since:", "When it was put there."},
                             Field{LblSize, TxtSize, "Size:", "Its size, and that of the original."}}) {
    field.label.SetContainer(FrmDetails);
    field.label.Caption = field.caption;
    field.label.Move(kWindowMargin, top + 45, kBoxLeft - kWindowMargin - 60, kLabelHeight);
    field.box.SetContainer(FrmDetails);
    field.box.Move(kBoxLeft, top, kInside - kBoxLeft - kWindowMargin, kTextBoxHeight);
    field.box.Locked = true;
    field.box.ToolTipText = field.tip;
    top += kRow;
  }
  LblVersion.SetContainer(FrmDetails);
  LblVersion.Caption = "&Put back:";
  LblVersion.Move(kWindowMargin, top + 45, kBoxLeft - kWindowMargin - 60, kLabelHeight);
  CboVersion.SetContainer(FrmDetails);
  CboVersion.Style = static_cast<int>(ComboStyle::kList);
  CboVersion.ToolTipText = "The original, or another program's content that was kept.";
  CboVersion.Move(kBoxLeft, top, kInside - kBoxLeft - kWindowMargin, kTextBoxHeight);
}

void frmrestore::LayOutButtons() {
  struct Button {
    CommandButton& button;
    const char* caption;
    const char* tip;
    int width;
  };
  int left = kWindowMargin;
  for (const Button& each :
       {Button{CmdRestore, "&Restore selected",
               "Put back what is chosen for each selected row, which is its original as a rule.", 1860},
        Button{CmdRestoreAll, "Restore &all", "Put back all originals of this folder.", 1500},
        Button{CmdMapInfo, "Map &info", "Show what is there now.", 1260},
        Button{CmdRefresh, "R&efresh", "Look again. F5", 1260}}) {
    each.button.Caption = each.caption;
    each.button.ToolTipText = each.tip;
    each.button.Move(left, kButtonsTop, each.width, kDialogButtonHeight);
    left += each.width + kControlGap;
  }
  CmdRestore.Default = true;
  CmdClose.Caption = "Close";
  CmdClose.Cancel = true;
  CmdClose.Move(kClientWidth - kWindowMargin - kBrowseWidth, kButtonsTop, kBrowseWidth, kDialogButtonHeight);
}

}  // namespace kestrun
