#include "forms/label.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&Label::Caption>("Caption"),     PropertyRow<&Label::Alignment>("Alignment"),
    PropertyRow<&Label::AutoSize>("AutoSize"),   PropertyRow<&Label::WordWrap>("WordWrap"),
    PropertyRow<&Label::BackStyle>("BackStyle"), PropertyRow<&Label::BorderStyle>("BorderStyle"),
    PropertyRow<&Label::MouseIcon>("MouseIcon"), PropertyRow<&Label::UseMnemonic>("UseMnemonic"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& Label::Members() const { return kTable; }

void Label::Emphasize(bool emphasized) {
  FontDescription font = Font;
  font.bold = font.underline = emphasized;
  Font = font;
}

}  // namespace kestrun
