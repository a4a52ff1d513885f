// What the fast paths of the operators leave over: other types, objects and texts.
#include <array>

#include <algorithm>

#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/machine/numeric.h"
#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

bool IsWhole(const Variant& value) { return value.Is(VarType::kInteger) || value.Is(VarType::kLong); }

// The digits of a whole number, at the end of a text.
void AppendDigits(TextBuilder& text, int32_t value) {
  std::array<char16_t, 12> digits{};
  size_t first = digits.size();
  uint32_t rest = value < 0 ? 0 - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
  do {
    digits[--first] = static_cast<char16_t>(u'0' + rest % 10);
  } while ((rest /= 10) != 0);
  if (value < 0) digits[--first] = u'-';
  text.Append(std::u16string_view(digits.data() + first, digits.size() - first));
}

// A value's text at the end of another; Null has none.
void AppendValue(TextBuilder& text, const Variant& value) {
  if (value.Is(VarType::kString)) return text.Append(value.text());
  if (IsWhole(value)) return AppendDigits(text, value.whole());
  std::u16string part;
  AppendText(part, value);
  text.Append(part);
}

// The room that a value's text needs, about.
size_t UnitsOf(const Variant& value) { return value.Is(VarType::kString) ? value.text().size() : 11; }

}  // namespace

// Objects among the operands may run code that changes the variables the operands stand in, so that their values are
// taken first. Texts are paid for by their length.
void Machine::SlowBinary(const Instruction& at, BinaryOperator operation) {
  const Variant& left = At(at.b);
  const Variant& right = At(at.c);
  if (!left.owns() && !right.owns()) {
    At(at.a) = operation(left, right);
    return;
  }
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    const Variant plain_left = PlainCopy(left);
    const Variant plain_right = PlainCopy(right);
    ChargeReading(plain_left, plain_right);
    Variant result = operation(plain_left, plain_right);
    At(at.a) = std::move(result);
    return;
  }
  ChargeReading(left, right);
  At(at.a) = operation(left, right);
}

// Texts are joined, everything else is added.
void Machine::SlowAdd(const Instruction& at, BinaryOperator add) {
  const bool texts = At(at.b).Is(VarType::kString) && At(at.c).Is(VarType::kString);
  return texts ? Concatenate(at) : SlowBinary(at, add);
}

// The sum is read before the element: what gives that may be an object, whose code changes the sum.
const Instruction* Machine::SlowAddElement(const Instruction* pc) {
  const Variant* const quick = QuickElement(At(pc->b), At(pc->c));
  if (quick && AddNumber(At(pc->a), *quick)) return pc + 1;
  if (quick && quick->Is(VarType::kString) && At(pc->a).Is(VarType::kString)) {
    Variant part(*quick);
    AppendParts(At(pc->a), &part, 1);
    return pc + 1;
  }
  const Variant sum(At(pc->a));
  Variant index(At(pc->c));
  const Variant element = IndexedValue(At(pc->b), {&index, 1});
  const Variant left = PlainCopy(sum);
  const Variant right = PlainCopy(element);
  const bool texts = left.Is(VarType::kString) && right.Is(VarType::kString);
  if (!texts) ChargeReading(left, right);
  Variant result = texts ? Joined(left, right) : Add(left, right);
  RequireAssignable(At(pc->a));
  At(pc->a) = std::move(result);
  return pc + 1;
}

Variant Machine::CompareValues(const Variant& left, const Variant& right, Comparison wanted, unsigned literals) {
  if (left.Is(VarType::kString) && right.Is(VarType::kString)) {
    const bool equality = wanted == Comparison::kEqual || wanted == Comparison::kNotEqual;
    if (equality && left.text().size() != right.text().size()) return wanted == Comparison::kNotEqual;
    const auto order = static_cast<int16_t>(CompareUnits(engine_, left.text(), right.text()));
    return Compare(order, int16_t{0}, wanted);
  }
  ChargeReading(left, right);
  return Compare(left, right, wanted, literals);
}

