// What a script may ask about its engine, and the closed doors to the machine behind it.
#include <algorithm>
#include <array>

#include "base/text.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/dictionary.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/regexp.h"

namespace kestrun::vbs {
namespace {

struct Locale {
  std::string_view name;
  int number;
};

// The locales that SetLocale knows; those with forms of their own stand in locale.cpp.
constexpr std::array kLocales{
    Locale{"en-us", 1033}, Locale{"en-gb", 2057}, Locale{"en-au", 3081}, Locale{"en-ca", 4105}, Locale{"en-nz", 5129},
    Locale{"en-ie", 6153}, Locale{"de-de", 1031}, Locale{"de-at", 3079}, Locale{"de-ch", 2055}, Locale{"fr-fr", 1036},
    Locale{"fr-be", 2060}, Locale{"fr-ca", 3084}, Locale{"fr-ch", 4108}, Locale{"es-es", 3082}, Locale{"es-mx", 2058},
    Locale{"it-it", 1040}, Locale{"nl-nl", 1043}, Locale{"nl-be", 2067}, Locale{"pt-br", 1046}, Locale{"pt-pt", 2070},
    Locale{"sv-se", 1053}, Locale{"da-dk", 1030}, Locale{"nb-no", 1044}, Locale{"fi-fi", 1035}, Locale{"pl-pl", 1045},
    Locale{"cs-cz", 1029}, Locale{"hu-hu", 1038}, Locale{"ru-ru", 1049}, Locale{"tr-tr", 1055}, Locale{"el-gr", 1032},
    Locale{"ja-jp", 1041}, Locale{"ko-kr", 1042}, Locale{"zh-cn", 2052}, Locale{"zh-tw", 1028},
};

int LocaleByNumber(int number) {
  const auto* row =
      std::find_if(kLocales.begin(), kLocales.end(), [number](const Locale& each) { return each.number == number; });
  if (row == kLocales.end()) RaiseScript(447);
  return number;
}

int LocaleByName(const std::string& name) {
  const auto* row = std::find_if(kLocales.begin(), kLocales.end(),
                                 [&name](const Locale& each) { return EqualsNoCase(each.name, name); });
  if (row == kLocales.end()) RaiseScript(447);
  return row->number;
}

// A number or a name; 0 and the empty text are the engine's own.
int LocaleArgument(const Variant& argument) {
  const Variant plain = PlainValue(argument);
  if (!plain.Is(VarType::kString) || IsNumeric(plain)) {
    const int32_t number = ToLong(plain);
    return number == 0 ? kEnglishUnitedStates : LocaleByNumber(number);
  }
  return plain.text().empty() ? kEnglishUnitedStates : LocaleByName(ToUtf8(plain.text()));
}

}  // namespace

// CreateObject(class[, server]): the two classes that are the engine's own; error 429 for everything else.
Variant CreateObject(RuntimeContext& context, Arguments arguments) {
  const std::string name = ToUtf8(TextArgument(arguments[0]).view());
  const bool elsewhere = IsGiven(arguments, 1) && TextArgument(arguments[1]).size() != 0;
  const bool bare = EqualsNoCase(name, "RegExp");
  Ref<Object> object = elsewhere || bare ? Ref<Object>() : CreateScriptObject(name, context);
  if (!object) RaiseScript(error::kCannotCreateObject);
  return object;
}

// GetObject: always error 429.
Variant GetObject(RuntimeContext&, Arguments) { RaiseScript(error::kCannotCreateObject); }

// LoadPicture([file]): Nothing without a file; error 481 with one, because scripts do not reach files.
Variant LoadPicture(RuntimeContext&, Arguments arguments) {
  if (IsGiven(arguments, 0) && TextArgument(arguments[0]).size() != 0) RaiseScript(481);
  return Variant::Nothing();
}

Variant GetLocale(RuntimeContext& context, Arguments) { return int32_t{context.locale()}; }

// SetLocale([locale]): gives the one before; error 447 for an unknown one.
Variant SetLocale(RuntimeContext& context, Arguments arguments) {
  const int before = context.locale();
  context.set_locale(IsGiven(arguments, 0) ? LocaleArgument(arguments[0]) : kEnglishUnitedStates);
  return int32_t{before};
}

Variant ScriptEngineName(RuntimeContext&, Arguments) { return "VBScript"; }
Variant ScriptEngineBuildVersion(RuntimeContext&, Arguments) { return int32_t{16384}; }
Variant ScriptEngineMajorVersion(RuntimeContext&, Arguments) { return int32_t{5}; }
Variant ScriptEngineMinorVersion(RuntimeContext&, Arguments) { return int32_t{8}; }

Ref<Object> CreateScriptObject(std::string_view class_name, RuntimeContext& context) {
  if (EqualsNoCase(class_name, "Scripting.Dictionary")) return MakeRef<Dictionary>(context);
  if (EqualsNoCase(class_name, "RegExp") || EqualsNoCase(class_name, "VBScript.RegExp")) {
    return MakeRef<RegExp>(context);
  }
  return {};
}

}  // namespace kestrun::vbs
