#include "program/originals_hook.h"

#include "platform/platform.h"
#include "program/path_text.h"

namespace kestrun {
namespace {

class KeepsNothing final : public OriginalsKeeper {
 public:
  void KeepEntry(ClsPFF&, const std::string&, ByteView, const std::string&) override {}
  void KeepFile(const std::string&, ByteView, const std::string&) override {}
  void Finish() override {}
};

OriginalsService& Service() {
  static OriginalsService service;
  return service;
}

}  // namespace

void InstallOriginals(OriginalsService service) { Service() = std::move(service); }

std::unique_ptr<OriginalsKeeper> KeepOriginals() {
  return Service().begin ? Service().begin() : std::make_unique<KeepsNothing>();
}

bool AskToGoOnWithoutOriginal(const std::string& name) {
  MessageBoxRequest request;
  request.text = FillPlaceholders("The original of \"%1\" cannot be kept. Go on without?", {name});
  request.buttons = BoxButtons::kYesNo;
  request.icon = BoxIcon::kWarning;
  request.default_button = 2;
  return platform().dialogs().ShowMessage(request) == BoxAnswer::kYes;
}

void RestoreCommand(const std::string& command) {
  if (Service().restore) Service().restore(command);
}

void CheckGameArchive() {
  if (Service().check_game_archive) Service().check_game_archive();
}

}  // namespace kestrun
