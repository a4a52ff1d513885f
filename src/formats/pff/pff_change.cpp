#include "formats/pff/pff_change.h"

#include <algorithm>
#include <optional>

#include "base/runtime_error.h"
#include "formats/pff/pff_journal.h"
#include "formats/pff/pff_recovery.h"
#include "platform/platform.h"

namespace kestrun::pff {
namespace {

// One place of the file whose bytes become others.
struct Run {
  uint64_t offset = 0;
  ByteView bytes;
};

// One change on its way into one file.
class Saving {
 public:
  Saving(const std::string& path, uint64_t end, Change::Journal afterwards)
      : path_(path),
        journal_path_(JournalPath(path)),
        rests_(afterwards == Change::Journal::kRests),
        existed_(platform().files().Exists(path)) {
    if (existed_) file_ = platform().files().Open(path_, OpenMode::kReadWrite);
    old_bytes_ = existed_ ? file_->Size() : 0;
    new_bytes_ = std::max(old_bytes_, end);
  }

  void BeginJournal() {
    FileSystem& files = platform().files();
    has_room_ = rests_ && files.Exists(journal_path_);
    journal_ = files.Open(journal_path_, has_room_ ? OpenMode::kReadWrite : OpenMode::kCreate);
    writer_.emplace(*journal_, JournalHeader{existed_, old_bytes_, new_bytes_});
  }

  // Notes what the bytes are about to overwrite, and forgets the blocks that are the same already.
  void Note(uint64_t offset, ByteView bytes) {
    for (size_t at = 0; at < bytes.size();) {
      const size_t count = std::min(kMostRecordBytes, bytes.size() - at);
      NotePart(offset + at, bytes.subspan(at, count));
      at += count;
    }
  }

  [[nodiscard]] bool ChangesNothing() const { return existed_ && runs_.empty() && new_bytes_ == old_bytes_; }

  void FinishJournal() {
    writer_->Finish(rests_ ? kRestingStep : 1);
    if (!has_room_) platform().files().FlushFolder(FolderPart(journal_path_));
  }

  void WriteFile() {
    if (!existed_) file_ = platform().files().Open(path_, OpenMode::kReadWrite);
    file_->Reserve(new_bytes_);
    for (const Run& run : runs_) file_->WriteAt(run.offset, run.bytes);
    file_->Flush();
    file_->Close();
    file_.reset();
    if (!existed_) platform().files().FlushFolder(FolderPart(journal_path_));
  }

  // A journal that stays behind a whole save is recognised by the next use.
  void EndJournal() {
    if (!rests_ || !Attempt([this] { RestJournal(); })) DropJournal();
  }

  void DropJournal() {
    journal_.reset();
    Attempt([&] { platform().files().Delete(journal_path_); });
  }

  [[noreturn]] void RaiseUnchanged(const RuntimeError& failure) const {
    if (failure.number() == error::kDiskFull) {
      Raise(error::kDiskFull, "The disk is full: there is no room for what goes into the archive '" + path_ +
                                  "', which is left as it was.");
    }
    Raise(failure.number(), failure.description() + ": the archive '" + path_ + "' is left as it was.");
  }

  [[noreturn]] void UndoAndRaise(const RuntimeError& failure) {
    file_.reset();
    journal_.reset();
    if (Attempt([&] { RollBack(path_); })) RaiseUnchanged(failure);
    Raise(failure.number(), failure.description() + ": the archive '" + path_ +
                                "' could not be put back yet. Its next use puts it back from '" + journal_path_ + "'.");
  }

 private:
  // The next journal finds room in steps of this size.
  static constexpr uint64_t kRestingStep = uint64_t{64} * 1024;

  void RestJournal() {
    MarkAsResting(*journal_);
    journal_->Close();
    journal_.reset();
    NoteResting(path_);
  }

  void NotePart(uint64_t offset, ByteView bytes) {
    old_.resize(kMostRecordBytes);
    const MutableByteView room = MutableByteView(old_).first(bytes.size());
    const ByteView old = ByteView(old_).first(existed_ ? file_->ReadAt(offset, room) : 0);
    const uint64_t end = offset + bytes.size();
    uint64_t run_start = offset;
    for (uint64_t at = offset; at < end;) {
      const size_t part = BlockPart(at, end);
      if (IsSame(old, bytes, static_cast<size_t>(at - offset), part)) {
        AddRun(offset, run_start, at, old, bytes);
        run_start = at + part;
      }
      at += part;
    }
    AddRun(offset, run_start, end, old, bytes);
  }

