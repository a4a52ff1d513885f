#include "game/originals/ledger.h"

#include <algorithm>
#include <cstdio>

#include "base/calendar.h"
#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/sha256.h"
#include "base/text.h"
#include "platform/platform.h"
#include "platform/turn.h"
#include "program/settings.h"

namespace kestrun::originals {
namespace {

// An index beyond this was not written by the program.
constexpr uint64_t kMostIndexBytes = uint64_t{64} << 20;
// Shorter ones are never written anew. Every put reads the index: up to here that takes less than a millisecond.
constexpr uint64_t kCompactFromBytes = uint64_t{64} << 10;
constexpr uint64_t kCompactFactor = 4;

std::string LedgerFolder() { return AppFile("originals"); }
std::string IndexPath() { return LedgerFolder() + "\\index.txt"; }
std::string ContentPath(const std::string& sha256) { return LedgerFolder() + "\\" + sha256; }

std::string TimeNow() {
  const CalendarMoment now = SplitDate(platform().clock().LocalDateTime());
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", now.date.year, now.date.month, now.date.day,
                now.hour, now.minute, now.second);
  return text;
}

uint64_t LimitBytes() {
  int32_t megabytes = 0;
  if (!Attempt([&] { megabytes = TextToLong(ReadSetting(setting::kOriginalsLimit)); })) {
    megabytes = TextToLong(setting::kOriginalsLimit.text);
  }
  return static_cast<uint64_t>(std::max(megabytes, 0)) << 20;
}

Bytes ReadIndexText() {
  FileSystem& files = platform().files();
  if (!files.Exists(IndexPath())) return {};
  const std::unique_ptr<File> file = files.Open(IndexPath(), OpenMode::kRead);
  const uint64_t size = file->Size();
  if (size > kMostIndexBytes) {
    Raise(error::kInvalidFileFormat, "The index '" + IndexPath() + "' is longer than any that was written here.");
  }
  Bytes text(size);
  text.resize(file->ReadAt(0, text));
  return text;
}

// "." and ".." taken out, separators as the program joins them.
std::string NormalPath(std::string path) {
  path = ReplaceAll(path, "/", "\\");
  const bool has_root = path.starts_with("\\") || (path.size() > 1 && path[1] == ':');
  if (!has_root) path = ReplaceAll(platform().files().CurrentFolder(), "/", "\\") + "\\" + path;
  const std::vector<std::string> parts = Split(path, "\\");
  std::vector<std::string> kept;
  for (size_t at = 0; at < parts.size(); ++at) {
    // Empty parts in front are the root, or a server's.
    const bool is_front = std::all_of(parts.begin(), parts.begin() + static_cast<std::ptrdiff_t>(at),
                                      [](const std::string& part) { return part.empty(); });
    if (parts[at] == "." || (parts[at].empty() && !is_front)) continue;
    if (parts[at] == ".." && kept.size() > 1 && !kept.back().empty()) {
      kept.pop_back();
    } else {
      kept.push_back(parts[at]);
    }
  }
  std::string normal;
  for (size_t at = 0; at < kept.size(); ++at) normal += (at == 0 ? "" : "\\") + kept[at];
  return normal;
}

EventKind KindOf(const KeptVersion& version) { return version.IsAbsence() ? EventKind::kNone : EventKind::kKept; }

bool HoldsExactly(const std::string& path, ByteView bytes) {
  Bytes present;
  return Attempt([&] { present = platform().files().ReadAll(path); }) && std::ranges::equal(present, bytes);
}

}  // namespace

Place PlaceOf(const std::string& path, const std::string& entry) {
  const std::string normal = NormalPath(path);
  const size_t slash = normal.rfind('\\');
  if (slash == std::string::npos) return {"", normal, entry};
  return {normal.substr(0, slash), normal.substr(slash + 1), entry};
}

Index ReadIndex() { return Index::Parse(ReadIndexText()); }

Bytes ReadContent(const std::string& sha256) {
  Bytes bytes = platform().files().ReadAll(ContentPath(sha256));
  if (Sha256Hex(bytes) != sha256) {
    Raise(error::kInvalidFileFormat, "The kept content '" + ContentPath(sha256) + "' is damaged.");
  }
  return bytes;
}

const Record* FindRecord(const Index& index, const Place& place, const std::string& present_sha256) {
  if (const Record* own = index.Find(place)) return own;
  for (const auto& [key, record] : index.records()) {
    const bool is_same_place =
        EqualsNoCase(record.place.file, place.file) && EqualsNoCase(record.place.entry, place.entry);
    if (is_same_place && !record.versions.empty() && record.IsOurs(present_sha256)) return &record;
  }
  return nullptr;
}

Ledger::Ledger() : folder_(LedgerFolder()) {
  FileSystem& files = platform().files();
  if (!files.Exists(folder_)) {
    files.MakeFolder(folder_);
    files.FlushFolder(FolderPart(folder_));
  }
  turn_ = TakeTurn(folder_ + "\\ledger");
  const Bytes text = ReadIndexText();
  index_bytes_ = text.size();
  // A line that a kill cut off is ended, so that the next one does not go on in it.
  if (!text.empty() && text.back() != '\n') notes_ = kCrLf;
  if (text.empty()) notes_ = IndexHead();
  index_ = Index::Parse(text);
}

