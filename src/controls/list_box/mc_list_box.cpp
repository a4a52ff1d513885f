#include "controls/list_box/mc_list_box.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "controls/list_box/color_blend.h"
#include "controls/list_box/text_lines.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kReferenceDpi = 96;
constexpr int kPageRows = 5;

}  // namespace

McListBox::McListBox(Form* form, std::string name, int index) : UserControl(form, std::move(name), index) {
  BackColor.StoreQuietly(kDefaultBackColor);
  ForeColor.StoreQuietly(color::kButtonText);
  Font.StoreQuietly(ContainerFont(*this));
}

// ---- properties --------------------------------------------------------------------------------------------------

void McListBox::Changed(std::string_view property) {
  MarkChanged(property);
  Redraw();
}

void McListBox::MultiSelectChanged() {
  selection_.SetOnly(list_index_);
  if (items_.Count() == 0) selection_.Clear();
  Changed("MultiSelect");
}

void McListBox::RowHeightChanged() {
  MarkChanged("RowHeight");
  RaiseRowHeight();
}

void McListBox::RaiseRowHeight() {
  const int line = MeasureText("A", Font).height;
  const int needed = (line * kReferenceDpi + dpi() - 1) / dpi();
  if (RowHeight < needed) RowHeight.StoreQuietly(needed);
  Refresh();
}

void McListBox::PropertyChanged(PropertyId id) {
  UserControl::PropertyChanged(id);
  switch (id) {
    case PropertyId::kFont: MarkChanged("Font"); return RaiseRowHeight();
    case PropertyId::kForeColor: return Changed("ForeColor");
    case PropertyId::kBackColor: return Changed("BackColor");
    default: return;
  }
}

int McListBox::FrameKind() const {
  if (BorderStyle == 0) return 0;
  return Appearance == 0 ? 1 : 2;
}

// The images may belong to a window of their own, which may hold this one.
void McListBox::Disconnect() {
  images_ = nullptr;
  badges_ = {};
  items_.Clear();
  UserControl::Disconnect();
}

// ---- geometry ----------------------------------------------------------------------------------------------------

int McListBox::Scaled(int pixels) const {
  constexpr int64_t kMost = 0xFFFFFF;  // of any use for a place on a screen
  return static_cast<int>(std::min(int64_t{pixels} * dpi() / kReferenceDpi, kMost));
}

int McListBox::RowsThatFit() const { return client().height / std::max(Scaled(RowHeight), 1); }

double McListBox::PaintedRowHeight() const {
  return visible_rows_ == 0 ? 0 : static_cast<double>(client().height) / visible_rows_;
}

int McListBox::LastPosition() const { return std::max(items_.Count() - visible_rows_, 0); }

int McListBox::TextLeft() const { return ShowIcon ? static_cast<int>(PaintedRowHeight() + Scaled(3)) : 0; }

int McListBox::BadgeWidth() const {
  if (!badges_.of_row) return 0;
  return Scaled(RowBadges::kPictureSide + 3 * RowBadges::kGap) + MeasureText(badges_.widest_word, Font).width;
}

int McListBox::RowTop(int row) const { return static_cast<int>((row - position_) * PaintedRowHeight()); }

PixelRect McListBox::AccessibleChildArea(int child) const {
  if (child < position_ || child > position_ + visible_rows_ || child >= items_.Count()) return {};
  return {0, RowTop(child), client().width, RowTop(child + 1)};
}

// ---- rows --------------------------------------------------------------------------------------------------------

void McListBox::SetListIcon(int row, int icon) {
  items_.SetIcon(row, icon);
  Redraw();
}

void McListBox::SetListBold(int row, bool bold) {
  items_.SetBold(row, bold);
  Redraw();
}

std::string McListBox::List(int row) const {
  return row < 0 || row >= items_.Count() ? std::string() : items_.Text(row);
}

void McListBox::SetList(int, const std::string&) { Raise(error::kObjectRequired); }

void McListBox::AddItem(std::string_view text, int index, int icon, bool bold, Variant data) {
  items_.Add(text, index, icon, bold, std::move(data));
}

void McListBox::Remove(int index) {
  items_.Remove(index == -1 ? ListIndex() : index);
  DropPopup();
  Refresh();
}

void McListBox::Clear() {
  items_.Clear();
  selection_.Clear();
  DropPopup();
  Refresh();
}

