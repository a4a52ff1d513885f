#include "forms/command_button.h"

#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

// Reads as False; assigning True presses the button.
constexpr Member kValueRow{"Value",
                           MemberKind::kReadWrite,
                           0,
                           0,
                           [](Object&, Arguments) -> Variant { return false; },
                           [](Object& object, Arguments, const Variant& value) {
                             if (ToBoolean(value)) static_cast<CommandButton&>(object).Click();
                           },
                           "Boolean"};

constexpr Member kRows[]{
    PropertyRow<&CommandButton::Default>("Default"),
    PropertyRow<&CommandButton::Cancel>("Cancel"),
    kValueRow,
};
const MemberTable kTable{&Button::kButtonMembers, kRows};

}  // namespace

const MemberTable& CommandButton::Members() const { return kTable; }

bool CommandButton::Press() {
  if (!IsUsable()) return false;
  DispatchEvent(form(), [&] { Click(); });
  return true;
}

void CommandButton::PropertyChanged(PropertyId id) {
  // A form has one default and one cancel button: the last one named wins.
  const bool is_default = id == PropertyId::kDefault && Default;
  const bool is_cancel = id == PropertyId::kCancel && Cancel;
  if ((!is_default && !is_cancel) || !form()) return;
  for (const Ref<Control>& control : form()->controls()) {
    auto* other = dynamic_cast<CommandButton*>(control.get());
    if (!other || other == this) continue;
    if (is_default) other->Default = false;
    if (is_cancel) other->Cancel = false;
  }
}

}  // namespace kestrun
