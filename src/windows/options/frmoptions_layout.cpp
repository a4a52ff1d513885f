// Captions, tips and places of the options window's controls.
#include "program/program_pictures.h"
#include "program/window_kit/place_controls.h"
#include "windows/options/frmoptions.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 11400;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kLogo = 480;
constexpr int kLogoLeft = kWindowMargin;
// Inside a frame: a caption or check box, the text, the button, and the mark of what is missing.
constexpr int kFirstRow = 285;
constexpr int kRow = 390;
constexpr int kLabelWidth = 1740;
constexpr int kBrowseWidth = 960;
constexpr int kMarkWidth = 900;
constexpr int kMarkLeft = kInside - kFramePad - kMarkWidth;
constexpr int kBrowseLeft = kMarkLeft - kControlGap - kBrowseWidth;
constexpr int kBoxLeft = kFramePad + kLabelWidth + 60;
constexpr int kCheckWidth = 5040;
constexpr int kProgramLeft = kFramePad + kCheckWidth + 60;
constexpr Color kMarkColor = Rgb(0xA0, 0x10, 0x10);

constexpr int FrameHeight(int rows) { return kFirstRow + rows * kRow + 60; }

constexpr int kGameRows = 5;
constexpr int kProgramRows = 4;
constexpr int kStyleRows = 2;
constexpr int kShellRows = 3;
constexpr int kGameTop = kWindowMargin;
constexpr int kProgramsTop = kGameTop + FrameHeight(kGameRows) + kControlGap;
constexpr int kStyleTop = kProgramsTop + FrameHeight(kProgramRows) + kControlGap;
constexpr int kShellTop = kStyleTop + FrameHeight(kStyleRows) + kControlGap;
constexpr int kButtonsTop = kShellTop + FrameHeight(kShellRows) + kControlGap;
constexpr int kShellColumn = 5220;

void PlaceFrame(Frame& frame, int top, int rows, const std::string& caption) {
  frame.Caption = caption;
  frame.Move(kWindowMargin, top, kInside, FrameHeight(rows));
}

}  // namespace

void frmoptions::LayOut() {
  LayOutDialog(*this, "Kestrun - Options");
  SetClientSize(kClientWidth, kButtonsTop + kLogo + kWindowMargin);
  path_boxes_ = {{&TxtGameFolder, PathKind::kFolder},
                 {&TxtGame, PathKind::kGameFile},
                 {&TxtEditor, PathKind::kGameFile},
                 {&TxtMapFolder, PathKind::kFolder},
                 {&txtPack, PathKind::kGameFile, &ChPack},
                 {&TxtPlaying, PathKind::kGameFile, &ChPlaying},
                 {&txtbms, PathKind::kFile},
                 {&txtcolor, PathKind::kFile},
                 {&txtStyleFile, PathKind::kStyle}};
  LayOutGame();
  LayOutPrograms();
  LayOutStyle();
  LayOutShell();
  AddMarks();
  Image1.Picture = ProgramIcon();
  Image1.Stretch = true;
  Image1.Move(kLogoLeft, kButtonsTop, kLogo, kLogo);
  PlaceEndButtons({Command1, "&Save", "Store what is shown here."},
                  {Command2, "Cancel", "Close the window and change nothing."}, kClientWidth - kWindowMargin,
                  kButtonsTop);
  Command1.Default = true;
}

void frmoptions::PlaceRow(Frame& frame, int row, Label& label, const std::string& caption, TextBox& box,
                          const std::string& tip, CommandButton* browse) {
  const int top = kFirstRow + row * kRow;
  label.SetContainer(frame);
  PlaceLabel(label, kFramePad, top + 45, kLabelWidth, caption);
  box.SetContainer(frame);
  box.ToolTipText = tip;
  box.Move(kBoxLeft, top, (browse ? kBrowseLeft - 60 : kMarkLeft - kControlGap) - kBoxLeft, kTextBoxHeight);
  if (!browse) return;
  browse->SetContainer(frame);
  PlaceButton(*browse, {kBrowseLeft, top, kBrowseWidth, kTextBoxHeight}, "Browse", "Choose it.");
}

void frmoptions::PlaceProgramRow(int row, CheckBox& check, const std::string& caption, TextBox& box,
                                 const std::string& tip, CommandButton& browse) {
  const int top = kFirstRow + row * kRow;
  for (Control* each : {static_cast<Control*>(&check), static_cast<Control*>(&box), static_cast<Control*>(&browse)}) {
    each->SetContainer(Frame2);
  }
  check.Caption = caption;
  check.Move(kFramePad, top + 15, kCheckWidth, kOptionHeight);
  box.ToolTipText = tip;
  box.Move(kProgramLeft, top, kBrowseLeft - 60 - kProgramLeft, kTextBoxHeight);
  PlaceButton(browse, {kBrowseLeft, top, kBrowseWidth, kTextBoxHeight}, "Browse", "Choose it.");
}

