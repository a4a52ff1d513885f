// What the fast paths of the operators leave over: other types, objects and texts.
#include <array>
#include <charconv>

#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kUnitsPerStep = 64;

bool IsWhole(const Variant& value) { return value.Is(VarType::kInteger) || value.Is(VarType::kLong); }

// The digits of a whole number, at the end of a text.
void AppendDigits(std::u16string& text, int32_t value) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  text.append(digits.data(), end);
}

}  // namespace

// Objects among the operands may run code that changes the variables the operands stand in: they are held meanwhile.
void Machine::SlowBinary(const Instruction& at, BinaryOperator operation) {
  const Variant& left = At(at.b);
  const Variant& right = At(at.c);
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    const Variant held_left(left);
    const Variant held_right(right);
    Variant result = operation(held_left, held_right);
    At(at.a) = std::move(result);
    return;
  }
  At(at.a) = operation(left, right);
}

void Machine::SlowCompare(const Instruction& at, int comparison, Variant& result) {
  const Variant left(At(at.b));
  const Variant right(At(at.c));
  Variant truth = Compare(left, right, static_cast<Comparison>(comparison), at.n);
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    At(at.a) = std::move(truth);
  } else {
    result = std::move(truth);
  }
}

// The outcome of a comparison that decides a jump; Null counts as false.
bool Machine::SlowTest(const Instruction& at, int comparison) {
  const Variant& left = At(at.b);
  const Variant& right = At(at.c);
  const auto wanted = static_cast<Comparison>(comparison);
  if (left.Is(VarType::kString) && right.Is(VarType::kString)) {
    if (wanted == Comparison::kEqual) return left.text() == right.text();
    if (wanted == Comparison::kNotEqual) return left.text() != right.text();
  }
  const Variant held_left(left);
  const Variant held_right(right);
  const bool is_case = (at.n & kCaseComparison) != 0;
  try {
    const Variant truth = Compare(held_left, held_right, wanted, at.n);
    return truth.Is(VarType::kBoolean) && truth.boolean();
  } catch (const RuntimeError& error) {
    if (!is_case || error.number() != error::kTypeMismatch || held_left.Is(VarType::kObject)) throw;
    return false;
  }
}

void Machine::Concatenate(const Instruction& at) {
  const Variant& left = At(at.b);
  const Variant& right = At(at.c);
  const bool texts = left.Is(VarType::kString) && (right.Is(VarType::kString) || IsWhole(right));
  if (!texts) return SlowBinary(at, kestrun::vbs::Concatenate);
  Variant& target = At(at.a);
  if (&target == &left && &target != &right && target.text_body()->references() == 1) {
    AppendText(*target.text_body(), right);
    return;
  }
  const Ref<TextBody> body = CopyToGrow(left, right.Is(VarType::kString) ? right.text().size() : 11);
  AppendText(*body, right);
  target = Variant(body);
}

// A text of its own with room for more.
Ref<TextBody> Machine::CopyToGrow(const Variant& text, size_t extra) {
  const size_t units = text.text().size() + extra;
  if (units > engine_.limits().text_units) RaiseScript(error::kOutOfStringSpace);
  if (units > kUnitsPerStep) engine_.ChargeMemory(units * sizeof(char16_t));
  std::u16string copy;
  copy.reserve(units);
  copy = text.text();
  return MakeRef<TextBody>(std::move(copy));
}

// False for a part that is neither text nor whole number.
bool Machine::AppendText(TextBody& body, const Variant& part) {
  if (IsWhole(part)) {
    AppendDigits(body.text, part.whole());
  } else if (part.Is(VarType::kString)) {
    if (body.text.size() + part.text().size() > engine_.limits().text_units) RaiseScript(error::kOutOfStringSpace);
    const size_t before = body.text.capacity();
    body.text += part.text();
    if (body.text.capacity() != before) {
      body.CountBytes();
      engine_.ChargeMemory(0);
    }
    Charge(1 + part.text().size() / kUnitsPerStep);
  } else {
    return false;
  }
  return true;
}

// Grows the target's own text when nothing else holds it.
void Machine::AppendParts(Variant& target, Variant* parts, uint32_t count) {
  for (uint32_t part = 0; part < count; ++part) {
    const bool plain = parts[part].Is(VarType::kString) || IsWhole(parts[part]);
    if (!plain && !(parts[part].Is(VarType::kNull) && target.Is(VarType::kNull))) {
      const Variant held = PlainCopy(parts[part]);
      parts[part] = kestrun::vbs::Concatenate(held, "");
    }
  }
  if (target.Is(VarType::kString)) {
    const bool own = target.text_body()->references() == 1;
    const Ref<TextBody> body = own ? Ref<TextBody>(target.text_body()) : CopyToGrow(target, 0);
    for (uint32_t part = 0; part < count; ++part) AppendText(*body, parts[part]);
    if (!own) target = Variant(body);
  } else {
    Variant sum = PlainCopy(target);
    for (uint32_t part = 0; part < count; ++part) sum = kestrun::vbs::Concatenate(sum, parts[part]);
    RequireAssignable(target);
    target = std::move(sum);
  }
  for (uint32_t part = 0; part < count; ++part) parts[part].Clear();
}

}  // namespace kestrun::vbs
