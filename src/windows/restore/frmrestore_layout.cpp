// Captions, tips and places of the restore window's controls.
#include "program/program_pictures.h"
#include "windows/restore/frmrestore.h"

namespace kestrun {
namespace {

constexpr int kMargin = 180;
constexpr int kGap = 120;
constexpr int kClientWidth = 9000;
constexpr int kInside = kClientWidth - 2 * kMargin;
constexpr int kLabelHeight = 240;
constexpr int kLabelStep = 270;
constexpr int kButtonHeight = 375;
constexpr int kBrowseWidth = 1260;

constexpr int kFoldersTop = kMargin + kLabelStep;
constexpr int kFoldersHeight = 690;
constexpr int kMissionsTop = kFoldersTop + kFoldersHeight + kGap + kLabelStep;
constexpr int kMissionsHeight = 2400;
constexpr int kStateTop = kMissionsTop + kMissionsHeight + 60;
constexpr int kStateHeight = 2 * kLabelHeight;
constexpr int kDetailsTop = kStateTop + kStateHeight + kGap;
// Inside the frame.
constexpr int kFirstRow = 330;
constexpr int kRow = 405;
constexpr int kBoxHeight = 315;
constexpr int kBoxLeft = 1500;
constexpr int kDetailsHeight = kFirstRow + 4 * kRow + kBoxHeight + kMargin;
constexpr int kButtonsTop = kDetailsTop + kDetailsHeight + kMargin;

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
  SetClientSize(kClientWidth, kButtonsTop + kButtonHeight + kMargin);
  LayOutLists();
  LayOutDetails();
  LayOutButtons();
  Timer1.Enabled = false;
  Timer1.Interval = 200;
}

void frmrestore::LayOutLists() {
  LblFolders.Caption = "Game &folder:";
  LblFolders.Move(kMargin, kMargin, kInside, kLabelHeight);
  LstFolders.Move(kMargin, kFoldersTop, kInside - kBrowseWidth - kGap, kFoldersHeight);
  LstFolders.ToolTipText = "The folders in which something was replaced.";
  CmdBrowse.Caption = "&Browse";
  CmdBrowse.ToolTipText = "Choose the folder of a game that was moved.";
  CmdBrowse.Move(kClientWidth - kMargin - kBrowseWidth, kFoldersTop, kBrowseWidth, kButtonHeight);
  LblMissions.Caption = "&Differs from the original, or has further versions:";
  LblMissions.Move(kMargin, kMissionsTop - kLabelStep, kInside, kLabelHeight);
  LstMissions.Move(kMargin, kMissionsTop, kInside, kMissionsHeight);
  LstMissions.MultiSelect = true;
  LstMissions.SelColor = color::kHighlight;
  LstMissions.SelForeColor = color::kHighlightText;
  LstMissions.SelectionStyle = 0;
  LstMissions.FullRowSelect = true;
  LstMissions.AutoHideScrollBars = true;
  LstMissions.ToolTipText = "What was replaced in this folder. Ctrl and Shift select several.";
  LblState.Move(kMargin, kStateTop, kInside, kStateHeight);
  LblState.WordWrap = true;
  LblState.UseMnemonic = false;
  for (Control* list : {static_cast<Control*>(&LstFolders), static_cast<Control*>(&LstMissions)}) {
    list->BackColor = color::kWindowBackground;
    list->ForeColor = color::kWindowText;
  }
}

void frmrestore::LayOutDetails() {
  FrmDetails.Caption = "Selected:";
  FrmDetails.Move(kMargin, kDetailsTop, kInside, kDetailsHeight);
  int top = kFirstRow;
  for (const Field& field : {Field{LblWhere, TxtWhere, "Place:", "The file, and in an archive the entry."},
                             Field{LblNow, TxtNow, "There now:", "The map and its mission."},
                             Field{LblSince, TxtSince, "Since:", "When it was put there."},
                             Field{LblSize, TxtSize, "Size:", "Its size, and that of the original."}}) {
    field.label.SetContainer(FrmDetails);
    field.label.Caption = field.caption;
    field.label.Move(kMargin, top + 45, kBoxLeft - kMargin - 60, kLabelHeight);
    field.box.SetContainer(FrmDetails);
    field.box.Move(kBoxLeft, top, kInside - kBoxLeft - kMargin, kBoxHeight);
    field.box.Locked = true;
    field.box.ToolTipText = field.tip;
    top += kRow;
  }
  LblVersion.SetContainer(FrmDetails);
  LblVersion.Caption = "&Put back:";
  LblVersion.Move(kMargin, top + 45, kBoxLeft - kMargin - 60, kLabelHeight);
  CboVersion.SetContainer(FrmDetails);
  CboVersion.Style = static_cast<int>(ComboStyle::kList);
  CboVersion.ToolTipText = "The original, or another program's content that was kept.";
  CboVersion.Move(kBoxLeft, top, kInside - kBoxLeft - kMargin, kBoxHeight);
}

void frmrestore::LayOutButtons() {
  struct Button {
    CommandButton& button;
    const char* caption;
    const char* tip;
    int width;
  };
  int left = kMargin;
  for (const Button& each :
       {Button{CmdRestore, "&Restore selected",
               "Put back what is chosen for each selected row, which is its original as a rule.", 1860},
        Button{CmdRestoreAll, "Restore &all", "Put back all originals of this folder.", 1500},
        Button{CmdMapInfo, "Map &info", "Show what is there now.", 1260},
        Button{CmdRefresh, "R&efresh", "Look again. F5", 1260}}) {
    each.button.Caption = each.caption;
    each.button.ToolTipText = each.tip;
    each.button.Move(left, kButtonsTop, each.width, kButtonHeight);
    left += each.width + kGap;
  }
  CmdRestore.Default = true;
  CmdClose.Caption = "Close";
  CmdClose.Cancel = true;
  CmdClose.Move(kClientWidth - kMargin - kBrowseWidth, kButtonsTop, kBrowseWidth, kButtonHeight);
}

}  // namespace kestrun
