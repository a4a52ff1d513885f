// Files of Windows, by the wide calls only.
#pragma once

#include "platform/files.h"

namespace kestrun {

class Win32FileSystem final : public FileSystem {
 public:
  [[nodiscard]] std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override;
  [[nodiscard]] bool Exists(std::string_view path) override;
  [[nodiscard]] bool IsFolder(std::string_view path) override;
  void Copy(std::string_view from, std::string_view to) override;
  void Delete(std::string_view path) override;
  [[nodiscard]] bool IsReadOnly(std::string_view path) override;
  void ClearReadOnly(std::string_view path) override;
  void Rename(std::string_view from, std::string_view to) override;
  void Replace(std::string_view from, std::string_view to) override;
  void MakeFolder(std::string_view path) override;
  void RemoveFolder(std::string_view path) override;
  [[nodiscard]] std::vector<FolderEntry> List(std::string_view folder) override;
  [[nodiscard]] uint64_t WriteTime(std::string_view path) override;
  void SetWriteTime(std::string_view path, uint64_t file_time) override;
  void SetLocalTimes(std::string_view path, const LocalFileTimes& times) override;
  [[nodiscard]] std::string CurrentFolder() override;
  void FlushFolder(std::string_view folder) override;
  [[nodiscard]] std::string TruePath(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override;
};

// Raises the run-time error that a Windows error number stands for.
[[noreturn]] void RaiseWindowsError(unsigned long windows_error);

}  // namespace kestrun
