// A list of 10,000 and of 100,000 rows: adding a row costs much the same in both (fresh memory costs its pages),
// sorting at Refresh at most three times a stable sort of the same keys, and painting the rows that show only.
#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "controls/list_box/mc_list_box.h"
#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"
#include "desktop/headless/raster_canvas.h"
#include "forms/form.h"
#include "timing.h"

namespace kestrun {
namespace {

constexpr int kFew = 10'000;
constexpr int kMany = 100'000;
constexpr int kRounds = 9;

class BenchForm final : public Form {
 public:
  BenchForm() : Form("BenchForm") { list.Resized({400, 440}, 96); }
  McListBox& list = Add<McListBox>("ListBox1");
};

template <class Prepare, class Work>
double MedianOf(Prepare&& prepare, Work&& work) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    auto ground = prepare();
    times.push_back(Milliseconds([&] { work(ground); }));
  }
  return Median(std::move(times));
}

std::vector<std::string> Names(int count) {
  std::vector<std::string> names;
  uint32_t state = 1;
  for (int at = 0; at < count; ++at) {
    state = state * 1664525 + 1013904223;
    names.push_back("Map " + std::to_string(state >> 8) + " of the Month.bms");
  }
  return names;
}

void AddAll(McListBox& list, const std::vector<std::string>& names) {
  for (const std::string& name : names) list.AddItem(name);
}

Ref<BenchForm> Filled(const std::vector<std::string>& names) {
  Ref<BenchForm> form = MakeRef<BenchForm>();
  AddAll(form->list, names);
  return form;
}

bool Report(const char* what, double value, double limit) {
  const bool passed = value <= limit;
  std::printf("  %-46s %8.2f   at most %.1f   %s\n", what, value, limit, passed ? "PASS" : "FAIL");
  return passed;
}

bool BenchAdding(const std::vector<std::string>& few, const std::vector<std::string>& many) {
  const auto empty = [] { return MakeRef<BenchForm>(); };
  const double few_each = MedianOf(empty, [&](Ref<BenchForm>& form) { AddAll(form->list, few); }) / kFew;
  const double many_each = MedianOf(empty, [&](Ref<BenchForm>& form) { AddAll(form->list, many); }) / kMany;
  std::printf("AddItem: %.0f ns a row among 10,000, %.0f ns among 100,000\n", few_each * 1e6, many_each * 1e6);
  return Report("a row among 100,000 to one among 10,000", many_each / few_each, 3);
}

bool BenchSorting(const std::vector<std::string>& names) {
  std::vector<std::string> keys;
  for (const std::string& name : names) keys.push_back(ToLower(name + "<%S%>-1<%S%>False"));
  const double peer = MedianOf([&] { return keys; },
                               [](std::vector<std::string>& rows) { std::stable_sort(rows.begin(), rows.end()); });
  const auto unsorted = [&] {
    Ref<BenchForm> form = Filled(names);
    form->list.SortOrder = -1;
    return form;
  };
  const double ours = MedianOf(unsorted, [](Ref<BenchForm>& form) { form->list.Refresh(); });
  std::printf("Refresh that sorts 100,000 rows: %.1f ms, stable sort of the keys %.1f ms\n", ours, peer);
  return Report("times a stable sort of the keys", ours / peer, 3);
}

double PaintTime(const std::vector<std::string>& names) {
  const Ref<BenchForm> form = Filled(names);
  form->list.Refresh();
  form->list.OnScroll(static_cast<int>(names.size()) / 2);
  RasterCanvas canvas({400, 440});
  return MedianOf([] { return 0; },
                  [&](int) {
                    for (int paint = 0; paint < 20; ++paint) form->list.Paint(canvas);
                  });
}

bool BenchPainting(const std::vector<std::string>& few, const std::vector<std::string>& many) {
  return Report("painting among 100,000 rows to among 10,000", PaintTime(many) / PaintTime(few), 1.5);
}

bool Run() {
  const std::vector<std::string> few = Names(kFew);
  const std::vector<std::string> many = Names(kMany);
  const bool adding = BenchAdding(few, many);
  const bool sorting = BenchSorting(many);
  const bool painting = BenchPainting(few, many);
  return adding && sorting && painting;
}

}  // namespace
}  // namespace kestrun

int main() {
  kestrun::PosixFileSystem files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  return kestrun::Run() ? 0 : 1;
}
