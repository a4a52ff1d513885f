#include "program/show_error.h"

#include <exception>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {

void ShowError(const std::string& Context) {
  // Called by a script there may be no failure: number 0 with no description.
  const RuntimeError failure = std::current_exception() ? CurrentError() : RuntimeError(0, "");
  MsgBox("Error: " + Context + std::to_string(failure.number()) + std::string(kCrLf) + failure.description());
}

}  // namespace kestrun
