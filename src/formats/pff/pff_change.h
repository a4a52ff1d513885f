// What a save writes into an archive, and how it gets there: whole or not at all.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "platform/files.h"

namespace kestrun::pff {

// Bytes for places in a file. Where two overlap the later one counts, as if they were written one after the other.
class Change {
 public:
  // Shares the bytes; they do not change any more.
  void Add(uint64_t offset, std::shared_ptr<const Bytes> bytes);
  // Bytes that stay where they are as long as the change is used.
  void AddBorrowed(uint64_t offset, ByteView bytes);
  [[nodiscard]] bool IsEmpty() const { return pieces_.empty(); }
  // Where the last byte ends.
  [[nodiscard]] uint64_t End() const;
  // Puts what lies in that range over what the file has there.
  void Overlay(uint64_t offset, MutableByteView buffer) const;

  // What becomes of the journal of a save that is done.
  enum class Journal {
    kRemoved,
    kRests,  // its file stays for the next save, which then needs no new room, until RemoveRestingJournals
  };
  // Writes the change into the file, made if it is missing, under a journal: when this returns the change is there and
  // durable; when it raises, or the process or the power ends meanwhile, the file is as before once RecoverArchive has
  // seen it. Blocks that are the same already are not written. The descriptions of what it raises name the file and say
  // that it is left as it was. The caller holds the file's turn.
  void Commit(const std::string& path, Journal afterwards = Journal::kRemoved) const;

 private:
  struct Piece {
    std::shared_ptr<const Bytes> owner;  // null for borrowed bytes
    ByteView bytes;
  };

  void AddPiece(uint64_t offset, Piece piece);
  void Cut(uint64_t start, uint64_t end);

  std::map<uint64_t, Piece> pieces_;  // by offset; none overlaps the next
};

}  // namespace kestrun::pff