void frmoptions::LayOutGame() {
  PlaceFrame(Frame1, kGameTop, kGameRows, "Game");
  PlaceRow(Frame1, 0, LblGameFolder, "&Game folder:", TxtGameFolder,
           "Enter the path to your dflw game folder here. Normaly this is C:\\program files\\novalogic\\delta force "
           "land warrior demo",
           &CmdGameFolder);
  PlaceRow(Frame1, 1, LblGame, "Game &program:", TxtGame, "the dflw game .exe file name", &CmdGame);
  PlaceRow(Frame1, 2, LblDFLWParameters, "Para&meters:", TxtDFLWParameters,
           "Enter command line parameters to start the game here. Use /D /S /L /NOSKINS or leave blank.", nullptr);
  PlaceRow(Frame1, 3, LblEditor, "Map &editor:", TxtEditor, "The editor.exe file name", &CmdEditor);
  PlaceRow(Frame1, 4, LblMapFolder, "Map &folder:", TxtMapFolder,
           "You default map folder where Kestrun will load maps from & download them", &CmdMapFolder);
}

void frmoptions::LayOutPrograms() {
  PlaceFrame(Frame2, kProgramsTop, kProgramRows, "Other programs");
  PlaceProgramRow(0, ChPack, "&Run program after packing a map:", txtPack,
                  "The name of the pack.exe file located in your game folder. NOT FULL PATH", CmdPack);
  PlaceProgramRow(1, ChPlaying, "Run program after 'I'm already pla&ying' or auto host:", TxtPlaying,
                  "The name of a program in your game folder.", CmdBrowsePlaying);
  PlaceRow(Frame2, 2, LblBms, "&BMS to MIS:", txtbms, "The full path of the program that converts *.bms to *.mis files",
           &cmdbms);
  PlaceRow(Frame2, 3, LblColor, "&Color picker:", txtcolor, "The full path of color picker", &Command6);
}

void frmoptions::LayOutStyle() {
  PlaceFrame(Frame3, kStyleTop, kStyleRows, "Style (skin)");
  LblStyles.SetContainer(Frame3);
  PlaceLabel(LblStyles, kFramePad, kFirstRow + 45, kLabelWidth, "Sty&le:");
  CboStyles.SetContainer(Frame3);
  CboStyles.Style = static_cast<int>(ComboStyle::kList);
  CboStyles.ToolTipText = "The styles beside the program. Windows that are opened from then on wear the new one.";
  CboStyles.Move(kBoxLeft, kFirstRow, kBrowseLeft - 60 - kBoxLeft, kTextBoxHeight);
  PlaceRow(Frame3, 1, LblStyleFile, "Style f&ile:", txtStyleFile, "The location of the style (skin) file for Kestrun",
           &Command10);
}

void frmoptions::LayOutShell() {
  PlaceFrame(Frame4, kShellTop, kShellRows, "Windows");
  struct Row {
    CheckBox& box;
    const char* caption;
    int column;
    int row;
  };
  for (const Row& each : {Row{Check1, "&Open all *.bms files with this program.", 0, 0},
                          Row{Check2, "Open &all *.lst files with this program.", 0, 1},
                          Row{Check3, "Open all *.s&tl files with this program.", 0, 2},
                          Row{ChProtocol, "Allow &kestrun:// protocol in Internet Explorer", 1, 0},
                          Row{ChDefault, "This launcher is the &default launcher for this computer.", 1, 1},
                          Row{chshortcut, "Create shortcut in \"Se&nd to\" menu (Windows Explorer).", 1, 2}}) {
    each.box.SetContainer(Frame4);
    each.box.Caption = each.caption;
    const int left = each.column == 0 ? kFramePad : kShellColumn;
    const int right = each.column == 0 ? kShellColumn - kControlGap : kInside - kFramePad;
    each.box.Move(left, kFirstRow + each.row * kRow, right - left, kOptionHeight);
  }
}

// The marks come last, so that they stand in nobody's order of tabs.
void frmoptions::AddMarks() {
  int number = 0;
  for (PathBox& row : path_boxes_) {
    Label& mark = Add<Label>("LblMissing", number++);
    mark.SetContainer(*row.box->Container());
    PlaceLabel(mark, kMarkLeft, row.box->Top + 45, kMarkWidth, "not found");
    mark.ForeColor = kMarkColor;
    mark.Visible = false;
    row.mark = &mark;
  }
}

}  // namespace kestrun
