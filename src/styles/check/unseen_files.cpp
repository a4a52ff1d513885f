#include "styles/check/unseen_files.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

// A script must not fill the memory with a file.
constexpr uint64_t kLargestFile = uint64_t{64} * 1024 * 1024;

class UnseenFile final : public File {
 public:
  explicit UnseenFile(std::shared_ptr<Bytes> content) : content_(std::move(content)) {}

  uint64_t Size() override { return content_->size(); }
  size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
    if (offset >= content_->size()) return 0;
    const size_t count = std::min<size_t>(buffer.size(), content_->size() - static_cast<size_t>(offset));
    std::copy_n(content_->begin() + static_cast<std::ptrdiff_t>(offset), count, buffer.begin());
    return count;
  }
  void WriteAt(uint64_t offset, ByteView bytes) override {
    if (offset + bytes.size() > content_->size()) Truncate(offset + bytes.size());
    std::copy(bytes.begin(), bytes.end(), content_->begin() + static_cast<std::ptrdiff_t>(offset));
  }
  void Flush() override {}
  void Truncate(uint64_t bytes) override {
    if (bytes > kLargestFile) Raise(error::kDiskFull);
    content_->resize(static_cast<size_t>(bytes));
  }
  void Reserve(uint64_t) override {}
  void Close() override {}

 private:
  std::shared_ptr<Bytes> content_;
};

class UnseenLock final : public FileLock {};

}  // namespace

std::string UnseenFiles::KeyOf(std::string_view path) {
  std::string key = ToLower(path);
  std::replace(key.begin(), key.end(), '/', '\\');
  return key;
}

void UnseenFiles::Put(const std::string& path, Bytes content) {
  files_[KeyOf(path)] = std::make_shared<Bytes>(std::move(content));
}

const UnseenFiles::Content& UnseenFiles::Find(std::string_view path) const {
  const auto found = files_.find(KeyOf(path));
  if (found == files_.end()) Raise(error::kFileNotFound);
  return found->second;
}

std::unique_ptr<File> UnseenFiles::Open(std::string_view path, OpenMode mode) {
  if (mode == OpenMode::kRead) return std::make_unique<UnseenFile>(Find(path));
  Content& content = files_[KeyOf(path)];
  if (!content || mode == OpenMode::kCreate) content = std::make_shared<Bytes>();
  return std::make_unique<UnseenFile>(content);
}

void UnseenFiles::Copy(std::string_view from, std::string_view to) {
  files_[KeyOf(to)] = std::make_shared<Bytes>(*Find(from));
}

void UnseenFiles::Delete(std::string_view path) {
  if (files_.erase(KeyOf(path)) == 0) Raise(error::kFileNotFound);
}

void UnseenFiles::Rename(std::string_view from, std::string_view to) {
  if (Exists(to)) Raise(error::kFileAlreadyExists);
  Replace(from, to);
}

void UnseenFiles::Replace(std::string_view from, std::string_view to) {
  const Content content = Find(from);
  files_.erase(KeyOf(from));
  files_[KeyOf(to)] = content;
}

std::vector<FolderEntry> UnseenFiles::List(std::string_view) { return {}; }

std::unique_ptr<FileLock> UnseenFiles::TryLock(std::string_view, std::string_view) {
  return std::make_unique<UnseenLock>();
}

}  // namespace kestrun
