// The ledger of originals: what the program replaces in the game is kept in the folder `originals` beside packit.ini,
// content under its SHA-256 and an index beside it (docs/safety.md).
//
// A content is whole on the disk, read back and compared before the index names it, and the index is on the disk before
// Keep returns: a process that is killed at any moment leaves at most a content that nothing names, or a put that did
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

  // Before something of the game is replaced: keeps what is there unless it is the program's own or kept already, and
  // notes what takes its place. Raises when that cannot be kept.
  void Keep(const Place& place, const std::optional<Content>& present, LastPut next);
  // Waits until the places that were noted as empty are on the disk.
  void MakeDurable();
  // Keeps a content that another program put there as a further version, behind the place's original.
  void KeepForeign(const Place& place, const KeptVersion& original, const Content& present);

 private:
  void Adopt(const Place& place, const std::string& present_sha256);
  void StoreVersion(const Place& place, const Content& present, const std::string& sha256);
  void StoreContent(const std::string& sha256, ByteView bytes);
  // Drops further versions, the oldest first, until so many bytes more stay below the limit.
  void MakeRoom(uint64_t bytes);
  void Drop(const Place& place, const KeptVersion& version);
  void NotePut(const Place& place, LastPut put);
  void Note(Event event);
  // Writes the lines that were noted. `durable`: they are on the disk when this returns.
  void WriteNotes(bool durable);
  void CompactWhenLong();

  std::string folder_;
  std::shared_ptr<FileLock> turn_;
  Index index_;
  std::string notes_;
  uint64_t index_bytes_ = 0;
  bool awaits_disk_ = false;
  uint64_t look_again_from_ = 0;   // bytes of the index from which writing it anew may be worth it
  bool knows_all_ = true;          // of what the file holds
  bool has_flushed_name_ = false;  // the index's own name is on the disk
};

}  // namespace kestrun::originals
