// Result codes of the system's objects beside the numbers of run-time errors. A result code that says a failure is
// negative; the number of a run-time error is not.
#pragma once

namespace kestrun {

// The number of the run-time error that a result code stands for: those of a script language carry it in their low
// half, the common ones of the system have one in a table. Any other number stays.
[[nodiscard]] int NumberOfResult(int result);

// The result code that carries the number of a run-time error; a result code stays.
[[nodiscard]] int ResultOfNumber(int number);

}  // namespace kestrun
