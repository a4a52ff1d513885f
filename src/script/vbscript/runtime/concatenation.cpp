#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {

Variant Concatenate(const Variant& left, const Variant& right) {
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return Concatenate(PlainValue(left), PlainValue(right));
  }
  if (left.Is(VarType::kNull) && right.Is(VarType::kNull)) return Variant::Null();
  Ref<TextBody> joined = MakeRef<TextBody>();
  const auto length = [](const Variant& side) { return side.Is(VarType::kString) ? side.text().size() : 12; };
  joined->text.reserve(length(left) + length(right));
  AppendText(joined->text, left);
  AppendText(joined->text, right);
  return Variant(std::move(joined));
}

}  // namespace kestrun::vbs
