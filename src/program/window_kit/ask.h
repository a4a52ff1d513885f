// A question with the answers Yes and No.
#pragma once

#include <string_view>

#include "platform/platform.h"

namespace kestrun {

[[nodiscard]] inline bool AskYesNo(std::string_view question, BoxIcon icon = BoxIcon::kNone) {
  return MsgBox(question, BoxButtons::kYesNo, icon) == BoxAnswer::kYes;
}

}  // namespace kestrun
