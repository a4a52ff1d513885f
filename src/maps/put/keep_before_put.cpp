#include "maps/put/keep_before_put.h"

#include <memory>

#include "base/runtime_error.h"
#include "program/command_log.h"
#include "program/originals_hook.h"

namespace kestrun {
bool KeepBeforePut(ClsPFF* archive, const MapToPut& map, bool warn) {
  std::string failure;
  const auto keep = [&](auto&& step) {
    Attempt(step, [&](const RuntimeError& reason) { failure = reason.description(); });
  };
  {
    const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
    if (archive) keep([&] { keeper->KeepEntry(*archive, map.name, map.content, map.path); });
    keep([&] { keeper->KeepFile(map.game_folder + "\\" + map.name, map.content, map.path); });
    keep([&] { keeper->Finish(); });
  }
  if (failure.empty()) return true;
  if (warn) return AskToGoOnWithoutOriginal(map.name);
  Attempt([&] { LogNotKept(map.name, failure); });
  return true;
}

}  // namespace kestrun
