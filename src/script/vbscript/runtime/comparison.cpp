#include "base/convert.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

template <class Value>
int Sign(Value left, Value right) {
  return left < right ? -1 : static_cast<int>(right < left);
}

bool Holds(int order, Comparison comparison) {
  switch (comparison) {
    case Comparison::kEqual: return order == 0;
    case Comparison::kNotEqual: return order != 0;
    case Comparison::kLess: return order < 0;
    case Comparison::kLessEqual: return order <= 0;
    case Comparison::kGreater: return order > 0;
    case Comparison::kGreaterEqual: return order >= 0;
  }
  return false;
}

bool IsText(const Variant& value) { return value.Is(VarType::kString); }

int OrderTexts(const std::u16string& left, const std::u16string& right) { return Sign(left.compare(right), 0); }

// `text` against a value that is no text. Error 13 when it must be a number and is none.
int OrderTextAndOther(const Variant& text, const Variant& other, bool text_is_literal, bool other_is_literal) {
  if (other.Is(VarType::kEmpty)) return text.text().empty() ? 0 : 1;
  if (text_is_literal) return OrderTexts(text.text(), ToTextValue(other).text());
  if (!other_is_literal || other.Is(VarType::kBoolean)) return 1;
  return Sign(other.Is(VarType::kDate) ? ToDate(text) : ToDouble(text), ToDouble(other));
}

void RefuseUnusable(const Variant& value) {
  if (value.Is(VarType::kArray) || value.Is(VarType::kError)) RaiseScript(error::kTypeMismatch);
}

// A Double beside a Single is as precise as that one.
bool SingleAndDouble(const Variant& left, const Variant& right) {
  return (left.Is(VarType::kSingle) && right.Is(VarType::kDouble)) ||
         (left.Is(VarType::kDouble) && right.Is(VarType::kSingle));
}

int OrderPlain(const Variant& left, const Variant& right, unsigned literals) {
  RefuseUnusable(left);
  RefuseUnusable(right);
  const bool left_literal = (literals & kLeftIsLiteral) != 0;
  const bool right_literal = (literals & kRightIsLiteral) != 0;
  if (IsText(left)) return OrderTextAndOther(left, right, left_literal, right_literal);
  if (IsText(right)) return -OrderTextAndOther(right, left, right_literal, left_literal);
  if (SingleAndDouble(left, right)) return Sign(static_cast<float>(left.real()), static_cast<float>(right.real()));
  if (left.Is(VarType::kCurrency) && right.Is(VarType::kCurrency)) return Sign(left.scaled(), right.scaled());
  return Sign(ToDouble(left), ToDouble(right));
}

bool IsCounting(const Variant& value) { return value.Is(VarType::kLong) || value.Is(VarType::kInteger); }

}  // namespace

int Order(const Variant& left, const Variant& right, unsigned literals) {
  if (IsText(left) && IsText(right)) return OrderTexts(left.text(), right.text());
  if (IsCounting(left) && IsCounting(right)) return Sign(left.whole(), right.whole());
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Order(PlainValue(left), PlainValue(right), literals);
  }
  return OrderPlain(left, right, literals);
}

Variant Compare(const Variant& left, const Variant& right, Comparison comparison, unsigned literals) {
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Compare(PlainValue(left), PlainValue(right), comparison, literals);
  }
  if (left.Is(VarType::kNull) || right.Is(VarType::kNull)) {
    RefuseUnusable(left);
    RefuseUnusable(right);
    return Variant::Null();
  }
  return Holds(Order(left, right, literals), comparison);
}

Variant IsSame(const Variant& left, const Variant& right) {
  if (!left.Is(VarType::kObject) || !right.Is(VarType::kObject)) RaiseScript(error::kObjectRequired);
  return left.object() == right.object();
}

}  // namespace kestrun::vbs
