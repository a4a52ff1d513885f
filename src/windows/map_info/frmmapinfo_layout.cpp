#include <array>

#include "program/window_kit/apply_style.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/place_controls.h"
#include "windows/map_info/frmmapinfo.h"

namespace kestrun {
namespace {

// The window's two widths, in twips.
constexpr int kWidthWithPreview = 9825;
constexpr int kWidthWithoutPreview = 5685;

constexpr int kMargin = 180;
constexpr int kGap = 120;
constexpr int kFrameLeft = kMargin;
constexpr int kFrameInside = kWidthWithoutPreview - kFrameWidth - 2 * kMargin;
// Inside the frames.
constexpr int kFirstRow = 330;
constexpr int kRow = 405;
constexpr int kBoxHeight = 315;
constexpr int kBoxLeft = 1920;
constexpr int kBoxWidth = kFrameInside - kBoxLeft - kMargin;
constexpr int kTypeHeight = 705;  // three lines
constexpr int kSwatchWidth = 480;

constexpr int kDesignHeight = kFirstRow + kRow + kBoxHeight + kMargin;
constexpr int kMapTop = kMargin + kDesignHeight + kGap;
constexpr int kMapHeight = kFirstRow + kTypeHeight + (kRow - kBoxHeight) + 5 * kRow + kBoxHeight + kMargin;
constexpr int kFramesBottom = kMapTop + kMapHeight;
constexpr int kButtonTop = kFramesBottom + kMargin;
constexpr int kPreviewButtonWidth = 1620;
constexpr int kClientHeight = kButtonTop + kDialogButtonHeight + kMargin;

constexpr int kPreviewLeft = kWidthWithoutPreview - kFrameWidth;
constexpr int kPreviewWidth = kWidthWithPreview - kFrameWidth - kMargin - kPreviewLeft;
constexpr int kPreviewHeight = kFramesBottom - kMargin;
constexpr Place kPicturePlace{kMargin, kFirstRow, kPreviewWidth - 2 * kMargin, kPreviewHeight - kFirstRow - kMargin};

struct Field {
  Label& label;
  TextBox& box;
  const char* caption;
  const char* tip;
};

void PlaceField(const Field& field, Frame& frame, int top, int height = kBoxHeight) {
  field.label.SetContainer(frame);
  field.label.Caption = field.caption;
  field.label.Move(kMargin, top + 45, kBoxLeft - kMargin - 60, kLabelHeight);
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

  Frame3.Caption = "Preview:";
  Frame3.Move(kPreviewLeft, kMargin, kPreviewWidth, kPreviewHeight);
  ImgPreview.SetContainer(Frame3);
  ImgPreview.Stretch = true;
  ImgPreview.ToolTipText = "A preview of the map if possible double click to enlarge.";
  SetPicture({});

  Command1.Caption = "OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command2.Move(kFrameLeft + kFrameInside - kPreviewButtonWidth, kButtonTop, kPreviewButtonWidth, kDialogButtonHeight);
  Command1.Move(Command2.Left - kGap - kDialogButtonWidth, kButtonTop, kDialogButtonWidth, kDialogButtonHeight);

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
  Frame1.Move(kFrameLeft, kMargin, kFrameInside, kDesignHeight);
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
  int top = kFirstRow + kTypeHeight + kRow - kBoxHeight;
  for (const Field& field : fields) {
    PlaceField(field, Frame2, top);
    top += kRow;
  }
  TxtFogColor.Width = kBoxWidth - kSwatchWidth - 90;
  lblfogcolor.SetContainer(Frame2);
  lblfogcolor.BorderStyle = 1;
  lblfogcolor.Move(kBoxLeft + kBoxWidth - kSwatchWidth, TxtFogColor.Top, kSwatchWidth, kBoxHeight);
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
