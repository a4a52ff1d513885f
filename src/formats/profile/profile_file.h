// Profile files on disk. Nothing is cached and nothing is reported: a failed read finds nothing, a failed write leaves
// the file as it was.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/profile/profile_document.h"
#include "formats/profile/profile_snapshot.h"

namespace kestrun {

// A value comes back cut at this number of code page bytes.
inline constexpr size_t kProfileValueBytes = 254;

// Nothing when the file, the section or the key is missing.
[[nodiscard]] std::optional<std::string> ReadProfileValue(std::string_view path, std::string_view section,
                                                          std::string_view key);

// What a default becomes on its way through a read: cut like a value, without blanks at its end.
[[nodiscard]] std::string ShapeProfileDefault(std::string_view text);

// Creates file and section when needed. The new content is written beside the file, under its name with ".new" behind,
// and takes its place in one step. False when the value could not be stored.
bool WriteProfileValue(std::string_view path, std::string_view section, std::string_view key, std::string_view value);

// Many values with one read of the file. It holds none when the file cannot be read.
[[nodiscard]] ProfileSnapshot ReadProfileSnapshot(std::string_view path);

// Numbered rows and then other values with one write of the file: what came of WriteProfileValue, called for one after
// the other.
struct ProfileValue {
  std::string section;
  std::string key;
  std::string value;
};
bool WriteProfileValues(std::string_view path, const ProfileRows& rows, const std::vector<ProfileValue>& values);

}  // namespace kestrun
