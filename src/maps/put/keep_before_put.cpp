#include "maps/put/keep_before_put.h"

#include <memory>

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "program/command_log.h"
#include "program/originals_hook.h"
#include "program/path_text.h"

namespace kestrun {
namespace {

bool AskToGoOnWithout(const std::string& name) {
  MessageBoxRequest request;
  request.text = FillPlaceholders("The original of \"%1\" cannot be kept. Go on without?", {name});
  request.buttons = BoxButtons::kYesNo;
  request.icon = BoxIcon::kWarning;
  request.default_button = 2;
  return platform().dialogs().ShowMessage(request) == BoxAnswer::kYes;
}

}  // namespace

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
  if (warn) return AskToGoOnWithout(map.name);
  Attempt([&] { LogNotKept(map.name, failure); });
  return true;
}

}  // namespace kestrun
