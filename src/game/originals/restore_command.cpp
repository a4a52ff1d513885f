#include "game/originals/restore_command.h"

#include <algorithm>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "game/originals/differences.h"
#include "platform/platform.h"
#include "program/command_log.h"
#include "program/pack_command.h"
#include "program/window_kit/run_command.h"

namespace kestrun::originals {
namespace {

// The archive or file that a command names, as it was typed and as a place; the entry's name is empty for all.
struct Wanted {
  std::string typed;
  Place place;

  [[nodiscard]] bool Covers(const Place& other) const {
    return EqualsNoCase(other.file, place.file) && (place.entry.empty() || EqualsNoCase(other.entry, place.entry));
  }
  [[nodiscard]] std::string Described() const {
    return place.entry.empty() ? "\"" + typed + "\"" : "\"" + place.entry + "\" in \"" + typed + "\"";
  }
};

void Log(const Wanted& wanted, const Place& place, const std::string& outcome) {
  const std::string name = place.entry.empty() ? std::string() : ":" + place.entry;
  AppendToLog("originals --> " + wanted.typed + name + " ~>" + outcome);
}

void RestoreOne(const Wanted& wanted, const Difference& difference) {
  std::string outcome = "OK";
  const auto restore = [&] { RestoreOriginal(difference, difference.present == Present::kForeign); };
  const auto note = [&](const RuntimeError& failure) { outcome = failure.description(); };
  RunCommand([&] { OnFailure(restore, note); }, "restore ");
  Log(wanted, difference.place, outcome);
}

bool IsKnown(const Wanted& wanted) {
  const Index index = ReadIndex();
  return std::any_of(index.records().begin(), index.records().end(), [&](const auto& row) {
    const Record& record = row.second;
    return !record.versions.empty() && EqualsNoCase(record.place.folder, wanted.place.folder) &&
           wanted.Covers(record.place);
  });
}

void Restore(const Wanted& wanted) {
  // Nobody can be asked here: only what was named is removed.
  const auto stays = [&](const Difference& difference) {
    return difference.IsAddition() && !difference.place.entry.empty() && wanted.place.entry.empty();
  };
  bool found = false;
  for (const Difference& difference : FindDifferences(wanted.place.folder)) {
    if (!wanted.Covers(difference.place)) continue;
    found = true;
    if (stays(difference)) {
      Log(wanted, difference.place, "it was not there before and stays: its name behind the archive's removes it");
    } else {
      RestoreOne(wanted, difference);
    }
  }
  if (found) return;
  const bool is_known = IsKnown(wanted);
  Log(wanted, wanted.place, is_known ? "nothing differs from the originals" : "no original is kept");
  if (!is_known) MsgBox("No original of " + wanted.Described() + " is kept.");
}

}  // namespace

void RestoreFromLedger(const std::string& command) {
  const std::vector<std::string> pieces = Split(command, "\"");
  if (pieces.size() < 3) return;
  const auto restore = [&] {
    const std::string name = pieces.size() > 4 ? std::string(TrimBlanks(pieces[3])) : std::string();
    Restore({pieces[1], PlaceOf(FillCommandMacros(pieces[1]), name)});
  };
  RunCommand(restore, "restore ");
}

}  // namespace kestrun::originals
