// Captions, tips and places of the main window's controls.
#include <algorithm>

#include "program/program_pictures.h"
#include "program/style_hook.h"
#include "windows/main/frmain.h"
#include "windows/main/frmain_pictures.h"

namespace kestrun {
namespace {

// Edges and gaps that the whole window shares, in twips, at the size that the window opens with.
constexpr int kClientWidth = 9060;
constexpr int kClientHeight = 6975;
constexpr int kMargin = 180;
constexpr int kGap = 90;
constexpr int kRow = 285;     // a line of text to type in
constexpr int kButton = 390;  // the height of a button
constexpr int kColumn = 4680;
constexpr int kColumnWidth = kClientWidth - kColumn - kMargin;
constexpr int kHalf = (kColumnWidth - kGap) / 2;
constexpr int kListTop = 870;
constexpr int kListHeight = 5085;
constexpr int kPlainListMore = 100;   // the plain list is higher than the painted one
constexpr int kPreviewHeight = 2640;  // that of the open panel of links as well
constexpr int kPreviewGives = 1290;   // how much of it a low screen may take
constexpr int kFrameTop = 3660;
constexpr int kStatusHeight = 330;
constexpr int kArrow = 360;
// Window heights without and with the place for the banner.
constexpr int kHeightWithoutBanner = 7665;
constexpr int kHeightWithBanner = 8490;
constexpr int kBannerHeight = kHeightWithBanner - kHeightWithoutBanner;

// The blue of links where it can be read, and the colour of all text on a dark background.
Color LinkColor() {
  constexpr uint32_t kMiddle = 128;
  const uint32_t paper = PlainColor(color::kWindowBackground).value_or(color::kWhite);
  const uint32_t green = (paper >> 8) & 0xFF;
  return green > kMiddle ? Rgb(0, 102, 204) : color::kWindowText;
}

void PlaceButton(CommandButton& button, int left, int top, int width, int height, const char* caption,
                 const char* tip) {
  button.Move(left, top, width, height);
  button.Caption = caption;
  button.ToolTipText = tip;
}

void PlaceLabel(Label& label, int left, int top, int width, const char* caption) {
  label.Move(left, top, width, 240);
  label.Caption = caption;
  label.BackStyle = 0;
}

void PlaceOption(OptionButton& option, Frame& frame, int top, int width, const char* caption, const char* tip) {
  option.SetContainer(frame);
  option.Move(kMargin, top, width, 285);
  option.Caption = caption;
  option.ToolTipText = tip;
}

}  // namespace

void frmain::LayOut() {
  Caption = "Kestrun";
  Icon = ProgramIcon();
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  LayOutFolderAndList();
  LayOutChoices();
  LayOutStatusLine();
  BuildMenus();
  for (TextBox* box : {&Text1, &txtoutput}) {
    box->BackColor = color::kWindowBackground;
    box->ForeColor = color::kWindowText;
  }
  SetClientSize(kClientWidth, kClientHeight);
  Arrange();
}

void frmain::LayOutFolderAndList() {
  PlaceLabel(lblfolder, kMargin, 195, 660, "Fol&der:");
  Text1.Move(870, 172, kClientWidth - 870 - kMargin - kGap - 1320, kRow);
  Text1.ToolTipText = "Type the path name where your maps are stored.";
  PlaceButton(Command1, kClientWidth - kMargin - 1320, 120, 1320, kButton, "Browse",
              "Choose the folder where your maps are stored.");

  PlaceLabel(lblmaps, kMargin, 630, 3000, "Map&s:");
  ListBox.Move(kMargin, kListTop, kColumn - 2 * kMargin, kListHeight);
  ListBox.BackColor = color::kWindowBackground;
  ListBox.ForeColor = color::kWindowText;
  ListBox.SelColor = color::kHighlight;
  ListBox.SelForeColor = color::kHighlightText;
  ListBox.SelectionStyle = 0;
  ListBox.FullRowSelect = true;
  ListBox.ShowIcon = true;
  ListBox.StrechIcon = true;
  ListBox.AutoHideScrollBars = true;
  FileMaps.Pattern = "*.bms;*.zip";
  FileMaps.ToolTipText = "All the maps in the selected folder.";
  FileMaps.BackColor = color::kWindowBackground;
  FileMaps.ForeColor = color::kWindowText;
  FileMaps.Visible = false;
  PlaceButton(Command6, kMargin, 6105, 1500, kButton, "&Refresh list", "Read the folder again.");

  PlaceLabel(lblpreview, kColumn, 630, 3000, "Preview:");
  PlaceLabel(lblnopreview, kColumn, kListTop, kColumnWidth, "No preview");
  lblnopreview.Alignment = static_cast<int>(TextAlignment::kCenter);
  lblnopreview.ForeColor = color::kGrayText;
  ImgPreview.BorderStyle = 1;
  ImgPreview.Stretch = true;
  ImgPreview.ToolTipText = "Click to load a screen shot";
}

void frmain::LayOutChoices() {
  Frame1.Caption = "Pu&t the map in as";
  Frame1.Move(kColumn, kFrameTop, kColumnWidth, 1305);
  PlaceOption(opcapflag, Frame1, 270, kColumnWidth - 2 * kMargin, "Capture the flag     (Desert prison)",
              "The map takes the place of the capture the flag mission.");
  PlaceOption(opdeath, Frame1, 570, kColumnWidth - 2 * kMargin, "Deathmatch     (Death Valley)",
              "The map takes the place of the deathmatch mission.");
  PlaceOption(oprename, Frame1, 885, 1020, "Rename:", "The map is stored under the name that you type.");
  opcapflag.Value = true;
  txtoutput.SetContainer(Frame1);
  txtoutput.Move(1245, 892, kColumnWidth - 1245 - kMargin, kRow);
  txtoutput.ToolTipText = "The name under which the map is stored in the game.";

  const int right = kColumn + kHalf + kGap;
  PlaceButton(Command2, kColumn, 5055, kHalf, 480, "Put &map in DFLW",
              "Put the selected map in the game before you start it.");
  PlaceButton(Command7, right, 5055, kHalf, 480, "I'm already &playing",
              "Click this button when you are playing DF and wants to put new map.");
  PlaceButton(Command3, kColumn, 5625, kHalf, kButton, "&Launch DFLW", "Start the game.");
  PlaceButton(Command4, right, 5625, kHalf, kButton, "Launch &Editor", "Start the game's map editor.");
  PlaceButton(Command8, kColumn, 6105, kHalf, kButton, "&Auto Messenger", "Send messages to the game by themselves.");
  PlaceButton(Command5, right, 6105, kHalf, kButton, "&Options", "Change the folders and settings of this program.");
  Command2.Default = true;
}

void frmain::LayOutStatusLine() {
  Picture2.BorderStyle = 0;
  Picture2.TabStop = false;
  txtstatusbar.SetContainer(Picture2);
  txtstatusbar.BorderStyle = 0;
  txtstatusbar.BackColor = color::kButtonFace;
  txtstatusbar.Locked = true;
  txtstatusbar.TabStop = false;
  txtstatusbar.Text = "Select a map and click 'Put map in DFLW'.";

  PctUpdate.BorderStyle = 0;
  PctUpdate.Visible = false;
  PctUpdate.BackColor = color::kInfoBackground;
  for (Label* label : {&lblupdate, &lblCloseUpdate}) {
    label->SetContainer(PctUpdate);
    label->BackStyle = 0;
    label->ForeColor = color::kInfoText;
    FontDescription font = label->Font;
    font.underline = true;
    label->Font = font;
  }
  lblupdate.Caption = "There is an update available for this program click here to download it.";
  lblCloseUpdate.Caption = "Close";
  lblCloseUpdate.Alignment = static_cast<int>(TextAlignment::kRight);

  QuickLinks.BorderStyle = 1;
  QuickLinks.BackColor = color::kWindowBackground;
  QuickLinks.FontColor = color::kWindowText;
  QuickLinks.LinkFontColor = LinkColor();
  QuickLinks.ForeColor = color::kWindowText;
  QuickLinks.Visible = false;
  FontDescription bold = QuickLinks.Label1.Font;
  bold.bold = true;
  QuickLinks.Label1.Font = bold;
  bold.size_points = 10;
  QuickLinks.LblClose.Font = bold;
  TmrQuickLinks.Enabled = false;
  TmrQuickLinks.Interval = 1;
  Timer1.Enabled = false;
  Timer1.Interval = 500;

  PctArrow.Picture = ArrowPicture();
  PctArrow.BorderStyle = 0;
  PctArrow.Visible = false;
  PctArrow.Move(0, 0, kArrow, kArrow);
}

int frmain::SpareWidth() const { return std::max(ScaleWidth() - kClientWidth, 0); }

int frmain::SpareHeight() const {
  return std::max(ScaleHeight() - kClientHeight - (has_banner_place_ ? kBannerHeight : 0), -kPreviewGives);
}

// A wider window gives its room to the list, a higher one to the list and the preview. A lower one takes it from them,
// so that a screen too low for the window cuts no button off.
void frmain::Arrange() {
  const int right = SpareWidth();
  const int down = SpareHeight();
  Text1.Width = kClientWidth - 870 - kMargin - kGap - 1320 + right;
  Command1.Left = kClientWidth - kMargin - 1320 + right;
  ListBox.Width = kColumn - 2 * kMargin + right;
  ListBox.Height = kListHeight + down;
  FileMaps.Move(ListBox.Left, ListBox.Top, ListBox.Width, ListBox.Height + kPlainListMore);
  Command6.Top = 6105 + down;
  const int column = kColumn + right;
  lblpreview.Left = column;
  QuickLinks.Move(column, kListTop, kColumnWidth, QuickLinks.Height);
  Frame1.Move(column, kFrameTop + down, Frame1.Width, Frame1.Height);
  for (CommandButton* button : {&Command2, &Command3, &Command8}) button->Left = column;
  for (CommandButton* button : {&Command7, &Command4, &Command5}) button->Left = column + kHalf + kGap;
  for (CommandButton* button : {&Command2, &Command7}) button->Top = 5055 + down;
  for (CommandButton* button : {&Command3, &Command4}) button->Top = 5625 + down;
  for (CommandButton* button : {&Command8, &Command5}) button->Top = 6105 + down;
  PlacePreview();
  PlaceStatusLine();
}

// The picture keeps its proportions in the middle of its place; without one the whole place can be clicked.
void frmain::PlacePreview() {
  const int left = kColumn + SpareWidth();
  const int room = kPreviewHeight + SpareHeight();
  lblnopreview.Move(left, kListTop + (room - 240) / 2, kColumnWidth, 240);
  const kestrun::Picture* picture = ImgPreview.Picture.get().get();
  lblnopreview.Visible = picture == nullptr;
  if (!picture || picture->width_pixels() == 0 || picture->height_pixels() == 0) {
    ImgPreview.Move(left, kListTop, kColumnWidth, room);
    return;
  }
  const double scale = std::min(static_cast<double>(kColumnWidth) / picture->width_pixels(),
                                static_cast<double>(room) / picture->height_pixels());
  const auto width = static_cast<int>(picture->width_pixels() * scale);
  const auto height = static_cast<int>(picture->height_pixels() * scale);
  ImgPreview.Move(left + (kColumnWidth - width) / 2, kListTop + (room - height) / 2, width, height);
}

void frmain::PlaceStatusLine() {
  const int top = ScaleHeight() - kStatusHeight;
  Picture2.Move(0, txtstatusbar.Visible ? top : ScaleHeight(), ScaleWidth(), kStatusHeight);
  txtstatusbar.Move(kMargin, 60, ScaleWidth() - 2 * kMargin, 240);
  PctUpdate.Move(0, top, ScaleWidth(), kStatusHeight);
  lblupdate.Move(kMargin, 60, ScaleWidth() - 2 * kMargin - 900, 240);
  lblCloseUpdate.Move(ScaleWidth() - kMargin - 600, 60, 600, 240);
}

void frmain::ShowBannerPlace(bool shown) {
  has_banner_place_ = shown;
  Height = shown ? kHeightWithBanner : kHeightWithoutBanner;
  Arrange();
}

}  // namespace kestrun
