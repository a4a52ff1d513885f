// A file system that says in each failure which file it was about: passes every call on to another one and raises a
// FileError where that one raises a number. Every platform's files go through it.
#pragma once

#include "platform/files.h"

namespace kestrun {

class LocatedFiles final : public FileSystem {
 public:
  // The file system must outlive this object.
  explicit LocatedFiles(FileSystem& files) : files_(&files) {}
  // Passes on to another one from now on.
  void Use(FileSystem& files) { files_ = &files; }

  [[nodiscard]] std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override;
  [[nodiscard]] bool Exists(std::string_view path) override { return files_->Exists(path); }
  [[nodiscard]] bool IsFolder(std::string_view path) override { return files_->IsFolder(path); }
  [[nodiscard]] bool IsReadOnly(std::string_view path) override { return files_->IsReadOnly(path); }
  // Failures with two files name the one that is missing or cannot be read, else the one that is written.
  void Copy(std::string_view from, std::string_view to) override;
  void Rename(std::string_view from, std::string_view to) override;
  void Replace(std::string_view from, std::string_view to) override;
  void Delete(std::string_view path) override;
  void ClearReadOnly(std::string_view path) override { files_->ClearReadOnly(path); }
  void MakeFolder(std::string_view path) override;
  void RemoveFolder(std::string_view path) override;
  [[nodiscard]] std::vector<FolderEntry> List(std::string_view folder) override;
  [[nodiscard]] uint64_t WriteTime(std::string_view path) override;
  void SetWriteTime(std::string_view path, uint64_t file_time) override;
  void SetLocalTimes(std::string_view path, const LocalFileTimes& times) override;
  [[nodiscard]] std::string CurrentFolder() override { return files_->CurrentFolder(); }
  void FlushFolder(std::string_view folder) override { files_->FlushFolder(folder); }
  void FlushFiles(const std::string& folder, const std::vector<std::string>& names) override;
  [[nodiscard]] std::string TruePath(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override;

 private:
  [[nodiscard]] std::string_view Culprit(std::string_view from, std::string_view to);

  FileSystem* files_;
};

}  // namespace kestrun
