// All durable settings: packit.ini in the program's own folder, and the four values in the per-user store. Nothing is
// cached; each read goes to the file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/profile/profile_file.h"
#include "program/setting_table.h"

namespace kestrun {

// One value of a profile file, File being its full path. What is missing gives the default; a value, and a default as
// well, comes back cut at 254 code page bytes.
[[nodiscard]] std::string GetIniValue(const std::string& File, const std::string& Section, const std::string& Key,
                                      const std::string& Default);

// Writes one value, creating file and section when needed; a failure is ignored. The value goes into the file with its
// line breaks, and the caller's own string has blanks in their place afterwards.
void SetIniValue(const std::string& File, const std::string& Section, const std::string& Key, std::string& Value);

// The same from a snapshot of the file, for what reads many values at once.
[[nodiscard]] std::string GetIniValue(const ProfileSnapshot& file, const std::string& Section, const std::string& Key,
                                      const std::string& Default);
[[nodiscard]] std::vector<std::string_view> GetNumberedIniValues(ProfileSnapshot& file, const std::string& Section,
                                                                 const NumberedKeys& keys, const std::string& Default);

// Numbered rows and then any values of one file at once: the bytes are those of the calls made for one after the other,
// but the file is written once. False when they could not be stored.
bool SetIniValues(const std::string& File, const ProfileRows& rows, const std::vector<ProfileValue>& values);

// The program's folder + "\" + Name.
[[nodiscard]] std::string AppFile(const std::string& Name);

// A setting by its row. The default is worked out only when the key is missing. `open_part` stands behind the open name
// of a numbered row: its number, or the map of a preview picture. A game folder default may put a question to the
// user, and raises error 5 when it is cancelled.
[[nodiscard]] std::string ReadSetting(const Setting& row, std::string_view open_part = {});
void WriteSetting(const Setting& row, std::string value);
void WriteNumberedSetting(const Setting& row, std::string_view open_part, std::string value);

// Settings from a snapshot of packit.ini, for what reads many at once.
[[nodiscard]] ProfileSnapshot ReadSettingsSnapshot();
[[nodiscard]] std::string ReadSetting(const ProfileSnapshot& settings, const Setting& row,
                                      std::string_view open_part = {});

// The text that stands for the setting while its key is missing.
[[nodiscard]] std::string DefaultOf(const Setting& row);

// The per-user settings store.
[[nodiscard]] std::string GetSetting(std::string_view Application, std::string_view Section, std::string_view Key,
                                     std::string_view Default);
void SaveSetting(std::string_view Application, std::string_view Section, std::string_view Key, std::string_view Value);
// Error 5 when there is no such key.
void DeleteSetting(std::string_view Application, std::string_view Section, std::string_view Key);

}  // namespace kestrun
