#include "styles/style_project.h"

#include <string_view>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/pff/pff_recovery.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "platform/turn.h"
#include "program/path_text.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr const char* kWorkingMark = "~$";
constexpr const char* kNewProject = "~$newstyle.stl";
constexpr const char* kManifest = "assembly.txt";
constexpr int kMostWorkingCopies = 20;  // of one project; each is looked for when it is opened
constexpr uint32_t kEndOfTurnMs = 1000;
constexpr uint32_t kAskAgainMs = 50;

// A save that was cut short is undone before the file is copied. A box says so, as it does when an archive is opened.
void RecoverWithWord(const std::string& path) {
  if (const auto sentence = pff::RecoverArchive(path)) MsgBox(*sentence);
}

// The path of a working copy by its number: "~$name", "~2$name", "~3$name". The number stands inside of the mark:
// behind it, "2name" could be a project's own name.
std::string NumberedCopy(const std::string& first, int number) {
  if (number == 1) return first;
  const size_t mark = first.find_last_of("\\/") + 1;
  return first.substr(0, mark) + "~" + std::to_string(number) + "$" +
         first.substr(mark + std::string_view(kWorkingMark).size());
}

// Whose working copy it is.
struct CopyTurn {
  bool is_free = false;  // no other program has it
  std::shared_ptr<FileLock> lock;
};

// The file of a turn that ends at this moment names nobody: it is asked again. Where the system cannot lock at all,
// a copy without a name in such a file is free; a folder that takes no file takes no working copy either, which is told
// then.
CopyTurn TakeCopyTurn(const std::string& copy) {
  FileSystem& files = platform().files();
  const std::string path = copy + ".open";
  for (uint32_t waited = 0; waited <= kEndOfTurnMs; waited += kAskAgainMs) {
    std::shared_ptr<FileLock> lock;
    const bool was_asked = Attempt([&] { lock = files.TryLock(path, platform().program().ExeName()); });
    if (lock) return {true, lock};
    const bool is_known = files.ReadLockHolder(path).process != 0;
    if (is_known || !was_asked) return {!is_known, nullptr};
    platform().clock().SleepMs(kAskAgainMs);
  }
  return {};
}

}  // namespace

// The working copies of a project that stand in its folder, and the one to work on.
struct StyleProject::Copies {
  std::string own;                 // to work on from now on
  std::shared_ptr<FileLock> turn;  // at it
  bool is_left = false;            // it was there, and nobody has it any more
  std::string others;              // that another program works on; empty for none
};

// Of those that were left, by whichever program, the one that was written last; the others wait for the next opening.
StyleProject::Copies StyleProject::FindCopies(const std::string& first) {
  Copies copies;
  uint64_t written_last = 0;
  for (int number = 1; number <= kMostWorkingCopies; ++number) {
    const std::string name = NumberedCopy(first, number);
    if (!FileExists(name)) continue;
    CopyTurn turn = TakeCopyTurn(name);
    if (!turn.is_free) {
      if (copies.others.empty()) copies.others = name;
      continue;
    }
    if (!FileExists(name)) continue;  // its program has just closed it
    uint64_t written = 0;
    Attempt([&] { written = platform().files().WriteTime(name); });
    if (copies.is_left && written <= written_last) continue;
    copies.own = name;
    copies.turn = std::move(turn.lock);
    copies.is_left = true;
    written_last = written;
  }
  if (!copies.is_left) TakeNewCopy(first, copies);
  return copies;
}

void StyleProject::TakeNewCopy(const std::string& first, Copies& copies) {
  for (int number = 1; number <= kMostWorkingCopies; ++number) {
    const std::string name = NumberedCopy(first, number);
    CopyTurn turn = TakeCopyTurn(name);
    if (!turn.is_free) continue;
    copies.own = name;
    copies.turn = std::move(turn.lock);
    return;
  }
  Raise(error::kPermissionDenied);
}

std::string StyleProject::WorkingCopyOf(const std::string& file) {
  if (file.empty()) return AppFile(kNewProject);
  const size_t name = file.find_last_of("\\/") + 1;
  return file.substr(0, name) + kWorkingMark + file.substr(name);
}

StyleProject::Opened StyleProject::Open(const std::string& file, const std::function<bool()>& takes_copy) {
  Opened opened = Opened::kMissing;
  OnFailure([&] { opened = Load(file, takes_copy); }, [this](const RuntimeError&) { *this = StyleProject(); });
  return opened;
}

StyleProject::Opened StyleProject::Load(const std::string& file, const std::function<bool()>& takes_copy) {
  file_ = file;
  archive_ = MakeRef<ClsPFF>();
  working_file_.clear();
  turn_ = nullptr;
  if (!file.empty() && !FileExists(file)) return Opened::kMissing;
  const std::string first = WorkingCopyOf(file);
  if (file.empty()) {
    Copies copies;
    TakeNewCopy(first, copies);
    TakeCopy(copies);
    archive_->NewPffFile(working_file_);
    archive_->PackFile(Bytes{0}, kManifest);
    return Opened::kNew;
  }
  const Copies copies = FindCopies(first);
  TakeCopy(copies);
  const bool takes_there = (copies.is_left || !copies.others.empty()) && takes_copy();
  // While the question stood the other program may have closed the project, and its copy is gone then.
  if (!takes_there || (!copies.is_left && !FileExists(copies.others))) {
    TakeFile(file);
  } else if (!copies.is_left) {
    TakeOthers(copies.others);
  }
  return archive_->LoadPff(working_file_) ? Opened::kLoaded : Opened::kUnreadable;
}

void StyleProject::TakeCopy(const Copies& copies) {
  working_file_ = copies.own;
  turn_ = copies.turn;
}

// What is left of a save of the copy that was given up is settled first: it would be taken for the new copy's.
void StyleProject::TakeFile(const std::string& file) const {
  RecoverWithWord(file);
  Attempt([this] { static_cast<void>(pff::RecoverArchive(working_file_)); });
  platform().files().CopyDurably(file, working_file_);
}

// The other program may be in the middle of a save: its copy is read in its turn.
void StyleProject::TakeOthers(const std::string& copy) const {
  std::shared_ptr<FileLock> turn;
  try {
    turn = TakeTurn(copy);
  } catch (const RuntimeError& failure) {
    throw FileError(failure, copy);
  }
  TakeFile(copy);
}

Ref<ClsPFF> StyleProject::RequireArchive() const {
  if (!archive_) Raise(error::kObjectNotSet);
  return archive_;
}

std::vector<ProjectEntry> StyleProject::Entries() const {
  RequireArchive();
  std::vector<ProjectEntry> entries;
  for (int32_t number = 0; number < archive_->PFFTotalFiles(); ++number) {
    if (!archive_->FileDeleted(number)) entries.push_back({number, archive_->FileName(number)});
  }
  return entries;
}

Bytes StyleProject::Read(const std::string& name) const {
  RequireArchive();
  int32_t number = -1;
  if (!archive_->PFFFileExists(name, number)) Raise(error::kFileNotFound);
  Bytes bytes;
  archive_->ExtractFile(number, bytes, "");
  return bytes;
}

void StyleProject::CopyTo(const std::string& target) const {
  FileSystem& files = platform().files();
  if (EqualsNoCase(files.TruePath(target), files.TruePath(working_file_))) return;
  files.CopyDurably(working_file_, target);
}

void StyleProject::RemoveWorkingCopy() {
  if (!working_file_.empty() && FileExists(working_file_)) platform().files().Delete(working_file_);
  turn_ = nullptr;
}

}  // namespace kestrun
