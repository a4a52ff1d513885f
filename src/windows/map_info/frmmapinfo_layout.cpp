#include <array>

#include "maps/health/health_badges.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/place_controls.h"
#include "windows/map_info/frmmapinfo.h"

namespace kestrun {
namespace {

// The window's two widths, in twips.
constexpr int kWidthWithPreview = 9825;
constexpr int kWidthWithoutPreview = 5685;

constexpr int kFrameLeft = kWindowMargin;
constexpr int kFrameInside = kWidthWithoutPreview - kFrameWidth - 2 * kWindowMargin;
// Inside the frames.
constexpr int kFirstRow = 330;
constexpr int kRow = 405;
constexpr int kBoxLeft = 1920;
constexpr int kBoxWidth = kFrameInside - kBoxLeft - kWindowMargin;
constexpr int kTypeHeight = 705;  // three lines
constexpr int kSwatchWidth = 480;

constexpr int kDesignHeight = kFirstRow + kRow + kTextBoxHeight + kWindowMargin;
constexpr int kMapTop = kWindowMargin + kDesignHeight + kControlGap;
constexpr int kMapHeight =
    kFirstRow + kTypeHeight + (kRow - kTextBoxHeight) + 5 * kRow + kTextBoxHeight + kWindowMargin;
constexpr int kHealthTop = kMapTop + kMapHeight + kControlGap;
constexpr int kHealthLines = 705;  // three lines
constexpr int kHealthPicture = 480;
constexpr int kHealthHeight = kFirstRow + kHealthLines + kWindowMargin;
constexpr int kFramesBottom = kHealthTop + kHealthHeight;
constexpr int kButtonTop = kFramesBottom + kWindowMargin;
constexpr int kPreviewButtonWidth = 1620;
constexpr int kClientHeight = kButtonTop + kDialogButtonHeight + kWindowMargin;

constexpr int kPreviewLeft = kWidthWithoutPreview - kFrameWidth;
constexpr int kPreviewWidth = kWidthWithPreview - kFrameWidth - kWindowMargin - kPreviewLeft;
constexpr int kPreviewHeight = kFramesBottom - kWindowMargin;
constexpr Place kPicturePlace{kWindowMargin, kFirstRow, kPreviewWidth - 2 * kWindowMargin,
                              kPreviewHeight - kFirstRow - kWindowMargin};

struct Field {
  Label& label;
  TextBox& box;
  const char* caption;
  const char* tip;
};

void PlaceField(const Field& field, Frame& frame, int top, int height = kTextBoxHeight) {
  field.label.SetContainer(frame);
  field.label.Caption = field.caption;
  field.label.Move(kWindowMargin, top + 45, kBoxLeft - kWindowMargin - 60, kLabelHeight);
  field.box.SetContainer(frame);
  field.box.Move(kBoxLeft, top, kBoxWidth, height);
  field.box.Locked = true;
  field.box.ToolTipText = field.tip;
}

}  // namespace

void frmmapinfo::LayOut() {
  LayOutFixedWindow(*this, "Map info ", StartPosition::kCenterOwner);
  Height = kClientHeight + kFrameHeight;
  LayOutFields();
  LayOutHealth();

  Frame3.Caption = "Preview:";
  Frame3.Move(kPreviewLeft, kWindowMargin, kPreviewWidth, kPreviewHeight);
  ImgPreview.SetContainer(Frame3);
  ImgPreview.Stretch = true;
  ImgPreview.ToolTipText = "A preview of the map if possible double click to enlarge.";
  SetPicture({});

  Command1.Caption = "OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command2.Move(kFrameLeft + kFrameInside - kPreviewButtonWidth, kButtonTop, kPreviewButtonWidth, kDialogButtonHeight);
  Command1.Move(Command2.Left - kControlGap - kDialogButtonWidth, kButtonTop, kDialogButtonWidth, kDialogButtonHeight);

  status_line_.LayOut("");
  PlaceStatusLine();

  SetUpStyleTimer(*this, Timer1, 200, "applystyle ");
}

// Below the client area but for the time of a fetch, which makes the window higher.
void frmmapinfo::PlaceStatusLine() { status_line_.Place(Width - kFrameWidth, kClientHeight + kStatusLineHeight); }

void frmmapinfo::ShowFetch(const FetchState& state) {
  Height = kClientHeight + kStatusLineHeight + kFrameHeight;
  if (!IsShown()) Show();
  status_line_.ShowFetch(state);
}

void frmmapinfo::EndFetch() {
  status_line_.EndFetch();
  Height = kClientHeight + kFrameHeight;
}

void frmmapinfo::LayOutFields() {
  Frame1.Caption = "Design info:";
  Frame1.Move(kFrameLeft, kWindowMargin, kFrameInside, kDesignHeight);
  PlaceField({Label1, TxtMissionName, "Mission Name:", "The mission name."}, Frame1, kFirstRow);
  PlaceField({Label2, TxtDesigner, "Mission Designer:", "The name of the designer."}, Frame1, kFirstRow + kRow);

  Frame2.Caption = "Map info:";
  Frame2.Move(kFrameLeft, kMapTop, kFrameInside, kMapHeight);
  PlaceField({Label3, TxtMapType, "Type:", "The mission type."}, Frame2, kFirstRow, kTypeHeight);
  TxtMapType.MultiLine = true;
  const std::array fields{Field{Label4, TxtTerrain, "Terrain:", "The terrain name."},
                          Field{Label5, TxtItemColors, "Item Colors:", "The itemcolors."},
                          Field{Label6, TxtFogColor, "Fog Color:", "The fog color."},
                          Field{Label7, TxtFogLevel, "Fog Level:", "The fog level."},
                          Field{Label8, TxtSun, "Sun:", "The sun type."},
                          Field{Label9, TxtWater, "Water level:", "The water level."}};
  int top = kFirstRow + kTypeHeight + kRow - kTextBoxHeight;
  for (const Field& field : fields) {
    PlaceField(field, Frame2, top);
    top += kRow;
  }
  TxtFogColor.Width = kBoxWidth - kSwatchWidth - 90;
  lblfogcolor.SetContainer(Frame2);
  lblfogcolor.BorderStyle = 1;
  lblfogcolor.Move(kBoxLeft + kBoxWidth - kSwatchWidth, TxtFogColor.Top, kSwatchWidth, kTextBoxHeight);
}

void frmmapinfo::LayOutHealth() {
  LoadHealthPictures({ImgGood, ImgDoubtful, ImgBad});
  Frame4.Caption = "Health:";
  Frame4.Move(kFrameLeft, kHealthTop, kFrameInside, kHealthHeight);
  ImgHealth.SetContainer(Frame4);
  ImgHealth.Stretch = true;
  ImgHealth.Move(kWindowMargin, kFirstRow, kHealthPicture, kHealthPicture);
  TxtHealth.SetContainer(Frame4);
  TxtHealth.MultiLine = true;
  TxtHealth.ScrollBars = 2;
  TxtHealth.Locked = true;
  TxtHealth.ToolTipText = "Whether the map would work, and what speaks against it.";
  const int left = 2 * kWindowMargin + kHealthPicture;
  TxtHealth.Move(left, kFirstRow, kFrameInside - left - kWindowMargin, kHealthLines);
}

void frmmapinfo::ShowPreview(bool shown) {
  Frame3.Visible = shown;
  Width = shown ? kWidthWithPreview : kWidthWithoutPreview;
  PlaceStatusLine();
  Command2.Caption = shown ? "<= No Preview" : "Preview =>";
}

void frmmapinfo::SetPicture(const Ref<kestrun::Picture>& picture) {
  ImgPreview.Picture = picture;
  MoveTo(ImgPreview, FitPicture(picture, kPicturePlace, SmallPicture::kEnlarge));
}

}  // namespace kestrun
