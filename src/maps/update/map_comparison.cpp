#include "maps/update/map_comparison.h"

#include <ctime>

#include "base/calendar.h"
#include "base/text.h"
#include "maps/file_tools.h"
#include "platform/file_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr uint64_t kBelievedMs = 1000;
constexpr uint64_t kFileTimeUnitsPerSecond = 10'000'000;
constexpr int64_t kUnixEpochSeconds = 11'644'473'600;  // behind 1601-01-01

}  // namespace

bool IsUpToDate(const MapMeasure& local, const MapMeasure& remote) {
  return local.bytes == remote.bytes && local.crc == remote.crc && local.time >= remote.time;
}

void ListedFolder::List(const std::string& folder) {
  files_.clear();
  for (const FolderEntry& entry : platform().files().List(folder)) {
    if (!entry.is_folder) files_.emplace(ToLower(entry.name), entry);
  }
  folder_ = folder;
  is_listed_ = true;
  listed_ms_ = platform().clock().NowMs();
}

const FolderEntry* ListedFolder::Find(const std::string& folder, const std::string& name) {
  const bool is_believed = platform().clock().NowMs() - listed_ms_ < kBelievedMs;
  if (!is_listed_ || !is_believed || folder != folder_) List(folder);
  const auto found = files_.find(ToLower(name));
  return found == files_.end() ? nullptr : &found->second;
}

MapPair MapComparison::Measure(const std::string& local_folder, const std::string& remote_folder,
                               const std::string& name, const CompareBy& by) {
  const auto measure = [&](ListedFolder& listed, const std::string& folder) {
    MapMeasure measured;
    const std::string path = folder + "\\" + name;
    if (by.crc) measured.crc = FileChecksum(path);
    if (!by.size && !by.date) return measured;
    const FolderEntry* const entry = listed.Find(folder, name);
    if (!entry) throw FileError(error::kFileNotFound, path);
    if (by.size) measured.bytes = entry->size;
    if (by.date) measured.time = entry->write_time;
    return measured;
  };
  MapPair pair;
  pair.local = measure(local_, local_folder);
  pair.remote = measure(remote_, remote_folder);
  return pair;
}

double LocalDateOfFileTime(uint64_t file_time) {
  const auto seconds =
      static_cast<std::time_t>(static_cast<int64_t>(file_time / kFileTimeUnitsPerSecond) - kUnixEpochSeconds);
  const std::tm* const local = std::localtime(&seconds);
  if (!local) return 0;
  const int64_t day = DayNumber(local->tm_year + 1900, local->tm_mon + 1, local->tm_mday);
  return JoinDate(day, local->tm_hour * 3600.0 + local->tm_min * 60.0 + local->tm_sec);
}

}  // namespace kestrun
