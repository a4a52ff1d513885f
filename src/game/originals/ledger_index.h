// The index of the ledger of originals: which content of the game was replaced, by what, and under which hash it is
// kept (docs/safety.md). A text file that only grows: one line an event, columns parted by tabs. What the ledger knows
// is the sum of its lines. A line that is torn, or that is none, is passed over.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace kestrun::originals {

// What is replaced: an entry of an archive, or a loose file. Names compare without regard to case.
struct Place {
  std::string folder;  // full path with "\", without one at its end
  std::string file;    // plain file name in that folder: the archive, or the loose file itself
  std::string entry;   // empty for a loose file

  [[nodiscard]] std::string Path() const { return folder + "\\" + file; }
  // What the user calls it: the entry, else the file.
  [[nodiscard]] const std::string& Name() const { return entry.empty() ? file : entry; }
  [[nodiscard]] std::string Key() const;
  // The same without the folder.
  [[nodiscard]] std::string NameKey() const;
};

// A content that was there before the program replaced it. The first of a place is its original.
struct KeptVersion {
  std::string sha256;   // empty: there was no such file
  uint64_t length = 0;  // bytes
  int32_t pack_date = 0;
  int32_t info = 0;
  std::string when;  // local time, "2026-11-21 15:49:26"

  [[nodiscard]] bool IsAbsence() const { return sha256.empty(); }
};

// What the program last put there, or was about to.
struct LastPut {
  std::string sha256;
  uint64_t length = 0;
  std::string over;    // hash of what was there; empty when nothing was
  std::string source;  // where it came from
  std::string when;
};

struct Record {
  Place place;
  std::vector<KeptVersion> versions;
  std::optional<LastPut> put;

  [[nodiscard]] const KeptVersion* Find(std::string_view sha256) const;
  // True when the program put that content there last. A put that was noted and then did not happen leaves what was
  // there before: that is the program's own too, unless it is one of the versions.
  [[nodiscard]] bool IsOurs(std::string_view sha256) const;
};

enum class EventKind { kKept, kNone, kPut, kDropped };

// One line.
struct Event {
  EventKind kind = EventKind::kKept;
  Place place;
  KeptVersion version;  // of kKept, kNone and kDropped
  LastPut put;          // of kPut
  std::string when{};   // set by the ledger
};

class Index {
 public:
  // Never fails: what cannot be understood is passed over.
  static Index Parse(ByteView text);

  void Apply(const Event& event);

  [[nodiscard]] const std::map<std::string, Record>& records() const { return records_; }
  [[nodiscard]] const Record* Find(const Place& place) const;
  // The records of the same file and entry, whatever their folder.
  [[nodiscard]] std::vector<const Record*> FindInAnyFolder(const Place& place) const;
  // Bytes of all contents that are kept, each counted once.
  [[nodiscard]] uint64_t KeptBytes() const { return kept_bytes_; }
  [[nodiscard]] bool HoldsContent(const std::string& sha256) const { return contents_.contains(sha256); }
  // The version that has been kept longest of all that are no place's first, and its place; null when there is none.
  [[nodiscard]] const KeptVersion* OldestFurther(Place& place) const;
  // The lines that say all that is known, and behind them those that could not be understood, as they were.
  [[nodiscard]] std::string Compacted() const;

 private:
  struct Held {
    uint64_t length = 0;
    size_t versions = 0;
  };
  // A version that is no place's first.
  struct Further {
    std::string place_key;
    std::string sha256;

    bool operator==(const Further&) const = default;
  };

  void AddVersion(Record& record, const KeptVersion& version);
  void DropVersion(Record& record, std::string_view sha256);

  std::map<std::string, Record> records_;                              // by Place::Key
  std::map<std::string, std::vector<std::string>> keys_of_same_name_;  // keys of records, by Place::NameKey
  std::map<std::string, Held> contents_;                               // by their hash
  std::multimap<std::string, Further> further_;                        // by the time since when they are kept
  uint64_t kept_bytes_ = 0;
  std::vector<std::string> not_understood_;
};

// The line of an event, with its line end.
[[nodiscard]] std::string LineOf(const Event& event);
// The lines at the head of a new index: comments that name the columns.
[[nodiscard]] std::string_view IndexHead();

}  // namespace kestrun::originals
