#include "forms/accessible.h"

#include "forms/access_key.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/option_button.h"

namespace kestrun {
namespace {

std::string CaptionOf(const Control& control) {
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption;
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  return option ? option->Caption.get() : std::string();
}

}  // namespace

std::string WordsBefore(const Control& control) {
  if (!control.form()) return {};
  for (const Ref<Control>& one : control.form()->controls()) {
    if (one->Container() != control.Container() || one->TabIndex + 1 != control.TabIndex) continue;
    std::string name = WithoutAccessKey(CaptionOf(*one));
    while (name.ends_with(":") || name.ends_with(" ")) name.pop_back();
    if (!name.empty()) return name;
  }
  return {};
}

std::string ReadersName(const Control& control) {
  std::string words = WordsBefore(control);
  return words.empty() ? control.ToolTipText.get() : words;
}

std::string Accessible::AccessibleChildName(int) const { return {}; }
bool Accessible::IsAccessibleChildSelected(int) const { return false; }
PixelRect Accessible::AccessibleChildArea(int) const { return {}; }

}  // namespace kestrun
