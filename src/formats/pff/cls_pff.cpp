#include "formats/pff/cls_pff.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

#include "base/code_page.h"
#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/pff/pff_recovery.h"
#include "platform/platform.h"
#include "platform/turn.h"

namespace kestrun {
namespace {

using pff::Entry;
using pff::Header;

constexpr int32_t kAppend = -1;
constexpr int32_t kItemInfoBytes = 4;
constexpr int kKeyAlreadyUsed = 457;
// A table whose records lie further apart is read in pieces of this size: the gaps are never all held in memory.
constexpr size_t kReadPieceBytes = size_t{4} << 20;
// What the entries may always take in memory. A larger table has to be justified by the file's own size.
constexpr uint64_t kAllowedTableBytes = uint64_t{4} << 20;

// What the header of an archive without entries says.
constexpr Header kNewHeader{static_cast<int32_t>(pff::kHeaderBytes), pff::kSignature, 0,
                            static_cast<int32_t>(pff::kEntryBytes), static_cast<int32_t>(pff::kHeaderBytes)};

struct OwnError {
  int32_t number;
  const char* text;
};

constexpr std::array kOwnErrors{
    OwnError{1030, "Cannot continue this file is waiting to be saved."},
    OwnError{1031, "No pff file loaded."},
    OwnError{1032, "Max file name size: 16 characters."},
    OwnError{1033, "File not found."},
    OwnError{1034, "This additional information is too big for this kind of PFF file."},
    OwnError{1035, "You cannot change the file name of an existsing file. First Create a new pff file!"},
};

[[noreturn]] void RefuseFormat(const std::string& sentence) { Raise(error::kInvalidFileFormat, sentence); }

Header ReadHeader(const std::string& path) {
  Header header;
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  if (file->ReadAt(0, pff::RecordBytes(std::span(&header, 1))) != pff::kHeaderBytes) {
    Raise(error::kInputPastEnd, "The archive '" + path + "' ends inside its header.");
  }
  return header;
}

uint64_t TableEnd(const Header& header) {
  const auto stride = static_cast<uint64_t>(static_cast<uint32_t>(header.item_size));
  return static_cast<uint32_t>(header.table_offset) + (static_cast<uint64_t>(header.total_files) - 1) * stride +
         pff::kEntryBytes;
}

// The counts and offsets of a header are claims: none is believed further than the file reaches.
void CheckTablePlace(const Header& header, uint64_t file_bytes, const std::string& path) {
  const uint64_t start = static_cast<uint32_t>(header.table_offset);
  if (start < pff::kHeaderBytes) RefuseFormat("The archive '" + path + "' says that its table lies over its header.");
  if (start > file_bytes) RefuseFormat("The archive '" + path + "' says that its table lies behind its end.");
}

void CheckTableSize(const Header& header, uint64_t file_bytes, const std::string& path) {
  if (header.total_files <= 0) Raise(error::kSubscriptOutOfRange, "The archive '" + path + "' holds no entries.");
  const auto count = static_cast<uint64_t>(header.total_files);
  if (count > file_bytes || TableEnd(header) > file_bytes) {
    RefuseFormat("The archive '" + path + "' is too short for the " + std::to_string(count) +
                 " entries that its header claims.");
  }
  if (count * pff::kEntryBytes > std::max(file_bytes, kAllowedTableBytes)) {
    RefuseFormat("The archive '" + path + "' claims " + std::to_string(count) +
                 " entries that lie over each other, more than it can hold.");
  }
}

void ReadExactly(File& file, uint64_t offset, MutableByteView buffer) {
  if (file.ReadAt(offset, buffer) != buffer.size()) Raise(error::kInputPastEnd);
}

// Records that do not lie back to back: pieces of the table are read and picked apart.
void ReadSpacedRecords(File& file, const Header& header, std::vector<Entry>& entries) {
  const auto stride = static_cast<size_t>(static_cast<uint32_t>(header.item_size));
  const size_t per_piece = stride == 0 ? entries.size() : std::max<size_t>(1, kReadPieceBytes / stride);
  uint64_t offset = static_cast<uint32_t>(header.table_offset);
  for (size_t at = 0; at < entries.size(); at += per_piece) {
    const size_t count = std::min(per_piece, entries.size() - at);
    Bytes piece((count - 1) * stride + pff::kEntryBytes);
    ReadExactly(file, offset, piece);
    for (size_t record = 0; record < count; ++record) {
      const auto* from = piece.data() + record * stride;
      std::copy_n(from, pff::kEntryBytes, pff::RecordBytes(std::span(&entries[at + record], 1)).data());
    }
    offset += static_cast<uint64_t>(count) * stride;
  }
}

// The table of an archive whose header has been checked against its size.
std::vector<Entry> ReadEntries(File& file, const Header& header) {
  std::vector<Entry> entries(static_cast<size_t>(header.total_files));
  if (header.item_size == static_cast<int32_t>(pff::kEntryBytes)) {
    ReadExactly(file, static_cast<uint32_t>(header.table_offset), pff::RecordBytes(std::span(entries)));
  } else {
    ReadSpacedRecords(file, header, entries);
  }
  return entries;
}

bool HasBytes(File& file, uint64_t offset, ByteView expected) {
  Bytes present(expected.size());
  return file.ReadAt(offset, present) == present.size() && std::equal(present.begin(), present.end(), expected.begin());
}

// Whether the table is the same. It is looked at piece by piece: a second one would take as much memory as the first.
bool HasEntries(File& file, const Header& header, const std::vector<Entry>& entries) {
  if (header.item_size != static_cast<int32_t>(pff::kEntryBytes)) {
    const std::vector<Entry> present = ReadEntries(file, header);
    return std::ranges::equal(pff::RecordBytes(std::span(present)), pff::RecordBytes(std::span(entries)));
  }
  constexpr size_t kPieceBytes = size_t{64} * 1024;
  const ByteView table = pff::RecordBytes(std::span(entries));
  Bytes piece(std::min(kPieceBytes, table.size()));
  for (size_t at = 0; at < table.size(); at += piece.size()) {
    piece.resize(std::min(kPieceBytes, table.size() - at));
    ReadExactly(file, static_cast<uint32_t>(header.table_offset) + uint64_t{at}, piece);
    if (!std::equal(piece.begin(), piece.end(), table.begin() + static_cast<std::ptrdiff_t>(at))) return false;
  }
  return true;
}

std::shared_ptr<const Bytes> ShareBytes(ByteView bytes) {
  return std::make_shared<const Bytes>(bytes.begin(), bytes.end());
}

int32_t LengthOf(ByteView buffer) {
  if (buffer.size() > static_cast<size_t>(std::numeric_limits<int32_t>::max())) Raise(error::kOverflow);
  return static_cast<int32_t>(buffer.size());
}

// The 1-based place of an offset, which has 32 bits as the format's fields have.
int32_t PositionOf(int32_t offset) {
  if (offset == std::numeric_limits<int32_t>::max()) Raise(error::kOverflow);
  return offset + 1;
}

std::array<uint32_t, 256> MakeCrcTable() {
  std::array<uint32_t, 256> table{};
  for (uint32_t at = 0; at < table.size(); ++at) {
    uint32_t value = at;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320U : 0U);
    table[at] = value;
  }
  return table;
}

}  // namespace

