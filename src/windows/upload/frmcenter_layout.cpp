// Captions, tips and places of the uploader's controls, and its menus.
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/place_controls.h"
#include "windows/upload/frmcenter.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 11100;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kCaptionWidth = 1140;
constexpr int kBrowseWidth = 1500;
// Inside the frames.
constexpr int kFirstRow = 300;
constexpr int kRowStep = kTextBoxHeight + 90;

constexpr int kBodyTop = kWindowMargin + kDialogButtonHeight + kControlGap;
// The list, and the column with what goes with each upload beside it.
constexpr int kMapsWidth = 6900;
constexpr int kColumnLeft = kWindowMargin + kMapsWidth + kControlGap;
constexpr int kColumnWidth = kClientWidth - kWindowMargin - kColumnLeft;
constexpr int kLoginHeight = kFirstRow + 2 * kRowStep + kOptionHeight + kFramePad;
constexpr int kGameTop = kBodyTop + kLoginHeight + kControlGap;
constexpr int kOptionsTop = kGameTop + kTextBoxHeight + kControlGap;
constexpr int kOptionStep = kOptionHeight + 30;
constexpr int kOptionsHeight = kFirstRow + 3 * kOptionStep + kFramePad - 30;
constexpr int kStartTop = kOptionsTop + kOptionsHeight + kControlGap;
constexpr int kStartWidth = (kColumnWidth - kControlGap) / 2;
constexpr int kMapsHeight = kStartTop + kDialogButtonHeight - kBodyTop;
// Where the columns of the list begin.
constexpr int kSizeLeft = 2370;
constexpr int kPictureLeft = 3600;
constexpr int kCommentsLeft = 4980;

constexpr int kBarTop = kBodyTop + kMapsHeight + kControlGap;
constexpr int kBarHeight = 270;
constexpr int kLogTop = kBarTop + kBarHeight + kControlGap;
constexpr int kLogHeight = 1800;
constexpr int kLogFrameHeight = kFirstRow + kLogHeight + kFramePad;

void PlaceCheck(CheckBox& check, Frame& frame, int top, const char* caption, const char* tip) {
  check.SetContainer(frame);
  check.Move(kFramePad, top, kColumnWidth - 2 * kFramePad, kOptionHeight);
  check.Caption = caption;
  check.ToolTipText = tip;
}

}  // namespace

void FrmCenter::LayOut() {
  LayOutFixedWindow(*this, "Kestrun - Mapping Center", StartPosition::kCenterScreen);
  KeyPreview = true;
  PlaceLabel(LblDir, kWindowMargin, kWindowMargin + 60, kCaptionWidth, "Map Folder:");
  TxtDir.Move(kWindowMargin + kCaptionWidth, kWindowMargin + 30, kInside - kCaptionWidth - kBrowseWidth - kControlGap,
              kTextBoxHeight);
  TxtDir.ToolTipText = "The folder where all your maps, images and comments files are in.";
  PlaceButton(CmdBrowse,
              {kClientWidth - kWindowMargin - kBrowseWidth, kWindowMargin, kBrowseWidth, kDialogButtonHeight},
              "Select folder", "Select the folder of your maps.");
  LayOutMaps();
  LayOutLogin();
  LayOutOptions();
  LayOutRun();
  LayOutMenus();
  SetClientSize(kClientWidth, kLogTop + kLogFrameHeight + kControlGap + kStatusLineHeight);
  status_line_.LayOut("");
  status_line_.Place(kClientWidth, ScaleHeight());
}

void FrmCenter::LayOutMaps() {
  Frame1.Caption = "Maps:";
  Frame1.Move(kWindowMargin, kBodyTop, kMapsWidth, kMapsHeight);
  FileMaps.SetContainer(Frame1);
  FileMaps.Pattern = "*.zip";
  FileMaps.MultiSelect = 2;
  FileMaps.ToolTipText = "Double click to load the map";
  FileMaps.Move(kFramePad, kFirstRow, kMapsWidth - 2 * kFramePad, kMapsHeight - kFirstRow - kFramePad);
  FileMaps.ColumnLefts = {kSizeLeft, kPictureLeft, kCommentsLeft};
}

