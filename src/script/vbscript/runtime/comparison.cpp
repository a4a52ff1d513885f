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

// `text` against a value that is no text.
int OrderTextAndOther(const Variant& text, const Variant& other, bool one_is_literal) {
  if (other.Is(VarType::kEmpty)) return text.text().empty() ? 0 : 1;
  double number;
  if (!one_is_literal || !ReadNumber(text.text(), number)) return 1;
  return Sign(number, ToDouble(other));
}

void RefuseUnusable(const Variant& value) {
  if (value.Is(VarType::kArray) || value.Is(VarType::kError)) RaiseScript(error::kTypeMismatch);
}

int OrderPlain(const Variant& left, const Variant& right, bool one_is_literal) {
  RefuseUnusable(left);
  RefuseUnusable(right);
  if (IsText(left)) return OrderTextAndOther(left, right, one_is_literal);
  if (IsText(right)) return -OrderTextAndOther(right, left, one_is_literal);
  if (left.Is(VarType::kCurrency) && right.Is(VarType::kCurrency)) return Sign(left.scaled(), right.scaled());
  return Sign(ToDouble(left), ToDouble(right));
}

bool IsCounting(const Variant& value) { return value.Is(VarType::kLong) || value.Is(VarType::kInteger); }

}  // namespace

int Order(const Variant& left, const Variant& right, bool one_is_literal) {
  if (IsText(left) && IsText(right)) return OrderTexts(left.text(), right.text());
  if (IsCounting(left) && IsCounting(right)) return Sign(left.whole(), right.whole());
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Order(PlainValue(left), PlainValue(right), one_is_literal);
  }
  return OrderPlain(left, right, one_is_literal);
}

Variant Compare(const Variant& left, const Variant& right, Comparison comparison, bool one_is_literal) {
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Compare(PlainValue(left), PlainValue(right), comparison, one_is_literal);
  }
  if (left.Is(VarType::kNull) || right.Is(VarType::kNull)) {
    RefuseUnusable(left);
    RefuseUnusable(right);
    return Variant::Null();
  }
  return Holds(Order(left, right, one_is_literal), comparison);
}

Variant IsSame(const Variant& left, const Variant& right) {
  if (!left.Is(VarType::kObject) || !right.Is(VarType::kObject)) RaiseScript(error::kObjectRequired);
  return left.object() == right.object();
}

}  // namespace kestrun::vbs
