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

std::string TimeNow() { return MomentToSortableText(SplitDate(platform().clock().LocalDateTime())); }

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
  for (const Record* record : index.FindInAnyFolder(place)) {
    if (!record->versions.empty() && record->IsOurs(present_sha256)) return record;
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
  turn_->LetFileStay();
  const Bytes text = ReadIndexText();
  index_bytes_ = text.size();
  // A line that a kill cut off is ended, so that the next one does not go on in it.
  if (!text.empty() && text.back() != '\n') torn_end_ = kCrLf;
  if (text.empty()) torn_end_ = IndexHead();
  index_ = Index::Parse(text);
}

void Ledger::Keep(const Place& place, const std::optional<Content>& present, LastPut next) {
  const std::string sha256 = present ? Sha256Hex(present->bytes) : std::string();
  if (sha256 == next.sha256) return;  // nothing is replaced
  Adopt(place, sha256);
  const Record* record = index_.Find(place);
  const bool is_ours = record && record->IsOurs(sha256);
  if (!present && !record) Note({EventKind::kNone, place, {}, {}});
  // A put over what could not be kept says nothing of what was there: it is not the program's own.
  const auto note_put = [&](std::string over) {
    next.over = std::move(over);
    Note({EventKind::kPut, place, {}, std::move(next)});
  };
  if (present && !is_ours) {
    OnFailure([&] { StoreVersion(place, *present, sha256); }, [&](const RuntimeError&) { note_put({}); });
  }
  note_put(sha256);
}

void Ledger::KeepForeign(const Place& place, const KeptVersion& original, const Content& present) {
  if (!index_.Find(place)) Note({KindOf(original), place, original, {}});
  StoreVersion(place, present, Sha256Hex(present.bytes));
}

void Ledger::Finish() {
  OnFailure(
      [this] {
        MakeContentsDurable();
        WriteKeptLines();
      },
      [this](const RuntimeError&) { ForgetWhatIsNotKept(); });
  // A put that cannot be noted costs a further version one day, and nothing else.
  Attempt([this] { WritePutLines(); });
  DeleteDropped();
  CompactWhenLong();
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

// It stands under its own hash from the first byte: nothing names it before it is whole.
void Ledger::StoreContent(const std::string& sha256, ByteView bytes) {
  const std::string path = ContentPath(sha256);
  const bool is_there = HoldsExactly(path, bytes);
  // One that nothing names may be what a process wrote that ended before it was on the disk.
  if (is_there && index_.HoldsContent(sha256)) return;
  if (!is_there) {
    OnFailure([&] { platform().files().WriteAll(path, bytes); },
              [&](const RuntimeError&) { Attempt([&] { platform().files().Delete(path); }); });
  }
  contents_.push_back(sha256);
}

void Ledger::MakeContentsDurable() {
  if (contents_.empty()) return;
  platform().files().FlushFiles(folder_, contents_);
  platform().files().FlushFolder(folder_);
  for (const std::string& sha256 : contents_) {
    const std::string path = ContentPath(sha256);
    if (Sha256Hex(platform().files().ReadAll(path)) == sha256) continue;
    Attempt([&] { platform().files().Delete(path); });
    Raise(error::kDeviceIo, "What was written to '" + path + "' reads back as something else.");
  }
  contents_.clear();
}

void Ledger::MakeRoom(uint64_t bytes) {
  const uint64_t limit = LimitBytes();
  while (index_.KeptBytes() + bytes > limit) {
    Place place;
    const KeptVersion* const oldest = index_.OldestFurther(place);
    if (!oldest)
      Raise(error::kDiskFull, "The originals have reached their limit, and first versions are never dropped.");
    dropped_.push_back(oldest->sha256);
    Note({EventKind::kDropped, place, KeptVersion(*oldest), {}});
  }
}

void Ledger::Note(Event event) {
  std::string& when = event.kind == EventKind::kPut ? event.put.when : event.version.when;
  if (when.empty() || event.kind == EventKind::kDropped) when = TimeNow();
  event.when = when;
  index_.Apply(event);
  if (event.kind == EventKind::kPut) return puts_.push_back(std::move(event));
  kept_lines_ += LineOf(event);
  must_keep_ |= event.kind != EventKind::kNone;
}

// The versions have to be on the disk before a put over them is: alone it would make them the program's own.
void Ledger::WriteKeptLines() {
  if (kept_lines_.empty()) return;
  const auto write = [this] { Append(kept_lines_, true); };
  // Where nothing was, nothing is lost with the line.
  if (must_keep_) {
    write();
  } else {
    Attempt(write);
  }
  kept_lines_.clear();
  must_keep_ = false;
}

void Ledger::WritePutLines() {
  std::string lines;
  for (const Event& put : puts_) lines += LineOf(put);
  puts_.clear();
  if (!lines.empty()) Append(lines, false);
}

void Ledger::ForgetWhatIsNotKept() {
  contents_.clear();
  kept_lines_.clear();
  must_keep_ = false;
  dropped_.clear();
  for (Event& put : puts_) put.put.over.clear();
  Attempt([this] { WritePutLines(); });
}

// A content that nothing names is no loss, a line that names no content is one: the lines went first.
void Ledger::DeleteDropped() {
  for (const std::string& sha256 : dropped_) {
    if (!index_.HoldsContent(sha256)) Attempt([&] { platform().files().Delete(ContentPath(sha256)); });
  }
  dropped_.clear();
}

// What is at the end of the file and not known here is a line that was written only in part, or one of another command
// of this process: the next line starts behind it.
void Ledger::Append(const std::string& lines, bool durable) {
  const std::unique_ptr<File> file = platform().files().Open(IndexPath(), OpenMode::kReadWrite);
  const uint64_t end = file->Size();
  if (end != index_bytes_) {
    knows_all_ = false;
    torn_end_ = kCrLf;
  }
  const std::string text = torn_end_ + lines;
  file->WriteAt(end, AsBytes(text));
  if (durable) file->Flush();
  file->Close();
  // The file may have been made by a line that nobody waited for.
  if (durable && !has_flushed_name_) platform().files().FlushFolder(folder_);
  has_flushed_name_ |= durable;
  index_bytes_ = end + text.size();
  torn_end_.clear();
}

void Ledger::CompactWhenLong() {
  if (!knows_all_ || index_bytes_ < kCompactFromBytes) return;
  const std::string compacted = index_.Compacted();
  if (index_bytes_ < kCompactFactor * compacted.size()) return;
  if (Attempt([&] { platform().files().WriteAllDurably(IndexPath(), AsBytes(compacted)); })) {
    index_bytes_ = compacted.size();
  }
}

}  // namespace kestrun::originals
