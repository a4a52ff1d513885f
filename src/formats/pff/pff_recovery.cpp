#include "formats/pff/pff_recovery.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "base/runtime_error.h"
#include "formats/pff/pff_journal.h"
#include "platform/platform.h"
#include "platform/turn.h"

namespace kestrun::pff {
namespace {

// What an archive is, measured by its journal.
enum class State {
  kOld,      // the save had not begun
  kHalf,     // some blocks are new
  kNew,      // all blocks are new
  kUnknown,  // something else has changed it since, or the journal is another archive's
};

// Which of the two states the blocks that were looked at leave open.
struct Findings {
  bool can_be_old = true;
  bool can_be_new = true;
  bool is_known = true;
  uint64_t covered_bytes = 0;  // of the archive as it is

  [[nodiscard]] State ToState() const {
    if (!is_known) return State::kUnknown;
    if (can_be_old) return State::kOld;
    return can_be_new ? State::kNew : State::kHalf;
  }
};

// Behind its old end a file was given room: there it ends, or holds zeros.
bool IsOldBlock(ByteView present, ByteView old) {
  const size_t shared = std::min(present.size(), old.size());
  if (shared < old.size() || !std::equal(old.begin(), old.end(), present.begin())) return false;
  const ByteView room = present.subspan(shared);
  return std::all_of(room.begin(), room.end(), [](uint8_t byte) { return byte == 0; });
}

void LookAtRecord(File& archive, const JournalRecord& record, Findings& findings) {
  Bytes present(record.length);
  present.resize(archive.ReadAt(record.offset, present));
  const uint64_t end = record.offset + record.length;
  findings.covered_bytes += present.size();
  size_t block = 0;
  for (uint64_t at = record.offset; at < end; ++block) {
    const size_t part = BlockPart(at, end);
    const auto start = static_cast<size_t>(at - record.offset);
    const auto cut = [start, part](ByteView bytes) {
      return start >= bytes.size() ? ByteView() : bytes.subspan(start, std::min(part, bytes.size() - start));
    };
    const ByteView there = cut(present);
    const bool is_old = IsOldBlock(there, cut(record.old));
    const bool is_new = there.size() == part && Checksum(there) == record.checks[block];
    findings.is_known &= is_old || is_new;
    findings.can_be_old &= is_old;
    findings.can_be_new &= is_new;
    at += part;
  }
}

State LookAtArchive(const std::string& path, JournalReader& journal) {
  const JournalHeader& header = journal.header();
  FileSystem& files = platform().files();
  if (!files.Exists(path)) return header.existed ? State::kUnknown : State::kOld;
  const std::unique_ptr<File> archive = files.Open(path, OpenMode::kRead);
  const uint64_t bytes = archive->Size();
  Findings findings;
  findings.can_be_old = header.existed && bytes == header.old_bytes;
  findings.can_be_new = bytes == header.new_bytes;
  findings.is_known = bytes >= header.old_bytes && bytes <= header.new_bytes;
  if (!findings.is_known) return State::kUnknown;
  journal.ForEach([&](const JournalRecord& record) {
    LookAtRecord(*archive, record, findings);
    return findings.is_known;
  });
  // An archive that the save made holds nothing but what the save wrote.
  if (!header.existed && findings.covered_bytes != bytes) return State::kUnknown;
  return findings.ToState();
}

void RemoveJournal(const std::string& journal_path) { platform().files().Delete(journal_path); }

// The block in which the old archive ended is made old as a whole, with zeros behind the end: half of it old and half
// new would be neither for the next look at it.
Bytes OldBlocks(const JournalRecord& record) {
  Bytes bytes = record.old;
  const uint64_t old_end = record.offset + bytes.size();
  const uint64_t end = record.offset + record.length;
  if (!bytes.empty() && old_end < end && old_end % kBlockBytes != 0)
    bytes.resize(bytes.size() + BlockPart(old_end, end));
  return bytes;
}

void PutOldBytesBack(const std::string& path, JournalReader& journal) {
  FileSystem& files = platform().files();
  if (!journal.header().existed) {
    if (files.Exists(path)) files.Delete(path);
    return files.FlushFolder(FolderPart(path));
  }
  const std::unique_ptr<File> archive = files.Open(path, OpenMode::kReadWrite);
  journal.ForEach([&](const JournalRecord& record) {
    if (!record.old.empty()) archive->WriteAt(record.offset, OldBlocks(record));
    return true;
  });
  // Only what is old for sure may lose what stands behind it.
  archive->Flush();
  archive->Truncate(journal.header().old_bytes);
  archive->Flush();
  archive->Close();
}

// The process is gone, but what it wrote may not have reached the disk yet.
void MakeDurable(const std::string& path) {
  const std::unique_ptr<File> archive = platform().files().Open(path, OpenMode::kReadWrite);
  archive->Flush();
  archive->Close();
}

std::string SetAside(const std::string& journal_path) {
  FileSystem& files = platform().files();
  for (int number = 1;; ++number) {
    std::string aside = journal_path + "-" + std::to_string(number);
    if (files.Exists(aside)) continue;
    files.Rename(journal_path, aside);
    return aside;
  }
}

// Sets it aside and gives the sentence about it.
std::string DoesNotFit(const std::string& path, const std::string& journal_path) {
  return "The journal beside the archive '" + path + "' does not fit it; it was set aside as '" +
         SetAside(journal_path) + "', and the archive is left as it is.";
}

// False as well for one that its owner has just removed.
bool IsResting(const std::string& journal_path) {
  bool is_resting = false;
  Attempt([&] {
    const std::unique_ptr<File> file = platform().files().Open(journal_path, OpenMode::kRead);
    is_resting = JournalReader(*file).kind() == JournalKind::kResting;
  });
  return is_resting;
}

// Archives beside which this process has left a journal's file.
std::set<std::string>& RestingJournals() {
  static std::set<std::string> archives;
  return archives;
}

std::string RecoverFrom(const std::string& path, const std::string& journal_path) {
  const std::string cut_short = "The last change to the archive '" + path + "' was cut short";
  if (platform().files().IsFolder(journal_path)) return DoesNotFit(path, journal_path);
  std::unique_ptr<File> file = platform().files().Open(journal_path, OpenMode::kRead);
  JournalReader journal(*file);
  const State state = journal.kind() == JournalKind::kWhole  ? LookAtArchive(path, journal)
                      : journal.kind() == JournalKind::kTorn ? State::kOld
                                                             : State::kUnknown;
  if (state == State::kHalf) PutOldBytesBack(path, journal);
  if (state == State::kNew) MakeDurable(path);
  file.reset();
  if (state == State::kUnknown) return DoesNotFit(path, journal_path);
  RemoveJournal(journal_path);
  if (state == State::kOld) return cut_short + " before it began; the archive is as it was.";
  if (state == State::kNew) return cut_short + " after its last byte; it is kept.";
  return cut_short + "; it has been undone, and the archive is as it was before.";
}

}  // namespace

std::string JournalPath(const std::string& archive_path) {
  return platform().files().TruePath(archive_path) + ".journal";
}

std::optional<std::string> RecoverArchive(const std::string& archive_path) {
  FileSystem& files = platform().files();
  const std::string journal_path = JournalPath(archive_path);
  if (!files.Exists(journal_path) || IsResting(journal_path)) return std::nullopt;
  const auto turn = TakeTurn(archive_path);
  // Its owner may have finished while we waited.
  if (!files.Exists(journal_path) || IsResting(journal_path)) return std::nullopt;
  return RecoverFrom(archive_path, journal_path);
}

void NoteResting(const std::string& archive_path) {
  RestingJournals().insert(platform().files().TruePath(archive_path));
}

void RemoveRestingJournals() {
  FileSystem& files = platform().files();
  for (const std::string& archive : std::exchange(RestingJournals(), {})) {
    Attempt([&] {
      const auto turn = files.TryLock(archive + ".lock", platform().program().ExeName());
      const std::string journal_path = JournalPath(archive);
      if (turn && files.Exists(journal_path) && IsResting(journal_path)) RemoveJournal(journal_path);
    });
  }
}

void RollBack(const std::string& archive_path) {
  const std::string journal_path = JournalPath(archive_path);
  {
    const std::unique_ptr<File> file = platform().files().Open(journal_path, OpenMode::kRead);
    JournalReader journal(*file);
    if (journal.kind() != JournalKind::kWhole) Raise(error::kInvalidFileFormat);
    PutOldBytesBack(archive_path, journal);
  }
  RemoveJournal(journal_path);
}

}  // namespace kestrun::pff
