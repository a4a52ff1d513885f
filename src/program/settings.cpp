#include "program/settings.h"

#include "formats/profile/profile_file.h"
#include "platform/platform.h"
#include "program/game_paths.h"

namespace kestrun {
namespace {

// Section and key of a row, its open name filled.
struct KeyName {
  std::string section;
  std::string key;
};

KeyName NameOf(const Setting& row, std::string_view open_part) {
  KeyName name{std::string(row.section), std::string(row.key)};
  if (row.open == OpenName::kSection) name.section += open_part;
  if (row.open == OpenName::kKey) name.key += open_part;
  return name;
}

std::string SettingsFile() { return AppFile("packit.ini"); }

}  // namespace

std::string GetIniValue(const std::string& File, const std::string& Section, const std::string& Key,
                        const std::string& Default) {
  const auto value = ReadProfileValue(File, Section, Key);
  return value ? *value : ShapeProfileDefault(Default);
}

void SetIniValue(const std::string& File, const std::string& Section, const std::string& Key, std::string& Value) {
  const std::string copy = Value;
  for (char& c : Value)
    if (c == '\r' || c == '\n') c = ' ';
  static_cast<void>(WriteProfileValue(File, Section, Key, copy));
}

std::string GetIniValue(const ProfileSnapshot& file, const std::string& Section, const std::string& Key,
                        const std::string& Default) {
  const auto value = file.Value(Section, Key, kProfileValueBytes);
  return value ? *value : ShapeProfileDefault(Default);
}

std::vector<std::string_view> GetNumberedIniValues(ProfileSnapshot& file, const std::string& Section,
                                                   const NumberedKeys& keys, const std::string& Default) {
  return file.NumberedValues(Section, keys, kProfileValueBytes, ShapeProfileDefault(Default));
}

bool SetIniValues(const std::string& File, const ProfileRows& rows, const std::vector<ProfileValue>& values) {
  return WriteProfileValues(File, rows, values);
}

std::string AppFile(const std::string& Name) { return platform().program().Folder() + "\\" + Name; }

std::string ReadSetting(const Setting& row, std::string_view open_part) {
  const KeyName name = NameOf(row, open_part);
  const auto value = ReadProfileValue(SettingsFile(), name.section, name.key);
  return value ? *value : ShapeProfileDefault(DefaultOf(row));
}

ProfileSnapshot ReadSettingsSnapshot() { return ReadProfileSnapshot(SettingsFile()); }

std::string ReadSetting(const ProfileSnapshot& settings, const Setting& row, std::string_view open_part) {
  const KeyName name = NameOf(row, open_part);
  const auto value = settings.Value(name.section, name.key, kProfileValueBytes);
  return value ? *value : ShapeProfileDefault(DefaultOf(row));
}

void WriteSetting(const Setting& row, std::string value) { WriteNumberedSetting(row, {}, std::move(value)); }

void WriteNumberedSetting(const Setting& row, std::string_view open_part, std::string value) {
  const KeyName name = NameOf(row, open_part);
  SetIniValue(SettingsFile(), name.section, name.key, value);
}

std::string DefaultOf(const Setting& row) {
  switch (row.base) {
    case DefaultBase::kProgramFolder: return platform().program().Folder() + std::string(row.text);
    case DefaultBase::kGameFolder: return GameFolder();
    case DefaultBase::kMapFolder: return MapFolder();
    case DefaultBase::kRegistry: return GamePathFromRegistry();
    case DefaultBase::kText: break;
  }
  return std::string(row.text);
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