void ClsPFF::Progress(int value) const {
  if (PFFPorgress) PFFPorgress(static_cast<int16_t>(std::min<int>(value, std::numeric_limits<int16_t>::max())));
}

void ClsPFF::RaiseTold(const RuntimeError& failure) const {
  if (PFFError) PFFError(failure.number(), failure.description());
  throw failure;
}

void ClsPFF::RaiseOwn(int32_t number) const {
  const auto* row = std::find_if(kOwnErrors.begin(), kOwnErrors.end(),
                                 [number](const OwnError& candidate) { return candidate.number == number; });
  RaiseTold(RuntimeError(number, row->text));
}

void ClsPFF::RequirePath() const {
  if (path_.empty()) RaiseOwn(1031);
}

// After a load that failed half-way the table in memory is not the file's: saving it would lose every other entry. The
// headers may also be those of an earlier archive, whose count says nothing about the entries that are here.
void ClsPFF::RequireReadable() const {
  const bool count_holds = working_.total_files >= 0 && static_cast<size_t>(working_.total_files) <= entries_.size();
  if (readable_ == Readable::kYes && count_holds) return;
  RaiseTold(RuntimeError(error::kInvalidFileFormat,
                         "The archive '" + path_ + "' could not be read, so it is left as it is."));
}

void ClsPFF::SetOpenFileName(const std::string& path) {
  if (!is_new_) RaiseOwn(1035);
  path_ = path;
}

