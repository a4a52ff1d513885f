// The check of a style: every window of the program is made, loaded and given the style where nobody sees it, and
// compared with what it is without. Nothing of it reaches the user, the settings, the files or the style in use.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "styles/check/style_fault.h"

namespace kestrun {

struct StyleCheckLimits {
  // Only these; all that take a style where it is empty.
  std::vector<std::string> windows;
  // How long one call into the scripts may take; a style that takes longer is not looked at any further.
  int64_t script_ms = kScriptTimeoutMs;
  // And all of it: the windows behind are left out then.
  int64_t whole_ms = 60000;
  // What the whole and each window are measured by.
  std::function<std::chrono::steady_clock::time_point()> now = [] { return std::chrono::steady_clock::now(); };
};

// A check that is done in steps: between them the program's own windows and its message loop are as ever.
class StyleCheck {
 public:
  // Reads the file, which may change afterwards. Raises what the file layer raises when it cannot be read.
  explicit StyleCheck(const std::string& file, const StyleCheckLimits& limits = {});
  ~StyleCheck();
  StyleCheck(const StyleCheck&) = delete;
  StyleCheck& operator=(const StyleCheck&) = delete;

  // The first step adds the modules; each one behind looks at one window, or searches for one place in a script that
  // is to blame for what was found there. Nothing when the check is over.
  void Step();
  [[nodiscard]] bool IsOver() const;
  // Ends the check: what is left is not looked at, and no place is searched for any more.
  void Leave();

  // The windows that are looked at in their order, and how many of them are done.
  [[nodiscard]] const std::vector<std::string>& windows() const;
  [[nodiscard]] size_t done() const;
  // What was found so far, in the order of the file, its modules, and the windows by their names; of windows that are
  // done.
  [[nodiscard]] const std::vector<StyleFault>& faults() const;
  // When the check is over: what was not looked at, and why. Empty when all was.
  [[nodiscard]] std::string Rest() const;

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

struct StyleCheckResult {
  std::vector<StyleFault> faults;
  std::string rest;  // what was not looked at, and why; empty when all was
};
// The whole check at once.
[[nodiscard]] StyleCheckResult CheckStyle(const std::string& file, const StyleCheckLimits& limits = {});

}  // namespace kestrun
