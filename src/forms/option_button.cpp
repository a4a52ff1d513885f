#include "forms/option_button.h"

#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&OptionButton::Value>("Value"),
    PropertyRow<&OptionButton::Alignment>("Alignment"),
};
const MemberTable kTable{&Button::kButtonMembers, kRows};

}  // namespace

const MemberTable& OptionButton::Members() const { return kTable; }

bool OptionButton::Press() {
  if (!IsUsable()) return false;
  DispatchEvent(form(), [&] {
    if (Value) {
      Click();
    } else {
      Value = true;
    }
  });
  return true;
}

void OptionButton::PropertyChanged(PropertyId id) {
  if (id != PropertyId::kValue || !Value || !form()) return;
  for (const Ref<Control>& control : form()->controls()) {
    auto* other = dynamic_cast<OptionButton*>(control.get());
    if (other && other != this && other->Container() == Container()) other->Value = false;
  }
  Click();
}

}  // namespace kestrun
