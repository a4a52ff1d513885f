#include "forms/line_control.h"

#include <algorithm>
#include <cstdlib>

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&LineControl::X1>("X1"),
    PropertyRow<&LineControl::Y1>("Y1"),
    PropertyRow<&LineControl::X2>("X2"),
    PropertyRow<&LineControl::Y2>("Y2"),
    PropertyRow<&LineControl::BorderColor>("BorderColor"),
    PropertyRow<&LineControl::BorderStyle>("BorderStyle"),
    PropertyRow<&LineControl::BorderWidth>("BorderWidth"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

LineControl::LineControl(Form* form, std::string name, int index) : Control(form, std::move(name), index) {}

const MemberTable& LineControl::Members() const { return kTable; }

void LineControl::PropertyChanged(PropertyId id) {
  if (id != PropertyId::kDrawing) return;
  Move(std::min(X1, X2), std::min(Y1, Y2), std::abs(X2 - X1), std::abs(Y2 - Y1));
}

}  // namespace kestrun
