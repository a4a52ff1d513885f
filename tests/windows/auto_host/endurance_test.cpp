// A night of eight hours with a thousand changes of the map, beside a model of what has to come out.
#include <array>
#include <set>

#if __has_include(<sanitizer/allocator_interface.h>) && !defined(_WIN32) && defined(__clang__)
#include <sanitizer/allocator_interface.h>
#define KESTRUN_COUNTS_ALLOCATIONS
#endif

#include "base/live_bytes.h"
#include "game/builds.h"
#include "support/forwarding_files.h"
#include "windows/auto_host/auto_host_fixture.h"

namespace kestrun {
namespace {

constexpr uint64_t kHourMs = 60 * 60 * 1000;
constexpr uint64_t kRoundMs = 28800;   // a thousand rounds in eight hours
constexpr uint64_t kPlayedMs = 24000;  // of each round; the rest is between two games
constexpr int kRows = 50;

// All that is allocated, where the sanitizer counts it; the objects of the program elsewhere.
size_t TakenBytes() {
#ifdef KESTRUN_COUNTS_ALLOCATIONS
  return __sanitizer_get_current_allocated_bytes();
#else
  return LiveBytes::Total();
#endif
}

bool IsPlayed(uint64_t moment_ms) { return moment_ms % kRoundMs < kPlayedMs; }

// Files that another program holds open for itself alone.
class HeldFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    Check(path);
    return files().Open(path, mode);
  }
  void Copy(std::string_view from, std::string_view to) override {
    Check(from);
    files().Copy(from, to);
  }
  std::set<std::string, std::less<>> held;

 private:
  void Check(std::string_view path) const {
    if (held.contains(path)) Raise(error::kPermissionDenied);
  }
};

// What a night comes to, worked out from the rules alone: each fall of the game's byte, as the ticks see it, takes the
// next row; a row that cannot be put is followed by the next at once, but not after ten failures.
struct Model {
  std::array<int, kRows> inserts{};
  int puts = 0;
  int failures = 0;
  int falls = 0;
  int errors = 0;

  void Run(const std::array<bool, kRows>& is_bad, uint64_t until_ms) {
    int row = -1;
    bool was_idle = false;
    for (uint64_t moment = AutoHostRun::kTickMs; moment <= until_ms; moment += AutoHostRun::kTickMs) {
      const bool is_idle = !IsPlayed(moment);
      if (is_idle && !was_idle) {
        ++falls;
        for (bool again = true; again;) {
          row = (row + 1) % kRows;
          ++inserts[static_cast<size_t>(row)];
          again = false;
          if (!is_bad[static_cast<size_t>(row)]) {
            ++puts;
          } else {
            ++failures;
            again = errors < 10;
            errors += again ? 1 : 0;
          }
        }
      }
      was_idle = is_idle;
    }
  }
};

class EnduranceTest : public AutoHostTest {
 protected:
  // Every fifth map is missing, held open by another program, or empty, in turn.
  void MakeMaps() {
    for (int row = 0; row < kRows; ++row) {
      const std::string path = MapPath("night" + std::to_string(row) + ".bms");
      const int kind = row % 5 == 4 ? row / 5 % 3 : 3;
      if (kind != 0) WriteFile(path, kind == 2 ? std::string() : "map " + std::to_string(row));
      if (kind == 1) files_.held.insert(path);
      is_bad_[static_cast<size_t>(row)] = kind == 0 || kind == 1;
      Host().lstmaps.AddItem(path);
    }
    desktop.UseFiles(files_);
  }
  HeldFiles files_{native_files};
  std::array<bool, kRows> is_bad_{};
};

TEST_F(EnduranceTest, EightHoursWithAThousandChangesEndAsTheModelSays) {
  MakeMaps();
  const auto game = desktop.running_games().Start(std::string(kHostBuilds[0].window_title));
  const auto byte = static_cast<uint32_t>(kHostBuilds[0].GameEndAddr);
  game->SetByte(byte, 1);
  game->SetLong(static_cast<uint32_t>(kHostBuilds[0].GameTimer), 0);
  const uint64_t start_ms = desktop.clock().NowMs();
  game->before_access = [&] { game->SetByte(byte, IsPlayed(desktop.clock().NowMs() - start_ms) ? 1 : 0); };
  Host().run.fields.DfVersion = 0;
  Host().ChGameTimer.Value = 1;
  Host().Command2.Press();

  desktop.clock().AdvanceMs(kHourMs);
  const size_t after_one_hour = TakenBytes();
  desktop.clock().AdvanceMs(7 * kHourMs);
  const size_t after_eight_hours = TakenBytes();

  Model model;
  model.Run(is_bad_, 8 * kHourMs);
  EXPECT_EQ(model.falls, 1000);
  EXPECT_GT(model.failures, 100);
  EXPECT_EQ(Host().run.fields.Errors, model.errors);
  int inserts = 0;
  for (int row = 0; row < kRows; ++row) {
    EXPECT_EQ(Host().lstmaps.ItemData(row), model.inserts[static_cast<size_t>(row)]) << "row " << row;
    inserts += Host().lstmaps.ItemData(row);
  }
  EXPECT_EQ(inserts, model.puts + model.failures);
  EXPECT_TRUE(Host().TmrInsert.Enabled);
  EXPECT_TRUE(desktop.dialogs().shown_boxes.empty());
  EXPECT_LE(after_eight_hours, after_one_hour);
  Host().Edited = false;
}

}  // namespace
}  // namespace kestrun
