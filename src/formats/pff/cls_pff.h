// The game's PFF archive: one file that holds many small named files, with a table of entries behind the data
// (docs/formats/pff.md). Changes are staged in memory and reach the disk at SavePffFile; data that is in the file
// already stays where it is. The class never rewrites or compacts an archive. It keeps no file open between operations.
//
// Errors of its own, raised after the event PFFError has told them:
//   1030 "Cannot continue this file is waiting to be saved."
//   1031 "No pff file loaded."
//   1032 "Max file name size: 16 characters."
//   1033 "File not found."
//   1034 "This additional information is too big for this kind of PFF file."
//   1035 "You cannot change the file name of an existsing file. First Create a new pff file!"
// and standard errors: 5 for a name that the code page cannot hold, 6 past 2 GB, 9 for an entry that does not exist,
// 61 for a disk without room for a save, 62 for data that lies outside the file, 70 for an archive that another process
// changes, 321 for changing an archive that could not be read or for writing where an entry claims a place over the
// header, over the table or behind the end, and the file layer's own.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "base/object.h"
#include "formats/pff/pff_change.h"
#include "formats/pff/pff_layout.h"
#include "formats/pff/pff_names.h"

namespace kestrun {

class ClsPFF final : public TableObject {
 public:
  // Progress of the running operation, 0 at its end.
  std::function<void(int16_t value)> PFFPorgress;
  std::function<void(int32_t number, const std::string& description)> PFFError;
  // What was done about a save of the archive that had been cut short, in one sentence; a box when nobody listens.
  std::function<void(const std::string& sentence)> Recovered;

  // An index is an entry's number from 0, or its name; a numeric text counts as a number. A name that is not found
  // raises 1033, a number outside the table 9.
  using Index = const Variant&;

  [[nodiscard]] bool IsNewPFF() const { return is_new_; }
  [[nodiscard]] const std::string& OpenFileName() const { return path_; }
  // Only between NewPffFile and the first save; 1035 otherwise.
  void SetOpenFileName(const std::string& path);
  [[nodiscard]] bool Edited() const { return edited_; }
  [[nodiscard]] int32_t PFFTotalFiles() const { return working_.total_files; }
  [[nodiscard]] int32_t PFFTableOffset() const { return working_.table_offset; }
  [[nodiscard]] int32_t PFFItemInfoSize() const { return item_info_size_; }
  [[nodiscard]] int32_t PFFItemSize() const { return working_.item_size; }
  [[nodiscard]] int32_t PFFVersion() const { return working_.version; }
  void SetPFFVersion(int32_t version);

  [[nodiscard]] int32_t FilePackDate(Index index);
  void SetFilePackDate(Index index, int32_t pack_date);
  [[nodiscard]] std::string FileName(Index index);
  // Stores the name blank-padded, cut at 16 bytes without a word.
  void SetFileName(Index index, std::string_view name);
  [[nodiscard]] int32_t FileLength(Index index);
  [[nodiscard]] int32_t FileOffset(Index index);
  [[nodiscard]] bool FileDeleted(Index index);
  // Deletes whatever the value: sets the flag and puts character 127 in the place of the name's last character. The
  // entry and its data stay in the file.
  void SetFileDeleted(Index index, bool value);
  [[nodiscard]] int32_t FileInfo(Index index);
  // By name only when PFFItemInfoSize is at least 4, as in an archive that NewPffFile made; 1034 otherwise.
  void SetFileInfo(Index index, int32_t info);
  // CRC-32 (reflected polynomial 0xEDB88320) of the entry from its second byte on. By number only: a name raises 13.
  [[nodiscard]] int32_t FileCRC32(Index index);

  // All fields of one entry; the result is the run-time error's number, 0 on success.
  [[nodiscard]] int32_t GetPFFInfo(int32_t number, int32_t& pack_date, std::string& name, int32_t& length,
                                   int32_t& offset, std::string& info, bool& deleted);
  // Writes the fields as they are given and does not count as an edit. Result as above.
  [[nodiscard]] int32_t WritePFFInfo(int32_t number, int32_t pack_date, std::string_view name, std::string_view info,
                                     bool deleted);

