#include "game/game_types/add_game_types.h"

#include <memory>

#include "base/bytes.h"
#include "formats/bms/mission_layout.h"
#include "platform/platform.h"

namespace kestrun {

void AddGameTypes(const std::string& path, uint32_t mask) {
  FileSystem& files = platform().files();
  Bytes word(4);
  {
    const std::unique_ptr<File> file = files.Open(path, OpenMode::kRead);
    static_cast<void>(file->ReadAt(bms::kGameTypes, word));
  }
  StoreU32(word, 0, LoadU32(word, 0) | mask);
  const std::unique_ptr<File> file = files.Open(path, OpenMode::kReadWrite);
  file->WriteAt(bms::kGameTypes, word);
  file->Close();
}

}  // namespace kestrun
