// A file layer that fails at its n-th call, for walking a failure through every step of an operation.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/files.h"

namespace kestrun {

// Passes calls on to the real files and lets one of them fail: the first for 0, the second for 1 ... Clean-up
// by Delete and questions about what is there never fail.
class FailingFiles final : public FileSystem {
 public:
  FailingFiles(FileSystem& files, int calls_until_failure, int error_number = error::kDiskFull)
      : files_(files), first_(calls_until_failure), left_(calls_until_failure), error_number_(error_number) {}
  [[nodiscard]] bool HasFailed() const { return left_ < 0; }
  [[nodiscard]] int CallsMade() const { return first_ - left_; }

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    Count();
    return std::make_unique<CountedFile>(*this, files_.Open(path, mode));
  }
  bool Exists(std::string_view path) override { return files_.Exists(path); }
  bool IsFolder(std::string_view path) override { return files_.IsFolder(path); }
  void Copy(std::string_view from, std::string_view to) override { Count(), files_.Copy(from, to); }
  void Delete(std::string_view path) override { files_.Delete(path); }
  void Rename(std::string_view from, std::string_view to) override { Count(), files_.Rename(from, to); }
  void Replace(std::string_view from, std::string_view to) override { Count(), files_.Replace(from, to); }
  void MakeFolder(std::string_view path) override { Count(), files_.MakeFolder(path); }
  void RemoveFolder(std::string_view path) override { Count(), files_.RemoveFolder(path); }
  std::vector<FolderEntry> List(std::string_view folder) override { return files_.List(folder); }
  uint64_t WriteTime(std::string_view path) override { return Count(), files_.WriteTime(path); }
  void SetWriteTime(std::string_view path, uint64_t time) override { Count(), files_.SetWriteTime(path, time); }
  void SetLocalTimes(std::string_view path, const LocalFileTimes& times) override {
    Count(), files_.SetLocalTimes(path, times);
  }
  std::string CurrentFolder() override { return files_.CurrentFolder(); }
  void FlushFolder(std::string_view folder) override { files_.FlushFolder(folder); }
  std::string TruePath(std::string_view path) override { return files_.TruePath(path); }
  std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override {
    return Count(), files_.TryLock(path, program);
  }

 private:
  class CountedFile final : public File {
   public:
    CountedFile(FailingFiles& owner, std::unique_ptr<File> file) : owner_(owner), file_(std::move(file)) {}
    uint64_t Size() override { return owner_.Count(), file_->Size(); }
    size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
      return owner_.Count(), file_->ReadAt(offset, buffer);
    }
    void WriteAt(uint64_t offset, ByteView bytes) override {
      // Half of the bytes arrive before the disk is full.
      if (owner_.left_ == 0) file_->WriteAt(offset, bytes.first(bytes.size() / 2));
      owner_.Count();
      file_->WriteAt(offset, bytes);
    }
    void Flush() override { owner_.Count(), file_->Flush(); }
    void Truncate(uint64_t bytes) override { owner_.Count(), file_->Truncate(bytes); }
    void Reserve(uint64_t bytes) override { owner_.Count(), file_->Reserve(bytes); }
    void Close() override { owner_.Count(), file_->Close(); }

   private:
    FailingFiles& owner_;
    std::unique_ptr<File> file_;
  };

  void Count() {
    if (left_-- == 0) Raise(error_number_);
  }

  FileSystem& files_;
  int first_;
  int left_;
  int error_number_;
};

}  // namespace kestrun
