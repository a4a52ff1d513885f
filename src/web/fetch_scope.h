// What the user sees of the fetches of a command, and the way out of them. A fetch holds its command up; while it
// lasts, a display shows how far it is, and Esc ends it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kestrun {

// How far one request is.
struct FetchState {
  std::string url;
  uint64_t received_bytes = 0;
  // Nothing until the server has told it, and where it never does.
  std::optional<uint64_t> total_bytes;
};

// One line for a status line, such as "Fetching Oasis.bms from maps.example: 120 KB of 480 KB (25 %). Esc cancels."
[[nodiscard]] std::string DescribeFetch(const FetchState& state);
// 0 to 100; nothing where the total is not known.
[[nodiscard]] std::optional<int> PercentOf(const FetchState& state);

// Where a window shows its fetches.
class FetchDisplay {
 public:
  virtual ~FetchDisplay() = default;
  // Before anything is sent, and then several times a second. No event of any window runs in it or between two of them;
  // what it changes is painted.
  virtual void ShowFetch(const FetchState& state) = 0;
  // Behind the fetches of a scope that has shown one.
  virtual void EndFetch() = 0;
};

// The fetches of one command, as long as this object lives. Scopes nest: one without a display of its own shows in that
// of the scope around it, and a cancel ends the commands of all of them.
class FetchScope {
 public:
  explicit FetchScope(FetchDisplay* display = nullptr);
  ~FetchScope();
  FetchScope(const FetchScope&) = delete;
  FetchScope& operator=(const FetchScope&) = delete;

  // True once the user has ended a fetch in it: nothing else of the command is to run. Every later request in the scope
  // fails at once.
  [[nodiscard]] bool IsCancelled() const { return is_cancelled_; }

  // Whether a window shows the fetches of the commands that run now.
  [[nodiscard]] static bool IsShown();

  // For those who fetch. Without any scope nothing is shown.
  static void Show(const FetchState& state);
  static void Cancel();
  static bool IsAnyCancelled();

 private:
  FetchScope* outer_;
  FetchDisplay* display_;
  bool has_shown_ = false;
  bool is_cancelled_ = false;
};

}  // namespace kestrun
