// Captions, tips and places of the auto host window's controls.
#include <algorithm>
#include <initializer_list>

#include "program/program_pictures.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/place_controls.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

// Measures that the whole window shares, in twips, at the size that the window opens with.
constexpr int kClientWidth = 11100;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kRow = 315;
constexpr int kButton = 390;

// The two lists and what stands between them.
constexpr int kBetween = 720;
constexpr int kBrowse = 420;
constexpr int kCount = 780;
constexpr int kFolderTop = 165;
constexpr int kHeadingTop = 570;
constexpr int kListTop = 825;
constexpr int kListHeight = 2700;
constexpr int kBetweenStep = 400;
constexpr int kBetweenSpace = 210;

// The selected map, the frames, the state.
constexpr int kSelectedTop = kListTop + kListHeight + 90;
constexpr int kFramesTop = kSelectedTop + kLabelHeight + 120;
constexpr int kFrameHeight1 = 2370;
constexpr int kChoicesWidth = 3360;
constexpr int kClockWidth = 3960;
constexpr int kPreviewWidth = kInside - kChoicesWidth - kClockWidth - 2 * kControlGap;
constexpr int kStateTop = kFramesTop + kFrameHeight1 + kControlGap;
constexpr int kStateHeight = 1290;
constexpr int kStripTop = kStateTop + kStateHeight + kControlGap;
constexpr int kStripHeight = 300;
constexpr int kStatusTop = kStripTop + kStripHeight + 45;
constexpr int kClientHeight = kStatusTop + kLabelHeight + 90;
constexpr int kRunButton = 1380;
// Inside the frames.
constexpr int kFirstLine = 300;

struct Word {
  Label& label;
  const char* caption;
};

void Say(std::initializer_list<Word> words) {
  for (const Word& word : words) {
    word.label.Caption = word.caption;
    word.label.BackStyle = 0;
  }
}

void MakePlainText(Label& label) {
  label.UseMnemonic = false;
  label.BackStyle = 0;
}

}  // namespace

void frmputlist::LayOut() {
  Caption = "Kestrun - Auto Host";
  Icon = ProgramIcon();
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  LayOutLists();
  LayOutChoices();
  LayOutClock();
  LayOutState();
  BuildMenus();
  SetClientSize(kClientWidth, kClientHeight);
  SetLeastClientSize(kClientWidth, kClientHeight);
  Arrange();
}

void frmputlist::LayOutLists() {
  Say({{lblfolder, "F&older:"},
       {lblfilelist, "F&ile list"},
       {lblplaylist, "&Play list"},
       {lblselected, "Selected map:"},
       {lblpath, "None!"},
       {lblinsertcount, "# inserts:"},
       {lblinserts, "0"},
       {lblfilemaps, "0"},
       {lbllistmaps, "0"}});
  for (Label* text : {&lblpath, &lblinserts}) MakePlainText(*text);
  for (Label* number : {&lblfilemaps, &lbllistmaps}) number->Alignment = static_cast<int>(TextAlignment::kRight);
  lblfilemaps.ToolTipText = "Number of files in this list";
  lbllistmaps.ToolTipText = "Number of maps in this list";
  lblinserts.ToolTipText = "Number of inserts ";
  txtfolder.ToolTipText = "The folder whose maps the file list shows.";
  FileMaps.Pattern = "*.bms";
  FileMaps.MultiSelect = 2;
  FileMaps.ToolTipText = "This is the file list select the maps you want to play and click '>'";
  lstmaps.MultiSelect = 2;
  lstmaps.MarkMeaning = "Plays now";
  lstmaps.ToolTipText = "This is the play list all the maps in this list will be played.";
  SetCaptionAndTip(Command1, "...", "browse for folder");
  SetCaptionAndTip(cmdadd, ">", "add selected file(s)");
  SetCaptionAndTip(cmdaddall, ">>", "add all files in this folder");
  SetCaptionAndTip(cmdremove, "<", "Remove selected map(s) from list.");
  SetCaptionAndTip(cmdremoveall, "<<", "Remove all maps in list");
  SetCaptionAndTip(Command6, "url", "Add a URL of a map: you are asked for it.");
  SetCaptionAndTip(cmdup, "&Up", "Move this map 1 level up.");
  SetCaptionAndTip(cmddown, "Do&wn", "Move this map 1 level down.");
}

