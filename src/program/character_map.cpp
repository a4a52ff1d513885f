#include "program/character_map.h"

#include "platform/file_error.h"
#include "platform/platform.h"
#include "program/game_paths.h"

namespace kestrun {

void StartCharacterMap() {
  constexpr const char* kCharacterMap = "charmap.exe";
  constexpr int kLeastSuccess = 33;  // of the shell's open service
  const int result = platform().shell().Open("open", kCharacterMap, "", "", kShowNormal);
  if (result < kLeastSuccess) throw FileError(error::kFileNotFound, kCharacterMap);
}

}  // namespace kestrun
