// Files in memory for the fuzz targets: flat names, nothing but what reading and writing one archive needs. Folders are
// noted, and nothing asks for them.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "platform/files.h"

namespace kestrun {

class MemoryFiles final : public FileSystem {
 public:
  std::map<std::string, Bytes, std::less<>> content;
  std::set<std::string, std::less<>> folders;

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    const auto found = content.find(path);
    if (found == content.end() && mode == OpenMode::kRead) Raise(error::kFileNotFound);
    Bytes& bytes = found == content.end() ? content[std::string(path)] : found->second;
    if (mode == OpenMode::kCreate) bytes.clear();
    return std::make_unique<MemoryFile>(bytes);
  }
  bool Exists(std::string_view path) override { return content.contains(path); }
  bool IsFolder(std::string_view path) override { return folders.contains(path); }
  void Copy(std::string_view from, std::string_view to) override {
    content[std::string(to)] = content[std::string(from)];
  }
  void Delete(std::string_view path) override { content.erase(std::string(path)); }
  void Rename(std::string_view from, std::string_view to) override { Replace(from, to); }
  void Replace(std::string_view from, std::string_view to) override {
    content[std::string(to)] = std::move(content[std::string(from)]);
    content.erase(std::string(from));
  }
  void MakeFolder(std::string_view path) override { folders.emplace(path); }
  void RemoveFolder(std::string_view) override {}
  std::vector<FolderEntry> List(std::string_view) override { return {}; }
  uint64_t WriteTime(std::string_view) override { return 0; }
  void SetWriteTime(std::string_view, uint64_t) override {}
  void SetLocalTimes(std::string_view, const LocalFileTimes&) override {}
  std::string CurrentFolder() override { return "C:\\"; }
  void FlushFolder(std::string_view) override {}
  std::string TruePath(std::string_view path) override { return std::string(path); }
  std::unique_ptr<FileLock> TryLock(std::string_view, std::string_view) override {
    return std::make_unique<FileLock>();
  }

 private:
  class MemoryFile final : public File {
   public:
    explicit MemoryFile(Bytes& bytes) : bytes_(bytes) {}
    uint64_t Size() override { return bytes_.size(); }
    size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
      if (offset >= bytes_.size()) return 0;
      const size_t count = std::min<size_t>(buffer.size(), bytes_.size() - offset);
      std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset), count, buffer.begin());
      return count;
    }
    void WriteAt(uint64_t offset, ByteView bytes) override {
      Reserve(offset + bytes.size());
      if (offset + bytes.size() > bytes_.size()) bytes_.resize(offset + bytes.size());
      std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
    }
    void Flush() override {}
    void Truncate(uint64_t bytes) override { bytes_.resize(static_cast<size_t>(bytes)); }
    // A small disk: an archive whose offsets lie far away fills it.
    void Reserve(uint64_t bytes) override {
      constexpr uint64_t kDiskBytes = 1 << 24;
      if (bytes > kDiskBytes) Raise(error::kDiskFull);
    }
    void Close() override {}

   private:
    Bytes& bytes_;
  };
};

}  // namespace kestrun
