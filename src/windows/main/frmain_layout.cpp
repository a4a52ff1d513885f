// Captions, tips and places of the main window's controls.
#include <algorithm>
#include <initializer_list>

#include "maps/put/mission_name.h"
#include "program/menu_pictures.h"
#include "program/program_pictures.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/list_focus.h"
#include "program/window_kit/place_controls.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

// Measures that the whole window shares, in twips, at the size that the window opens with.
constexpr int kClientWidth = 9060;
constexpr int kClientHeight = 6975;
constexpr int kGap = 90;
constexpr int kRow = 285;     // a line of text to type in
constexpr int kButton = 390;  // the height of a button
constexpr int kColumn = 4680;
constexpr int kColumnWidth = kClientWidth - kColumn - kWindowMargin;
constexpr int kHalf = (kColumnWidth - kGap) / 2;
constexpr int kHeadingTop = 630;  // of the list and the preview
constexpr int kListTop = 870;
constexpr int kLastButtonsTop = 6105;
constexpr int kListHeight = 5085;
constexpr int kPlainListMore = 100;   // the plain list is higher than the painted one
constexpr int kPreviewHeight = 2640;  // that of the open panel of links as well
constexpr int kPreviewGives = 1290;   // how much of it a low screen may take
constexpr int kFrameTop = 3660;
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

}  // namespace

void frmain::LayOut() {
  Caption = "Kestrun";
  Icon = ProgramIcon();
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  LayOutFolderAndList();
  LayOutChoices();
  LayOutStatusLine();
  LayOutBanner();
  BuildMenus();
  SetClientSize(kClientWidth, kClientHeight);
  NoteLeastSize();
  Arrange();
}

void frmain::LayOutFolderAndList() {
  lblfolder.Caption = "Fol&der:";
  Text1.ToolTipText = "Type the path name where your maps are stored.";
  SetCaptionAndTip(Command1, "Browse", "Choose the folder where your maps are stored.");

  lblmaps.Caption = "Map&s:";
  ListBox.SelColor = color::kHighlight;
  ListBox.SelForeColor = color::kHighlightText;
  ListBox.SelectionStyle = 0;
  ListBox.FullRowSelect = true;
  ListBox.StrechIcon = true;
  ListBox.AutoHideScrollBars = true;
  ListBox.SetEmptyText("No maps in this folder.");
  ShowFocusOnlyWhileFocused(ListBox);
  FileMaps.Pattern = "*.bms;*.zip";
  FileMaps.ToolTipText = "All the maps in the selected folder.";
  FileMaps.Visible = false;
  for (Control* control : std::initializer_list<Control*>{&Text1, &txtoutput, &ListBox, &FileMaps}) {
    GiveWindowColors(*control);
  }
  SetCaptionAndTip(Command6, "&Refresh list", "Read the folder again.");

  lblpreview.Caption = "Preview:";
  lblnopreview.Caption = "No preview";
  lblnopreview.Alignment = static_cast<int>(TextAlignment::kCenter);
  lblnopreview.ForeColor = color::kGrayText;
  ImgPreview.BorderStyle = 1;
  ImgPreview.Stretch = true;
  ImgPreview.ToolTipText = "Click to load a screen shot";
  for (Label* label : {&lblfolder, &lblmaps, &lblpreview, &lblnopreview, &lblnamelength}) label->BackStyle = 0;
}

void frmain::LayOutChoices() {
  Frame1.Caption = "Pu&t the map in as";
  PlaceOption(opcapflag, Frame1, kWindowMargin, 270, kColumnWidth - 2 * kWindowMargin,
              "Capture the flag     (Desert prison)", "The map takes the place of the capture the flag mission.");
  PlaceOption(opdeath, Frame1, kWindowMargin, 570, kColumnWidth - 2 * kWindowMargin, "Deathmatch     (Death Valley)",
              "The map takes the place of the deathmatch mission.");
  PlaceOption(oprename, Frame1, kWindowMargin, 885, 1020, "Rename:", "The map is stored under the name that you type.");
  opcapflag.Value = true;
  txtoutput.SetContainer(Frame1);
  constexpr int kCountWidth = 660;
  constexpr int kCountLeft = kColumnWidth - kWindowMargin - kCountWidth;
  txtoutput.Move(1245, 892, kCountLeft - kGap - 1245, kRow);
  txtoutput.ToolTipText =
      "The name under which the map is stored in the game. The archive holds its first 16 characters.";
  txtoutput.Change = [this] {
    lblnamelength.Caption = MissionNameLength(txtoutput.Text);
    ListBox.Refresh();  // the name decides about the maps' health
  };
  txtoutput.Change();
  lblnamelength.SetContainer(Frame1);
  lblnamelength.Move(kCountLeft, 922, kCountWidth, kLabelHeight);

  SetCaptionAndTip(Command2, "Put &map in DFLW", "Put the selected map in the game before you start it.");
  SetCaptionAndTip(Command7, "I'm already &playing",
                   "Click this button when you are playing DF and wants to put new map.");
  SetCaptionAndTip(Command3, "&Launch DFLW", "Start the game.");
  SetCaptionAndTip(Command4, "Launch &Editor", "Start the game's map editor.");
  SetCaptionAndTip(Command8, "&Auto Messenger", "Send messages to the game by themselves.");
  SetCaptionAndTip(Command5, "&Options", "Change the folders and settings of this program.");
  Command2.Default = true;
}

