// Captions, tips and places of the preview manager's controls, and its menus.
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/place_controls.h"
#include "windows/previews/frmpicture.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 9600;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kCaptionWidth = 1260;
constexpr int kImageTop = kWindowMargin + kLabelHeight + kControlGap;
constexpr int kBodyTop = kImageTop + kTextBoxHeight + kWindowMargin;
// The column with what can be chosen, and the picture beside it.
constexpr int kColumnWidth = 4560;
constexpr int kFirstRow = 330;
constexpr int kSourceHeight = kFirstRow + kDialogButtonHeight + kFramePad;
constexpr int kOptionsTop = kBodyTop + kSourceHeight + kControlGap;
constexpr int kOptionsHeight = kFirstRow + 2 * kOptionHeight + kFramePad;
constexpr int kEditTop = kOptionsTop + kOptionsHeight + kControlGap;
constexpr int kPictureLeft = kWindowMargin + kColumnWidth + kWindowMargin;
constexpr int kPictureWidth = kClientWidth - kWindowMargin - kPictureLeft;
constexpr int kPictureHeight = kPictureWidth * 3 / 4;
constexpr int kPictureTop = kBodyTop + kLabelHeight + kControlGap / 2;
constexpr Place kPicturePlace{kPictureLeft, kPictureTop, kPictureWidth, kPictureHeight};
constexpr int kButtonTop = kPictureTop + kPictureHeight + kWindowMargin;
constexpr int kSearchWidth = 1620;
constexpr int kSourceWidth = 1140;

}  // namespace

void frmpicture::LayOut() {
  LayOutDialog(*this, "Kestrun - Preview Manager", InTaskbar::kYes);
  SetClientSize(kClientWidth, kButtonTop + kDialogButtonHeight + kWindowMargin + kStatusLineHeight);
  PlaceLabel(LblMapPath, kWindowMargin, kWindowMargin, kCaptionWidth, "Map path:");
  PlaceLabel(lblmap, kWindowMargin + kCaptionWidth, kWindowMargin, kInside - kCaptionWidth, "");
  lblmap.UseMnemonic = false;
  PlaceLabel(LblImagePath, kWindowMargin, kImageTop + 45, kCaptionWidth, "Image path:");
  txtimage.Move(kWindowMargin + kCaptionWidth, kImageTop, kInside - kCaptionWidth, kTextBoxHeight);
  txtimage.Locked = true;
  txtimage.ToolTipText = "The file or the address of the picture.";
  LayOutChoices();
  PlaceLabel(LblCurrent, kPictureLeft, kBodyTop, kPictureWidth, "Current screen shot set for this map:");
  ImgPrev.Stretch = true;
  ImgPrev.BorderStyle = 1;
  ImgPrev.ToolTipText = "Large preview";
  PlaceLabel(LblNoPicture, kPictureLeft, kPictureTop + (kPictureHeight - kLabelHeight) / 2, kPictureWidth,
             "No picture");
  LblNoPicture.Alignment = static_cast<int>(TextAlignment::kCenter);
  LblNoPicture.ForeColor = color::kGrayText;
  SetPicture({});
  PlaceEndButtons({Command1, "Save", "Store this picture for the map."},
                  {Command2, "Cancel", "Close the window and change nothing."}, kClientWidth - kWindowMargin,
                  kButtonTop);
  Command1.Default = true;
  status_line_.LayOut("A picture can also be dropped on this window.");
  status_line_.Place(kClientWidth, ScaleHeight());
}

void frmpicture::LayOutChoices() {
  Frame1.Caption = "Select how you want to load a screen shot:";
  Frame1.Move(kWindowMargin, kBodyTop, kColumnWidth, kSourceHeight);
  for (CommandButton* button : {&CmdDownload, &Command3, &CmdPaste}) button->SetContainer(Frame1);
  PlaceButton(CmdDownload, {kFramePad, kFirstRow, kSearchWidth, kDialogButtonHeight}, "Search preview",
              "Search the internet for a preview");
  const int second = kFramePad + kSearchWidth + kControlGap;
  PlaceButton(Command3, {second, kFirstRow, kSourceWidth, kDialogButtonHeight}, "Browse",
              "Browse for a file on your computer");
  PlaceButton(CmdPaste, {second + kSourceWidth + kControlGap, kFirstRow, kSourceWidth, kDialogButtonHeight}, "Paste",
              "Paste a image from clipboard");
  Frame2.Caption = "Path options:";
  Frame2.Move(kWindowMargin, kOptionsTop, kColumnWidth, kOptionsHeight);
  const int width = kColumnWidth - 2 * kFramePad;
  PlaceOption(OptFullPath, Frame2, kFramePad, kFirstRow, width, "Use full path",
              "If checked Kestrun will link the image to the entire file path.");
  PlaceOption(OptNameOnly, Frame2, kFramePad, kFirstRow + kOptionHeight, width, "Use filename only",
              "If checked Kestrun will only use the file name to link the image (all \"mymap.bms\" files get this "
              "image)");
  OptFullPath.Value = true;
  PlaceButton(Command4, {kWindowMargin, kEditTop, kSearchWidth, kDialogButtonHeight}, "Edit picture",
              "Save the link and open the picture in its program.");
}

void frmpicture::SetPicture(const Ref<kestrun::Picture>& picture) {
  ImgPrev.Picture = picture;
  MoveTo(ImgPrev, FitPicture(picture, kPicturePlace, SmallPicture::kEnlarge));
  LblNoPicture.Visible = !picture;
  for (MenuItem* item : {&mnu_saveimageas, &mnu_copyclip}) item->Enabled = static_cast<bool>(picture);
}

void frmpicture::BuildMenus() {
  FillMenu(mnu_file, "File",
           {{mnu_setimagepath, "Set default image path"},
            {mnu_saveimageas, "Save Image as"},
            {mnu_line1, kMenuLine},
            {mnu_exit, "Exit"}});
  FillMenu(
      mnu_edit, "Edit",
      {{mnu_paste, "Paste from clipboard"}, {mnu_copyclip, "Copy to clipboard"}, {mnu_copymapname, "Copy map name"}});
}

}  // namespace kestrun
