#include "platform/failure_box.h"

#include <exception>

#include "base/text.h"
#include "platform/file_error.h"
#include "platform/platform.h"

namespace kestrun {

void ShowFailureBox(const std::string& context, BoxIcon icon) {
  const RuntimeError failure = std::current_exception() ? ExplainedError() : RuntimeError(0, "");
  MsgBox("Error: " + context + std::to_string(failure.number()) + std::string(kCrLf) + failure.description(),
         BoxButtons::kOk, icon);
}

}  // namespace kestrun
