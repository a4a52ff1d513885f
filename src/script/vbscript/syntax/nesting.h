// Bounds how deep a program text may nest, well inside what the stack holds.
#pragma once

#include "script/vbscript/syntax/compile_error.h"

namespace kestrun::vbs {

inline constexpr int kDeepestNesting = 400;

class NestingLevel {
 public:
  NestingLevel(int& depth, uint32_t position) : depth_(depth) {
    if (depth_ >= kDeepestNesting) throw CompileError{compile_error::kOutOfMemory, position};
    ++depth_;
  }
  ~NestingLevel() { --depth_; }
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;

 private:
  int& depth_;
};

}  // namespace kestrun::vbs
