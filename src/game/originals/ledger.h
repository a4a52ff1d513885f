// The ledger of originals: what the program replaces in the game is kept in the folder `originals` beside packit.ini,
// content under its SHA-256 and an index beside it (docs/safety.md).
//
// A content is whole on the disk, read back and compared before the index names it, and the index is on the disk before
// Finish returns: a process that is killed at any moment leaves at most a content that nothing names, or a put that did
// not happen.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "game/originals/ledger_index.h"
#include "platform/files.h"

namespace kestrun::originals {

// What is in the game now.
struct Content {
  Bytes bytes;
  int32_t pack_date = 0;
  int32_t info = 0;
};

// The place of an entry of the archive at a path, or of a loose file. The path may be relative.
[[nodiscard]] Place PlaceOf(const std::string& path, const std::string& entry = {});

// Index and contents as they are now, without a turn: for showing them.
[[nodiscard]] Index ReadIndex();
// A kept content, whose hash is checked: error 321 when it is not what was kept, 53 when it is missing.
[[nodiscard]] Bytes ReadContent(const std::string& sha256);

// The place's record, or that of another folder's same place when what is there now says that the game was moved or
// copied: it is what the program put into that one.
[[nodiscard]] const Record* FindRecord(const Index& index, const Place& place, const std::string& present_sha256);

// A turn at the ledger. Taking it waits up to five seconds for another process, and then raises error 70 with its name.
class Ledger {
 public:
  Ledger();

  [[nodiscard]] const Index& index() const { return index_; }

  // Before something of the game is replaced: writes what is there unless it is the program's own or kept already, and
  // notes what takes its place. Raises when it cannot be written.
  void Keep(const Place& place, const std::optional<Content>& present, LastPut next);
  // Writes a content that another program put there as a further version, behind the place's original.
  void KeepForeign(const Place& place, const KeptVersion& original, const Content& present);
  // Keeps what was written since the last time: when this returns it is on the disk, has been read back and compared,
  // and is named in the index. Raises when any of it cannot be kept; then none of it counts as kept. The disk is waited
  // for once, however many contents there are.
  void Finish();

 private:
  void Adopt(const Place& place, const std::string& present_sha256);
  void StoreVersion(const Place& place, const Content& present, const std::string& sha256);
  void StoreContent(const std::string& sha256, ByteView bytes);
  void MakeContentsDurable();
  // Drops further versions, the oldest first, until so many bytes more stay below the limit.
  void MakeRoom(uint64_t bytes);
  void Note(Event event);
  void WriteKeptLines();
  void WritePutLines();
  void ForgetWhatIsNotKept();
  void DeleteDropped();
  void Append(const std::string& lines, bool durable);
  void CompactWhenLong();

  std::string folder_;
  std::shared_ptr<FileLock> turn_;
  Index index_;
  std::string torn_end_;               // what goes in front of the next line of the index
  std::vector<std::string> contents_;  // hashes of those that were written and are not on the disk for sure
  std::string kept_lines_;             // lines that the index is to hold before the game changes
  bool must_keep_ = false;             // one of them is about a content
  std::vector<Event> puts_;            // lines behind them, for which nobody waits
  std::vector<std::string> dropped_;   // hashes of contents that were given up
  uint64_t index_bytes_ = 0;
  bool knows_all_ = true;          // of what the file holds
  bool has_flushed_name_ = false;  // the index's own name is on the disk
};

}  // namespace kestrun::originals