void ClsPFF::SetPFFVersion(int32_t version) {
  working_.version = version;
  edited_ = true;
}

// ---- entries -----------------------------------------------------------------------------------------------------

size_t ClsPFF::Resolve(Index index) {
  int32_t number = -1;
  if (IsNumeric(index)) {
    number = ToLong(index);
  } else if (!PFFFileExists(ToText(index), number)) {
    RaiseOwn(1033);
  }
  if (number < 0 || static_cast<size_t>(number) >= entries_.size()) Raise(error::kSubscriptOutOfRange);
  return static_cast<size_t>(number);
}

int32_t ClsPFF::FilePackDate(Index index) { return EntryAt(index).pack_date; }

void ClsPFF::SetFilePackDate(Index index, int32_t pack_date) {
  EntryAt(index).pack_date = pack_date;
  edited_ = true;
}

std::string ClsPFF::FileName(Index index) { return DecodeText(pff::TrimName(pff::NameBytes(EntryAt(index)))); }

void ClsPFF::SetFileName(Index index, std::string_view name) {
  edited_ = true;
  const std::string_view trimmed = TrimBlanks(name);
  Entry& entry = EntryAt(index);
  // Staged names are kept trimmed: the stored name, padding and all, is found among them only when it fills its field.
  const std::string stored = ToLower(DecodeText(pff::NameBytes(entry)));
  if (const auto waiting = waiting_.find(stored); waiting != waiting_.end()) {
    const int32_t element = waiting->second;
    waiting_.erase(waiting);
    waiting_.insert_or_assign(ToLower(trimmed), element);
  }
  entry.name = pff::PadName(EncodeText(trimmed), ' ');
  NoteRenamed(entry);
}

void ClsPFF::NoteRenamed(const Entry& entry) { names_.NoteRenamed(static_cast<size_t>(&entry - entries_.data())); }

int32_t ClsPFF::FileLength(Index index) { return EntryAt(index).length; }

int32_t ClsPFF::FileOffset(Index index) { return EntryAt(index).offset; }

bool ClsPFF::FileDeleted(Index index) {
  const Entry& entry = EntryAt(index);
  return entry.deleted == 1 || pff::NameBytes(entry).find('\x7F') != std::string_view::npos;
}

void ClsPFF::SetFileDeleted(Index index, bool) {
  const auto number = static_cast<int32_t>(Resolve(index));
  Entry& entry = entries_[static_cast<size_t>(number)];
  entry.deleted = 1;
  std::string name = pff::TrimName(pff::NameBytes(entry));
  if (name.empty()) Raise(error::kInvalidProcedureCall);
  name.back() = '\x7F';
  SetFileName(number, DecodeText(name));
  edited_ = true;
}

int32_t ClsPFF::FileInfo(Index index) { return EntryAt(index).info; }

void ClsPFF::SetFileInfo(Index index, int32_t info) {
  Entry& entry = EntryAt(index);
  if (!IsNumeric(index) && item_info_size_ < kItemInfoBytes) RaiseOwn(1034);
  entry.info = info;
  edited_ = true;
}

