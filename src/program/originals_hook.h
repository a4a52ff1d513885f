// The ways into the ledger of originals, for commands that lie below it. The ledger installs itself here; until it
// does, nothing is kept.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/bytes.h"
#include "formats/pff/cls_pff.h"

namespace kestrun {

// Keeps what one command is about to replace. An operation raises when an original cannot be kept: the caller then asks
// its user, or says so, and may go on without.
class OriginalsKeeper {
 public:
  virtual ~OriginalsKeeper() = default;
  // Before `content` is packed into the loaded archive under a name, which the archive need not hold.
  virtual void KeepEntry(ClsPFF& archive, const std::string& name, ByteView content, const std::string& source) = 0;
  // Before `content` becomes the loose file at the path, which need not exist.
  virtual void KeepFile(const std::string& path, ByteView content, const std::string& source) = 0;
  // Behind the last of them and before the game's files change: what the others took is kept when this returns. When it
  // raises none of it is.
  virtual void Finish() = 0;
};

struct OriginalsService {
  std::function<std::unique_ptr<OriginalsKeeper>()> begin;
  std::function<void(const std::string& command)> restore;
  // Names what is damaged in the archive of the game folder that is set, once.
  std::function<void()> check_game_archive;
};

void InstallOriginals(OriginalsService service);

// Keeps nothing while no ledger is installed. One for each command.
[[nodiscard]] std::unique_ptr<OriginalsKeeper> KeepOriginals();
// What a window asks when the original of a file or entry cannot be kept. No is the default.
[[nodiscard]] bool AskToGoOnWithoutOriginal(const std::string& name);
// -restore "archive" ["name"]
void RestoreCommand(const std::string& command);
void CheckGameArchive();

}  // namespace kestrun
