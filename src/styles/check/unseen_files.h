// Files in memory alone: those that were put there, and what is written meanwhile. Nothing reaches the disk.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace kestrun {

class UnseenFiles final : public FileSystem {
 public:
  explicit UnseenFiles(std::string current_folder) : current_folder_(std::move(current_folder)) {}

  void Put(const std::string& path, Bytes content);
  // Forgets all files.
  void Clear() { files_.clear(); }

  [[nodiscard]] std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override;
  [[nodiscard]] bool Exists(std::string_view path) override { return files_.contains(KeyOf(path)); }
  [[nodiscard]] bool IsFolder(std::string_view) override { return false; }
  void Copy(std::string_view from, std::string_view to) override;
  void Delete(std::string_view path) override;
  void Rename(std::string_view from, std::string_view to) override;
  void Replace(std::string_view from, std::string_view to) override;
  void MakeFolder(std::string_view) override {}
  void RemoveFolder(std::string_view) override {}
  [[nodiscard]] std::vector<FolderEntry> List(std::string_view folder) override;
  [[nodiscard]] uint64_t WriteTime(std::string_view) override { return 0; }
  void SetWriteTime(std::string_view, uint64_t) override {}
  void SetLocalTimes(std::string_view, const LocalFileTimes&) override {}
  [[nodiscard]] std::string CurrentFolder() override { return current_folder_; }
  void FlushFolder(std::string_view) override {}
  [[nodiscard]] std::string TruePath(std::string_view path) override { return std::string(path); }
  [[nodiscard]] std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override;

 private:
  using Content = std::shared_ptr<Bytes>;

  [[nodiscard]] static std::string KeyOf(std::string_view path);
  // Error 53 for a file that is not there.
  [[nodiscard]] const Content& Find(std::string_view path) const;

  std::string current_folder_;
  std::map<std::string, Content> files_;  // by path in small letters, with one kind of separator
};

}  // namespace kestrun
