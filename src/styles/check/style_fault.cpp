#include "styles/check/style_fault.h"

namespace kestrun {

std::string LineOf(const StyleFault& fault) {
  std::string line;
  if (!fault.place.entry.empty()) {
    line = fault.place.entry;
    if (fault.place.line > 0) line += "(" + std::to_string(fault.place.line) + ")";
    line += ": ";
  }
  if (!fault.window.empty()) line += fault.window + (fault.control.empty() ? "" : "." + fault.control) + ": ";
  return line + fault.text;
}

}  // namespace kestrun
