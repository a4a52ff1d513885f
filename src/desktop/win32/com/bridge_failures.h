// Failures on their way between the program's run-time errors and automation's result codes.
#pragma once

#include <exception>
#include <string>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// The failure in flight as an exception of automation: number and text, and the program as its source. `told` may be
// null; then the result code itself carries the number.
[[nodiscard]] HRESULT TellFailure(EXCEPINFO* told) noexcept;

// Runs what a caller from outside wants. What fails inside is told, so that nothing of it passes the boundary.
template <class Action>
[[nodiscard]] HRESULT AnswerCall(EXCEPINFO* told, Action&& action) noexcept {
  try {
    return action();
  } catch (const std::exception&) {
    return TellFailure(told);
  }
}

// What an exception of automation says in words.
struct ToldTexts {
  std::string source;
  std::string description;
  std::string help_file;
};
// Asks for what is filled in late, and takes the texts out. Numbers stand in `told` afterwards.
[[nodiscard]] ToldTexts TakeToldTexts(EXCEPINFO& told);

// Raises a result code as a run-time error; `told` is what came with DISP_E_EXCEPTION, and is let go.
[[noreturn]] void RaiseResult(HRESULT result, EXCEPINFO* told = nullptr);

// The system's own sentence for a result code, without the line's end; empty when it has none.
[[nodiscard]] std::string TextOfResult(HRESULT result);

}  // namespace kestrun