void frmputlist::LayOutChoices() {
  Frame1.Caption = "Insert the maps as";
  PlaceOption(Options0, Frame1, kFramePad, kFirstLine, kChoicesWidth - 2 * kFramePad, "Deathmatch (Death Valley)",
              "The maps take the place of the deathmatch mission.");
  PlaceOption(Options1, Frame1, kFramePad, kFirstLine + 330, kChoicesWidth - 2 * kFramePad,
              "Capture the flag (Desert Prison)", "The maps take the place of the capture the flag mission.");
  PlaceOption(Options2, Frame1, kFramePad, kFirstLine + 660, kChoicesWidth - 2 * kFramePad,
              "Rename:", "Rename the map to");
  Options1.Value = true;
  txtrename.SetContainer(Frame1);
  txtrename.Move(kFramePad + 285, kFirstLine + 1005, kChoicesWidth - 2 * kFramePad - 285, kRow);
  txtrename.ToolTipText = "The name under which the maps are put beside the game's archive.";

  Frame3.Caption = "Preview:";
  ImgPreview.SetContainer(Frame3);
  ImgPreview.Stretch = true;
  ImgPreview.ToolTipText = "Click for the whole picture, or to give the map one.";
  lblnopreview.SetContainer(Frame3);
  Say({{lblnopreview, "No preview"}});
  lblnopreview.Alignment = static_cast<int>(TextAlignment::kCenter);
  lblnopreview.ForeColor = color::kGrayText;
  Command7.SetContainer(Frame3);
  SetCaptionAndTip(Command7, "Info", "Show map info.");
}

void frmputlist::LayOutClock() {
  Frame2.Caption = "Automatically insert map after :";
  Say({{lblclock, "Clock:"},
       {lblmin, "min."},
       {lblsec, "Sec."},
       {lbllongest, "&Max. time:"},
       {lbllongestmin, "min."},
       {lbllongestsec, "Sec."}});
  const std::initializer_list<Control*> inside{&lblclock,    &txtmin,     &lblmin,        &txtsec,     &lblsec,
                                               &lbllongest,  &TxtTimeMin, &lbllongestmin, &TxtTimeSec, &lbllongestsec,
                                               &ChGameTimer, &chrandom,   &Check1,        &ChLog};
  for (Control* control : inside) control->SetContainer(Frame2);
  txtmin.ToolTipText = "Minutes that the running clock shows.";
  txtsec.ToolTipText = "Seconds that the running clock shows.";
  TxtTimeMin.ToolTipText = "Max time between 2 maps";
  TxtTimeSec.ToolTipText = "Max time sec ";
  ChGameTimer.Caption = "Use game timer.";
  ChGameTimer.ToolTipText = "The next map goes in when the round clock of the game ends.";
  chrandom.Caption = "Random insert maps from map list";
  chrandom.ToolTipText = "Each next map is drawn from the play list.";
  Check1.Caption = "Send \"resetgames\" command";
  Check1.ToolTipText = "When chcked it sends a resetgames command to host when new map is inserted!";
  ChLog.Caption = "Keep a log (autohost.log)";
  ChLog.ToolTipText = "Each map of a run is taken down in autohost.log, beside the program: when, which, and why.";
  ChLog.Value = 1;
}

