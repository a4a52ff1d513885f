// Arithmetic functions. The transcendental ones take anything that reads as a number and give a Double.
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

#include "base/number.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/local_time.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

constexpr uint32_t kRandomMask = 0xFFFFFF;
constexpr uint32_t kRandomFactor = 0x43FD43FD;
constexpr uint32_t kRandomStep = 0xC39EC3;
constexpr int32_t kMostRoundingDigits = 22;

Variant Finite(double value) {
  if (!std::isfinite(value)) RaiseScript(error::kOverflow);
  return value;
}

template <double (*Function)(double)>
Variant Apply(Arguments arguments) {
  return Finite(Function(ToDouble(arguments[0])));
}

Variant SameRealType(const Variant& model, double value) {
  if (model.Is(VarType::kSingle)) return static_cast<float>(value);
  return model.Is(VarType::kDate) ? Variant::Date(value) : Variant(value);
}

// The number behind a value that functions of "any numeric type" take: texts become Doubles, truth values Integers.
Variant NumberOf(const Variant& argument) {
  const Variant plain = PlainValue(argument);
  switch (plain.type()) {
    case VarType::kString: return ToDouble(plain);
    case VarType::kEmpty: return static_cast<int16_t>(0);
    case VarType::kBoolean: return static_cast<int16_t>(BooleanBits(plain.boolean()));
    case VarType::kArray:
    case VarType::kError: RaiseScript(error::kTypeMismatch);
    default: return plain;
  }
}

constexpr int64_t kCurrencyUnit = 10000;

int64_t TruncateCurrency(int64_t scaled) { return scaled - scaled % kCurrencyUnit; }

int64_t FloorCurrency(int64_t scaled) {
  const int64_t truncated = TruncateCurrency(scaled);
  return scaled < truncated ? truncated - kCurrencyUnit : truncated;
}

template <double (*OnReal)(double), int64_t (*OnCurrency)(int64_t)>
Variant ToWhole(const Variant& argument) {
  if (argument.Is(VarType::kLong) || argument.Is(VarType::kInteger)) return argument;
  if (argument.Is(VarType::kDouble)) return OnReal(argument.real());
  const Variant number = NumberOf(argument);
  switch (number.type()) {
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kDate: return SameRealType(number, OnReal(number.real()));
    case VarType::kCurrency: return Variant::Currency(OnCurrency(number.scaled()));
    default: return number;
  }
}

double Floor(double value) { return std::floor(value); }
double Truncate(double value) { return std::trunc(value); }

// Bits of an Integer or a Boolean stay 16 wide, everything else is a Long.
uint32_t RadixBits(const Variant& plain) {
  const int32_t whole = ToLong(plain);
  const bool narrow = plain.Is(VarType::kInteger) || plain.Is(VarType::kBoolean);
  return narrow ? static_cast<uint16_t>(whole) : static_cast<uint32_t>(whole);
}

Variant InRadix(const Variant& argument, int radix) {
  const Variant plain = PlainValue(argument);
  if (plain.Is(VarType::kNull)) return plain;
  std::array<char, 16> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), RadixBits(plain), radix).ptr;
  std::u16string text(digits.data(), end);
  for (char16_t& digit : text) {
    if (digit >= u'a') digit = static_cast<char16_t>(digit - 32);
  }
  return Variant(std::move(text));
}

double RoundAtDigit(double value, int32_t digits) {
  const double scale = std::pow(10.0, digits);
  const double scaled = value * scale;
  // Beyond 2^53 there is nothing behind the point.
  if (std::fabs(scaled) > 9007199254740992.0) return value;
  return RoundToEven(scaled) / scale;
}

float RandomValue(uint32_t state) { return static_cast<float>(state) / 16777216.0F; }

// A negative argument starts the sequence that belongs to its bits as a Single.
uint32_t StateFromSeed(float seed) {
  const auto bits = std::bit_cast<uint32_t>(seed);
  return (bits + (bits >> 24)) & kRandomMask;
}

uint32_t ColorPart(const Variant& argument) {
  const int16_t part = ToInteger(argument);
  if (part < 0) RaiseScript(error::kInvalidProcedureCall);
  return part > 255 ? 255 : static_cast<uint32_t>(part);
}

}  // namespace

// Abs(number): the same type; Null for Null. The lowest Integer and Long go over into the next wider type.
Variant Abs(RuntimeContext&, Arguments arguments) {
  const Variant number = NumberOf(arguments[0]);
  if (number.Is(VarType::kNull)) return number;
  const bool negative = number.Is(VarType::kCurrency) ? number.scaled() < 0 : ToDouble(number) < 0;
  return negative ? Negate(number) : number;
}

