// Arithmetic operators: the type of the result first, then the operation in that type.
#include <array>
#include <cmath>
#include <limits>

#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

enum class Kind { kByte, kInteger, kLong, kSingle, kDouble, kCurrency, kDate };

constexpr double kFirstDate = -657434;       // 1 January 100
constexpr double kBehindLastDate = 2958466;  // 1 January 10000
constexpr int64_t kCurrencyUnit = 10000;

Kind KindOf(const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty:
    case VarType::kBoolean:
    case VarType::kInteger: return Kind::kInteger;
    case VarType::kByte: return Kind::kByte;
    case VarType::kLong: return Kind::kLong;
    case VarType::kSingle: return Kind::kSingle;
    case VarType::kDouble:
    case VarType::kString: return Kind::kDouble;
    case VarType::kCurrency: return Kind::kCurrency;
    case VarType::kDate: return Kind::kDate;
    default: RaiseScript(error::kTypeMismatch);
  }
}

bool IsWhole(Kind kind) { return kind <= Kind::kLong; }

// The wider of two kinds; Single cannot hold every Long, so that pair goes to Double.
Kind Wider(Kind left, Kind right) {
  if (left > right) std::swap(left, right);
  return left == Kind::kLong && right == Kind::kSingle ? Kind::kDouble : right;
}

Kind CommonKind(const Variant& left, const Variant& right) {
  if (left.Is(VarType::kEmpty)) return KindOf(right);
  if (right.Is(VarType::kEmpty)) return KindOf(left);
  return Wider(KindOf(left), KindOf(right));
}

int32_t WholeOf(const Variant& value) {
  if (value.Is(VarType::kEmpty)) return 0;
  return value.Is(VarType::kBoolean) ? BooleanBits(value.boolean()) : value.whole();
}

Variant DoubleValue(double value) {
  if (!std::isfinite(value)) RaiseScript(error::kOverflow);
  return value;
}

// A Single that overflows goes over into a Double.
Variant SingleValue(double value) {
  const auto narrow = static_cast<float>(value);
  return std::isfinite(narrow) ? Variant(narrow) : DoubleValue(value);
}

Variant DateValue(double days) {
  if (!(days > kFirstDate - 1 && days < kBehindLastDate)) RaiseScript(error::kOverflow);
  return Variant::Date(days);
}

// The value in `kind`, or in the next wider one that holds it.
Variant WholeValue(int64_t value, Kind kind) {
  if (kind == Kind::kByte && value >= 0 && value <= 255) return static_cast<uint8_t>(value);
  if (kind <= Kind::kInteger && value == static_cast<int16_t>(value)) return static_cast<int16_t>(value);
  if (value == static_cast<int32_t>(value)) return static_cast<int32_t>(value);
  return static_cast<double>(value);
}

Variant RealValue(double value, Kind kind) {
  if (kind == Kind::kSingle) return SingleValue(value);
  return kind == Kind::kDate ? DateValue(value) : DoubleValue(value);
}

struct Sum {
  static int64_t Whole(int64_t left, int64_t right) { return left + right; }
  static double Real(double left, double right) { return left + right; }
  static bool Scaled(int64_t left, int64_t right, int64_t* result) {
    return !__builtin_add_overflow(left, right, result);
  }
};

struct Difference {
  static int64_t Whole(int64_t left, int64_t right) { return left - right; }
  static double Real(double left, double right) { return left - right; }
  static bool Scaled(int64_t left, int64_t right, int64_t* result) {
    return !__builtin_sub_overflow(left, right, result);
  }
};

// Half of a unit goes to the even neighbour. |parts| is below 10^8.
int64_t RoundToUnit(int64_t parts) {
  const int64_t whole = parts / kCurrencyUnit;
  const int64_t rest = std::abs(parts % kCurrencyUnit) * 2;
  const bool away = rest > kCurrencyUnit || (rest == kCurrencyUnit && whole % 2 != 0);
  if (!away) return whole;
  return parts < 0 ? whole - 1 : whole + 1;
}

