#include "game/players/name_history.h"

#include "formats/profile/profile_file.h"
#include "platform/file_error.h"
#include "program/settings.h"

namespace kestrun {
namespace {

std::string HistoryFile() { return AppFile("names.index"); }
std::string SectionOf(size_t player) { return "NAME" + std::to_string(player); }

}  // namespace

NameHistory ReadNameHistory() {
  const ProfileSnapshot file = ReadProfileSnapshot(HistoryFile());
  NameHistory names;
  for (size_t player = 0; player < kPlayerCount; ++player) {
    for (int row = 0; row < kHistoryRows; ++row) {
      const std::string name = GetIniValue(file, SectionOf(player), std::to_string(row), "");
      if (!name.empty()) names[player].push_back(name);
    }
  }
  return names;
}

void WriteNameHistory(const NameHistory& names) {
  std::vector<ProfileValue> values;
  for (size_t player = 0; player < kPlayerCount; ++player) {
    for (size_t row = 0; row < names[player].size(); ++row) {
      values.push_back({SectionOf(player), std::to_string(row), names[player][row]});
    }
  }
  if (!SetIniValues(HistoryFile(), {}, values)) throw FileError(error::kPathFileAccess, HistoryFile());
}

}  // namespace kestrun
