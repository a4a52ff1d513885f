// A rotation list of 10,000 rows: loading it into a play list beside one read of the file, and saving it beside one
// write of it. Each may cost at most ten times as much.
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench_folder.h"
#include "forms/list_box.h"
#include "game/lists/map_list_file.h"
#include "timing.h"

namespace kestrun {
namespace {

constexpr int kRowCount = 10000;
constexpr int kRounds = 50;
constexpr double kMostTimes = 10;

struct Times {
  double bare_ms = 1e18;
  double our_ms = 1e18;
};

// The fastest of many rounds, which take turns, so that both find the caches in the same state.
template <class Bare, class Ours>
Times FastestOf(Bare&& bare, Ours&& ours) {
  Times fastest;
  for (int round = 0; round < kRounds; ++round) {
    KeepFastest(fastest.bare_ms, bare);
    KeepFastest(fastest.our_ms, ours);
  }
  return fastest;
}

bool Report(const char* what, const Times& fastest) {
  const double times = fastest.our_ms / fastest.bare_ms;
  const bool passes = times <= kMostTimes;
  std::printf("%s %s of %d rows: the file once %.2f ms, ours %.2f ms, %.1f times (at most %.0f)\n",
              passes ? "PASS" : "FAIL", what, kRowCount, fastest.bare_ms, fastest.our_ms, times, kMostTimes);
  return passes;
}

// Memory that was let go of stays with the process: otherwise most of what is measured is the kernel's clearing of
// pages, in the one that takes more of them at a time.
void KeepMemory() {
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

bool Measure(FileSystem& files, const std::string& folder) {
  KeepMemory();
  std::vector<std::string> rows;
  for (int row = 0; row < kRowCount; ++row) {
    rows.push_back("C:\\games\\dflw\\my maps\\rotation of the night\\map number " + std::to_string(row) + ".bms");
  }
  const std::string list = folder + "/night.lst";
  const std::string bare = folder + "/bare.lst";
  if (!WriteMapList(list, rows) || !std::ranges::equal(MapList(list).rows(), rows)) std::abort();
  const Bytes content = files.ReadAll(list);

  const auto read = [&] {
    if (files.ReadAll(list).size() != content.size()) std::abort();
  };
  const auto load = [&] {
    const Ref<ListBox> play_list = MakeRef<ListBox>(nullptr, "lstmaps", -1);
    play_list->AddItems(MapList(list).rows());
    if (play_list->ListCount() != kRowCount) std::abort();
  };
  const bool load_passes = Report("load", FastestOf(read, load));

  // The way in which the program replaces any file: beside it, then in its place.
  const auto write = [&] {
    files.WriteAll(bare + ".new", content);
    files.Replace(bare + ".new", bare);
  };
  // Each save changes every row.
  bool other = false;
  const auto save = [&] {
    other = !other;
    for (std::string& row : rows) row.back() = other ? 'S' : 's';
    if (!WriteMapList(list, rows)) std::abort();
  };
  const bool save_passes = Report("save", FastestOf(write, save));
  files.Delete(list);
  files.Delete(bare);
  return load_passes && save_passes;
}

}  // namespace
}  // namespace kestrun

int main() { return kestrun::RunInBenchFolder(kestrun::Measure); }
