// The journal beside an archive while a save writes: what the save is about to overwrite, so that a save that was cut
// short can be undone (docs/formats/pff_journal.md).
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/bytes.h"
#include "platform/files.h"

namespace kestrun::pff {

// Disks and the system write whole blocks of this size, so that each block of an archive is old or new, never mixed.
inline constexpr size_t kBlockBytes = 512;
inline constexpr size_t kMostRecordBytes = size_t{64} * 1024;

// The archive before the save and after it.
struct JournalHeader {
  bool existed = false;
  uint64_t old_bytes = 0;
  uint64_t new_bytes = 0;
};

// One place of the archive that the save changes.
struct JournalRecord {
  uint64_t offset = 0;
  uint32_t length = 0;
  std::vector<uint32_t> checks;  // CRC-32 of the new bytes, for each block that the place touches
  Bytes old;                     // shorter than the length, or empty, where the old archive ends
};

// Bytes from there to the end of the block or of the place, whichever comes first.
[[nodiscard]] size_t BlockPart(uint64_t offset, uint64_t end);
[[nodiscard]] size_t BlockCount(uint64_t offset, uint32_t length);
[[nodiscard]] std::vector<uint32_t> BlockChecks(uint64_t offset, ByteView bytes);
[[nodiscard]] uint32_t Checksum(ByteView bytes);

class JournalWriter {
 public:
  JournalWriter(File& file, const JournalHeader& header);
  // Records lie in ascending order and do not overlap; at most kMostRecordBytes each.
  void Add(uint64_t offset, ByteView old_bytes, ByteView new_bytes);
  // Ends the journal with its checksum and makes it durable: from then on the archive may be changed. What the file
  // held before behind that end has no meaning. The file's length becomes a multiple of `step`, unless it is longer.
  void Finish(uint64_t step = 1);

 private:
  void Write(ByteView bytes);
  void Spill();
  [[nodiscard]] Bytes HeaderBytes() const;

  File& file_;
  JournalHeader header_;
  Bytes waiting_;
  uint64_t written_ = 0;  // bytes of the file
  uint64_t record_bytes_ = 0;
  uint32_t state_;  // of the checksum
};

// Marks a journal whose save is done: its file may stay for the next one. Nobody waits for the mark: without it the
// journal is found to be done by what is in the archive.
void MarkAsResting(File& file);

enum class JournalKind {
  kWhole,
  kTorn,     // begun and never finished: the archive was not touched yet
  kResting,  // its save is done
  kForeign,  // no journal of ours
};

// Reads a journal without believing it: a whole one has its checksum and records that fit its header.
class JournalReader {
 public:
  explicit JournalReader(File& file);
  [[nodiscard]] JournalKind kind() const { return kind_; }
  [[nodiscard]] const JournalHeader& header() const { return header_; }
  // Calls `take` for each record, in order, until it gives false. Gives false when a record does not fit the header.
  bool ForEach(const std::function<bool(const JournalRecord& record)>& take);

 private:
  [[nodiscard]] JournalKind FindKind();
  [[nodiscard]] bool HasChecksum();
  [[nodiscard]] bool ReadRecord(uint64_t& at, uint64_t least_offset, JournalRecord& record);

  File& file_;
  uint64_t file_bytes_;
  uint64_t records_end_ = 0;
  JournalHeader header_;
  JournalKind kind_;
};

}  // namespace kestrun::pff