Variant Atn(RuntimeContext&, Arguments arguments) { return Apply<std::atan>(arguments); }
Variant Cos(RuntimeContext&, Arguments arguments) { return Apply<std::cos>(arguments); }
Variant Exp(RuntimeContext&, Arguments arguments) { return Apply<std::exp>(arguments); }
Variant Sin(RuntimeContext&, Arguments arguments) { return Apply<std::sin>(arguments); }
Variant Tan(RuntimeContext&, Arguments arguments) { return Apply<std::tan>(arguments); }

// Int(number) rounds down, Fix(number) towards zero; type and Null as in Abs.
Variant Int(RuntimeContext&, Arguments arguments) { return ToWhole<Floor, FloorCurrency>(arguments[0]); }
Variant Fix(RuntimeContext&, Arguments arguments) { return ToWhole<Truncate, TruncateCurrency>(arguments[0]); }

// Log(number): error 5 unless the number is above zero.
Variant Log(RuntimeContext&, Arguments arguments) {
  const double number = ToDouble(arguments[0]);
  if (number <= 0) RaiseScript(error::kInvalidProcedureCall);
  return std::log(number);
}

// Sqr(number): error 5 below zero.
Variant Sqr(RuntimeContext&, Arguments arguments) {
  const double number = ToDouble(arguments[0]);
  if (number < 0) RaiseScript(error::kInvalidProcedureCall);
  return std::sqrt(number);
}

// Sgn(number): -1, 0 or 1 as an Integer; error 94 for Null.
Variant Sgn(RuntimeContext&, Arguments arguments) {
  const double number = ToDouble(arguments[0]);
  return static_cast<int16_t>(number < 0 ? -1 : number > 0);
}

// Hex(number), Oct(number): rounded to a whole number, the bits of an Integer or a Long; Null for Null.
Variant Hex(RuntimeContext&, Arguments arguments) { return InRadix(arguments[0], 16); }
Variant Oct(RuntimeContext&, Arguments arguments) { return InRadix(arguments[0], 8); }

// Round(number[, digits]): ties to even. Whole numbers and Booleans keep their type.
Variant Round(RuntimeContext&, Arguments arguments) {
  const int32_t digits = LongArgument(arguments, 1, 0);
  if (digits < 0 || digits > kMostRoundingDigits) RaiseScript(error::kInvalidProcedureCall);
  if (arguments[0].Is(VarType::kBoolean)) return arguments[0];
  const Variant number = NumberOf(arguments[0]);
  switch (number.type()) {
    case VarType::kNull: RaiseScript(error::kInvalidUseOfNull);
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kDate: return SameRealType(number, RoundAtDigit(number.real(), digits));
    case VarType::kCurrency: return Variant::Currency(DoubleToCurrency(RoundAtDigit(ToDouble(number), digits)));
    default: return number;
  }
}

// Rnd([number]): the next draw, the last one again for zero, the first of the number's own sequence below zero.
Variant Rnd(RuntimeContext& context, Arguments arguments) {
  uint32_t& state = context.random_state();
  if (IsGiven(arguments, 0)) {
    const float argument = ToSingle(arguments[0]);
    if (argument == 0) return RandomValue(state);
    if (argument < 0) state = StateFromSeed(argument);
  }
  state = (state * kRandomFactor + kRandomStep) & kRandomMask;
  return RandomValue(state);
}

// Randomize [number]: mixes the number, or the seconds since midnight, into the upper bits of the state. The same
// number does not restart a sequence unless Rnd was called with a negative one before.
Variant Randomize(RuntimeContext& context, Arguments arguments) {
  double seed;
  if (IsGiven(arguments, 0)) {
    seed = ToDouble(arguments[0]);
  } else {
    const double now = LocalNow();
    seed = static_cast<double>(static_cast<float>((now - std::floor(now)) * 86400));
  }
  const auto upper = static_cast<uint32_t>(std::bit_cast<uint64_t>(seed) >> 32);
  uint32_t& state = context.random_state();
  state = (state & 0xFF) | ((((upper & 0xFFFF) ^ (upper >> 16)) << 8) & kRandomMask);
  return {};
}

// RGB(red, green, blue): parts above 255 count as 255; error 5 below zero.
Variant Rgb(RuntimeContext&, Arguments arguments) {
  const uint32_t red = ColorPart(arguments[0]);
  const uint32_t green = ColorPart(arguments[1]);
  return static_cast<int32_t>(red | green << 8 | ColorPart(arguments[2]) << 16);
}

}  // namespace kestrun::vbs
