// The originals of what a map takes the place of are kept before the game is touched.
#pragma once

#include <string>

#include "base/bytes.h"
#include "formats/pff/cls_pff.h"

namespace kestrun {

struct MapToPut {
  const Bytes& content;
  const std::string& path;
  const std::string& game_folder;
  const std::string& name;  // in the archive, and of the loose file in the game folder
};

// Keeps the archive's entry of that name, where `archive` is not null, and the loose file. When one cannot be kept, the
// user is asked "The original of "%1" cannot be kept. Go on without?"; false is No. Without `warn` nobody is asked: the
// log says so, and the map goes in.
[[nodiscard]] bool KeepBeforePut(ClsPFF* archive, const MapToPut& map, bool warn);

}  // namespace kestrun
