#include "frame/program_pictures.h"
#include "maps/frmain.h"

namespace kestrun {
namespace {

// Edges and gaps that the whole window shares, in twips.
constexpr int kClientWidth = 9060;
constexpr int kClientHeight = 6120;
constexpr int kMargin = 180;
constexpr int kColumn = 4920;
constexpr int kColumnWidth = kClientWidth - kColumn - kMargin;
constexpr int kStatusHeight = 330;

void PlaceButton(CommandButton& button, int left, int top, int width, int height, const char* caption,
                 const char* tip) {
  button.Move(left, top, width, height);
  button.Caption = caption;
  button.ToolTipText = tip;
}

void PlaceOption(OptionButton& option, Frame& frame, int top, const char* caption, const char* tip) {
  option.SetContainer(frame);
  option.Move(kMargin, top, kColumnWidth - 2 * kMargin, 285);
  option.Caption = caption;
  option.ToolTipText = tip;
}

}  // namespace

void frmain::LayOut() {
  Caption = "Kestrun";
  Icon = ProgramIcon();
  BorderStyle = static_cast<int>(FormBorder::kFixedSingle);
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  MaxButton = false;
  SetClientSize(kClientWidth, kClientHeight);

  lblfolder.Caption = "&Folder:";
  lblfolder.Move(kMargin, 150, 3000, 240);
  Text1.Move(kMargin, 405, kClientWidth - 3 * kMargin - 1320, 330);
  Text1.ToolTipText = "Type the path name where your maps are stored.";
  PlaceButton(Command1, kClientWidth - kMargin - 1380, 390, 1380, 360, "Browse",
              "Choose the folder where your maps are stored.");

  lblmaps.Caption = "M&aps:";
  lblmaps.Move(kMargin, 900, 3000, 240);
  FileMaps.Pattern = "*.bms;*.zip";
  FileMaps.Move(kMargin, 1155, kColumn - 2 * kMargin, 3900);
  FileMaps.ToolTipText = "All the maps in the selected folder.";
  FileMaps.BackColor = color::kWindowBackground;
  FileMaps.ForeColor = color::kWindowText;
  PlaceButton(Command6, kMargin, 5190, 1740, 375, "&Refresh list", "Read the folder again.");

  Frame1.Caption = "Put the map in as";
  Frame1.Move(kColumn, 1065, kColumnWidth, 2010);
  PlaceOption(opcapflag, Frame1, 330, "Capture the flag     (Desert prison)",
              "The map takes the place of the capture the flag mission.");
  PlaceOption(opdeath, Frame1, 735, "Deathmatch     (Death Valley)",
              "The map takes the place of the deathmatch mission.");
  PlaceOption(oprename, Frame1, 1140, "Rename:", "The map is stored under the name that you type below.");
  opcapflag.Value = true;
  txtoutput.SetContainer(Frame1);
  txtoutput.Move(450, 1485, kColumnWidth - 450 - kMargin, 330);
  txtoutput.ToolTipText = "The name under which the map is stored in the game.";

  PlaceButton(Command2, kColumn, 3255, kColumnWidth, 495, "Put &map in DFLW",
              "Put the selected map in the game before you start it.");
  PlaceButton(Command7, kColumn, 3870, kColumnWidth, 495, "I'm already &playing",
              "Click this button when you are playing DF and wants to put new map.");
  PlaceButton(Command3, kColumn, 4560, kColumnWidth, 495, "&Launch DFLW", "Start the game.");
  Command2.Default = true;

  Picture2.BorderStyle = 0;
  Picture2.Move(0, kClientHeight - kStatusHeight, kClientWidth, kStatusHeight);
  Picture2.TabStop = false;
  txtstatusbar.SetContainer(Picture2);
  txtstatusbar.Move(kMargin, 60, kClientWidth - 2 * kMargin, 240);
  txtstatusbar.BorderStyle = 0;
  txtstatusbar.BackColor = color::kButtonFace;
  txtstatusbar.Locked = true;
  txtstatusbar.TabStop = false;
  txtstatusbar.Text = "Select a map and click 'Put map in DFLW'.";

  for (TextBox* box : {&Text1, &txtoutput}) {
    box->BackColor = color::kWindowBackground;
    box->ForeColor = color::kWindowText;
  }
}

}  // namespace kestrun
