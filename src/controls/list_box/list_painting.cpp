// How a McListBox paints itself.
#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "controls/list_box/color_blend.h"
#include "controls/list_box/mc_list_box.h"

namespace kestrun {

struct McListBox::Look {
  double row_height;
  int width;
  int text_left;
  int text_right;
  // Of selected rows; plain colours.
  Color border;
  Color current_fill;
  Color other_fill;
};

namespace {

// How much of the selection's colour is in the frame and in the fills.
constexpr int kBorderAlpha = 250;
constexpr int kCurrentAlpha = 150;
constexpr int kOtherAlpha = 100;
constexpr int kUnfocusedAlpha = 75;

TextPlacement PlacementOf(int alignment) {
  switch (alignment) {
    case 1: return TextPlacement::kCenter;
    case 2: return TextPlacement::kRight;
    default: return TextPlacement::kLeft;
  }
}

int Nearest(double value) { return static_cast<int>(RoundToEven(value)); }

}  // namespace

void McListBox::Paint(Canvas& canvas) {
  ClampListIndex();
  PaintBackground(canvas);
  if (items_.Count() == 0 && !empty_text_.empty()) PaintEmptyText(canvas);
  if (visible_rows_ == 0) return;
  try {
    PaintRows(canvas);
  } catch (const std::exception&) {
    // A row whose icon or flags are no good ends the painting; what stands is shown.
  }
}

void McListBox::PaintPreview(Canvas& canvas) {
  const bool is_sample = items_.Count() == 0;
  if (is_sample) {
    AddItem("McListBox");
    Refresh();
  }
  Paint(canvas);
  if (is_sample) Remove(0);
}

void McListBox::PaintBackground(Canvas& canvas) const {
  const PixelRect all{0, 0, canvas.Size().width, canvas.Size().height};
  canvas.Fill(all, BackColor);
  if (const kestrun::Picture* picture = Picture.get().get()) {
    canvas.DrawPicture(*picture, {0, 0, Scaled(picture->width_pixels()), Scaled(picture->height_pixels())});
  }
  PaintGradient(canvas, all, BackGradient, canvas.Translate(BackColor), canvas.Translate(BackGradientCol));
}

void McListBox::PaintEmptyText(Canvas& canvas) const {
  const int inset = Scaled(8);
  canvas.Text(empty_text_, {inset, inset, canvas.Size().width - inset, inset + Scaled(RowHeight)}, Font,
              color::kGrayText, TextPlacement::kLeft);
}

void McListBox::PaintRows(Canvas& canvas) const {
  const Color selection = canvas.Translate(SelColor);
  const int width = canvas.Size().width;
  Look look{PaintedRowHeight(), width, TextLeft(), std::max(width - BadgeWidth(), 0), selection, selection, selection};
  if (SelectionStyle == kBlendedFrame) {
    look.border = MixColors(selection, color::kBlack, kBorderAlpha);
    look.current_fill = MixColors(selection, color::kWhite, has_focus_ ? kCurrentAlpha : kUnfocusedAlpha);
    look.other_fill = MixColors(selection, color::kWhite, has_focus_ ? kOtherAlpha : kUnfocusedAlpha);
  }
  const int behind = std::min(position_ + visible_rows_ + 1, items_.Count());
  for (int row = position_; row < behind; ++row) PaintRow(canvas, look, row);
  canvas.HorizontalLine(0, look.width, RowTop(position_ + visible_rows_),
                        GridLines ? GridColor.get() : ForeColor.get());
}

void McListBox::PaintRow(Canvas& canvas, const Look& look, int row) const {
  const int top = RowTop(row);
  const bool is_selected = selection_.Holds(row);
  if (is_selected) PaintSelection(canvas, look, row, top);
  const PixelRect text_area{look.text_left + Scaled(5), top + 1, look.text_right, top + 1 + Scaled(RowHeight)};
  canvas.Text(List(row), text_area, RowFont(row), is_selected ? SelForeColor.get() : ForeColor.get(),
              PlacementOf(TextAlignment));
  if (ShowIcon && items_.Icon(row) != ListItems::kNoIcon) PaintIcon(canvas, look, row, top);
  if (badges_.of_row) PaintBadge(canvas, look, row, top);
  if (GridLines) canvas.HorizontalLine(0, look.width, top, GridColor);
  if (row == list_index_ && FocusRectangle) {
    const int left = ShowIcon && !FullRowSelect ? look.text_left : -1;
    canvas.FocusRectangle({left, top, look.width + 1, Nearest(top + look.row_height + 1)});
  }
}

void McListBox::PaintSelection(Canvas& canvas, const Look& look, int row, int top) const {
  const int left = FullRowSelect ? 1 : look.text_left + 1;
  if (SelGradient == gradient::kNone) {
    const PixelRect box{left, top + 1, look.width, Nearest(top + look.row_height)};
    canvas.Fill(box, row == list_index_ ? look.current_fill : look.other_fill);
    canvas.Frame(box, look.border);
  } else {
    const PixelRect box{left, top + 1, look.width, top + 1 + static_cast<int>(look.row_height)};
    PaintGradient(canvas, box, SelGradient, canvas.Translate(SelColor), canvas.Translate(SelGradientCol));
  }
  if (IconFocus && !FullRowSelect && ShowIcon && has_focus_) {
    canvas.FocusRectangle({1, top + 1, static_cast<int>(look.row_height), Nearest(top + look.row_height)});
  }
}

void McListBox::PaintIcon(Canvas& canvas, const Look& look, int row, int top) const {
  if (!images_) return;
  const Variant icon = GetMember(*images_, "ListImages", {items_.Icon(row)});
  const Ref<kestrun::Picture> picture = VariantTraits<Ref<kestrun::Picture>>::From(icon);
  if (!picture) return;
  const int inset = Scaled(2);
  const int side = static_cast<int>(look.row_height) - 2 * inset;
  const PixelRect cell{inset, top + inset, inset + side, top + inset + side};
  if (StrechIcon) return canvas.DrawPicture(*picture, cell);
  const int width = Scaled(picture->width_pixels());
  const int height = Scaled(picture->height_pixels());
  const int left = cell.left + (side - width) / 2;
  const int icon_top = cell.top + (side - height) / 2;
  canvas.PushClip(cell);
  canvas.DrawPicture(*picture, {left, icon_top, left + width, icon_top + height});
  canvas.PopClip();
}

void McListBox::PaintBadge(Canvas& canvas, const Look& look, int row, int top) const {
  const RowBadge badge = badges_.of_row(row);
  if (badge.word.empty()) return;
  const int side = Scaled(RowBadges::kPictureSide);
  const int gap = Scaled(RowBadges::kGap);
  const int left = look.text_right + gap;
  const int picture_top = top + 1 + (Scaled(RowHeight) - side) / 2;
  if (badge.picture) canvas.DrawPicture(*badge.picture, {left, picture_top, left + side, picture_top + side});
  const PixelRect word{left + side + gap, top + 1, look.width, top + 1 + Scaled(RowHeight)};
  const bool is_selected = selection_.Holds(row);
  canvas.Text(badge.word, word, Font, is_selected ? SelForeColor.get() : ForeColor.get(), TextPlacement::kLeft);
}

FontDescription McListBox::RowFont(int row) const {
  FontDescription font = Font;
  font.bold = items_.Bold(row);
  return font;
}

}  // namespace kestrun
