// The maps of two folders side by side: what is measured of them, and which of them are to be copied.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/files.h"

namespace kestrun {

// What is compared; the rest counts as equal.
struct CompareBy {
  bool crc = false;
  bool size = false;
  bool date = false;
};

struct MapMeasure {
  uint64_t bytes = 0;
  uint64_t time = 0;  // of the last change: 100-nanosecond units since 1601-01-01 UTC
  int32_t crc = 0;    // FileChecksum
};

// True when sizes and checksums are equal and the local map is not older.
[[nodiscard]] bool IsUpToDate(const MapMeasure& local, const MapMeasure& remote);

// The files of a folder by name without regard to case, as one listing gave them. What a listing says is believed for
// a second.
class ListedFolder {
 public:
  // Null when the file is not there. Raises when the folder cannot be listed.
  [[nodiscard]] const FolderEntry* Find(const std::string& folder, const std::string& name);

 private:
  void List(const std::string& folder);

  std::string folder_;
  std::map<std::string, FolderEntry, std::less<>> files_;
  bool is_listed_ = false;
  uint64_t listed_ms_ = 0;
};

// A map that both folders have.
struct MapPair {
  MapMeasure local;
  MapMeasure remote;
};

class MapComparison {
 public:
  // Both folders without a separator at the end. Raises what the file system raises.
  [[nodiscard]] bool IsLocal(const std::string& local_folder, const std::string& name) {
    return local_.Find(local_folder, name) != nullptr;
  }
  [[nodiscard]] MapPair Measure(const std::string& local_folder, const std::string& remote_folder,
                                const std::string& name, const CompareBy& by);

 private:
  ListedFolder local_;
  ListedFolder remote_;
};

// A moment of a file as local date and time, in days since 1899-12-30.
[[nodiscard]] double LocalDateOfFileTime(uint64_t file_time);

}  // namespace kestrun
