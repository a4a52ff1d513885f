// What a failing statement raises, for tests that assert the number and text of an error.
#pragma once

#include <string>
#include <utility>

#include "base/runtime_error.h"

namespace kestrun {

// Number of the RuntimeError that the statement raises; 0 when it runs through.
template <class Statement>
[[nodiscard]] int ErrorNumberOf(Statement&& statement) {
  try {
    static_cast<void>(std::forward<Statement>(statement)());
  } catch (const RuntimeError& failure) {
    return failure.number();
  }
  return 0;
}

// "number: text" of the RuntimeError that the statement raises; empty when it runs through.
template <class Statement>
[[nodiscard]] std::string ErrorOf(Statement&& statement) {
  try {
    static_cast<void>(std::forward<Statement>(statement)());
  } catch (const RuntimeError& failure) {
    return std::to_string(failure.number()) + ": " + failure.description();
  }
  return {};
}

}  // namespace kestrun
