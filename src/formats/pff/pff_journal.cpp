#include "formats/pff/pff_journal.h"

#include <algorithm>

#include "base/crc32.h"
#include "base/runtime_error.h"

namespace kestrun::pff {
namespace {

constexpr std::string_view kMagic = "KSTJRNL1";
constexpr std::string_view kRestingMark = "KSTJREST";
constexpr std::string_view kEndMark = "KEND";
constexpr size_t kJournalHeaderBytes = 36;
constexpr size_t kRecordHeaderBytes = 16;
constexpr size_t kEndBytes = 8;
constexpr uint32_t kExisted = 1;
constexpr size_t kPieceBytes = size_t{256} * 1024;
// No archive reaches further: its offsets have 32 bits, and the table stands behind the last of them.
constexpr uint64_t kMostArchiveBytes = uint64_t{1} << 34;

uint64_t LoadU64(ByteView bytes, size_t offset) {
  return LoadU32(bytes, offset) | (uint64_t{LoadU32(bytes, offset + 4)} << 32);
}

void StoreU64(MutableByteView bytes, size_t offset, uint64_t value) {
  StoreU32(bytes, offset, static_cast<uint32_t>(value));
  StoreU32(bytes, offset + 4, static_cast<uint32_t>(value >> 32));
}

// How much of a place the old archive had.
uint32_t OldLength(const JournalHeader& header, uint64_t offset, uint32_t length) {
  if (offset >= header.old_bytes) return 0;
  return static_cast<uint32_t>(std::min<uint64_t>(length, header.old_bytes - offset));
}

bool ReadExactly(File& file, uint64_t at, MutableByteView bytes) { return file.ReadAt(at, bytes) == bytes.size(); }

}  // namespace

size_t BlockPart(uint64_t offset, uint64_t end) {
  return static_cast<size_t>(std::min<uint64_t>(kBlockBytes - offset % kBlockBytes, end - offset));
}

size_t BlockCount(uint64_t offset, uint32_t length) {
  if (length == 0) return 0;
  return static_cast<size_t>((offset + length - 1) / kBlockBytes - offset / kBlockBytes + 1);
}

uint32_t Checksum(ByteView bytes) { return ~crc32::Update(crc32::kStart, bytes); }

std::vector<uint32_t> BlockChecks(uint64_t offset, ByteView bytes) {
  std::vector<uint32_t> checks;
  const uint64_t end = offset + bytes.size();
  for (uint64_t at = offset; at < end;) {
    const size_t part = BlockPart(at, end);
    checks.push_back(Checksum(bytes.subspan(static_cast<size_t>(at - offset), part)));
    at += part;
  }
  return checks;
}

// ---- writing -----------------------------------------------------------------------------------------------------

// The header says how long the records are: its place stays empty until they are known.
JournalWriter::JournalWriter(File& file, const JournalHeader& header)
    : file_(file), header_(header), waiting_(kJournalHeaderBytes), state_(crc32::kStart) {}

Bytes JournalWriter::HeaderBytes() const {
  Bytes bytes(kJournalHeaderBytes);
  std::copy(kMagic.begin(), kMagic.end(), bytes.begin());
  StoreU32(bytes, 8, header_.existed ? kExisted : 0);
  StoreU64(bytes, 12, header_.old_bytes);
  StoreU64(bytes, 20, header_.new_bytes);
  StoreU64(bytes, 28, record_bytes_);
  return bytes;
}

void JournalWriter::Add(uint64_t offset, ByteView old_bytes, ByteView new_bytes) {
  const std::vector<uint32_t> checks = BlockChecks(offset, new_bytes);
  Bytes bytes(kRecordHeaderBytes + checks.size() * sizeof(uint32_t));
  StoreU64(bytes, 0, offset);
  StoreU32(bytes, 8, static_cast<uint32_t>(new_bytes.size()));
  StoreU32(bytes, 12, static_cast<uint32_t>(old_bytes.size()));
  for (size_t at = 0; at < checks.size(); ++at) StoreU32(bytes, kRecordHeaderBytes + at * 4, checks[at]);
  Write(bytes);
  Write(old_bytes);
}

void JournalWriter::Finish(uint64_t step) {
  const Bytes header = HeaderBytes();
  Bytes end(kEndBytes);
  StoreU32(end, 0, ~crc32::Update(state_, header));
  std::copy(kEndMark.begin(), kEndMark.end(), end.begin() + 4);
  waiting_.insert(waiting_.end(), end.begin(), end.end());
  const bool has_header = written_ == 0;
  if (has_header) std::copy(header.begin(), header.end(), waiting_.begin());
  Spill();
  if (!has_header) file_.WriteAt(0, header);
  if (written_ % step != 0 && file_.Size() < written_ + 1) {
    file_.WriteAt(written_, Bytes(static_cast<size_t>(step - written_ % step)));
  }
  file_.Flush();
}

void JournalWriter::Write(ByteView bytes) {
  state_ = crc32::Update(state_, bytes);
  record_bytes_ += bytes.size();
  waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
  if (waiting_.size() >= kPieceBytes) Spill();
}

void JournalWriter::Spill() {
  file_.WriteAt(written_, waiting_);
  written_ += waiting_.size();
  waiting_.clear();
}

void MarkAsResting(File& file) { file.WriteAt(0, AsBytes(kRestingMark)); }

// ---- reading -----------------------------------------------------------------------------------------------------

JournalReader::JournalReader(File& file) : file_(file), file_bytes_(file.Size()), kind_(FindKind()) {}

// A file that a power cut left is as long as it was to be or shorter, and zero where nothing had reached the disk.
JournalKind JournalReader::FindKind() {
  Bytes bytes(static_cast<size_t>(std::min<uint64_t>(kJournalHeaderBytes, file_bytes_)));
  if (!ReadExactly(file_, 0, bytes)) return JournalKind::kTorn;
  const std::string_view magic = AsChars(bytes).substr(0, kMagic.size());
  if (magic == kRestingMark) return JournalKind::kResting;
  const bool is_empty = std::all_of(magic.begin(), magic.end(), [](char one) { return one == '\0'; });
  if (!is_empty && !kMagic.starts_with(magic)) return JournalKind::kForeign;
  if (is_empty || file_bytes_ < kJournalHeaderBytes + kEndBytes || !HasChecksum()) return JournalKind::kTorn;
  header_ = {LoadU32(bytes, 8) == kExisted, LoadU64(bytes, 12), LoadU64(bytes, 20)};
  const bool fits = header_.old_bytes <= header_.new_bytes && header_.new_bytes <= kMostArchiveBytes &&
                    (header_.existed || header_.old_bytes == 0);
  return fits && ForEach([](const JournalRecord&) { return true; }) ? JournalKind::kWhole : JournalKind::kForeign;
}

// The checksum is of the records and, behind them, of the header.
bool JournalReader::HasChecksum() {
  Bytes header(kJournalHeaderBytes);
  if (!ReadExactly(file_, 0, header)) return false;
  const uint64_t record_bytes = LoadU64(header, 28);
  if (record_bytes > file_bytes_ - kJournalHeaderBytes - kEndBytes) return false;
  const uint64_t end = kJournalHeaderBytes + record_bytes;
  Bytes piece;
  uint32_t state = crc32::kStart;
  for (uint64_t at = kJournalHeaderBytes; at < end; at += piece.size()) {
    piece.resize(static_cast<size_t>(std::min<uint64_t>(kPieceBytes, end - at)));
    if (!ReadExactly(file_, at, piece)) return false;
    state = crc32::Update(state, piece);
  }
  state = crc32::Update(state, header);
  records_end_ = end;
  piece.resize(kEndBytes);
  return ReadExactly(file_, end, piece) && LoadU32(piece, 0) == ~state && AsChars(piece).substr(4) == kEndMark;
}

bool JournalReader::ForEach(const std::function<bool(const JournalRecord& record)>& take) {
  uint64_t at = kJournalHeaderBytes;
  uint64_t least_offset = 0;
  while (at < records_end_) {
    JournalRecord record;
    if (!ReadRecord(at, least_offset, record)) return false;
    if (!take(record)) break;
    least_offset = record.offset + record.length;
  }
  return true;
}

bool JournalReader::ReadRecord(uint64_t& at, uint64_t least_offset, JournalRecord& record) {
  const uint64_t left = records_end_ - at;
  Bytes head(kRecordHeaderBytes);
  if (left < head.size() || !ReadExactly(file_, at, head)) return false;
  record.offset = LoadU64(head, 0);
  record.length = LoadU32(head, 8);
  const uint32_t old_length = LoadU32(head, 12);
  if (record.length == 0 || record.length > kMostRecordBytes || record.offset < least_offset) return false;
  if (record.offset > header_.new_bytes || record.length > header_.new_bytes - record.offset) return false;
  if (old_length != OldLength(header_, record.offset, record.length)) return false;
  const size_t check_count = BlockCount(record.offset, record.length);
  Bytes body(check_count * sizeof(uint32_t) + old_length);
  if (left - head.size() < body.size() || !ReadExactly(file_, at + head.size(), body)) return false;
  for (size_t check = 0; check < check_count; ++check) record.checks.push_back(LoadU32(body, check * 4));
  record.old.assign(body.end() - static_cast<std::ptrdiff_t>(old_length), body.end());
  at += head.size() + body.size();
  return true;
}

}  // namespace kestrun::pff