void FrmCenter::LayOutLogin() {
  Frame2.Caption = "Login";
  Frame2.Move(kColumnLeft, kBodyTop, kColumnWidth, kLoginHeight);
  for (Control* control : std::initializer_list<Control*>{&LblUsername, &TxtUsername, &LblPassword, &TxtPassword}) {
    control->SetContainer(Frame2);
  }
  const int box_left = kFramePad + kCaptionWidth;
  const int box_width = kColumnWidth - kFramePad - box_left;
  PlaceLabel(LblUsername, kFramePad, kFirstRow + 45, kCaptionWidth, "Username:");
  TxtUsername.Move(box_left, kFirstRow, box_width, kTextBoxHeight);
  TxtUsername.ToolTipText = "Your name at the Mapping Center.";
  PlaceLabel(LblPassword, kFramePad, kFirstRow + kRowStep + 45, kCaptionWidth, "Password:");
  TxtPassword.Move(box_left, kFirstRow + kRowStep, box_width, kTextBoxHeight);
  TxtPassword.PasswordChar = "*";
  TxtPassword.ToolTipText = "Your password there. With 'Save pass' it is kept as plain text in packit.ini.";
  PlaceCheck(ChPassword, Frame2, kFirstRow + 2 * kRowStep, "Save pass",
             "Keeps the password as plain text in packit.ini: others who use this computer can read it.");
  PlaceLabel(LblGame, kColumnLeft + kFramePad, kGameTop + 45, kCaptionWidth, "Game:");
  CmbGames.Style = static_cast<int>(ComboStyle::kList);
  CmbGames.ToolTipText = "The game that the maps are for.";
  CmbGames.Move(kColumnLeft + box_left, kGameTop, box_width, kTextBoxHeight);
}

void FrmCenter::LayOutOptions() {
  Frame3.Caption = "Options";
  Frame3.Move(kColumnLeft, kOptionsTop, kColumnWidth, kOptionsHeight);
  PlaceCheck(ChSelected, Frame3, kFirstRow, "Upload selected only", "Uploads the maps that are selected in the list.");
  PlaceCheck(Chcomments, Frame3, kFirstRow + kOptionStep, "Allow missing comments files.",
             "If checked missing comments files will be allowed.");
  PlaceCheck(ChAutoRename, Frame3, kFirstRow + 2 * kOptionStep, "Auto rename maps.",
             "If checked the server will automatically rename the map if it already exists");
}

void FrmCenter::LayOutRun() {
  PlaceButton(Command1, {kColumnLeft, kStartTop, kStartWidth, kDialogButtonHeight}, "Start uploading",
              "Check the maps and send them to the Mapping Center.");
  PlaceButton(CmdCancel, {kColumnLeft + kStartWidth + kControlGap, kStartTop, kStartWidth, kDialogButtonHeight},
              "Cancel uploading", "Stop behind the map that is being sent. Esc stops at once.");
  CmdCancel.Enabled = false;
  Pgb.ToolTipText = "Progress";
  Pgb.BorderStyle = 1;
  Pgb.BackColor = color::kWindowBackground;
  Pgb.Progresscolor = color::kHighlight;
  Pgb.Move(kWindowMargin, kBarTop, kInside, kBarHeight);
  Frame4.Caption = "Upload.log";
  Frame4.Move(kWindowMargin, kLogTop, kInside, kLogFrameHeight);
  txtLog.SetContainer(Frame4);
  txtLog.MultiLine = true;
  txtLog.ScrollBars = 3;
  txtLog.Locked = true;
  txtLog.ToolTipText = "What is checked and sent, and what the site answers.";
  txtLog.Move(kFramePad, kFirstRow, kInside - 2 * kFramePad, kLogHeight);
}

void FrmCenter::LayOutMenus() {
  FillMenu(mnu_file, "&File", {{mnu_savelog, "&Save log as..."}, {mnu_line1, kMenuLine}, {mnu_exit, "&Exit"}});
  FillMenu(mnu_view, "&View", {{mnu_refresh, "&Refresh list"}});
  FillMenu(mnu_help, "&Help", {{mnu_index, "&Index"}, {mnu_about, "&About"}});
  mnu_refresh.KeyHint = "F5";
}

}  // namespace kestrun