int32_t ClsPFF::FileCRC32(Index index) {
  static const std::array<uint32_t, 256> table = MakeCrcTable();
  const size_t number = Resolve(index);
  if (!IsNumeric(index)) Raise(error::kTypeMismatch);
  Bytes buffer;
  if (!ExtractFile(static_cast<int32_t>(number), buffer, "")) return -1;
  // An empty file that waits to be saved can be extracted, but has no second byte.
  if (buffer.empty()) Raise(error::kSubscriptOutOfRange);
  const uint32_t crc = std::accumulate(buffer.begin() + 1, buffer.end(), 0xFFFFFFFFU, [](uint32_t sum, uint8_t byte) {
    return table[(sum ^ byte) & 0xFF] ^ (sum >> 8);
  });
  return static_cast<int32_t>(~crc);
}

int32_t ClsPFF::GetPFFInfo(int32_t number, int32_t& pack_date, std::string& name, int32_t& length, int32_t& offset,
                           std::string& info, bool& deleted) {
  try {
    const Entry& entry = EntryAt(number);
    pack_date = entry.pack_date;
    name = DecodeText(pff::NameBytes(entry));
    length = entry.length;
    offset = entry.offset;
    info = std::to_string(entry.info);
    deleted = entry.deleted == 1;
    return 0;
  } catch (const RuntimeError& failure) {
    return failure.number();
  }
}

int32_t ClsPFF::WritePFFInfo(int32_t number, int32_t pack_date, std::string_view name, std::string_view info,
                             bool deleted) {
  try {
    Entry& entry = EntryAt(number);
    const int32_t info_value = TextToLong(info);
    entry.pack_date = pack_date;
    entry.name = pff::PadName(EncodeText(name), ' ');
    NoteRenamed(entry);
    entry.info = info_value;
    entry.deleted = deleted ? 1 : 0;
    return 0;
  } catch (const RuntimeError& failure) {
    return failure.number();
  }
}

// ---- loading and saving ------------------------------------------------------------------------------------------

void ClsPFF::Reset(const std::string& path) {
  path_ = path;
  entries_.clear();
  names_.Forget();
  queue_.assign(1, Staged{});
  waiting_.clear();
  file_bytes_ = 0;
  on_disk_ = {};
  settled_ = {};
  readable_ = Readable::kYes;
}

void ClsPFF::NewPffFile(const std::string& path) {
  Progress(1);
  Reset(path);
  entries_.resize(1);
  StartHeaders();
  Progress(50);
  item_info_size_ = kItemInfoBytes;
  edited_ = true;
  is_new_ = true;
  Progress(100);
  Progress(0);
}

bool ClsPFF::LoadPff(const std::string& path) {
  Progress(1);
  edited_ = false;
  is_new_ = false;
  Reset(path);
  try {
    TellRecovery(path);
    on_disk_.is_there = platform().files().Exists(path);
    if (on_disk_.is_there) readable_ = Readable::kNo;
    if (!on_disk_.is_there && working_.table_offset == 0) StartHeaders();
    saved_ = ReadHeader(path);
    on_disk_.header = saved_;
    Progress(20);
    working_ = saved_;
    Progress(25);
    ReadTable(path);
    readable_ = Readable::kYes;
    Progress(80);
    Progress(100);
    Progress(0);
    return true;
  } catch (const std::exception&) {
    const RuntimeError failure = CurrentError();
    entries_.clear();
    names_.Forget();
    if (PFFError) PFFError(failure.number(), failure.description());
    Progress(0);
    return false;
  }
}

// What is packed where no archive is makes one that can be read: with headers of zeros its first file would lie over
// them.
void ClsPFF::StartHeaders() {
  saved_ = kNewHeader;
  working_ = saved_;
}

void ClsPFF::ReadTable(const std::string& path) {
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  Progress(30);
  file_bytes_ = file->Size();
  CheckTablePlace(working_, file_bytes_, path);
  // An archive that was saved empty cannot be loaded, but its header is whole: it may be added to.
  if (working_.total_files == 0) readable_ = Readable::kYes;
  CheckTableSize(working_, file_bytes_, path);
  entries_ = ReadEntries(*file, working_);
  names_.Forget();
  on_disk_.entries = entries_;
  Progress(50);
}

void ClsPFF::TellRecovery(const std::string& path) const {
  const std::optional<std::string> sentence = pff::RecoverArchive(path);
  if (!sentence) return;
  if (Recovered) return Recovered(*sentence);
  MsgBox(*sentence);
}

