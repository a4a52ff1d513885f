#include "maps/health/map_facts.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/bms/mission_layout.h"
#include "platform/folder_rights.h"

namespace kestrun {
namespace {

static_assert(kMapHeadBytes == bms::kKnownBytes);

bool IsSameFile(const MapFacts& now, const MapFacts& known) {
  return known.state == MapFacts::State::kThere && now.bytes == known.bytes && now.write_time == known.write_time;
}

}  // namespace

void ReadMapHead(ByteView head, MapFacts& facts) {
  facts.is_mission = StartsWith(AsChars(head), bms::kSignature);
  if (head.size() >= bms::kGameTypes + 2) facts.game_types = LoadU16(head, bms::kGameTypes);
}

MapFacts MapFactsReader::Read(const std::string& path, const std::optional<MapFacts>& known) {
  MapFacts facts;
  if (!files_.Exists(path) || files_.IsFolder(path)) return facts;
  const bool is_read = Attempt([&] { ReadFile(path, known, facts); });
  facts.state = is_read ? MapFacts::State::kThere : MapFacts::State::kUnreadable;
  facts.may_change = MayChangeFilesOf(path);
  return facts;
}

void MapFactsReader::ReadFile(const std::string& path, const std::optional<MapFacts>& known, MapFacts& facts) {
  const std::unique_ptr<File> file = files_.Open(path, OpenMode::kRead);
  facts.bytes = file->Size();
  facts.write_time = files_.WriteTime(path);
  if (known && IsSameFile(facts, *known)) {
    facts.is_mission = known->is_mission;
    facts.game_types = known->game_types;
    return;
  }
  Bytes head(kMapHeadBytes);
  head.resize(file->ReadAt(0, head));
  ReadMapHead(head, facts);
}

bool MapFactsReader::MayChangeFilesOf(const std::string& path) {
  const std::string folder(FolderPart(path));
  const auto known = may_change_.find(folder);
  if (known != may_change_.end()) return known->second;
  return may_change_[folder] = MayMakeFilesIn(files_, folder);
}

}  // namespace kestrun
