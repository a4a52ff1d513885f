// The one box that tells a failure.
#pragma once

#include <string>

#include "platform/dialogs.h"

namespace kestrun {

// Shows the failure in flight, seen from inside a catch block: "Error: ", the context, the failure's number, and its
// description on the lines below, with what the user can do where that is known (platform/file_error.h). The context is
// empty or says at its end what stands between it and the number. Without a failure the number is 0.
void ShowFailureBox(const std::string& context, BoxIcon icon);

}  // namespace kestrun