void Machine::SlowCompare(const Instruction& at, int comparison, Variant& result) {
  const Variant left = At(at.b);
  const Variant right = At(at.c);
  const bool objects = left.Is(VarType::kObject) || right.Is(VarType::kObject);
  const auto wanted = static_cast<Comparison>(comparison);
  if (objects) {
    const Variant plain_left = PlainCopy(left);
    At(at.a) = CompareValues(plain_left, PlainCopy(right), wanted, at.n & kSidesMask);
  } else {
    result = CompareValues(left, right, wanted, at.n & kSidesMask);
  }
}

// The outcome of a comparison that decides a jump; Null counts as false.
bool Machine::SlowTest(const Instruction& at, int comparison) {
  const Variant left = At(at.b);
  const bool is_case = (at.n & kCaseComparison) != 0;
  const Variant right = At(at.c);
  try {
    const Variant plain_left = PlainCopy(left);
    const Variant truth =
        CompareValues(plain_left, PlainCopy(right), static_cast<Comparison>(comparison), at.n & kSidesMask);
    return truth.Is(VarType::kBoolean) && truth.boolean();
  } catch (const RuntimeError& error) {
    if (!is_case || error.number() != error::kTypeMismatch || left.Is(VarType::kObject)) throw;
    return false;
  }
}

void Machine::Concatenate(const Instruction& at) {
  const Variant& left = At(at.b);
  const Variant& right = At(at.c);
  Variant& target = At(at.a);
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    const Variant plain_left = PlainCopy(left);
    Variant joined = Joined(plain_left, PlainCopy(right));
    At(at.a) = std::move(joined);
    return;
  }
  const bool whole = !EndsInHalf(left) && !EndsInHalf(right);
  const bool grows = whole && &target == &left && &target != &right && left.Is(VarType::kString);
  if (grows && target.text_body()->references() == 1 && (right.Is(VarType::kString) || IsWhole(right))) {
    TextBuilder text(engine_, Ref<TextBody>(target.text_body()));
    AppendValue(text, right);
    return;
  }
  target = Joined(left, right);
}

Variant Machine::Joined(const Variant& left, const Variant& right) {
  if (left.Is(VarType::kNull) && right.Is(VarType::kNull)) return left;
  if (EndsInHalf(left) || EndsInHalf(right)) return JoinBytes(engine_, left, right);
  TextBuilder text(engine_, UnitsOf(left) + UnitsOf(right));
  AppendValue(text, left);
  AppendValue(text, right);
  engine_.ChargeMemory(0);
  return text.Take();
}

// Grows the target's own text when nothing else holds it.
void Machine::AppendParts(Variant& target, Variant* parts, uint32_t count) {
  if (--fuel_ < 0) Refuel();
  for (uint32_t part = 0; part < count; ++part) {
    if (parts[part].Is(VarType::kObject)) parts[part] = PlainCopy(parts[part]);
  }
  const bool whole = !EndsInHalf(target) && std::none_of(parts, parts + count, EndsInHalf);
  if (target.Is(VarType::kString) && whole) {
    const bool own = target.text_body()->references() == 1;
    TextBuilder text = own ? TextBuilder(engine_, Ref<TextBody>(target.text_body()))
                           : TextBuilder(engine_, target.text().size() + UnitsOf(parts[0]));
    if (!own) text.Append(target.text());
    for (uint32_t part = 0; part < count; ++part) AppendValue(text, parts[part]);
    engine_.ChargeMemory(0);
    if (!own) target = text.Take();
  } else {
    Variant sum = PlainCopy(target);
    for (uint32_t part = 0; part < count; ++part) sum = Joined(sum, parts[part]);
    RequireAssignable(target);
    target = std::move(sum);
  }
  for (uint32_t part = 0; part < count; ++part) parts[part].Clear();
}

void Machine::SlowUnary(const Instruction& at, Variant (*operation)(const Variant&)) {
  const Variant value = PlainCopy(At(at.b));
  ChargeReading(value);
  Variant result = operation(value);
  At(at.a) = std::move(result);
}

// What a text takes to be read as a number or a date.
void Machine::ChargeReading(const Variant& value) { vbs::ChargeReading(engine_, value); }

void Machine::ChargeReading(const Variant& left, const Variant& right) {
  ChargeReading(left);
  ChargeReading(right);
}

}  // namespace kestrun::vbs