void frmputlist::LayOutState() {
  Frame4.Caption = "The server";
  Say({{lblnow, "Plays now:"}, {lblnext, "Comes next:"}, {lblwhen, "When:"}});
  for (Label* text : {&lblplaysnow, &lblplaysnext, &lblchangeswhen}) MakePlainText(*text);
  const std::initializer_list<Control*> inside{&lblnow,         &lblplaysnow, &lblnext,  &lblplaysnext, &lblwhen,
                                               &lblchangeswhen, &Command2,    &Command3, &Command4,     &Command5};
  for (Control* control : inside) control->SetContainer(Frame4);
  FontDescription bold = lblplaysnow.Font;
  bold.bold = true;
  lblplaysnow.Font = bold;
  SetCaptionAndTip(Command2, "Start", "Start the run, or stop it.");
  SetCaptionAndTip(Command3, "Insert now", "Insert the next map at once.");
  SetCaptionAndTip(Command4, "Pause", "Let the clock stand still.");
  SetCaptionAndTip(Command5, "continue", "Let the clock run on.");
  for (CommandButton* button : {&Command3, &Command4, &Command5}) button->Enabled = false;

  Picture5.BorderStyle = 0;
  Picture5.Visible = false;
  Picture5.TabStop = false;
  for (Label* label : {&lblwarning, &Label11}) {
    label->SetContainer(Picture5);
    label->BackStyle = 0;
  }
  lblwarning.Caption = "WARNING ERROR:";
  Label11.UseMnemonic = false;
  MakePlainText(lblstatus);
  TmrInsert.Enabled = false;
  TmrInsert.Interval = AutoHostRun::kTickMs;
}

// Places all controls for the present size. A larger window gives its room to the lists.
void frmputlist::Arrange() {
  PlaceLists();
  PlaceChoices();
  PlaceClock();
  PlacePreview();
  PlaceState();
}

void frmputlist::PlaceLists() {
  const int down = std::max(ScaleHeight() - kClientHeight, 0);
  const int width = (std::max(ScaleWidth(), kClientWidth) - 2 * kWindowMargin - kBetween - 2 * kControlGap) / 2;
  const int between_left = kWindowMargin + width + kControlGap;
  const int right = between_left + kBetween + kControlGap;
  const int folder_left = kWindowMargin + 735;
  lblfolder.Move(kWindowMargin, kFolderTop + 30, 705, kLabelHeight);
  txtfolder.Move(folder_left, kFolderTop, kWindowMargin + width - kBrowse - 60 - folder_left, kRow);
  Command1.Move(kWindowMargin + width - kBrowse, kFolderTop - 15, kBrowse, kRow + 30);
  lblfilelist.Move(kWindowMargin, kHeadingTop, width - kCount, kLabelHeight);
  lblfilemaps.Move(kWindowMargin + width - kCount, kHeadingTop, kCount, kLabelHeight);
  FileMaps.Move(kWindowMargin, kListTop, width, kListHeight + down);
  lblplaylist.Move(right, kFolderTop + 30, width - kCount, kLabelHeight);
  lbllistmaps.Move(right + width - kCount, kFolderTop + 30, kCount, kLabelHeight);
  const int list_top = kFolderTop + 30 + kLabelHeight + 15;
  lstmaps.Move(right, list_top, width, kListTop + kListHeight - list_top + down);

  int top = list_top;
  for (CommandButton* button : {&cmdadd, &cmdaddall, &cmdremove, &cmdremoveall, &Command6, &cmdup, &cmddown}) {
    if (button == &cmdremove || button == &Command6 || button == &cmdup) top += kBetweenSpace / 2;
    button->Move(between_left, top, kBetween, kButton - 15);
    top += kBetweenStep;
  }

  const int selected_top = kSelectedTop + down;
  const int inserts_left = std::max(ScaleWidth(), kClientWidth) - kWindowMargin - 1500;
  lblselected.Move(kWindowMargin, selected_top, 1290, kLabelHeight);
  lblpath.Move(kWindowMargin + 1320, selected_top, inserts_left - kControlGap - kWindowMargin - 1320, kLabelHeight);
  lblinsertcount.Move(inserts_left, selected_top, 840, kLabelHeight);
  lblinserts.Move(inserts_left + 870, selected_top, 630, kLabelHeight);
}

void frmputlist::PlaceChoices() {
  const int top = kFramesTop + std::max(ScaleHeight() - kClientHeight, 0);
  const int wider = std::max(ScaleWidth() - kClientWidth, 0);
  Frame1.Move(kWindowMargin, top, kChoicesWidth, kFrameHeight1);
  Frame2.Move(kWindowMargin + kChoicesWidth + kControlGap, top, kClockWidth, kFrameHeight1);
  Frame3.Move(kWindowMargin + kChoicesWidth + kClockWidth + 2 * kControlGap, top, kPreviewWidth + wider, kFrameHeight1);
}

