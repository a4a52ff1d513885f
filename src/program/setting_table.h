// The key table of packit.ini: section, key and default of every setting, each in one row of setting_rows.inc. What
// reads or writes a setting names its row.
#pragma once

#include <array>
#include <string_view>

namespace kestrun {

// What the default of a setting begins with; the row's text stands behind kProgramFolder.
enum class DefaultBase { kText, kProgramFolder, kGameFolder, kMapFolder, kRegistry };
// Which name of a row goes on with a number, or with the name of a map.
enum class OpenName { kNone, kSection, kKey };

struct Setting {
  std::string_view section;
  std::string_view key;
  std::string_view text;
  DefaultBase base = DefaultBase::kText;
  OpenName open = OpenName::kNone;
};

namespace setting {

inline constexpr std::string_view kLauncher = "launcher";

#define KESTRUN_SETTING(name, ...) inline constexpr Setting name{__VA_ARGS__};
#include "program/setting_rows.inc"
#undef KESTRUN_SETTING

// Every row, for what has to look at all of them.
#define KESTRUN_SETTING(name, ...) &name,
inline constexpr std::array kAll{
#include "program/setting_rows.inc"
};
#undef KESTRUN_SETTING

}  // namespace setting
}  // namespace kestrun