struct Product {
  static int64_t Whole(int64_t left, int64_t right) { return left * right; }
  static double Real(double left, double right) { return left * right; }
  // left * right / 10000 without a 128-bit product: both are taken apart at the unit.
  static bool Scaled(int64_t left, int64_t right, int64_t* result) {
    const int64_t low = left % kCurrencyUnit;
    int64_t high_part;
    if (__builtin_mul_overflow(left / kCurrencyUnit, right, &high_part)) return false;
    const int64_t low_part = low * (right / kCurrencyUnit) + RoundToUnit(low * (right % kCurrencyUnit));
    return !__builtin_add_overflow(high_part, low_part, result);
  }
};

template <class Operation>
Variant CurrencyResult(const Variant& left, const Variant& right) {
  int64_t scaled;
  if (!Operation::Scaled(ToCurrency(left), ToCurrency(right), &scaled)) RaiseScript(error::kOverflow);
  return Variant::Currency(scaled);
}

template <class Operation>
Variant Compute(const Variant& left, const Variant& right, Kind kind) {
  if (IsWhole(kind)) return WholeValue(Operation::Whole(WholeOf(left), WholeOf(right)), kind);
  if (kind == Kind::kCurrency) return CurrencyResult<Operation>(left, right);
  return RealValue(Operation::Real(ToDouble(left), ToDouble(right)), kind);
}

bool IsObject(const Variant& value) { return value.Is(VarType::kObject); }

// Null in, Null out; arrays and error values are refused before that.
bool GivesNull(const Variant& left, const Variant& right) {
  for (const Variant* side : {&left, &right}) {
    if (side->Is(VarType::kArray) || side->Is(VarType::kError)) RaiseScript(error::kTypeMismatch);
  }
  return left.Is(VarType::kNull) || right.Is(VarType::kNull);
}

using Operator = Variant (*)(const Variant&, const Variant&);

// Replaces objects by their default values and applies Null; what is left are plain values.
template <Operator OnPlainValues>
Variant Resolve(const Variant& left, const Variant& right) {
  if (IsObject(left) || IsObject(right)) return Resolve<OnPlainValues>(PlainValue(left), PlainValue(right));
  if (GivesNull(left, right)) return Variant::Null();
  return OnPlainValues(left, right);
}

bool JoinsTexts(const Variant& left, const Variant& right) {
  const bool left_text = left.Is(VarType::kString);
  const bool right_text = right.Is(VarType::kString);
  return (left_text && (right_text || right.Is(VarType::kEmpty))) || (right_text && left.Is(VarType::kEmpty));
}

Variant AddPlain(const Variant& left, const Variant& right) {
  if (JoinsTexts(left, right)) return Concatenate(left, right);
  return Compute<Sum>(left, right, CommonKind(left, right));
}

Variant SubtractPlain(const Variant& left, const Variant& right) {
  const bool days_between = left.Is(VarType::kDate) && right.Is(VarType::kDate);
  return Compute<Difference>(left, right, days_between ? Kind::kDouble : CommonKind(left, right));
}

// Dates multiply as plain numbers, and Currency keeps its type only with whole numbers and its like.
Kind ProductKind(const Variant& left, const Variant& right) {
  const Kind common = CommonKind(left, right);
  if (common == Kind::kDate) return Kind::kDouble;
  if (common != Kind::kCurrency) return common;
  for (const Variant* side : {&left, &right}) {
    const Kind kind = KindOf(*side);
    if (kind == Kind::kSingle || kind == Kind::kDouble) return Kind::kDouble;
  }
  return common;
}

Variant MultiplyPlain(const Variant& left, const Variant& right) {
  return Compute<Product>(left, right, ProductKind(left, right));
}

Variant DividePlain(const Variant& left, const Variant& right) {
  const Kind common = CommonKind(left, right);
  const double dividend = ToDouble(left);
  const double divisor = ToDouble(right);
  if (divisor == 0) RaiseScript(dividend == 0 ? error::kOverflow : error::kDivisionByZero);
  return common == Kind::kSingle ? SingleValue(dividend / divisor) : DoubleValue(dividend / divisor);
}

// Whole-number division keeps Byte and Integer; everything wider or not whole becomes a Long.
struct WholeOperands {
  int64_t left;
  int64_t right;
  Kind kind;
};

