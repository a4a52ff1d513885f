// Rounding and the random draw, once for the whole program.
#pragma once

#include <cstdint>

namespace kestrun {

// Nearest whole number, ties to even, as a Double of any size.
[[nodiscard]] double RoundToEven(double value);
// Nearest whole number, ties to even. Error 6 when it does not fit.
[[nodiscard]] int32_t RoundToInt(double value);
[[nodiscard]] int16_t RoundToShort(double value);

// The next draw of the program's one generator, uniform in [0, 1); never reseeded.
[[nodiscard]] double RandomDraw();

}  // namespace kestrun
