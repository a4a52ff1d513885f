#include "game/originals/differences.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/runtime_error.h"
#include "base/sha256.h"
#include "base/text.h"
#include "formats/bms/mission_layout.h"
#include "formats/bms/mission_reader.h"
#include "game/originals/present_content.h"
#include "platform/platform.h"
#include "platform/turn.h"
#include "program/path_text.h"

namespace kestrun::originals {
namespace {

std::string MissionName(ByteView bytes) {
  return AsChars(bytes).starts_with(bms::kSignature) ? MissionNameIn(bytes) : std::string();
}

// The places of one folder as they are now. Each archive is loaded once.
class FolderContents {
 public:
  explicit FolderContents(std::string folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::optional<Content> Read(const Place& record_place) {
    const Place place = Here(record_place);
    if (place.entry.empty()) return ReadLooseFile(place.Path());
    return ReadEntry(Archive(place.Path()), place.entry);
  }
  [[nodiscard]] Place Here(const Place& place) const { return {folder_, place.file, place.entry}; }

 private:
  ClsPFF& Archive(const std::string& path) {
    const std::string key = ToLower(path);
    if (const auto known = archives_.find(key); known != archives_.end()) return known->second;
    ClsPFF& archive = archives_[key];
    OnFailure([&] { LoadArchive(archive, path); }, [&](const RuntimeError&) { archives_.erase(key); });
    return archive;
  }

  std::string folder_;
  std::map<std::string, ClsPFF> archives_;
};

std::string HashOf(const std::optional<Content>& content) {
  return content ? Sha256Hex(content->bytes) : std::string();
}

std::vector<KeptVersion> FurtherVersions(const Record& record) {
  std::vector<KeptVersion> further;
  std::copy_if(record.versions.begin() + 1, record.versions.end(), std::back_inserter(further),
               [](const KeptVersion& version) { return !version.IsAbsence(); });
  return further;
}

Difference Compare(const Record& record, FolderContents& contents) {
  Difference difference;
  difference.place = contents.Here(record.place);
  difference.original = record.versions.front();
  difference.further = FurtherVersions(record);
  std::optional<Content> present;
  const bool can_be_read = Attempt([&] { present = contents.Read(record.place); },
                                   [&](const RuntimeError& failure) { difference.fault = failure.description(); });
  if (!can_be_read) {
    difference.present = Present::kUnknown;
    return difference;
  }
  const std::string hash = HashOf(present);
  difference.present_sha256 = hash;
  if (!present) {
    difference.present = difference.IsAddition() ? Present::kOriginal : Present::kGone;
    return difference;
  }
  difference.length = present->bytes.size();
  difference.mission = MissionName(present->bytes);
  if (hash == difference.original.sha256) {
    difference.present = Present::kOriginal;
  } else if (!record.IsOurs(hash)) {
    difference.present = record.Find(hash) ? Present::kKept : Present::kForeign;
  } else if (hash == record.put->sha256) {
    difference.source = record.put->source;
    difference.since = record.put->when;
  }
  return difference;
}

bool IsIn(const Record& record, const std::string& folder) { return EqualsNoCase(record.place.folder, folder); }

// True when what is there is what the program put there while the game lay in the record's folder.
bool IsEvidence(const Record& record, FolderContents& contents) {
  bool is_ours = false;
  Attempt([&] { is_ours = record.IsOurs(HashOf(contents.Read(record.place))); });
  return is_ours;
}

// The records that speak of this folder: its own, and for places without one those of a folder that it was before. A
// folder that is gone hands over all its places once one of them shows that it was this one; one that is still there
// only those that show it.
std::vector<const Record*> RecordsFor(const Index& index, const std::string& folder, FolderContents& contents) {
  std::vector<const Record*> records;
  std::set<std::string> evident;
  for (const auto& [key, record] : index.records()) {
    if (record.versions.empty()) continue;
    if (IsIn(record, folder)) {
      records.push_back(&record);
    } else if (!index.Find(contents.Here(record.place)) && IsEvidence(record, contents)) {
      evident.insert(ToLower(record.place.folder));
      records.push_back(&record);
    }
  }
  for (const auto& [key, record] : index.records()) {
    const bool is_of_gone = evident.contains(ToLower(record.place.folder)) && !FileExists(record.place.folder);
    const bool is_new = std::find(records.begin(), records.end(), &record) == records.end();
    if (is_of_gone && is_new && !record.versions.empty() && !index.Find(contents.Here(record.place))) {
      records.push_back(&record);
    }
  }
  return records;
}

void PutEntryBack(const Place& place, const Bytes& original, const KeptVersion& version) {
  ClsPFF archive;
  LoadArchive(archive, place.Path());
  archive.PackFile(original, place.entry);
  int32_t number = -1;
  if (archive.PFFFileExists(place.entry, number)) {
    archive.SetFilePackDate(number, version.pack_date);
    archive.SetFileInfo(number, version.info);
  }
  archive.SavePffFile();
}

void RemoveEntry(const Place& place) {
  ClsPFF archive;
  LoadArchive(archive, place.Path());
  int32_t number = -1;
  if (!archive.PFFFileExists(place.entry, number) || archive.FileDeleted(number)) return;
  archive.SetFileDeleted(number, true);
  archive.SavePffFile();
}

void RemoveLooseFile(const std::string& path) {
  FileSystem& files = platform().files();
  if (!files.Exists(path)) return;
  files.ClearReadOnly(path);
  files.Delete(path);
}

void Remove(const Place& place) {
  if (place.entry.empty()) {
    RemoveLooseFile(place.Path());
  } else {
    RemoveEntry(place);
  }
}

void CheckRestored(const Place& place, const KeptVersion& version) {
  if (HashOf(ReadPlace(place)) == version.sha256) return;
  Raise(error::kDeviceIo,
        "What was put back as \"" + place.Name() + "\" in '" + place.folder + "' reads back as something else.");
}

}  // namespace

std::vector<std::string> LedgerFolders() {
  std::map<std::string, std::string> folders;
  const Index index = ReadIndex();
  for (const auto& [key, record] : index.records()) {
    if (!record.versions.empty()) folders.emplace(ToLower(record.place.folder), record.place.folder);
  }
  std::vector<std::string> names;
  names.reserve(folders.size());
  for (const auto& [key, folder] : folders) names.push_back(folder);
  return names;
}

std::vector<Difference> FindRestorable(const std::string& folder) {
  const Index index = ReadIndex();
  // The folder as the ledger writes it: the place of any file in it says how.
  FolderContents contents(PlaceOf(folder + "\\.file").folder);
  std::vector<Difference> differences;
  for (const Record* record : RecordsFor(index, contents.Here({}).folder, contents)) {
    Difference difference = Compare(*record, contents);
    const bool is_back = difference.present == Present::kOriginal && difference.further.empty();
    if (!is_back) differences.push_back(std::move(difference));
  }
  return differences;
}

std::vector<Difference> FindDifferences(const std::string& folder) {
  std::vector<Difference> differences = FindRestorable(folder);
  std::erase_if(differences, [](const Difference& each) { return each.present == Present::kOriginal; });
  return differences;
}

std::string MissionOf(const KeptVersion& version) {
  std::string name;
  Attempt([&] { name = MissionName(ReadContent(version.sha256)); });
  return name;
}

void RestoreOriginal(const Difference& difference, bool keep_present) {
  RestoreVersion(difference, difference.original, keep_present);
}

void RestoreVersion(const Difference& difference, const KeptVersion& version, bool keep_present) {
  const Place& place = difference.place;
  const Bytes bytes = version.IsAbsence() ? Bytes() : ReadContent(version.sha256);
  // The turn of the archive, or of the loose file, comes before the ledger's, as where something is put in: in the
  // other order two processes would wait for each other.
  const auto turn = TakeTurn(place.Path());
  Ledger ledger;
  const std::optional<Content> present = ReadPlace(place);
  if (HashOf(present) != difference.present_sha256) {
    Raise(error::kPermissionDenied, "\"" + place.Name() + "\" in '" + place.folder + "' has changed meanwhile.");
  }
  if (keep_present && present) {
    ledger.KeepForeign(place, difference.original, *present);
    ledger.Finish();
  }
  if (version.IsAbsence()) {
    Remove(place);
  } else if (place.entry.empty()) {
    platform().files().WriteAllDurably(place.Path(), bytes);
  } else {
    PutEntryBack(place, bytes, version);
  }
  CheckRestored(place, version);
}

}  // namespace kestrun::originals