bool ClsPFF::IsAsLastSeen() const {
  if (platform().files().Exists(path_) != on_disk_.is_there) return false;
  if (!on_disk_.is_there) return true;
  const std::unique_ptr<File> file = platform().files().Open(path_, OpenMode::kRead);
  if (!HasBytes(*file, 0, pff::RecordBytes(std::span<const Header>(&on_disk_.header, 1)))) return false;
  if (on_disk_.header.total_files <= 0) return true;
  if (TableEnd(on_disk_.header) > file->Size()) return false;
  return HasEntries(*file, on_disk_.header, on_disk_.entries);
}

// The places of what is staged were chosen by the table in memory.
void ClsPFF::RequireUnchanged() const {
  if (is_new_ || IsAsLastSeen()) return;
  RaiseTold(RuntimeError(error::kPermissionDenied, "The archive '" + path_ +
                                                       "' was changed by another program since it was read, so it is "
                                                       "left as it is. Try again."));
}

void ClsPFF::SavePffFile() {
  Progress(0);
  RequirePath();
  RequireReadable();
  Progress(10);
  const auto turn = TakeTurn(path_);
  TellRecovery(path_);
  RequireUnchanged();
  pff::Change change = settled_;
  change.Add(0, ShareBytes(pff::RecordBytes(std::span<const Header>(&working_, 1))));
  Progress(20);
  AddStaged(change, [this](int element) { Progress(20 + element); });
  const ByteView table = pff::RecordBytes(std::span<const Entry>(entries_));
  const uint64_t table_offset = static_cast<uint32_t>(working_.table_offset);
  change.AddBorrowed(table_offset, table);
  change.Add(table_offset + table.size(), ShareBytes(pff::kTrailer));
  change.Commit(path_, journal_afterwards_);
  Progress(80);
  Progress(100);
  waiting_.clear();
  saved_ = working_;
  on_disk_.header = working_;
  on_disk_.entries = entries_;
  on_disk_.is_there = true;
  file_bytes_ = std::max(file_bytes_, change.End());
  settled_ = {};
  queue_.assign(1, Staged{});
  Progress(0);
  edited_ = false;
  is_new_ = false;
}

// Appended data starts where the table stood at the last load or save, and lies in staging order.
void ClsPFF::AddStaged(pff::Change& change, const std::function<void(int element)>& added) const {
  uint64_t cursor = static_cast<uint32_t>(saved_.table_offset);
  for (size_t at = 1; at < queue_.size(); ++at) {
    const Staged staged = queue_[at];
    if (!staged.data || staged.data->empty()) continue;
    if (staged.position == kAppend) {
      change.Add(cursor, staged.data);
      cursor += staged.data->size();
    } else {
      change.Add(static_cast<uint32_t>(staged.position) - 1U, staged.data);
    }
    added(static_cast<int>(at));
  }
}

void ClsPFF::SettleStaged() {
  AddStaged(settled_, [](int) {});
  const uint64_t table_end = static_cast<uint32_t>(working_.table_offset) + entries_.size() * pff::kEntryBytes;
  file_bytes_ = std::max(file_bytes_, table_end + pff::kTrailer.size());
  waiting_.clear();
  saved_ = working_;
  queue_.assign(1, Staged{});
}

// ---- files in and out --------------------------------------------------------------------------------------------

bool ClsPFF::ExtractFile(int32_t number, Bytes& buffer, const std::string& destination) {
  Progress(1);
  RequirePath();
  // A copy: a handler of the progress may load another archive.
  const Entry entry = EntryAt(number);
  const int32_t waiting = FileWaiting(DecodeText(pff::TrimName(pff::NameBytes(entry))));
  Progress(10);
  if (waiting != 0) {
    Progress(50);
    const Staged& staged = StagedAt(static_cast<size_t>(waiting));
    buffer = staged.data ? *staged.data : Bytes();
    Progress(65);
  } else {
    ReadStored(entry, buffer);
  }
  Progress(80);
  if (!destination.empty()) platform().files().WriteAll(destination, buffer);
  Progress(100);
  Progress(0);
  return true;
}

