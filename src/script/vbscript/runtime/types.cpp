// Conversion functions and questions about a value's type. Conversions raise 13 for what does not read as the type,
// 6 for what it cannot hold and 94 for Null.
#include "base/convert.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"

namespace kestrun::vbs {
namespace {

// The object's default value, or nothing when it has none: questions about a type never fail.
Variant ValueToAskAbout(const Variant& argument) {
  if (!argument.Is(VarType::kObject)) return argument;
  Object* object = argument.object();
  if (!object || object->DefaultMember() == kNoMember) return Variant::Nothing();
  try {
    return PlainValue(argument);
  } catch (const RuntimeError&) {
    return Variant::Nothing();
  }
}

}  // namespace

Variant CBool(RuntimeContext&, Arguments arguments) { return ToBoolean(arguments[0]); }

// CByte(True) is 255, the bits that fit.
Variant CByte(RuntimeContext&, Arguments arguments) {
  if (arguments[0].Is(VarType::kBoolean)) return static_cast<uint8_t>(arguments[0].boolean() ? 255 : 0);
  return ToByte(arguments[0]);
}

Variant CCur(RuntimeContext&, Arguments arguments) { return Variant::Currency(ToCurrency(arguments[0])); }
Variant CDate(RuntimeContext&, Arguments arguments) { return Variant::Date(ToDate(arguments[0])); }
Variant CDbl(RuntimeContext&, Arguments arguments) { return ToDouble(arguments[0]); }
Variant CInt(RuntimeContext&, Arguments arguments) { return ToInteger(arguments[0]); }
Variant CLng(RuntimeContext&, Arguments arguments) { return ToLong(arguments[0]); }
Variant CSng(RuntimeContext&, Arguments arguments) { return ToSingle(arguments[0]); }
Variant CStr(RuntimeContext&, Arguments arguments) { return ToTextValue(arguments[0]); }

Variant IsArray(RuntimeContext&, Arguments arguments) { return arguments[0].Is(VarType::kArray); }
// IsEmpty(value), IsNull(value): of an object with a default member its value.
Variant IsEmpty(RuntimeContext&, Arguments arguments) { return ValueToAskAbout(arguments[0]).Is(VarType::kEmpty); }
Variant IsNull(RuntimeContext&, Arguments arguments) { return ValueToAskAbout(arguments[0]).Is(VarType::kNull); }
Variant IsObject(RuntimeContext&, Arguments arguments) { return arguments[0].Is(VarType::kObject); }

// IsDate(value): a date, or a text that reads as one; numbers are none.
Variant IsDate(RuntimeContext&, Arguments arguments) { return kestrun::IsDate(ValueToAskAbout(arguments[0])); }

// IsNumeric(value): numbers, truth values, Empty and texts that read as a number; dates are none.
Variant IsNumber(RuntimeContext&, Arguments arguments) { return IsNumeric(ValueToAskAbout(arguments[0])); }

// TypeName(value): an object's class, "Nothing", or the type.
Variant TypeNameOf(RuntimeContext&, Arguments arguments) {
  const Variant& value = arguments[0];
  if (!value.Is(VarType::kObject)) return VarTypeName(value.type());
  return value.object() ? Variant(value.object()->TypeName()) : Variant("Nothing");
}

// VarType(value): for an object with a default member the type of that.
Variant VarTypeOf(RuntimeContext&, Arguments arguments) {
  const VarType type = ValueToAskAbout(arguments[0]).type();
  return static_cast<int16_t>(type);
}

}  // namespace kestrun::vbs
