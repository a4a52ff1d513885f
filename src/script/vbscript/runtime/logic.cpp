// Bitwise operators and their three-valued logic with Null.
#include "base/text.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

// One operand as bits, with the type that it asks for.
struct Bits {
  int32_t value;
  VarType type;  // kBoolean, kByte, kInteger or kLong
};

bool ReadTruthWord(const Variant& text, bool& truth) {
  const std::string word = ToUtf8(text.text());
  truth = EqualsNoCase(word, "True") || EqualsNoCase(word, "#TRUE#");
  return truth || EqualsNoCase(word, "False") || EqualsNoCase(word, "#FALSE#");
}

// "True" and "False" are truth values; any other text is a number.
Bits TextBits(const Variant& text, VarType number_type) {
  bool truth;
  if (ReadTruthWord(text, truth)) return {BooleanBits(truth), VarType::kBoolean};
  const int32_t value = ToLong(text);
  const bool narrow = number_type == VarType::kInteger && value == static_cast<int16_t>(value);
  return {value, narrow ? VarType::kInteger : VarType::kLong};
}

Bits BitsOf(const Variant& value, VarType text_type) {
  switch (value.type()) {
    case VarType::kEmpty: return {0, VarType::kInteger};
    case VarType::kBoolean: return {BooleanBits(value.boolean()), VarType::kBoolean};
    case VarType::kByte:
    case VarType::kInteger:
    case VarType::kLong: return {value.whole(), value.type()};
    case VarType::kString: return TextBits(value, text_type);
    default: return {ToLong(value), VarType::kLong};
  }
}

VarType CommonType(VarType left, VarType right) {
  if (left == right) return left;
  return left == VarType::kLong || right == VarType::kLong ? VarType::kLong : VarType::kInteger;
}

Variant FromBits(int32_t bits, VarType type) {
  switch (type) {
    case VarType::kBoolean: return bits != 0;
    case VarType::kByte: return static_cast<uint8_t>(bits);
    case VarType::kInteger: return static_cast<int16_t>(bits);
    default: return bits;
  }
}

using BitOperation = int32_t (*)(int32_t, int32_t);

// A text beside a text or a truth value is a truth value itself for And, Or and Imp.
bool ActsAsTruth(const Variant& left, const Variant& right) {
  const auto fits = [](const Variant& side) { return side.Is(VarType::kString) || side.Is(VarType::kBoolean); };
  return fits(left) && fits(right);
}

template <BitOperation Operation, bool kTextsAreTruth>
Variant Combine(const Variant& left, const Variant& right) {
  if (kTextsAreTruth && ActsAsTruth(left, right)) {
    return Operation(BooleanBits(ToBoolean(left)), BooleanBits(ToBoolean(right))) != 0;
  }
  const VarType text_type = kTextsAreTruth ? VarType::kInteger : VarType::kLong;
  const Bits left_bits = BitsOf(left, text_type);
  const Bits right_bits = BitsOf(right, text_type);
  return FromBits(Operation(left_bits.value, right_bits.value), CommonType(left_bits.type, right_bits.type));
}

int32_t AndBits(int32_t left, int32_t right) { return left & right; }
int32_t OrBits(int32_t left, int32_t right) { return left | right; }
int32_t XorBits(int32_t left, int32_t right) { return left ^ right; }
int32_t EqvBits(int32_t left, int32_t right) { return ~(left ^ right); }
int32_t ImpBits(int32_t left, int32_t right) { return ~left | right; }

void RefuseUnusable(const Variant& value) {
  if (value.Is(VarType::kArray) || value.Is(VarType::kError)) RaiseScript(error::kTypeMismatch);
}

bool BothBoolean(const Variant& left, const Variant& right) {
  return left.Is(VarType::kBoolean) && right.Is(VarType::kBoolean);
}

// Runs `operation` on plain values; `with_null(left, right)` when one of them is Null.
template <BitOperation Operation, bool kTextsAreTruth, class WithNull>
Variant Apply(const Variant& left, const Variant& right, WithNull with_null) {
  if (BothBoolean(left, right)) {
    return Operation(BooleanBits(left.boolean()), BooleanBits(right.boolean())) != 0;
  }
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Apply<Operation, kTextsAreTruth>(PlainValue(left), PlainValue(right), with_null);
  }
  RefuseUnusable(left);
  RefuseUnusable(right);
  if (left.Is(VarType::kNull) || right.Is(VarType::kNull)) return with_null(left, right);
  return Combine<Operation, kTextsAreTruth>(left, right);
}

Variant UnknownWithNull(const Variant&, const Variant&) { return Variant::Null(); }

// The operand that is not Null when its own bits settle the result, else Null.
Variant SettledBy(const Variant& known, bool by_zero) {
  if (known.Is(VarType::kNull)) return known;
  const Bits bits = BitsOf(known, VarType::kInteger);
  if ((bits.value == 0) != by_zero) return Variant::Null();
  return FromBits(bits.value, known.Is(VarType::kString) ? VarType::kBoolean : bits.type);
}

const Variant& KnownSide(const Variant& left, const Variant& right) { return left.Is(VarType::kNull) ? right : left; }

// An unknown premise follows from anything true; a known premise settles the result where it is false.
Variant ImplyWithNull(const Variant& left, const Variant& right) {
  if (left.Is(VarType::kNull)) return SettledBy(right, false);
  const Bits premise = BitsOf(left, VarType::kInteger);
  const VarType type = left.Is(VarType::kString) ? VarType::kBoolean : premise.type;
  if (type == VarType::kBoolean) return premise.value == 0 ? Variant(true) : Variant::Null();
  return FromBits(~premise.value, type);
}

}  // namespace

Variant And(const Variant& left, const Variant& right) {
  return Apply<AndBits, true>(left, right,
                              [](const Variant& a, const Variant& b) { return SettledBy(KnownSide(a, b), true); });
}

Variant Or(const Variant& left, const Variant& right) {
  return Apply<OrBits, true>(left, right,
                             [](const Variant& a, const Variant& b) { return SettledBy(KnownSide(a, b), false); });
}

Variant Xor(const Variant& left, const Variant& right) { return Apply<XorBits, false>(left, right, UnknownWithNull); }

Variant Eqv(const Variant& left, const Variant& right) { return Apply<EqvBits, false>(left, right, UnknownWithNull); }

Variant Imp(const Variant& left, const Variant& right) { return Apply<ImpBits, true>(left, right, ImplyWithNull); }

Variant Not(const Variant& value) {
  if (value.Is(VarType::kBoolean)) return !value.boolean();
  if (value.Is(VarType::kObject)) return Not(PlainValue(value));
  RefuseUnusable(value);
  if (value.Is(VarType::kNull)) return value;
  const Bits bits = BitsOf(value, VarType::kLong);
  return FromBits(~bits.value, bits.type);
}

bool IsTrue(const Variant& condition) {
  if (condition.Is(VarType::kBoolean)) return condition.boolean();
  if (condition.Is(VarType::kObject)) return IsTrue(PlainValue(condition));
  return !condition.Is(VarType::kNull) && ToBoolean(condition);
}

}  // namespace kestrun::vbs
