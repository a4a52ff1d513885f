// The names of a large folder without regard to case: a zip of thousands of members would otherwise have the folder
// read for each of them.
#pragma once

#ifndef _WIN32

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <unordered_map>

namespace kestrun {

// Knows one folder, the last large one that was asked about, and reads it again when its time of change says so. A file
// that another process makes within the same tick of that clock as this one makes another is seen at the next change.
class PosixFolderIndex {
 public:
  // The entry of `folder` that equals `name` without regard to case; the first in byte order, so that the answer does
  // not depend on the order on disk. Empty when there is none.
  [[nodiscard]] std::string Find(const std::string& folder, std::string_view name);
  // This process has just made the file, after it had asked for it.
  void NoteNew(const std::string& folder, std::string_view name);

 private:
  void Add(std::string_view name);
  [[nodiscard]] bool IsCurrent(const std::string& folder, const struct stat& status) const;

  std::string folder_;
  struct stat status_ {};
  std::unordered_map<std::string, std::string> names_;  // by their lower case
};

// The one of the process: all its files go through the same folders.
[[nodiscard]] PosixFolderIndex& TheFolderIndex();

}  // namespace kestrun

#endif  // _WIN32
