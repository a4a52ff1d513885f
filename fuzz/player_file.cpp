// Any bytes as the game's file of players: names are read and written into it, which never shortens it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "game/players/player_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const kestrun::Bytes file(data, data + size);
  const kestrun::PlayerNames names = kestrun::ReadPlayerNames(file);
  const kestrun::Bytes written = kestrun::WithPlayerNames(file, names);
  if (written.size() < file.size() || written.size() > std::max<size_t>(file.size(), 8285)) std::abort();
  for (const std::string& name : kestrun::ReadPlayerNames(written)) {
    if (name.find('\0') != std::string::npos) std::abort();
  }
  return 0;
}
