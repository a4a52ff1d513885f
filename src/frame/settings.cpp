#include "frame/settings.h"

#include <algorithm>
#include <optional>

#include "base/runtime_error.h"
#include "formats/profile/profile_file.h"
#include "frame/game_paths.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// A buffer of 256 of which the service is told 255, and which it ends with a NUL.
constexpr size_t kLongestValue = 254;

std::optional<std::string> ReadValue(const std::string& file, std::string_view section, std::string_view key) {
  std::optional<std::string> value;
  Attempt([&] { value = ReadProfileString(file, section, key, kLongestValue); });
  return value;
}

}  // namespace

std::string GetIniValue(const std::string& File, const std::string& Section, const std::string& Key,
                        const std::string& Default) {
  return ReadValue(File, Section, Key).value_or(Default);
}

void SetIniValue(const std::string& File, const std::string& Section, const std::string& Key, std::string& Value) {
  const std::string written = Value;
  std::replace_if(
      Value.begin(), Value.end(), [](char character) { return character == '\r' || character == '\n'; }, ' ');
  Attempt([&] { WriteProfileString(File, Section, Key, written); });
}

std::string AppFile(std::string_view Name) { return platform().program().Folder() + "\\" + std::string(Name); }

std::string DefaultOf(const Setting& row) {
  const std::string text(row.text);
  switch (row.source) {
    case SettingDefault::kText: return text;
    case SettingDefault::kProgramFolder: return platform().program().Folder() + text;
    case SettingDefault::kGameFolder: return GameFolder();
    case SettingDefault::kMapFolder: return MapFolder();
    case SettingDefault::kGamePathFromRegistry: return GamePathFromRegistry();
  }
  return text;
}

std::string ReadSetting(const Setting& row) {
  const auto value = ReadValue(AppFile("packit.ini"), row.section, row.key);
  return value ? *value : DefaultOf(row);
}

void WriteSetting(const Setting& row, std::string value) {
  SetIniValue(AppFile("packit.ini"), std::string(row.section), std::string(row.key), value);
}

std::string GetSetting(std::string_view Application, std::string_view Section, std::string_view Key,
                       std::string_view Default) {
  return platform().user_settings().Get(Application, Section, Key).value_or(std::string(Default));
}

void SaveSetting(std::string_view Application, std::string_view Section, std::string_view Key, std::string_view Value) {
  platform().user_settings().Save(Application, Section, Key, Value);
}

void DeleteSetting(std::string_view Application, std::string_view Section, std::string_view Key) {
  platform().user_settings().Delete(Application, Section, Key);
}

}  // namespace kestrun
