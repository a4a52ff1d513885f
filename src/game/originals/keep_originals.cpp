// The ledger behind the commands that replace something of the game.
#include <optional>

#include "base/runtime_error.h"
#include "base/sha256.h"
#include "game/originals/archive_health.h"
#include "game/originals/ledger.h"
#include "game/originals/present_content.h"
#include "game/originals/restore_command.h"
#include "platform/platform.h"
#include "program/originals_hook.h"

namespace kestrun::originals {
namespace {

class LedgerKeeper final : public OriginalsKeeper {
 public:
  void KeepEntry(ClsPFF& archive, const std::string& name, ByteView content, const std::string& source) override {
    Keep(PlaceOf(archive.OpenFileName(), EntryName(name)), ReadEntry(archive, name), Put(content, source));
  }

  void KeepFile(const std::string& path, ByteView content, const std::string& source) override {
    Keep(PlaceOf(path), ReadLooseFile(path), Put(content, source));
  }

  void Finish() override {
    if (ledger_) ledger_->Finish();
  }

 private:
  void Keep(const Place& place, const std::optional<Content>& present, LastPut put) {
    const auto keep = [&] { Open().Keep(place, present, std::move(put)); };
    if (present) return keep();
    Attempt(keep);  // where nothing is, nothing can be lost
  }
  static std::string EntryName(const std::string& name) {
    const std::string trimmed = ClsPFF::ZTrim(name);
    return trimmed.empty() ? " " : trimmed;  // a place without an entry's name is a loose file
  }
  static LastPut Put(ByteView content, const std::string& source) {
    return {Sha256Hex(content), content.size(), {}, source, {}};
  }
  // A command that replaces nothing takes no turn, and one that did not get it does not wait for it again.
  Ledger& Open() {
    if (refusal_) throw *refusal_;
    if (!ledger_) OnFailure([this] { ledger_.emplace(); }, [this](const RuntimeError& failure) { refusal_ = failure; });
    return *ledger_;
  }

  std::optional<Ledger> ledger_;
  std::optional<RuntimeError> refusal_;
};

struct Installation {
  Installation() {
    InstallOriginals({[] { return std::make_unique<LedgerKeeper>(); }, RestoreFromLedger, CheckKnownGameArchive});
  }
};
const Installation installation;

}  // namespace
}  // namespace kestrun::originals
