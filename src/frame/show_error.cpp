#include "frame/show_error.h"

#include <string>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {

void ShowError(std::string_view Context) {
  const RuntimeError failure = CurrentError();
  MsgBox("Error: " + std::string(Context) + std::to_string(failure.number()) + std::string(kCrLf) +
         failure.description());
}

}  // namespace kestrun
