// Sets a flag for as long as it lives: a routine that must not be entered again tells its callers that it is at work.
#pragma once

#include <utility>

namespace kestrun {

class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~FlagScope() { flag_ = before_; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
  bool before_;  // where one scope runs inside another
};

}  // namespace kestrun
