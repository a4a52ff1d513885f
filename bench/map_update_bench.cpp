// Two folders of 2,000 maps compared: by checksum beside reading each file once, by size and by date beside listing
// both folders.
#include <cstdio>
#include <string>
#include <vector>

#include "bench_folder.h"
#include "maps/update/map_comparison.h"
#include "timing.h"

namespace kestrun {
namespace {

constexpr int kMaps = 2000;
constexpr size_t kMapBytes = 60000;
constexpr int kRounds = 7;
constexpr double kMostOfReading = 1.25;
constexpr double kMostOfListing = 1.5;

std::string NameOf(int map) { return "map" + std::to_string(map) + ".bms"; }

void MakeMaps(FileSystem& files, const std::string& folder) {
  files.MakeFolder(folder);
  Bytes map(kMapBytes);
  for (size_t at = 0; at < map.size(); ++at) map[at] = static_cast<uint8_t>(at * 31 >> 3);
  for (int number = 0; number < kMaps; ++number) {
    map[0] = static_cast<uint8_t>(number);
    files.WriteAll(folder + "/" + NameOf(number), map);
  }
}

void RemoveMaps(FileSystem& files, const std::string& folder) {
  for (int number = 0; number < kMaps; ++number) files.Delete(folder + "/" + NameOf(number));
  files.RemoveFolder(folder);
}

int CompareAll(const std::string& local, const std::string& remote, const CompareBy& by) {
  MapComparison comparison;
  int equal = 0;
  for (int number = 0; number < kMaps; ++number) {
    const std::string name = NameOf(number);
    if (!comparison.IsLocal(local, name)) continue;
    const MapPair pair = comparison.Measure(local, remote, name, by);
    equal += IsUpToDate(pair.local, pair.remote) ? 1 : 0;
  }
  return equal;
}

template <class Bare>
bool Report(const char* what, double most, const Bare& bare, const std::string& local, const std::string& remote,
            const CompareBy& by) {
  double bare_ms = 1e18;
  double our_ms = 1e18;
  int equal = 0;
  for (int round = 0; round < kRounds; ++round) {
    KeepFastest(bare_ms, bare);
    KeepFastest(our_ms, [&] { equal = CompareAll(local, remote, by); });
  }
  const bool passes = our_ms <= most * bare_ms && equal == kMaps;
  std::printf("%s comparing 2 folders of %d maps by %s: bare %.1f ms, ours %.1f ms, %.2f times (at most %.2f)\n",
              passes ? "PASS" : "FAIL", kMaps, what, bare_ms, our_ms, our_ms / bare_ms, most);
  return passes;
}

bool Measure(FileSystem& files, const std::string& folder) {
  const std::string local = folder + "/local";
  const std::string remote = folder + "/remote";
  MakeMaps(files, remote);
  MakeMaps(files, local);
  const auto read_all = [&] {
    for (const std::string& each : {local, remote}) {
      for (int number = 0; number < kMaps; ++number) static_cast<void>(files.ReadAll(each + "/" + NameOf(number)));
    }
  };
  const auto list_both = [&] {
    for (const std::string& each : {local, remote}) static_cast<void>(files.List(each));
  };
  bool passes = Report("checksum", kMostOfReading, read_all, local, remote, {.crc = true});
  passes &= Report("size", kMostOfListing, list_both, local, remote, {.size = true});
  passes &= Report("date", kMostOfListing, list_both, local, remote, {.date = true});
  RemoveMaps(files, local);
  RemoveMaps(files, remote);
  return passes;
}

}  // namespace
}  // namespace kestrun

int main() { return kestrun::RunInBenchFolder(kestrun::Measure); }
