#include "program/character_map.h"

#include "program/game_paths.h"

namespace kestrun {

void StartCharacterMap() { StartProgram("charmap.exe", ""); }

}  // namespace kestrun
