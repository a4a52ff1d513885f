#include "desktop/headless/posix_folder_index.h"

#ifndef _WIN32

#include <dirent.h>

#include <memory>
#include <vector>

#include "base/text.h"

namespace kestrun {
namespace {

// Smaller folders are read as quickly as asked about.
constexpr size_t kLargeFolder = 256;

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
  if (!entries) return names;
  while (const dirent* entry = ::readdir(entries.get())) names.emplace_back(entry->d_name);
  return names;
}

std::string FindIn(const std::vector<std::string>& names, std::string_view name) {
  std::string found;
  for (const std::string& candidate : names) {
    if (EqualsNoCase(candidate, name) && (found.empty() || candidate < found)) found = candidate;
  }
  return found;
}

bool IsSameState(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino && left.st_mtim.tv_sec == right.st_mtim.tv_sec &&
         left.st_mtim.tv_nsec == right.st_mtim.tv_nsec;
}

}  // namespace

bool PosixFolderIndex::IsCurrent(const std::string& folder, const struct stat& status) const {
  return folder == folder_ && IsSameState(status, status_);
}

std::string PosixFolderIndex::Find(const std::string& folder, std::string_view name) {
  struct stat status {};
  if (::stat(folder.c_str(), &status) != 0) return {};
  if (!IsCurrent(folder, status)) {
    const std::vector<std::string> names = NamesIn(folder);
    if (names.size() < kLargeFolder) return FindIn(names, name);
    folder_ = folder;
    status_ = status;
    names_.clear();
    for (const std::string& one : names) Add(one);
  }
  const auto found = names_.find(ToLower(name));
  return found == names_.end() ? std::string() : found->second;
}

void PosixFolderIndex::Add(std::string_view name) {
  std::string& kept = names_[ToLower(name)];
  if (kept.empty() || name < kept) kept = name;
}

void PosixFolderIndex::NoteNew(const std::string& folder, std::string_view name) {
  if (folder != folder_) return;
  Add(name);
  static_cast<void>(::stat(folder.c_str(), &status_));
}

PosixFolderIndex& TheFolderIndex() {
  static PosixFolderIndex index;
  return index;
}

}  // namespace kestrun

#endif  // _WIN32
