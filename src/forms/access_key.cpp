#include "forms/access_key.h"

namespace kestrun {

std::string WithoutAccessKey(std::string_view caption) {
  std::string text;
  for (size_t at = 0; at < caption.size(); ++at) {
    if (caption[at] == '&') ++at;
    if (at < caption.size()) text += caption[at];
  }
  return text;
}

}  // namespace kestrun
