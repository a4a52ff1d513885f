// Settings: packit.ini in the program's own folder, other files of the same form, and the per-user store. Every read
// goes to the file; nothing is cached.
#pragma once

#include <string>
#include <string_view>

#include "frame/setting_table.h"

namespace kestrun {

// One value, at most 254 bytes of it; the default when file, section or key is missing.
[[nodiscard]] std::string GetIniValue(const std::string& File, const std::string& Section, const std::string& Key,
                                      const std::string& Default);
// Writes one value as it stands; afterwards every CR and LF of the caller's own text is a blank. A failed write is
// ignored.
void SetIniValue(const std::string& File, const std::string& Section, const std::string& Key, std::string& Value);
// The program's folder + "\" + Name.
[[nodiscard]] std::string AppFile(std::string_view Name);

// The row's default as it is at this moment: a default that names a folder may put a question to the user.
[[nodiscard]] std::string DefaultOf(const Setting& row);
// The row's value in packit.ini. The default is worked out only when the key is missing.
[[nodiscard]] std::string ReadSetting(const Setting& row);
void WriteSetting(const Setting& row, std::string value);

// The per-user store. Reading gives the default for what is missing; the others raise what the store raises, 5 for
// deleting a key that does not exist.
[[nodiscard]] std::string GetSetting(std::string_view Application, std::string_view Section, std::string_view Key,
                                     std::string_view Default);
void SaveSetting(std::string_view Application, std::string_view Section, std::string_view Key, std::string_view Value);
void DeleteSetting(std::string_view Application, std::string_view Section, std::string_view Key);

}  // namespace kestrun
