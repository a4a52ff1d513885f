#include "script/vbscript/engine/err_object.h"

#include "base/convert.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

ErrObject& Of(Object& object) { return static_cast<ErrObject&>(object); }

Variant GetNumber(Object& object, Arguments) { return int32_t{Of(object).number}; }
void PutNumber(Object& object, Arguments, const Variant& value) {
  ErrObject& err = Of(object);
  err.number = ToLong(value);
  err.description = err.number ? std::string(ScriptErrorText(err.number)) : std::string();
}
Variant GetDescription(Object& object, Arguments) { return Of(object).description; }
void PutDescription(Object& object, Arguments, const Variant& value) { Of(object).description = ToText(value); }
Variant GetSource(Object& object, Arguments) { return Of(object).source; }
void PutSource(Object& object, Arguments, const Variant& value) { Of(object).source = ToText(value); }
Variant GetHelpFile(Object& object, Arguments) { return Of(object).help_file; }
void PutHelpFile(Object& object, Arguments, const Variant& value) { Of(object).help_file = ToText(value); }
Variant GetHelpContext(Object& object, Arguments) { return int32_t{Of(object).help_context}; }
void PutHelpContext(Object& object, Arguments, const Variant& value) { Of(object).help_context = ToLong(value); }

Variant ClearErr(Object& object, Arguments) {
  Of(object).Clear();
  return {};
}

// An argument that is there and not left out.
const Variant* Given(Arguments arguments, size_t at) {
  return at < arguments.size() && !arguments[at].IsMissing() ? &arguments[at] : nullptr;
}

std::string TextOr(const Variant* value, std::string_view otherwise) {
  return value ? ToText(*value) : std::string(otherwise);
}

// Raise(number, source, description, help file, help context). Zero is no error.
Variant RaiseErr(Object&, Arguments arguments) {
  const int32_t number = ToLong(arguments[0]);
  if (number == 0) RaiseScript(error::kInvalidProcedureCall);
  const Variant* context = Given(arguments, 4);
  throw RaisedError(number, TextOr(Given(arguments, 2), ScriptErrorText(number)),
                    TextOr(Given(arguments, 1), kRuntimeErrorSource), TextOr(Given(arguments, 3), ""),
                    context ? ToLong(*context) : 0);
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
  number = error.number();
  if (const auto* raised = dynamic_cast<const RaisedError*>(&error)) {
    description = raised->description();
    source = raised->source();
    help_file = raised->help_file();
    help_context = raised->help_context();
    return;
  }
  description = InScriptWords(error).description();
  source = IsCompileError(number) ? kCompileErrorSource : kRuntimeErrorSource;
}

void ErrObject::Clear() {
  number = 0;
  help_context = 0;
  description.clear();
  source.clear();
  help_file.clear();
}

}  // namespace kestrun::vbs
