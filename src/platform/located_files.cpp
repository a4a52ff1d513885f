#include "platform/located_files.h"

#include <utility>

#include "platform/file_error.h"

namespace kestrun {
namespace {

// Runs a call and names the file in what it raises. `path` gives the file when a failure asks for it.
template <class Call, class PathOf>
auto Located(Call&& call, PathOf&& path) {
  try {
    return call();
  } catch (const FileError&) {
    throw;
  } catch (const RuntimeError& failure) {
    throw FileError(failure, std::string(path()));
  }
}

auto ThisPath(std::string_view path) {
  return [path] { return path; };
}

class LocatedFile final : public File {
 public:
  LocatedFile(std::unique_ptr<File> file, std::string_view path) : file_(std::move(file)), path_(path) {}

  uint64_t Size() override {
    return Located([&] { return file_->Size(); }, ThisPath(path_));
  }
  size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
    return Located([&] { return file_->ReadAt(offset, buffer); }, ThisPath(path_));
  }
  void WriteAt(uint64_t offset, ByteView bytes) override {
    Located([&] { file_->WriteAt(offset, bytes); }, ThisPath(path_));
  }
  void Flush() override {
    Located([&] { file_->Flush(); }, ThisPath(path_));
  }
  void Truncate(uint64_t bytes) override {
    Located([&] { file_->Truncate(bytes); }, ThisPath(path_));
  }
  void Reserve(uint64_t bytes) override {
    Located([&] { file_->Reserve(bytes); }, ThisPath(path_));
  }
  void Close() override {
    Located([&] { file_->Close(); }, ThisPath(path_));
  }

 private:
  std::unique_ptr<File> file_;
  std::string path_;
};

}  // namespace

std::unique_ptr<File> LocatedFiles::Open(std::string_view path, OpenMode mode) {
  return Located(
      [&]() -> std::unique_ptr<File> { return std::make_unique<LocatedFile>(files_->Open(path, mode), path); },
      ThisPath(path));
}

std::string_view LocatedFiles::Culprit(std::string_view from, std::string_view to) {
  const bool can_be_read = Attempt([&] { static_cast<void>(files_->Open(from, OpenMode::kRead)); });
  return can_be_read || files_->IsFolder(from) ? to : from;
}

void LocatedFiles::Copy(std::string_view from, std::string_view to) {
  Located([&] { files_->Copy(from, to); }, [&] { return files_->IsFolder(from) ? from : Culprit(from, to); });
}

void LocatedFiles::Rename(std::string_view from, std::string_view to) {
  Located([&] { files_->Rename(from, to); }, [&] { return Culprit(from, to); });
}

void LocatedFiles::Replace(std::string_view from, std::string_view to) {
  Located([&] { files_->Replace(from, to); }, [&] { return Culprit(from, to); });
}

void LocatedFiles::Delete(std::string_view path) {
  Located([&] { files_->Delete(path); }, ThisPath(path));
}

void LocatedFiles::MakeFolder(std::string_view path) {
  Located([&] { files_->MakeFolder(path); }, ThisPath(path));
}

void LocatedFiles::RemoveFolder(std::string_view path) {
  Located([&] { files_->RemoveFolder(path); }, ThisPath(path));
}

std::vector<FolderEntry> LocatedFiles::List(std::string_view folder) {
  return Located([&] { return files_->List(folder); }, ThisPath(folder));
}

uint64_t LocatedFiles::WriteTime(std::string_view path) {
  return Located([&] { return files_->WriteTime(path); }, ThisPath(path));
}

void LocatedFiles::SetWriteTime(std::string_view path, uint64_t file_time) {
  Located([&] { files_->SetWriteTime(path, file_time); }, ThisPath(path));
}

void LocatedFiles::SetLocalTimes(std::string_view path, const LocalFileTimes& times) {
  Located([&] { files_->SetLocalTimes(path, times); }, ThisPath(path));
}

void LocatedFiles::FlushFiles(const std::string& folder, const std::vector<std::string>& names) {
  Located([&] { files_->FlushFiles(folder, names); }, ThisPath(folder));
}

std::string LocatedFiles::TruePath(std::string_view path) {
  return Located([&] { return files_->TruePath(path); }, ThisPath(path));
}

std::unique_ptr<FileLock> LocatedFiles::TryLock(std::string_view path, std::string_view program) {
  return Located([&] { return files_->TryLock(path, program); }, ThisPath(path));
}

}  // namespace kestrun
