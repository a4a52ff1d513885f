// Sets a flag for as long as it lives: a routine that must not be entered again tells its callers that it is at work.
#pragma once

namespace kestrun {

class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = false; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
};

}  // namespace kestrun
