// Captions, tips and places of the name editor's controls.
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/place_controls.h"
#include "windows/names/frmname.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 6000;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kBrowseWidth = 480;
constexpr int kFolderTop = kWindowMargin + kLabelHeight + 30;
constexpr int kPlayersTop = kFolderTop + kTextBoxHeight + kWindowMargin;
// Inside the frame.
constexpr int kFirstRow = 330;
constexpr int kRow = 420;
constexpr int kNameLeft = 1200;
constexpr int kPlayersHeight = kFirstRow + static_cast<int>(kPlayerCount) * kRow + 60;
constexpr int kNoteTop = kPlayersTop + kPlayersHeight + 90;
constexpr int kNoteHeight = 2 * kLabelHeight;
constexpr int kButtonsTop = kNoteTop + kNoteHeight + 60;
constexpr int kCharMapWidth = 1500;

}  // namespace

std::vector<frmname::Player> frmname::AddPlayers() {
  std::vector<Player> added;
  added.reserve(kPlayerCount);
  for (int player = 0; player < static_cast<int>(kPlayerCount); ++player) {
    added.push_back(
        {Add<Label>("LblPlayer", player), Add<ComboBox>("CmbName", player), Add<TextBox>("txtPlayer", player)});
  }
  return added;
}

void frmname::LayOut() {
  LayOutFixedWindow(*this, "Kestrun - Name Editor", StartPosition::kCenterScreen);
  SetClientSize(kClientWidth, kButtonsTop + kDialogButtonHeight + kWindowMargin);
  PlaceLabel(LblFolder, kWindowMargin, kWindowMargin, kInside, "Game Folder:");
  Text1.ToolTipText = "Your DFLW demo or full version game folder.";
  Text1.Move(kWindowMargin, kFolderTop, kInside - kBrowseWidth - 60, kTextBoxHeight);
  PlaceButton(Command2, {kClientWidth - kWindowMargin - kBrowseWidth, kFolderTop, kBrowseWidth, kTextBoxHeight}, "...",
              "Browse for folder.");
  LayOutPlayers();
  PlaceLabel(LblNote, kWindowMargin, kNoteTop, kInside, "");
  LblNote.Height = kNoteHeight;
  LblNote.WordWrap = true;
  LblNote.UseMnemonic = false;
  PlaceButton(cmdCharMap, {kWindowMargin, kButtonsTop, kCharMapWidth, kDialogButtonHeight}, "Run Char Map",
              "Run a special character map.");
  PlaceEndButtons({cmdSave, "Save", "Save everything."}, {Command1, "Cancel", "Cancel this."},
                  kClientWidth - kWindowMargin, kButtonsTop);
  cmdSave.Default = true;
  FillMenu(mnu_file, "File", {{mnu_loadnames, "Load names"}, {mnu_savenames, "Save names"}, {mnu_exit, "Exit"}});
  mnu_loadnames.Shortcut = "F5";
  mnu_savenames.Shortcut = "Ctrl+S";
  for (Image* picture : {&ImgOpen, &ImgSave, &ImgClose}) picture->Visible = false;
}

void frmname::LayOutPlayers() {
  Frame1.Caption = "Players:";
  Frame1.Move(kWindowMargin, kPlayersTop, kInside, kPlayersHeight);
  int top = kFirstRow;
  for (size_t player = 0; player < players.size(); ++player) {
    const Player& row = players[player];
    row.label.SetContainer(Frame1);
    PlaceLabel(row.label, kFramePad, top + 45, kNameLeft - kFramePad - 60, "Player " + std::to_string(player + 1));
    row.name.SetContainer(Frame1);
    row.name.ToolTipText = "The player's name: type it, or choose one that was used before.";
    row.name.Move(kNameLeft, top, kInside - kFramePad - kNameLeft, kTextBoxHeight);
    row.in_file.SetContainer(Frame1);
    row.in_file.ToolTipText = "Right click to paste your name here.";
    row.in_file.Move(kNameLeft, top, kInside - kFramePad - kNameLeft, kTextBoxHeight);
    row.in_file.Visible = false;
    top += kRow;
  }
}

}  // namespace kestrun
