#include "styles/check/contrast.h"

#include <algorithm>
#include <cmath>

namespace kestrun {
namespace {

double Linear(uint32_t channel) {
  const double part = static_cast<double>(channel) / 255;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(Color color) {
  const Color plain = PlainColor(color).value_or(color);
  return 0.2126 * Linear(plain & 0xFF) + 0.7152 * Linear(plain >> 8 & 0xFF) + 0.0722 * Linear(plain >> 16 & 0xFF);
}

}  // namespace

double ContrastOf(Color one, Color other) {
  const double first = Luminance(one) + 0.05;
  const double second = Luminance(other) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

}  // namespace kestrun
