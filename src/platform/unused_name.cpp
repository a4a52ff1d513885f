#include "platform/unused_name.h"

#include "platform/platform.h"

namespace kestrun {

std::string UnusedName(const std::string& path, std::string_view extension) {
  const std::string first = path + std::string(extension);
  std::string name = first;
  for (int number = 2; platform().files().Exists(name); ++number) name = first + std::to_string(number);
  return name;
}

}  // namespace kestrun
