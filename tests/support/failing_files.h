// A file system that fails at its n-th call, for walking a failure through every step of an operation. Calls on open
// files count like the others. It does not model failures that leave half a write behind.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "platform/files.h"

namespace kestrun {

class FailingFileSystem final : public FileSystem {
 public:
  // Fails at the n-th call from now on, counted from 1, with the error number; never for 0.
  FailingFileSystem(FileSystem& real, int fail_at, int error_number)
      : real_(real), fail_at_(fail_at), error_number_(error_number) {}

  [[nodiscard]] bool has_failed() const { return has_failed_; }

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    Count();
    return std::make_unique<FailingFile>(*this, real_.Open(path, mode));
  }
  bool Exists(std::string_view path) override { return real_.Exists(path); }
  bool IsFolder(std::string_view path) override { return real_.IsFolder(path); }
  void Copy(std::string_view from, std::string_view to) override {
    Count();
    real_.Copy(from, to);
  }
  void Delete(std::string_view path) override {
    Count();
    real_.Delete(path);
  }
  void Rename(std::string_view from, std::string_view to) override {
    Count();
    real_.Rename(from, to);
  }
  void Replace(std::string_view from, std::string_view to) override {
    Count();
    real_.Replace(from, to);
  }
  void MakeFolder(std::string_view path) override {
    Count();
    real_.MakeFolder(path);
  }
  void RemoveFolder(std::string_view path) override {
    Count();
    real_.RemoveFolder(path);
  }
  std::vector<FolderEntry> List(std::string_view folder) override {
    Count();
    return real_.List(folder);
  }
  void SetWriteTime(std::string_view path, uint64_t file_time) override {
    Count();
    real_.SetWriteTime(path, file_time);
  }
  std::string CurrentFolder() override { return real_.CurrentFolder(); }

 private:
  class FailingFile final : public File {
   public:
    FailingFile(FailingFileSystem& owner, std::unique_ptr<File> real) : owner_(owner), real_(std::move(real)) {}
    uint64_t Size() override {
      owner_.Count();
      return real_->Size();
    }
    size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
      owner_.Count();
      return real_->ReadAt(offset, buffer);
    }
    void WriteAt(uint64_t offset, ByteView bytes) override {
      owner_.Count();
      real_->WriteAt(offset, bytes);
    }
    void Close() override {
      owner_.Count();
      real_->Close();
    }

   private:
    FailingFileSystem& owner_;
    std::unique_ptr<File> real_;
  };

  void Count() {
    if (++calls_ != fail_at_) return;
    has_failed_ = true;
    Raise(error_number_);
  }

  FileSystem& real_;
  int fail_at_;
  int error_number_;
  int calls_ = 0;
  bool has_failed_ = false;
};

}  // namespace kestrun
