// The built-in functions and constants: two tables that the compiler looks names up in.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/object.h"
#include "script/vbscript/runtime/context.h"

namespace kestrun::vbs {

// Where a builtin may be called.
enum class BuiltinUse : uint8_t {
  kAnywhere,
  kValue,      // a statement that drops its result gets error 458
  kStatement,  // an expression that wants a result gets error 13
};

inline constexpr uint8_t kFirst = 1;
inline constexpr uint8_t kSecond = 2;
inline constexpr uint8_t kThird = 4;
inline constexpr uint8_t kEvery = 0xFF;

struct Builtin {
  std::string_view name;
  // The caller checks the count and raises error 450. An argument that is left out in the middle comes as
  // Variant::Missing(); those left out at the end are simply not there.
  int least_arguments;
  int most_arguments;
  Variant (*call)(RuntimeContext& context, Arguments arguments);
  // Bit n: the function itself charges for what it does with argument n, or takes no longer for a long one. The caller
  // charges for every other text by its length, because reading it as a number or a date takes as long as it is.
  uint8_t charged_within = 0;
  BuiltinUse use = BuiltinUse::kAnywhere;

  [[nodiscard]] bool ChargesFor(size_t argument) const {
    constexpr size_t kBits = 8;
    return argument < kBits ? (charged_within >> argument & 1) != 0 : charged_within == kEvery;
  }
};

inline constexpr int kAnyArgumentCount = 255;

// Sorted by name without regard to case.
[[nodiscard]] std::span<const Builtin> Builtins();
// Null when there is no such function. Any case.
[[nodiscard]] const Builtin* FindBuiltin(std::string_view name);

struct Constant {
  std::string_view name;
  Variant value;
};

[[nodiscard]] const std::vector<Constant>& Constants();

// A new object of a class that the language brings along: "RegExp" for New, "VBScript.RegExp" and
// "Scripting.Dictionary" for CreateObject. Empty for any other name. Any case.
[[nodiscard]] Ref<Object> CreateScriptObject(std::string_view class_name, RuntimeContext& context);

}  // namespace kestrun::vbs
