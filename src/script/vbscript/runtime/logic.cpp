// Bitwise operators and their three-valued logic with Null.
#include "base/text.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

// One operand as bits, with the type that it asks for: kEmpty, kBoolean, kByte, kInteger or kLong, and kString for one
// of the words "True" and "False", which is a Boolean where the other side is one.
struct Bits {
  int32_t value;
  VarType type;
};

bool ReadTruthWord(const Variant& text, bool& truth) {
  const std::string word = ToUtf8(text.text());
  truth = EqualsNoCase(word, "True") || EqualsNoCase(word, "#TRUE#");
  return truth || EqualsNoCase(word, "False") || EqualsNoCase(word, "#FALSE#");
}

// A text that is no word of truth is a number.
Bits TextBits(const Variant& text) {
  bool truth;
  if (ReadTruthWord(text, truth)) return {BooleanBits(truth), VarType::kString};
  return {ToLong(text), VarType::kLong};
}

Bits BitsOf(const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty: return {0, VarType::kEmpty};
    case VarType::kBoolean: return {BooleanBits(value.boolean()), VarType::kBoolean};
    case VarType::kByte:
    case VarType::kInteger:
    case VarType::kLong: return {value.whole(), value.type()};
    case VarType::kString: return TextBits(value);
    default: return {ToLong(value), VarType::kLong};
  }
}

VarType CommonType(VarType left, VarType right) {
  if (left == right) return left;
  const auto truth = [](VarType type) { return type == VarType::kString || type == VarType::kBoolean; };
  if (truth(left) && truth(right)) return VarType::kBoolean;
  const auto wide = [](VarType type) { return type == VarType::kString || type == VarType::kLong; };
  return wide(left) || wide(right) ? VarType::kLong : VarType::kInteger;
}

Variant FromBits(int32_t bits, VarType type) {
  switch (type) {
    case VarType::kString:
    case VarType::kBoolean: return bits != 0;
    case VarType::kByte: return static_cast<uint8_t>(bits);
    case VarType::kInteger: return static_cast<int16_t>(bits);
    default: return bits;
  }
}

using BitOperation = int32_t (*)(int32_t, int32_t);

template <BitOperation Operation>
Variant Combine(const Variant& left, const Variant& right) {
  const Bits left_bits = BitsOf(left);
  const Bits right_bits = BitsOf(right);
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
template <BitOperation Operation, class WithNull>
Variant Apply(const Variant& left, const Variant& right, WithNull with_null) {
  if (BothBoolean(left, right)) {
    return Operation(BooleanBits(left.boolean()), BooleanBits(right.boolean())) != 0;
  }
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Apply<Operation>(PlainValue(left), PlainValue(right), with_null);
  }
  RefuseUnusable(left);
  RefuseUnusable(right);
  if (left.Is(VarType::kNull) || right.Is(VarType::kNull)) return with_null(left, right);
  return Combine<Operation>(left, right);
}

Variant UnknownWithNull(const Variant&, const Variant&) { return Variant::Null(); }

// The operand that is not Null when its own bits settle the result, else Null.
Variant SettledBy(const Variant& known, bool by_zero) {
  if (known.Is(VarType::kNull)) return known;
  const Bits bits = BitsOf(known);
  if ((bits.value == 0) != by_zero) return Variant::Null();
  return FromBits(bits.value, bits.type);
}

const Variant& KnownSide(const Variant& left, const Variant& right) { return left.Is(VarType::kNull) ? right : left; }

// An unknown premise follows from anything true; a known premise settles the result where it is false.
Variant ImplyWithNull(const Variant& left, const Variant& right) {
  if (left.Is(VarType::kNull)) return SettledBy(right, false);
  const Bits premise = BitsOf(left);
  const bool truth = premise.type == VarType::kBoolean || premise.type == VarType::kString;
  if (truth) return premise.value == 0 ? Variant(true) : Variant::Null();
  return FromBits(~premise.value, premise.type);
}

}  // namespace

Variant And(const Variant& left, const Variant& right) {
  return Apply<AndBits>(left, right,
                        [](const Variant& a, const Variant& b) { return SettledBy(KnownSide(a, b), true); });
}

Variant Or(const Variant& left, const Variant& right) {
  return Apply<OrBits>(left, right,
                       [](const Variant& a, const Variant& b) { return SettledBy(KnownSide(a, b), false); });
}

Variant Xor(const Variant& left, const Variant& right) { return Apply<XorBits>(left, right, UnknownWithNull); }

Variant Eqv(const Variant& left, const Variant& right) { return Apply<EqvBits>(left, right, UnknownWithNull); }

Variant Imp(const Variant& left, const Variant& right) { return Apply<ImpBits>(left, right, ImplyWithNull); }

Variant Not(const Variant& value) {
  if (value.Is(VarType::kBoolean)) return !value.boolean();
  if (value.Is(VarType::kObject)) return Not(PlainValue(value));
  RefuseUnusable(value);
  if (value.Is(VarType::kNull)) return value;
  if (value.Is(VarType::kEmpty)) return int16_t{-1};
  const Bits bits = BitsOf(value);
  return FromBits(~bits.value, bits.type);
}

bool IsTrue(const Variant& condition) {
  if (condition.Is(VarType::kBoolean)) return condition.boolean();
  if (condition.Is(VarType::kObject)) return IsTrue(PlainValue(condition));
  return !condition.Is(VarType::kNull) && ToBoolean(condition);
}

}  // namespace kestrun::vbs