void ClsPFF::ReadStored(const Entry& entry, Bytes& buffer) const {
  if (entry.length <= 0) Raise(error::kSubscriptOutOfRange);
  Progress(30);
  const std::unique_ptr<File> file = platform().files().Open(path_, OpenMode::kRead);
  const uint64_t offset = static_cast<uint32_t>(entry.offset);
  const uint64_t end = offset + static_cast<uint64_t>(entry.length);
  if (end > std::max(file->Size(), settled_.End())) Raise(error::kInputPastEnd);
  buffer.resize(static_cast<size_t>(entry.length));
  static_cast<void>(file->ReadAt(offset, buffer));
  settled_.Overlay(offset, buffer);
  Progress(50);
}

const Bytes& ClsPFF::FileBuffer(const std::string& path, Bytes& buffer) {
  buffer.clear();
  try {
    if (!platform().files().Exists(path)) RaiseOwn(1033);
    Bytes content = platform().files().ReadAll(path);
    if (content.empty()) Raise(error::kSubscriptOutOfRange);
    buffer = std::move(content);
  } catch (const std::exception&) {
    const RuntimeError failure = CurrentError();
    if (PFFError) PFFError(failure.number(), failure.description());
  }
  return buffer;
}

bool ClsPFF::PackFile(ByteView buffer, const std::string& name) {
  Progress(5);
  RequirePath();
  RequireReadable();
  const std::string name_bytes = RequireName(name);
  const int32_t length = LengthOf(buffer);
  Progress(30);
  queue_.emplace_back();
  const size_t element = queue_.size() - 1;
  const std::string trimmed = ZTrim(name);
  Entry entry;
  int32_t index = -1;
  if (!PFFFileExists(name, index)) {
    index = working_.total_files;
    queue_[element].position = kAppend;
    entry.offset = AppendEntry(length);
  } else if (const int32_t waiting = FileWaiting(trimmed); waiting != 0) {
    return ReplaceStaged(waiting, buffer);
  } else {
    Entry& present = entries_[static_cast<size_t>(index)];
    queue_[element].position = PlaceExisting(present, length);
    entry.offset = present.offset;
  }
  // From here on handlers of the progress may have changed the archive: what was staged is found by its number.
  Progress(50);
  entry.length = length;
  entry.name = pff::PadName(name_bytes, '\0');
  Entry& place = EntryAt(index);
  const bool is_renamed = pff::NameKey(pff::NameBytes(place)) != pff::NameKey(pff::NameBytes(entry));
  place = entry;
  if (is_renamed) NoteRenamed(place);
  Progress(60);
  StagedAt(element).data = ShareBytes(buffer);
  Progress(100);
  const bool added = waiting_.emplace(ToLower(trimmed), static_cast<int32_t>(element)).second;
  if (!added) Raise(kKeyAlreadyUsed, "This key is already associated with an element of this collection");
  RunPendingEvents();
  Progress(0);
  edited_ = true;
  return true;
}

// The bytes of a name that the table can hold.
std::string ClsPFF::RequireName(const std::string& name) const {
  std::string bytes = EncodeText(name);
  if (bytes.size() > pff::kNameBytes) RaiseOwn(1032);
  if (const auto character = FirstUnencodable(name)) {
    RaiseTold(RuntimeError(error::kInvalidProcedureCall,
                           "The name '" + name + "' cannot be stored in the archive: it has no character for '" +
                               *character + "'. Choose a name without it."));
  }
  return bytes;
}

// Adds an entry whose data is to lie behind all other, and gives the data's offset.
int32_t ClsPFF::AppendEntry(int32_t length) {
  const int32_t offset = working_.table_offset;
  const int32_t table_offset = TableMovedBy(length);
  const auto count = static_cast<size_t>(working_.total_files) + 1;
  if (entries_.size() < count) entries_.resize(count);
  ++working_.total_files;
  working_.table_offset = table_offset;
  return offset;
}

