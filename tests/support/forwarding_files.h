// A file layer that passes every call on to another: for test layers that change one or two of them.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace kestrun {

class ForwardingFiles : public FileSystem {
 public:
  explicit ForwardingFiles(FileSystem& files) : files_(files) {}

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override { return files_.Open(path, mode); }
  bool Exists(std::string_view path) override { return files_.Exists(path); }
  bool IsFolder(std::string_view path) override { return files_.IsFolder(path); }
  void Copy(std::string_view from, std::string_view to) override { files_.Copy(from, to); }
  void Delete(std::string_view path) override { files_.Delete(path); }
  void Rename(std::string_view from, std::string_view to) override { files_.Rename(from, to); }
  void Replace(std::string_view from, std::string_view to) override { files_.Replace(from, to); }
  void MakeFolder(std::string_view path) override { files_.MakeFolder(path); }
  void RemoveFolder(std::string_view path) override { files_.RemoveFolder(path); }
  std::vector<FolderEntry> List(std::string_view folder) override { return files_.List(folder); }
  uint64_t WriteTime(std::string_view path) override { return files_.WriteTime(path); }
  void SetWriteTime(std::string_view path, uint64_t time) override { files_.SetWriteTime(path, time); }
  void SetLocalTimes(std::string_view path, const LocalFileTimes& times) override { files_.SetLocalTimes(path, times); }
  std::string CurrentFolder() override { return files_.CurrentFolder(); }
  void FlushFolder(std::string_view folder) override { files_.FlushFolder(folder); }
  std::string TruePath(std::string_view path) override { return files_.TruePath(path); }
  std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override {
    return files_.TryLock(path, program);
  }

 protected:
  [[nodiscard]] FileSystem& files() { return files_; }

 private:
  FileSystem& files_;
};

}  // namespace kestrun
