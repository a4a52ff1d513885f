#include "forms/label.h"

#include "forms/access_key.h"
#include "forms/member_rows.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kPixelTwips = 15;  // for what rounding to pixels cuts off

constexpr Member kRows[]{
    PropertyRow<&Label::Caption>("Caption"),         PropertyRow<&Label::Alignment>("Alignment"),
    PropertyRow<&Label::AutoSize>("AutoSize"),       PropertyRow<&Label::WordWrap>("WordWrap"),
    PropertyRow<&Label::BackStyle>("BackStyle"),     PropertyRow<&Label::BorderStyle>("BorderStyle"),
    PropertyRow<&Label::UseMnemonic>("UseMnemonic"), PropertyRow<&Label::Appearance>("Appearance"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& Label::Members() const { return kTable; }

void Label::Emphasize(bool emphasized) {
  FontDescription font = Font;
  font.bold = font.underline = emphasized;
  Font = font;
}

void Label::PropertyChanged(PropertyId id) {
  switch (id) {
    case PropertyId::kCaption:
    case PropertyId::kFont:
    case PropertyId::kAutoSize:
    case PropertyId::kWordWrap:
    case PropertyId::kBorderStyle: return FitToText();
    case PropertyId::kWidth:
      if (WordWrap) FitToText();
      return;
    default: return;
  }
}

void Label::FitToText() {
  if (!AutoSize) return;
  const int edges = (BorderStyle == 0 ? 0 : kSunkenEdgesTwips) + kPixelTwips;
  const std::string text = UseMnemonic ? WithoutAccessKey(Caption.get()) : Caption.get();
  const TextExtent room = platform().windowing().MeasureLines(text, Font, WordWrap ? Width - edges : 0);
  if (!WordWrap) Width = room.width_twips + edges;
  Height = room.height_twips + edges;
}

}  // namespace kestrun