void Ledger::Keep(const Place& place, const std::optional<Content>& present, LastPut next) {
  const std::string sha256 = present ? Sha256Hex(present->bytes) : std::string();
  if (sha256 == next.sha256) return;  // nothing is replaced
  const size_t noted = notes_.size();
  Adopt(place, sha256);
  const Record* record = index_.Find(place);
  try {
    if (present && !(record && record->IsOurs(sha256))) StoreVersion(place, *present, sha256);
    const bool keeps = notes_.size() > noted;
    if (!present && !record) Note({EventKind::kNone, place, {}, {}});
    // Where nothing was, nothing is lost with the line: a zip of many files waits for the disk once, in MakeDurable.
    awaits_disk_ |= !present && !record;
    if (keeps) WriteNotes(true);
  } catch (const std::exception&) {
    NotePut(place, std::move(next));
    throw;
  }
  next.over = sha256;
  NotePut(place, std::move(next));
  CompactWhenLong();
}

// A put that cannot be noted costs a further version one day, and nothing else.
void Ledger::NotePut(const Place& place, LastPut put) {
  Note({EventKind::kPut, place, {}, std::move(put)});
  Attempt([&] { WriteNotes(false); });
}

void Ledger::MakeDurable() {
  if (!awaits_disk_) return;
  awaits_disk_ = false;
  Attempt([this] { WriteNotes(true); });
}

void Ledger::KeepForeign(const Place& place, const KeptVersion& original, const Content& present) {
  if (!index_.Find(place)) Note({KindOf(original), place, original, {}});
  StoreVersion(place, present, Sha256Hex(present.bytes));
  WriteNotes(true);
}

// What another folder's record knows of a game that was moved or copied, noted for this folder.
void Ledger::Adopt(const Place& place, const std::string& present_sha256) {
  // Nothing at a place says nothing of where the game was before.
  if (present_sha256.empty() || index_.Find(place)) return;
  const Record* const found = FindRecord(index_, place, present_sha256);
  if (!found) return;
  const Record record = *found;
  for (const KeptVersion& version : record.versions) {
    Note({KindOf(version), place, version, {}});
  }
  Note({EventKind::kPut, place, {}, *record.put});
}

void Ledger::StoreVersion(const Place& place, const Content& present, const std::string& sha256) {
  const Record* record = index_.Find(place);
  const bool is_known = record && record->Find(sha256);
  if (!is_known && record && !record->versions.empty()) MakeRoom(present.bytes.size());
  StoreContent(sha256, present.bytes);
  if (is_known) return;
  Note({EventKind::kKept, place, {sha256, present.bytes.size(), present.pack_date, present.info, {}}, {}});
}

void Ledger::StoreContent(const std::string& sha256, ByteView bytes) {
  const std::string path = ContentPath(sha256);
  if (HoldsExactly(path, bytes)) return;
  platform().files().WriteAllDurably(path, bytes);
  if (HoldsExactly(path, bytes)) return;
  Attempt([&] { platform().files().Delete(path); });
  Raise(error::kDeviceIo, "What was written to '" + path + "' reads back as something else.");
}

void Ledger::MakeRoom(uint64_t bytes) {
  const uint64_t limit = LimitBytes();
  while (index_.KeptBytes() + bytes > limit) {
    const Record* of = nullptr;
    const KeptVersion* oldest = nullptr;
    for (const auto& [key, record] : index_.records()) {
      for (size_t at = 1; at < record.versions.size(); ++at) {
        const KeptVersion& version = record.versions[at];
        if (version.IsAbsence() || (oldest && oldest->when <= version.when)) continue;
        of = &record;
        oldest = &version;
      }
    }
    if (!oldest)
      Raise(error::kDiskFull, "The originals have reached their limit, and first versions are never dropped.");
    Drop(Place(of->place), KeptVersion(*oldest));
  }
}

// The line goes first: a content that nothing names is no loss, a line that names no content is one.
void Ledger::Drop(const Place& place, const KeptVersion& version) {
  Note({EventKind::kDropped, place, version, {}});
  WriteNotes(true);
  if (!index_.HoldsContent(version.sha256)) {
    Attempt([&] { platform().files().Delete(ContentPath(version.sha256)); });
  }
}

void Ledger::Note(Event event) {
  std::string& when = event.kind == EventKind::kPut ? event.put.when : event.version.when;
  if (when.empty() || event.kind == EventKind::kDropped) when = TimeNow();
  event.when = when;
  notes_ += LineOf(event);
  index_.Apply(event);
}

// What is at the end of the file and not known here is a line that was written only in part, or one of another command
// of this process: the next line starts behind it.
void Ledger::WriteNotes(bool durable) {
  const std::unique_ptr<File> file = platform().files().Open(IndexPath(), OpenMode::kReadWrite);
  const uint64_t end = file->Size();
  if (end != index_bytes_) {
    knows_all_ = false;
    notes_.insert(0, kCrLf);
  }
  if (!notes_.empty()) file->WriteAt(end, AsBytes(notes_));
  if (durable) file->Flush();
  file->Close();
  // The file may have been made by a line that nobody waited for.
  if (durable && !has_flushed_name_) platform().files().FlushFolder(folder_);
  has_flushed_name_ |= durable;
  index_bytes_ = end + notes_.size();
  notes_.clear();
}

void Ledger::CompactWhenLong() {
  if (!knows_all_ || index_bytes_ < std::max(kCompactFromBytes, look_again_from_)) return;
  const std::string compacted = index_.Compacted();
  // A zip of many files makes many lines at once: they are not put together again for each of them.
  look_again_from_ = 2 * index_bytes_;
  if (index_bytes_ < kCompactFactor * compacted.size()) return;
  if (Attempt([&] { platform().files().WriteAllDurably(IndexPath(), AsBytes(compacted)); })) {
    index_bytes_ = compacted.size();
  }
}

}  // namespace kestrun::originals
