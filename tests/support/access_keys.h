// The access keys of a window's controls.
#pragma once

#include <string>

#include "base/convert.h"
#include "base/text.h"
#include "forms/form.h"

namespace kestrun {

// In the order of the controls, menu items left out, in small letters.
[[nodiscard]] inline std::string AccessKeys(const Form& form) {
  std::string keys;
  for (const Ref<Control>& control : form.controls()) {
    if (!control->HasBody() || control->FindMember("Caption") == kNoMember) continue;
    const std::string caption = ToText(GetMember(*control, "Caption"));
    const size_t at = caption.find('&');
    if (at != std::string::npos) keys += ToLower(caption.substr(at + 1, 1));
  }
  return keys;
}

}  // namespace kestrun
