// Files on a POSIX system, for players' paths that come from Windows: both separators, drive letters, and names that
// are found without regard to case when the exact name is not there.
#pragma once

#ifndef _WIN32

#include <map>
#include <string>

#include "platform/files.h"

namespace kestrun {

class PosixFileSystem final : public FileSystem {
 public:
  // Paths that begin with this letter and a colon lie below `folder`. A letter without a folder is a missing path.
  void MapDrive(char letter, std::string folder);

  // The path as the system takes it: "/" only, the drive replaced, and each component that is only there in another
  // case replaced by the one that is. What does not exist stays as written.
  [[nodiscard]] std::string NativePath(std::string_view path) const;

  [[nodiscard]] std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override;
  [[nodiscard]] bool Exists(std::string_view path) override;
  [[nodiscard]] bool IsFolder(std::string_view path) override;
  // By the mark alone, which an administrator may write over.
  [[nodiscard]] bool IsReadOnly(std::string_view path) override;
  // A copy of a file onto itself is refused with error 70.
  void Copy(std::string_view from, std::string_view to) override;
  void Delete(std::string_view path) override;
  void Rename(std::string_view from, std::string_view to) override;
  void Replace(std::string_view from, std::string_view to) override;
  // One level; error 75 when something of that name exists.
  void MakeFolder(std::string_view path) override;
  void RemoveFolder(std::string_view path) override;
  // Names that hold a "\" are left out: no path of ours can reach them.
  [[nodiscard]] std::vector<FolderEntry> List(std::string_view folder) override;
  [[nodiscard]] uint64_t WriteTime(std::string_view path) override;
  void SetWriteTime(std::string_view path, uint64_t file_time) override;
  void SetLocalTimes(std::string_view path, const LocalFileTimes& times) override;
  [[nodiscard]] std::string CurrentFolder() override;
  void FlushFolder(std::string_view folder) override;
  // Beyond a handful by flushing their whole file system, which waits for the disk once.
  void FlushFiles(const std::string& folder, const std::vector<std::string>& names) override;
  [[nodiscard]] std::string TruePath(std::string_view path) override;
  [[nodiscard]] std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override;

 private:
  // With "/" only and the drive replaced. Error 52 for a path with a NUL in it, 76 for an unmapped drive or no path.
  [[nodiscard]] std::string WithDriveAndSlashes(std::string_view path) const;

  std::map<char, std::string> drives_;
};

}  // namespace kestrun

#endif  // _WIN32