void frmain::LayOutStatusLine() {
  status_line_.LayOut("Select a map and click 'Put map in DFLW'.");

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
  QuickLinks.TabIndex = lblpreview.TabIndex;  // it stands in the preview's place
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

void frmain::LayOutBanner() {
  constexpr const char* kNews = "DFLW news";
  lblnews.Caption = kNews;
  lblnews.Alignment = static_cast<int>(TextAlignment::kCenter);
  lblnews.ForeColor = color::kGrayText;
  lblnews.BackStyle = 0;
  AnimGIF1.Stretch = true;
  AnimGIF1.Url = "";
  AnimGIF1.BackStyle = 0;
  AnimGIF1.ToolTipText = kNews;
  AnimGIF1.Visible = false;
  lblnews.Visible = false;
}

// In its own proportions above the status line.
void frmain::PlaceBanner() {
  const Ref<kestrun::Picture> picture = AnimGIF1.ImgPic(0).Picture;
  const Place room{kWindowMargin, ScaleHeight() - kStatusLineHeight - kBannerHeight, ScaleWidth() - 2 * kWindowMargin,
                   kBannerHeight - kGap};
  lblnews.Move(room.left, room.top + (room.height - kLabelHeight) / 2, room.width, kLabelHeight);
  MoveTo(AnimGIF1, FitPicture(picture, room, SmallPicture::kKeepSize));
  lblnews.Visible = has_banner_place_ && !picture;
  AnimGIF1.Visible = has_banner_place_ && picture;
}

int frmain::SpareWidth() const { return std::max(ScaleWidth() - kClientWidth, 0); }

int frmain::SpareHeight() const {
  return std::max(ScaleHeight() - kClientHeight - (has_banner_place_ ? kBannerHeight : 0), -kPreviewGives);
}

// At the least size nothing is cut off yet, and the open panel of the guide covers no more than the preview.
void frmain::NoteLeastSize() {
  SetLeastClientSize(kClientWidth, kClientHeight + (has_banner_place_ ? kBannerHeight : 0));
}

// Places all controls for the present size. A wider window gives its room to the list, a higher one to the list and the
// preview. A lower one takes it from them, so that a screen too low for the window cuts no button off.
void frmain::Arrange() {
  PlaceFolderAndList();
  PlaceChoices();
  PlacePreview();
  PlaceBanner();
  PlaceStatusLine();
}

void frmain::PlaceFolderAndList() {
  constexpr int kTextLeft = 870;
  constexpr int kBrowseWidth = 1320;
  const int browse_left = kClientWidth + SpareWidth() - kWindowMargin - kBrowseWidth;
  lblfolder.Move(kWindowMargin, 195, kTextLeft - kWindowMargin - 30, kLabelHeight);
  Text1.Move(kTextLeft, 172, browse_left - kGap - kTextLeft, kRow);
  Command1.Move(browse_left, 120, kBrowseWidth, kButton);

  const int list_width = kColumn - 2 * kWindowMargin + SpareWidth();
  const int list_height = kListHeight + SpareHeight();
  lblmaps.Move(kWindowMargin, kHeadingTop, list_width, kLabelHeight);
  ListBox.Move(kWindowMargin, kListTop, list_width, list_height);
  FileMaps.Move(kWindowMargin, kListTop, list_width, list_height + kPlainListMore);
  Command6.Move(kWindowMargin, kLastButtonsTop + SpareHeight(), 1500, kButton);
}

void frmain::PlaceChoices() {
  const int left = kColumn + SpareWidth();
  const int right = left + kHalf + kGap;
  const int down = SpareHeight();
  Frame1.Move(left, kFrameTop + down, kColumnWidth, 1305);
  Command2.Move(left, 5055 + down, kHalf, 480);
  Command7.Move(right, 5055 + down, kHalf, 480);
  Command3.Move(left, 5625 + down, kHalf, kButton);
  Command4.Move(right, 5625 + down, kHalf, kButton);
  Command8.Move(left, kLastButtonsTop + down, kHalf, kButton);
  Command5.Move(right, kLastButtonsTop + down, kHalf, kButton);
}

// The picture stands in the middle of its place; without one the whole place can be clicked.
void frmain::PlacePreview() {
  const Place room{kColumn + SpareWidth(), kListTop, kColumnWidth, kPreviewHeight + SpareHeight()};
  lblpreview.Move(room.left, kHeadingTop, kColumnWidth, kLabelHeight);
  lblnopreview.Move(room.left, room.top + (room.height - kLabelHeight) / 2, kColumnWidth, kLabelHeight);
  lblnopreview.Visible = !ImgPreview.Picture.get();
  MoveTo(ImgPreview, FitPicture(ImgPreview.Picture, room, SmallPicture::kEnlarge));
  QuickLinks.Move(room.left, room.top, kColumnWidth, QuickLinks.Height);
}

void frmain::PlaceStatusLine() {
  status_line_.Place(ScaleWidth(), ScaleHeight());
  PctUpdate.Move(0, ScaleHeight() - kStatusLineHeight, ScaleWidth(), kStatusLineHeight);
  lblupdate.Move(kWindowMargin, 60, ScaleWidth() - 2 * kWindowMargin - 900, 240);
  lblCloseUpdate.Move(ScaleWidth() - kWindowMargin - 600, 60, 600, 240);
}

void frmain::ShowBannerPlace(bool shown) {
  has_banner_place_ = shown;
  NoteLeastSize();
  // One that the user has made higher keeps its height.
  Height = shown ? std::max(Height.get(), kHeightWithBanner) : kHeightWithoutBanner;
  Arrange();
}

}  // namespace kestrun
