// Captions, tips and places of the map updater's controls.
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/place_controls.h"
#include "windows/map_updater/frmmapupd.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 10200;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kFolderWidth = (kInside - kControlGap) / 2;
constexpr int kBrowseWidth = 480;
// Inside the frames.
constexpr int kFirstRow = 300;
constexpr int kBoxTop = kFirstRow + kLabelHeight + 30;
constexpr int kListTop = kBoxTop + kTextBoxHeight + kControlGap;
constexpr int kListHeight = 2400;
constexpr int kFolderHeight = kListTop + kListHeight + kFramePad;

constexpr int kChoicesTop = kWindowMargin + kFolderHeight + kControlGap;
constexpr int kChoiceWidth = 3600;
constexpr int kChoiceStep = kOptionHeight + 30;
constexpr int kStartWidth = 1500;
constexpr int kBarTop = kChoicesTop + 2 * kChoiceStep + 60;
constexpr int kBarHeight = 270;
constexpr int kLogTop = kBarTop + kBarHeight + kControlGap;
constexpr int kLogHeight = 2100;
constexpr int kLogFrameHeight = kFirstRow + kLogHeight + kFramePad;

}  // namespace

void frmmapupd::LayOut() {
  LayOutFixedWindow(*this, "Kestrun - Map Updater", StartPosition::kCenterScreen);
  KeyPreview = true;
  LayOutFolder(Frame1, kWindowMargin, LblPC, "Folder:", TxtPC, CmdloadPC, lstmapsPC);
  LayOutFolder(Frame2, kWindowMargin + kFolderWidth + kControlGap, LblRem, "Network drive:", TxtRem, CmdloadRem,
               LstmapsRem);
  Frame1.Caption = "This PC:";
  Frame2.Caption = "Remote PC:";
  TxtPC.ToolTipText = "Your map folder.";
  TxtRem.ToolTipText = "The shared folder whose maps are copied here.";
  lstmapsPC.ToolTipText = "The maps on this PC.";
  LstmapsRem.ToolTipText = "The maps on the remote PC.";
  LayOutChoices();
  Frame3.Caption = "Small Log:";
  Frame3.Move(kWindowMargin, kLogTop, kInside, kLogFrameHeight);
  txtlog.SetContainer(Frame3);
  txtlog.Text = "Ready";
  txtlog.ToolTipText = "Log file click File => save log to save it to a text file.";
  txtlog.MultiLine = true;
  txtlog.ScrollBars = 3;
  txtlog.Locked = true;
  txtlog.Move(kFramePad, kFirstRow, kInside - 2 * kFramePad, kLogHeight);
  LayOutMenus();
  SetClientSize(kClientWidth, kLogTop + kLogFrameHeight + kWindowMargin);
}

void frmmapupd::LayOutFolder(Frame& frame, int left, Label& label, const std::string& caption, TextBox& box,
                             CommandButton& browse, FileListBox& list) {
  frame.Move(left, kWindowMargin, kFolderWidth, kFolderHeight);
  for (Control* control : {static_cast<Control*>(&label), static_cast<Control*>(&box), static_cast<Control*>(&browse),
                           static_cast<Control*>(&list)}) {
    control->SetContainer(frame);
  }
  const int width = kFolderWidth - 2 * kFramePad;
  PlaceLabel(label, kFramePad, kFirstRow, width, caption);
  box.Move(kFramePad, kBoxTop, width - kBrowseWidth - 60, kTextBoxHeight);
  PlaceButton(browse, {kFolderWidth - kFramePad - kBrowseWidth, kBoxTop, kBrowseWidth, kTextBoxHeight}, "...",
              "Browse for folder.");
  list.Pattern = "*.bms";
  list.Move(kFramePad, kListTop, width, kListHeight);
}

void frmmapupd::LayOutChoices() {
  const auto place = [](Control& control, int column, int row) {
    control.Move(kWindowMargin + column * kChoiceWidth, kChoicesTop + row * kChoiceStep, kChoiceWidth - kControlGap,
                 kOptionHeight);
  };
  Option1.Caption = "Use file date to update.";
  Option1.ToolTipText = "A map that is older here is overwritten.";
  place(Option1, 0, 0);
  Option2.Caption = "Use file size to update.";
  Option2.ToolTipText = "A map of another size is overwritten.";
  place(Option2, 0, 1);
  Check1.Caption = "Ask me before overwriting maps.";
  Check1.ToolTipText = "Each map that would be overwritten is shown first.";
  place(Check1, 1, 0);
  ChCRC.Caption = "Compare map with CRC check";
  ChCRC.ToolTipText = "Checks all maps CRC's";
  place(ChCRC, 1, 1);
  const int left = kClientWidth - kWindowMargin - kStartWidth;
  PlaceButton(Command1, {left, kChoicesTop, kStartWidth, kDialogButtonHeight}, "Start updating",
              "Copy the maps that are missing or different here.");
  PlaceButton(CmdStop, {left - kControlGap - 900, kChoicesTop, 900, kDialogButtonHeight}, "Stop",
              "Stop after the file that is being compared (Esc).");
  CmdStop.Enabled = false;
  ProgressBar1.ToolTipText = "Progress";
  ProgressBar1.Move(kWindowMargin, kBarTop, kInside, kBarHeight);
}

void frmmapupd::LayOutMenus() {
  FillMenu(mnu_file, "&File", {{mnu_savelog, "Save log"}, {mnu_fileexit, "Exit"}});
  FillMenu(mnu_actions, "&Actions", {{mnu_startupdating, "Start Updating!"}});
  FillMenu(mnu_help, "&Help", {{mnu_whatsthis, "What's this?"}, {mnu_internethelp, "Internet help"}});
  FillMenu(mnu_PCMAP, "PC", {{mnu_pcdelete, "Delete"}, {mnu_PCcopyto, "Copy to ..."}, {mnu_PCrename, "Rename"}});
  FillMenu(mnu_REMMAP, "Remote", {{mnu_delRem, "Delete"}, {mnu_CopRem, "Copy to ..."}, {mnu_renameRem, "Rename"}});
  for (MenuItem* hidden : {&mnu_PCMAP, &mnu_REMMAP}) hidden->Visible = false;
  for (MenuItem* remove : {&mnu_pcdelete, &mnu_delRem}) remove->KeyHint = "Del";
  for (MenuItem* rename : {&mnu_PCrename, &mnu_renameRem}) rename->KeyHint = "F2";
}

}  // namespace kestrun