  // Reads an entry, or its staged bytes, into the buffer, and to a file when the destination is not empty. An entry of
  // length 0 raises 9.
  bool ExtractFile(int32_t number, Bytes& buffer, const std::string& destination);
  // Starts an empty archive in memory: "PFF3", 36-byte records. No file is touched.
  void NewPffFile(const std::string& path);
  // Reads header and table, after an earlier save that was cut short has been undone. False, with the event PFFError,
  // for any failure; nothing is raised. Where no file is, what is packed then makes a new archive.
  [[nodiscard]] bool LoadPff(const std::string& path);
  // Writes header, staged data, table and trailer in place; what else is in the file stays. The file changes whole and
  // durably or not at all, whatever ends the save (docs/formats/pff_journal.md). Error 70 when another process has
  // changed the archive since it was read.
  void SavePffFile();
  // From now on the journal's file stays beside the archive between saves, so that the next one needs no new room on
  // the disk, until pff::RemoveRestingJournals.
  void LetJournalRest() { journal_afterwards_ = pff::Change::Journal::kRests; }
  // Gives what is staged its place in the file as a save would, but writes it with the next SavePffFile: files that are
  // packed one after the other with this between them lie as if each had been saved alone.
  void SettleStaged();
  // Reads a whole outside file. A failure, a missing or an empty file among them, is told by the event and gives an
  // empty buffer; nothing is raised.
  const Bytes& FileBuffer(const std::string& path, Bytes& buffer);
  // Stages a file under a name of at most 16 bytes, in the place of an entry of that name or as a new one.
  bool PackFile(ByteView buffer, const std::string& name);

  [[nodiscard]] static std::string GetFileExt(std::string_view name);
  // Number of the staged element under exactly that name, 0 when there is none.
  [[nodiscard]] int32_t FileWaiting(std::string_view name) const;
  // Finds an entry by name without regard to case and padding; deleted entries count. Index -1 when there is none.
  [[nodiscard]] bool PFFFileExists(std::string_view name, int32_t& index) const;
  // Takes every NUL and every character 127 away, then blanks at both ends.
  [[nodiscard]] static std::string ZTrim(std::string_view text);

  [[nodiscard]] std::string TypeName() const override { return "ClsPFF"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  struct Staged {
    int32_t position = 0;               // 1-based place in the file, or kAppend
    std::shared_ptr<const Bytes> data;  // null while it is empty
  };
  // What the file held when it was last read or written.
  struct OnDisk {
    pff::Header header;
    std::vector<pff::Entry> entries;
    bool is_there = false;
  };
  // What a failed load leaves: nothing to lose, or a file that may not be written over.
  enum class Readable { kYes, kNo };

  void Progress(int value) const;
  [[noreturn]] void RaiseOwn(int32_t number) const;
  [[noreturn]] void RaiseTold(const RuntimeError& failure) const;
  void RequirePath() const;
  void RequireReadable() const;
  [[nodiscard]] std::string RequireName(const std::string& name) const;
  void StartHeaders();
  void ReadTable(const std::string& path);
  void TellRecovery(const std::string& path) const;
  [[nodiscard]] bool IsAsLastSeen() const;
  void RequireUnchanged() const;
  void AddStaged(pff::Change& change, const std::function<void(int element)>& added) const;
  void ReadStored(const pff::Entry& entry, Bytes& buffer) const;
  [[nodiscard]] size_t Resolve(Index index);
  [[nodiscard]] pff::Entry& EntryAt(Index index) { return entries_[Resolve(index)]; }
  [[nodiscard]] bool ReplaceStaged(int32_t element, ByteView buffer);
  [[nodiscard]] int32_t PlaceExisting(pff::Entry& entry, int32_t length);
  [[nodiscard]] int32_t AppendEntry(int32_t length);
  [[nodiscard]] int32_t TableMovedBy(int32_t bytes) const;
  [[nodiscard]] Staged& StagedAt(size_t element);
  void CheckPlace(const pff::Entry& entry, int32_t length) const;
  [[noreturn]] void RefusePlace(const pff::Entry& entry, const std::string& place) const;
  void NoteRenamed(const pff::Entry& entry);
  void Reset(const std::string& path);

  std::vector<pff::Entry> entries_;
  mutable pff::NameIndex names_;
  pff::Header working_;
  bool edited_ = false;
  bool is_new_ = false;
  std::string path_;
  pff::Header saved_;
  std::vector<Staged> queue_ = std::vector<Staged>(1);  // element 0 is never used
  std::map<std::string, int32_t> waiting_;              // queue element by lower-case trimmed name
  int32_t item_info_size_ = 0;
  uint64_t file_bytes_ = 0;  // of the archive with what has its place in it
  OnDisk on_disk_;
  pff::Change settled_;  // has its place and is not written yet
  Readable readable_ = Readable::kYes;
  pff::Change::Journal journal_afterwards_ = pff::Change::Journal::kRemoved;
};

}  // namespace kestrun
