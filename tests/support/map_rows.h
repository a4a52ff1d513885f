// The rows of a list file as texts of their own.
#pragma once

#include <string>
#include <vector>

#include "game/lists/map_list_file.h"

namespace kestrun {

[[nodiscard]] inline std::vector<std::string> ReadMapList(const std::string& file) {
  const MapList list(file);
  return {list.rows().begin(), list.rows().end()};
}

}  // namespace kestrun
