#include "styles/style_project.h"

#include "base/text.h"
#include "formats/pff/pff_recovery.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr const char* kWorkingMark = "~$";
constexpr const char* kNewProject = "~$newstyle.stl";
constexpr const char* kManifest = "assembly.txt";
constexpr int kMostWorkingCopies = 100;  // of one project at the same time

// A save that was cut short is undone before the file is copied. A box says so, as it does when an archive is opened.
void RecoverWithWord(const std::string& path) {
  if (const auto sentence = pff::RecoverArchive(path)) MsgBox(*sentence);
}

}  // namespace

std::string StyleProject::WorkingCopyOf(const std::string& file) {
  if (file.empty()) return AppFile(kNewProject);
  const size_t name = file.find_last_of("\\/") + 1;
  return file.substr(0, name) + kWorkingMark + file.substr(name);
}

// A folder that takes no file for the turn takes no working copy either, which is told then.
std::string StyleProject::ReserveWorkingFile(const std::string& first) {
  const size_t mark_end = first.find_last_of("\\/") + 1 + std::string_view(kWorkingMark).size();
  std::string name = first;
  for (int number = 2; number <= kMostWorkingCopies; ++number) {
    bool is_free = true;
    Attempt([&] {
      turn_ = platform().files().TryLock(name + ".open", platform().program().ExeName());
      is_free = turn_ != nullptr;
    });
    if (is_free) return name;
    name = first.substr(0, mark_end) + std::to_string(number) + first.substr(mark_end);
  }
  Raise(error::kPermissionDenied);
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
  working_file_ = ReserveWorkingFile(first);
  if (file.empty()) {
    archive_->NewPffFile(working_file_);
    archive_->PackFile(Bytes{0}, kManifest);
    return Opened::kNew;
  }
  const bool takes_first = FileExists(first) && takes_copy();
  if (!takes_first || working_file_ != first) TakeFile(takes_first ? first : file);
  return archive_->LoadPff(working_file_) ? Opened::kLoaded : Opened::kUnreadable;
}

// What is left of a save of the copy that was given up is settled first: it would be taken for the new copy's.
void StyleProject::TakeFile(const std::string& file) const {
  RecoverWithWord(file);
  Attempt([this] { static_cast<void>(pff::RecoverArchive(working_file_)); });
  platform().files().CopyDurably(file, working_file_);
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
