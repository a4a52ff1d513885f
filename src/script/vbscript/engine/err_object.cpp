#include "script/vbscript/engine/err_object.h"

#include "base/convert.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

ErrObject& Of(Object& object) { return static_cast<ErrObject&>(object); }

// An error is copied on its way to whoever handles it, so that its texts may not be of any length: error 14.
std::string ErrorText(const Variant& value) {
  constexpr size_t kMostUnits = 1 << 16;
  const Variant plain = PlainValue(value);
  if (plain.Is(VarType::kString) && plain.text().size() > kMostUnits) RaiseScript(error::kOutOfStringSpace);
  return ToText(plain);
}

void PutText(ErrObject& err, std::string ErrObject::*field, const Variant& value) {
  err.*field = ErrorText(value);
  err.CountBytes();
}

Variant GetNumber(Object& object, Arguments) { return int32_t{Of(object).number}; }
void PutNumber(Object& object, Arguments, const Variant& value) {
  ErrObject& err = Of(object);
  err.number = ToLong(value);
  err.description = err.number ? std::string(ScriptErrorText(err.number)) : std::string();
}
Variant GetDescription(Object& object, Arguments) { return Of(object).description; }
void PutDescription(Object& object, Arguments, const Variant& value) {
  PutText(Of(object), &ErrObject::description, value);
}
Variant GetSource(Object& object, Arguments) { return Of(object).source; }
void PutSource(Object& object, Arguments, const Variant& value) { PutText(Of(object), &ErrObject::source, value); }
Variant GetHelpFile(Object& object, Arguments) { return Of(object).help_file; }
void PutHelpFile(Object& object, Arguments, const Variant& value) { PutText(Of(object), &ErrObject::help_file, value); }
Variant GetHelpContext(Object& object, Arguments) { return int32_t{Of(object).help_context}; }
void PutHelpContext(Object& object, Arguments, const Variant& value) { Of(object).help_context = ToLong(value); }

Variant ClearErr(Object& object, Arguments) {
  Of(object).Clear();
  return {};
}

constexpr int32_t kLargestNumber = 0xFFFF;

// An argument that is there and not left out.
const Variant* Given(Arguments arguments, size_t at) {
  return at < arguments.size() && !arguments[at].IsMissing() ? &arguments[at] : nullptr;
}

std::string TextOr(const Variant* value, std::string_view otherwise) {
  return value ? ErrorText(*value) : std::string(otherwise);
}

std::string_view Either(const std::string& kept, std::string_view otherwise) { return kept.empty() ? otherwise : kept; }

// Raise(number, source, description, help file, help context). Zero and positive numbers above 65535 are no errors.
// What is not given stays as Err has it, and where that is empty follows the number.
Variant RaiseErr(Object& object, Arguments arguments) {
  const ErrObject& err = Of(object);
  const int32_t given = ToLong(arguments[0]);
  if (given == 0 || given > kLargestNumber) RaiseScript(error::kInvalidProcedureCall);
  const int number = NumberOfResult(given);
  const Variant* context = Given(arguments, 4);
  throw HostError(number, TextOr(Given(arguments, 2), Either(err.description, ScriptErrorText(number))),
                  TextOr(Given(arguments, 1), Either(err.source, kRuntimeErrorSource)),
                  TextOr(Given(arguments, 3), err.help_file), context ? ToLong(*context) : err.help_context);
}

constexpr Member kMembers[] = {
    {"Number", MemberKind::kReadWrite, 0, 0, GetNumber, PutNumber},
    {"Description", MemberKind::kReadWrite, 0, 0, GetDescription, PutDescription},
    {"Source", MemberKind::kReadWrite, 0, 0, GetSource, PutSource},
    {"HelpFile", MemberKind::kReadWrite, 0, 0, GetHelpFile, PutHelpFile},
    {"HelpContext", MemberKind::kReadWrite, 0, 0, GetHelpContext, PutHelpContext},
    {"Clear", MemberKind::kMethod, 0, 0, ClearErr},
    {"Raise", MemberKind::kMethod, 1, 5, RaiseErr},
};

bool IsCompileError(int number) { return number >= 1001 && number <= 1058; }

}  // namespace

const MemberTable& ErrObject::Members() const {
  static const MemberTable kTable{nullptr, kMembers};
  return kTable;
}

void ErrObject::Set(const RuntimeError& error) {
  Clear();
  const RuntimeError words = InScriptWords(error);
  number = words.number();
  description = words.description();
  const auto* host = dynamic_cast<const HostError*>(&error);
  if (host) {
    source = host->source();
    help_file = host->help_file();
    help_context = host->help_context();
  }
  // A host that describes its own failure also says where it came from, or nobody does.
  const bool own_words = host && (!host->description().empty() || number < 0);
  if (source.empty() && !own_words) source = IsCompileError(number) ? kCompileErrorSource : kRuntimeErrorSource;
  CountBytes();
}

void ErrObject::Clear() {
  number = 0;
  help_context = 0;
  for (std::string* const text : {&description, &source, &help_file}) *text = std::string();
  CountBytes();
}

void ErrObject::CountBytes() {
  bytes_.Set(LiveBytes::BlockOf(description) + LiveBytes::BlockOf(source) + LiveBytes::BlockOf(help_file));
}

}  // namespace kestrun::vbs
