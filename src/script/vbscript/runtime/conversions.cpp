#include "script/vbscript/runtime/conversions.h"

#include <array>
#include <charconv>

#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

// A default member may answer with an object that has one as well; a ring of them must end.
constexpr int kDefaultMemberDepth = 16;

void AppendWhole(std::u16string& text, int32_t value) {
  std::array<char, 12> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  text.append(digits.data(), end);
}

void AppendAscii(std::u16string& text, std::string_view ascii) { text.append(ascii.begin(), ascii.end()); }

}  // namespace

Variant PlainValue(const Variant& value) {
  Variant plain = value;
  for (int depth = 0; plain.Is(VarType::kObject); ++depth) {
    Object* object = plain.object();
    if (!object) RaiseScript(error::kObjectNotSet);
    const MemberId member = object->DefaultMember();
    if (member == kNoMember || depth == kDefaultMemberDepth) RaiseScript(error::kMemberNotFound);
    plain = object->Get(member, {});
  }
  return plain;
}

void AppendText(std::u16string& text, const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty:
    case VarType::kNull: return;
    case VarType::kString: text.append(value.text()); return;
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kByte: AppendWhole(text, value.whole()); return;
    case VarType::kObject: AppendText(text, PlainValue(value)); return;
    case VarType::kArray:
    case VarType::kError: RaiseScript(error::kTypeMismatch);
    default: AppendAscii(text, ToText(value));
  }
}

Variant ToTextValue(const Variant& value) {
  if (value.Is(VarType::kString)) return value;
  if (value.Is(VarType::kNull)) RaiseScript(error::kInvalidUseOfNull);
  if (value.Is(VarType::kObject)) return ToTextValue(PlainValue(value));
  std::u16string text;
  AppendText(text, value);
  return Variant(std::move(text));
}

int32_t LongArgument(Arguments arguments, size_t index, int32_t preset) {
  return IsGiven(arguments, index) ? ToLong(arguments[index]) : preset;
}

size_t CountArgument(const Variant& value, int32_t least) {
  const bool whole = value.Is(VarType::kInteger) || value.Is(VarType::kLong);
  const int32_t count = whole ? value.whole() : ToLong(value);
  if (count < least) RaiseScript(error::kInvalidProcedureCall);
  return static_cast<size_t>(count);
}

bool TextCompareArgument(Arguments arguments, size_t index) {
  const int32_t mode = LongArgument(arguments, index, 0);
  if (mode != 0 && mode != 1) RaiseScript(error::kInvalidProcedureCall);
  return mode == 1;
}

Variant CountValue(size_t count) { return static_cast<int32_t>(count); }

}  // namespace kestrun::vbs
