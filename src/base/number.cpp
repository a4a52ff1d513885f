#include "base/number.h"

#include <cmath>
#include <limits>
#include <random>

#include "base/runtime_error.h"

namespace kestrun {

double RoundToEven(double value) {
  const double lower = std::floor(value);
  const double fraction = value - lower;
  if (fraction < 0.5) return lower;
  if (fraction > 0.5) return lower + 1;
  return std::fmod(lower, 2.0) == 0 ? lower : lower + 1;
}

namespace {

template <class Whole>
Whole RoundChecked(double value) {
  const double rounded = RoundToEven(value);
  const bool fits = rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
                    rounded <= static_cast<double>(std::numeric_limits<Whole>::max());
  if (!fits) Raise(error::kOverflow);
  return static_cast<Whole>(rounded);
}

}  // namespace

int32_t RoundToInt(double value) { return RoundChecked<int32_t>(value); }

int16_t RoundToShort(double value) { return RoundChecked<int16_t>(value); }

double RandomDraw() {
  static std::mt19937 generator(std::mt19937::default_seed);
  return static_cast<double>(generator()) / 4294967296.0;
}

}  // namespace kestrun
