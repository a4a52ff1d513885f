#include "forms/color.h"

#include "platform/platform.h"

namespace kestrun {
namespace {

// The highest byte says what kind of colour the others are.
constexpr Color kPlain = 0x00;
constexpr Color kPlainOfPalette = 0x02;
constexpr Color kSystem = 0x80;

}  // namespace

std::optional<Color> PlainColor(Color value) {
  switch (value >> 24) {
    case kPlain:
    case kPlainOfPalette: return value & 0xFFFFFF;
    case kSystem: return platform().windowing().SystemColor(static_cast<int>(value & 0xFFFFFF));
    default: return std::nullopt;
  }
}

}  // namespace kestrun
