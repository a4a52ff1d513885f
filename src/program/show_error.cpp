#include "program/show_error.h"

#include "platform/failure_box.h"

namespace kestrun {

void ShowError(const std::string& Context) { ShowFailureBox(Context, BoxIcon::kNone); }

}  // namespace kestrun
