// The common report of the whole program.
#pragma once

#include <string_view>

namespace kestrun {

// From inside a catch block: a box "Error: " + Context + number + CR LF + description of the failure in flight.
void ShowError(std::string_view Context);

}  // namespace kestrun