// Where the table stands behind so many bytes more. Offsets are read without a sign, but no 32-bit program reaches the
// second half of them, and behind the last one they would start again from 0.
int32_t ClsPFF::TableMovedBy(int32_t bytes) const {
  const uint64_t moved = uint64_t{static_cast<uint32_t>(working_.table_offset)} + static_cast<uint64_t>(bytes);
  if (moved <= static_cast<uint64_t>(std::numeric_limits<int32_t>::max())) return static_cast<int32_t>(moved);
  RaiseTold(RuntimeError(error::kOverflow, "The archive '" + path_ +
                                               "' would become larger than 2 GB, which its format does not hold, so it "
                                               "is left as it is."));
}

ClsPFF::Staged& ClsPFF::StagedAt(size_t element) {
  if (element >= queue_.size()) Raise(error::kSubscriptOutOfRange);
  return queue_[element];
}

// The place of an entry is its archive's claim. Writing there must not destroy what makes the archive readable, nor
// stretch the file.
void ClsPFF::CheckPlace(const Entry& entry, int32_t length) const {
  if (length == 0) return;
  const uint64_t start = static_cast<uint32_t>(entry.offset);
  const uint64_t end = start + static_cast<uint64_t>(length);
  const uint64_t table = static_cast<uint32_t>(working_.table_offset);
  const uint64_t table_end = table + entries_.size() * pff::kEntryBytes + pff::kTrailer.size();
  if (start < pff::kHeaderBytes) RefusePlace(entry, "over its header");
  if (end <= table) return;
  if (start < table_end) RefusePlace(entry, "over its table");
  if (end > file_bytes_) RefusePlace(entry, "behind its end");
}

void ClsPFF::RefusePlace(const Entry& entry, const std::string& place) const {
  const std::string name = DecodeText(pff::TrimName(pff::NameBytes(entry)));
  RaiseTold(RuntimeError(error::kInvalidFileFormat, "The archive '" + path_ + "' says that '" + name + "' lies " +
                                                        place + ", so it is left as it is."));
}

bool ClsPFF::ReplaceStaged(int32_t element, ByteView buffer) {
  Staged& staged = queue_[static_cast<size_t>(element)];
  const size_t staged_bytes = staged.data ? staged.data->size() : 0;
  const bool fits = staged.position == kAppend ? buffer.size() == staged_bytes : buffer.size() >= staged_bytes;
  if (!fits) RaiseOwn(1030);
  staged.data = ShareBytes(buffer);
  Progress(0);
  return true;
}

// Decides where the new data of an entry that is in the file goes, and moves the table when it must. Gives the staged
// position.
int32_t ClsPFF::PlaceExisting(Entry& entry, int32_t length) {
  if (entry.length >= length) {
    CheckPlace(entry, length);
    return PositionOf(entry.offset);
  }
  if (entry.length >= 0 && int64_t{entry.offset} + entry.length == working_.table_offset) {
    CheckPlace(entry, entry.length);
    const int32_t position = PositionOf(entry.offset);
    working_.table_offset = TableMovedBy(length - entry.length);
    return position;
  }
  const int32_t table_offset = TableMovedBy(length);
  entry.offset = working_.table_offset;
  working_.table_offset = table_offset;
  return kAppend;
}

// ---- names -------------------------------------------------------------------------------------------------------

std::string ClsPFF::GetFileExt(std::string_view name) {
  const size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot + 1));
}

int32_t ClsPFF::FileWaiting(std::string_view name) const {
  const auto found = waiting_.find(ToLower(name));
  return found == waiting_.end() ? 0 : found->second;
}

bool ClsPFF::PFFFileExists(std::string_view name, int32_t& index) const {
  index = -1;
  // Encoded, such a name would be found under its question marks.
  if (FirstUnencodable(name)) return false;
  const size_t count = std::min(entries_.size(), static_cast<size_t>(std::max(working_.total_files, 0)));
  index = names_.Find(std::span(entries_).first(count), EncodeText(name));
  return index >= 0;
}

std::string ClsPFF::ZTrim(std::string_view text) { return pff::TrimName(text); }

}  // namespace kestrun
