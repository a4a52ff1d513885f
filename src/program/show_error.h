// The common report of a failure.
#pragma once

#include <string>

namespace kestrun {

// Called while a failure is being handled: shows "Error: ", the context, the failure's number, and its description on a
// line of its own. The context is empty or ends in a blank.
void ShowError(const std::string& Context);

}  // namespace kestrun
