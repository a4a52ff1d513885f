// How the windows show their fetches: a line of words and a bar.
#pragma once

#include <functional>
#include <string>

#include "controls/progress_bar/progress_bar.h"
#include "web/fetch_scope.h"

namespace kestrun {

class FetchLine final : public FetchDisplay {
 public:
  // The bar is seen during a fetch alone; a window may have none. `show` puts the words where the window has its line,
  // `end` what stood there before.
  FetchLine(ProgressBar* bar, std::function<void(const std::string& words)> show, std::function<void()> end);

  void ShowFetch(const FetchState& state) override;
  void EndFetch() override;

 private:
  void MoveBar(const FetchState& state);

  ProgressBar* bar_;
  std::function<void(const std::string& words)> show_;
  std::function<void()> end_;
  int place_ = 0;  // of a bar that only moves, since nobody knows the whole
};

}  // namespace kestrun
