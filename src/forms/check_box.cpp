#include "forms/check_box.h"

#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&CheckBox::Value>("Value"),
    PropertyRow<&CheckBox::Alignment>("Alignment"),
};
const MemberTable kTable{&Button::kButtonMembers, kRows};

}  // namespace

const MemberTable& CheckBox::Members() const { return kTable; }

bool CheckBox::Press() {
  if (!IsUsable()) return false;
  DispatchEvent(form(), [&] { Value = Value == 1 ? 0 : 1; });
  return true;
}

void CheckBox::PropertyChanged(PropertyId id) {
  if (id == PropertyId::kValue) Click();
}

}  // namespace kestrun
