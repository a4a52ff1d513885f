// A rotation list of 10,000 rows: loading it into a play list beside one read of the file, and saving it beside one
// write of it. Each may cost at most ten times as much.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench_folder.h"
#include "forms/list_box.h"
#include "game/lists/map_list_file.h"

namespace kestrun {
namespace {

constexpr int kRowCount = 10000;
constexpr int kRounds = 25;
constexpr double kMostTimes = 10;

template <class Work>
double FastestRound(Work&& work) {
  double best = 1e18;
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

bool Report(const char* what, double bare_us, double our_us) {
  const double times = our_us / bare_us;
  const bool passes = times <= kMostTimes;
  std::printf("%s %s of %d rows: the file once %.0f us, ours %.0f us, %.1f times (at most %.0f)\n",
              passes ? "PASS" : "FAIL", what, kRowCount, bare_us, our_us, times, kMostTimes);
  return passes;
}

bool Measure(FileSystem& files, const std::string& folder) {
  std::vector<std::string> rows;
  for (int row = 0; row < kRowCount; ++row) {
    rows.push_back("C:\\games\\dflw\\my maps\\rotation of the night\\map number " + std::to_string(row) + ".bms");
  }
  const std::string list = folder + "/night.lst";
  const std::string bare = folder + "/bare.lst";
  if (!WriteMapList(list, rows) || ReadMapList(list) != rows) std::abort();
  const Bytes content = files.ReadAll(list);

  const double read_us = FastestRound([&] {
    if (files.ReadAll(list).size() != content.size()) std::abort();
  });
  const double load_us = FastestRound([&] {
    const Ref<ListBox> play_list = MakeRef<ListBox>(nullptr, "lstmaps", -1);
    for (const std::string& row : ReadMapList(list)) play_list->AddItem(row);
    if (play_list->ListCount() != kRowCount) std::abort();
  });
  // The way in which the program replaces any file: beside it, then in its place.
  const double write_us = FastestRound([&] {
    files.WriteAll(bare + ".new", content);
    files.Replace(bare + ".new", bare);
  });
  // Each save changes every row.
  bool other = false;
  const double save_us = FastestRound([&] {
    other = !other;
    for (std::string& row : rows) row.back() = other ? 'S' : 's';
    if (!WriteMapList(list, rows)) std::abort();
  });
  const bool load_passes = Report("load", read_us, load_us);
  const bool save_passes = Report("save", write_us, save_us);
  files.Delete(list);
  files.Delete(bare);
  return load_passes && save_passes;
}

}  // namespace
}  // namespace kestrun

int main() { return kestrun::RunInBenchFolder(kestrun::Measure); }