  static bool IsSame(ByteView old, ByteView bytes, size_t start, size_t count) {
    if (start + count > old.size()) return false;
    const ByteView fresh = bytes.subspan(start, count);
    return std::equal(fresh.begin(), fresh.end(), old.begin() + static_cast<std::ptrdiff_t>(start));
  }

  void AddRun(uint64_t offset, uint64_t run_start, uint64_t run_end, ByteView old, ByteView bytes) {
    if (run_start == run_end) return;
    const auto start = static_cast<size_t>(run_start - offset);
    const auto count = static_cast<size_t>(run_end - run_start);
    const size_t old_count = start < old.size() ? std::min(count, old.size() - start) : 0;
    const ByteView fresh = bytes.subspan(start, count);
    writer_->Add(run_start, old.subspan(std::min(start, old.size()), old_count), fresh);
    runs_.push_back({run_start, fresh});
  }

  const std::string& path_;
  std::string journal_path_;
  bool rests_;             // the journal, when the save is done
  bool has_room_ = false;  // an earlier journal's
  bool existed_;
  uint64_t old_bytes_ = 0;
  uint64_t new_bytes_ = 0;
  std::unique_ptr<File> file_;
  std::unique_ptr<File> journal_;
  std::optional<JournalWriter> writer_;
  std::vector<Run> runs_;
  Bytes old_;  // room for what is read of the archive
};

}  // namespace

void Change::Add(uint64_t offset, std::shared_ptr<const Bytes> bytes) {
  const ByteView view(*bytes);
  AddPiece(offset, {std::move(bytes), view});
}

void Change::AddBorrowed(uint64_t offset, ByteView bytes) { AddPiece(offset, {nullptr, bytes}); }

void Change::AddPiece(uint64_t offset, Piece piece) {
  if (piece.bytes.empty()) return;
  Cut(offset, offset + piece.bytes.size());
  pieces_[offset] = std::move(piece);
}

// Frees a range: pieces in it go, pieces that reach into it lose that part.
void Change::Cut(uint64_t start, uint64_t end) {
  auto at = pieces_.lower_bound(start);
  if (at != pieces_.begin()) --at;
  while (at != pieces_.end() && at->first < end) {
    const uint64_t piece_start = at->first;
    const uint64_t piece_end = piece_start + at->second.bytes.size();
    if (piece_end <= start) {
      ++at;
      continue;
    }
    const Piece piece = at->second;
    at = pieces_.erase(at);
    if (piece_start < start) {
      pieces_[piece_start] = {piece.owner, piece.bytes.first(static_cast<size_t>(start - piece_start))};
    }
    if (piece_end > end) {
      pieces_[end] = {piece.owner, piece.bytes.last(static_cast<size_t>(piece_end - end))};
    }
  }
}

uint64_t Change::End() const {
  if (pieces_.empty()) return 0;
  const auto& [offset, piece] = *pieces_.rbegin();
  return offset + piece.bytes.size();
}

void Change::Overlay(uint64_t offset, MutableByteView buffer) const {
  const uint64_t end = offset + buffer.size();
  auto at = pieces_.upper_bound(offset);
  if (at != pieces_.begin()) --at;
  for (; at != pieces_.end() && at->first < end; ++at) {
    const auto& [start, piece] = *at;
    const uint64_t from = std::max(start, offset);
    const uint64_t to = std::min(start + piece.bytes.size(), end);
    if (from >= to) continue;
    const ByteView part = piece.bytes.subspan(static_cast<size_t>(from - start), static_cast<size_t>(to - from));
    std::copy(part.begin(), part.end(), buffer.begin() + static_cast<std::ptrdiff_t>(from - offset));
  }
}

void Change::Commit(const std::string& path, Journal afterwards) const {
  Saving saving(path, End(), afterwards);
  try {
    saving.BeginJournal();
    for (const auto& [offset, piece] : pieces_) saving.Note(offset, piece.bytes);
    if (saving.ChangesNothing()) return saving.EndJournal();
    saving.FinishJournal();
  } catch (const std::exception&) {
    saving.DropJournal();
    saving.RaiseUnchanged(CurrentError());
  }
  try {
    saving.WriteFile();
  } catch (const std::exception&) {
    saving.UndoAndRaise(CurrentError());
  }
  saving.EndJournal();
}

}  // namespace kestrun::pff