WholeOperands RoundOperands(const Variant& left, const Variant& right) {
  const Kind common = CommonKind(left, right);
  const WholeOperands operands{ToLong(left), ToLong(right), IsWhole(common) ? common : Kind::kLong};
  if (operands.right == 0) RaiseScript(error::kDivisionByZero);
  return operands;
}

Variant IntegerDividePlain(const Variant& left, const Variant& right) {
  const WholeOperands operands = RoundOperands(left, right);
  const int64_t quotient = operands.left / operands.right;
  if (quotient > std::numeric_limits<int32_t>::max()) RaiseScript(error::kOverflow);
  return WholeValue(quotient, operands.kind);
}

Variant ModuloPlain(const Variant& left, const Variant& right) {
  const WholeOperands operands = RoundOperands(left, right);
  return WholeValue(operands.left % operands.right, operands.kind);
}

Variant PowerPlain(const Variant& left, const Variant& right) {
  const double base = ToDouble(left);
  const double exponent = ToDouble(right);
  const bool undefined = (base < 0 && exponent != std::trunc(exponent)) || (base == 0 && exponent < 0);
  if (undefined) RaiseScript(error::kInvalidProcedureCall);
  return DoubleValue(std::pow(base, exponent));
}

bool BothWhole(const Variant& left, const Variant& right) {
  const auto is_whole = [](VarType type) { return type == VarType::kLong || type == VarType::kInteger; };
  return is_whole(left.type()) && is_whole(right.type());
}

Kind WiderWhole(const Variant& left, const Variant& right) {
  return left.Is(VarType::kLong) || right.Is(VarType::kLong) ? Kind::kLong : Kind::kInteger;
}

bool BothDouble(const Variant& left, const Variant& right) {
  return left.Is(VarType::kDouble) && right.Is(VarType::kDouble);
}

// The two pairs that loops are made of, before the general way.
template <class Operation, Operator OnPlainValues>
Variant Apply(const Variant& left, const Variant& right) {
  if (BothWhole(left, right)) {
    return WholeValue(Operation::Whole(left.whole(), right.whole()), WiderWhole(left, right));
  }
  if (BothDouble(left, right)) return DoubleValue(Operation::Real(left.real(), right.real()));
  return Resolve<OnPlainValues>(left, right);
}

}  // namespace

Variant Add(const Variant& left, const Variant& right) { return Apply<Sum, AddPlain>(left, right); }

Variant Subtract(const Variant& left, const Variant& right) { return Apply<Difference, SubtractPlain>(left, right); }

Variant Multiply(const Variant& left, const Variant& right) { return Apply<Product, MultiplyPlain>(left, right); }

Variant Divide(const Variant& left, const Variant& right) {
  if (BothDouble(left, right) && right.real() != 0) return DoubleValue(left.real() / right.real());
  if (BothWhole(left, right) && right.whole() != 0) {
    return static_cast<double>(left.whole()) / static_cast<double>(right.whole());
  }
  return Resolve<DividePlain>(left, right);
}

Variant IntegerDivide(const Variant& left, const Variant& right) {
  if (BothWhole(left, right) && right.whole() > 0) {
    return WholeValue(left.whole() / right.whole(), WiderWhole(left, right));
  }
  return Resolve<IntegerDividePlain>(left, right);
}

Variant Modulo(const Variant& left, const Variant& right) {
  if (BothWhole(left, right) && right.whole() > 0) {
    return WholeValue(left.whole() % right.whole(), WiderWhole(left, right));
  }
  return Resolve<ModuloPlain>(left, right);
}

Variant Power(const Variant& left, const Variant& right) { return Resolve<PowerPlain>(left, right); }

Variant Negate(const Variant& value) {
  switch (value.type()) {
    case VarType::kNull: return value;
    case VarType::kInteger: return WholeValue(-static_cast<int64_t>(value.whole()), Kind::kInteger);
    case VarType::kLong: return WholeValue(-static_cast<int64_t>(value.whole()), Kind::kLong);
    case VarType::kSingle: return Variant(static_cast<float>(-value.real()));
    case VarType::kDouble: return -value.real();
    case VarType::kDate: return DateValue(-value.real());
    case VarType::kObject: return Negate(PlainValue(value));
    default: return Subtract(Variant(), value);
  }
}

Variant UnaryPlus(const Variant& value) { return value; }

}  // namespace kestrun::vbs
