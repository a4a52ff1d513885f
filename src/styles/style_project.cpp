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

StyleProject::Opened StyleProject::Open(const std::string& file, const std::function<bool()>& takes_copy) {
  Opened opened = Opened::kMissing;
  OnFailure([&] { opened = Load(file, takes_copy); }, [this](const RuntimeError&) { *this = StyleProject(); });
  return opened;
}

StyleProject::Opened StyleProject::Load(const std::string& file, const std::function<bool()>& takes_copy) {
  file_ = file;
  archive_ = MakeRef<ClsPFF>();
  working_file_ = WorkingCopyOf(file);
  if (!file.empty() && !FileExists(file)) {
    working_file_.clear();
    return Opened::kMissing;
  }
  if (file.empty()) {
    archive_->NewPffFile(working_file_);
    archive_->PackFile(Bytes{0}, kManifest);
    return Opened::kNew;
  }
  if (!FileExists(working_file_) || !takes_copy()) TakeFile(file);
  return archive_->LoadPff(working_file_) ? Opened::kLoaded : Opened::kUnreadable;
}

// What is left of a save of the copy that was given up is settled first: it would be taken for the new copy's.
void StyleProject::TakeFile(const std::string& file) const {
  RecoverWithWord(file);
  Attempt([this] { static_cast<void>(pff::RecoverArchive(working_file_)); });
  platform().files().CopyDurably(file, working_file_);
}

std::vector<ProjectEntry> StyleProject::Entries() const {
  if (!archive_) Raise(error::kObjectNotSet);
  std::vector<ProjectEntry> entries;
  for (int32_t number = 0; number < archive_->PFFTotalFiles(); ++number) {
    if (!archive_->FileDeleted(number)) entries.push_back({number, archive_->FileName(number)});
  }
  return entries;
}

Bytes StyleProject::Read(const std::string& name) const {
  if (!archive_) Raise(error::kObjectNotSet);
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
}

}  // namespace kestrun
