#include "game/run/running_clock.h"

#include "base/convert.h"

namespace kestrun {
namespace {

std::string Limited(const std::string& text, double too_much) {
  if (!IsNumeric(text)) return text;
  const double value = TextToDouble(text);
  if (value >= too_much) return "59";
  return value < 0 ? "0" : text;
}

}  // namespace

std::string LimitedSeconds(const std::string& text) { return Limited(text, 60); }

std::string LimitedMinutes(const std::string& text) { return Limited(text, 241); }

}  // namespace kestrun