void McListBox::Refresh() {
  visible_rows_ = RowsThatFit();
  const bool is_bar_needed = items_.Count() > visible_rows_;
  position_ = is_bar_needed ? std::clamp(position_, 0, LastPosition()) : 0;
  bar_visible_ = is_bar_needed || !AutoHideScrollBars;
  items_.Sort(SortOrder);
  Redraw();
  if (std::exchange(told_rows_, items_.Count()) != items_.Count()) TellAccessibility(AccessibleEvent::kChildren);
}

void McListBox::ClampListIndex() {
  if (list_index_ >= items_.Count()) list_index_ = items_.Count() - 1;
  if (items_.Count() > 0 && list_index_ < 0) list_index_ = 0;
}

void McListBox::Redraw() {
  ClampListIndex();
  Invalidate();
}

void McListBox::Resized(PixelSize client, int dpi) {
  UserControl::Resized(client, dpi);
  Refresh();
}

// ---- the current row and the selection -----------------------------------------------------------------------------

void McListBox::SetListIndex(int row) {
  list_index_ = row;
  ScrollIntoView(row);
  selection_.SetOnly(row);
  Redraw();
  TellSelection();
}

int McListBox::SelItem(int n) const {
  if (n < 0 || n >= selection_.Count()) Raise(error::kSubscriptOutOfRange);
  return selection_.rows()[static_cast<size_t>(n)];
}

void McListBox::ClearSelection() {
  selection_.SetOnly(ListIndex());
  if (items_.Count() == 0) selection_.Clear();
  Redraw();
}

void McListBox::SelectAll() {
  selection_.Clear();
  if (items_.Count() > 0) selection_.SetRange(0, items_.Count() - 1);
  Redraw();
}

void McListBox::SetEmptyText(std::string text) {
  empty_text_ = std::move(text);
  Redraw();
}

RowBadges McListBox::SetBadges(RowBadges badges) {
  std::swap(badges_, badges);
  Redraw();
  return badges;
}

std::string McListBox::AccessibleChildName(int child) const {
  std::string name = List(child);
  if (!badges_.of_row || child < 0 || child >= items_.Count()) return name;
  const RowBadge badge = badges_.of_row(child);
  for (const std::string& words : {badge.word, badge.note}) {
    if (!words.empty()) name += ", " + words;
  }
  return name;
}

void McListBox::SetImageList(Ref<Object> images) {
  images_ = std::move(images);
  Redraw();
}

// ---- scrolling ---------------------------------------------------------------------------------------------------

ScrollBarState McListBox::VerticalScrollBar() const {
  return {bar_visible_, FlatScrollBar, position_, visible_rows_ == 0 ? 0 : LastPosition(), kPageRows};
}

void McListBox::ScrollTo(int position) {
  const int clamped = visible_rows_ == 0 ? 0 : std::clamp(position, 0, LastPosition());
  if (clamped == position_) return;
  position_ = clamped;
  DropPopup();  // its row is elsewhere now
  Redraw();
}

void McListBox::ScrollIntoView(int row) {
  if (visible_rows_ == 0 || LastPosition() == 0) return;
  if (row < position_) {
    ScrollTo(row);
  } else if (row >= position_ + RowsThatFit()) {
    ScrollTo(row - visible_rows_ + 1);
  }
}

void McListBox::OnScroll(int position) { ScrollTo(position); }

bool McListBox::OnWheel(int notches, int shift_state) {
  DropPopup();
  // With Ctrl the wheel is the horizontal bar's, which a list of wrapped-up rows has no use for.
  if ((shift_state & shift::kCtrl) == 0) ScrollTo(position_ - notches);
  return true;
}

// ---- tools -------------------------------------------------------------------------------------------------------

std::vector<std::string> McListBox::SplitToLines(std::string_view text, int width, bool strip) const {
  return SplitIntoLines(text, width, strip, [this](std::string_view line) { return MeasureText(line, Font).width; });
}

bool McListBox::IsDelim(std::string_view character) const {
  size_t at = 0;
  return character.empty() || IsDelimiter(NextCodePoint(character, at));
}

Color McListBox::BlendColor(Color first, Color second, int alpha) const {
  return MixColors(static_cast<Color>(TranslateColor(first)), static_cast<Color>(TranslateColor(second)), alpha);
}

int McListBox::TranslateColor(Color color, int) const {
  const std::optional<uint32_t> plain = PlainColor(color);
  return plain ? static_cast<int>(*plain) : -1;
}

}  // namespace kestrun