void frmputlist::PlaceClock() {
  constexpr int kFieldLeft = 1200;
  constexpr int kField = 645;
  constexpr int kUnit = 480;
  constexpr int kSecondField = kFieldLeft + kField + 60 + kUnit + 60;
  struct Line {
    int top;
    Label& label;
    TextBox& minutes;
    Label& minutes_unit;
    TextBox& seconds;
    Label& seconds_unit;
  };
  for (const Line& line : {Line{kFirstLine - 30, lblclock, txtmin, lblmin, txtsec, lblsec},
                           Line{kFirstLine + 345, lbllongest, TxtTimeMin, lbllongestmin, TxtTimeSec, lbllongestsec}}) {
    line.label.Move(kFramePad, line.top + 45, kFieldLeft - kFramePad - 30, kLabelHeight);
    line.minutes.Move(kFieldLeft, line.top, kField, kRow);
    line.minutes_unit.Move(kFieldLeft + kField + 60, line.top + 45, kUnit, kLabelHeight);
    line.seconds.Move(kSecondField, line.top, kField, kRow);
    line.seconds_unit.Move(kSecondField + kField + 60, line.top + 45, kUnit, kLabelHeight);
  }
  int top = kFirstLine + 780;
  for (CheckBox* box : {&ChGameTimer, &chrandom, &Check1, &ChLog}) {
    box->Move(kFramePad, top, kClockWidth - 2 * kFramePad, kOptionHeight);
    top += 300;
  }
}

// The picture stands in the middle of its place; without one the whole place can be clicked.
void frmputlist::PlacePreview() {
  constexpr int kInfoWidth = 900;
  const Place room{kFramePad, kFirstLine - 30, Frame3.Width - 2 * kFramePad,
                   kFrameHeight1 - kFirstLine - kButton - 180};
  lblnopreview.Move(room.left, room.top + (room.height - kLabelHeight) / 2, room.width, kLabelHeight);
  lblnopreview.Visible = !ImgPreview.Picture.get();
  MoveTo(ImgPreview, FitPicture(ImgPreview.Picture, room, SmallPicture::kEnlarge));
  Command7.Move(Frame3.Width - kFramePad - kInfoWidth, kFrameHeight1 - kButton - 90, kInfoWidth, kButton);
}

void frmputlist::PlaceState() {
  const int down = std::max(ScaleHeight() - kClientHeight, 0);
  const int width = std::max(ScaleWidth(), kClientWidth) - 2 * kWindowMargin;
  constexpr int kWordWidth = 1200;
  const int second_button = width - kFramePad - kRunButton;
  const int first_button = second_button - kControlGap - kRunButton;
  Frame4.Move(kWindowMargin, kStateTop + down, width, kStateHeight);
  struct Line {
    Label& label;
    Label& text;
  };
  int top = kFirstLine;
  for (const Line& line : {Line{lblnow, lblplaysnow}, Line{lblnext, lblplaysnext}, Line{lblwhen, lblchangeswhen}}) {
    line.label.Move(kFramePad, top, kWordWidth, kLabelHeight);
    line.text.Move(kFramePad + kWordWidth + 30, top, first_button - kControlGap - kFramePad - kWordWidth - 30,
                   kLabelHeight);
    top += 315;
  }
  Command2.Move(first_button, kFirstLine - 45, kRunButton, kButton + 30);
  Command3.Move(second_button, kFirstLine - 45, kRunButton, kButton + 30);
  Command4.Move(first_button, kFirstLine + 450, kRunButton, kButton + 30);
  Command5.Move(second_button, kFirstLine + 450, kRunButton, kButton + 30);
  Picture5.Move(kWindowMargin, kStripTop + down, width, kStripHeight);
  lblwarning.Move(0, 30, 1620, kLabelHeight);
  Label11.Move(1650, 30, width - 1650, kLabelHeight);
  lblstatus.Move(kWindowMargin, kStatusTop + down, width, kLabelHeight);
}

}  // namespace kestrun
