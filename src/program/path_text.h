// Paths and texts as the program's routines take them apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/variant.h"

namespace kestrun {

// True for files and folders alike; any failure gives false.
[[nodiscard]] bool FileExists(const std::string& Path);

// The text before the last backslash: of a folder with a trailing backslash the same folder without it. Error 5 when
// there is no backslash.
[[nodiscard]] std::string ParentFolder(const std::string& Path);

// What is behind the last separator. For a URL the name that the server gives, unless NoServer is set or it gives none,
// else what stands between the last "/" and the "?" behind it.
[[nodiscard]] std::string GetFileName(const std::string& Path, bool NoServer = false);

// A folder's path without the backslash at its end, if it has one there.
[[nodiscard]] std::string WithoutLastBackslash(std::string folder);

// Behind the last "." of the whole text, wherever that stands; empty when there is none.
[[nodiscard]] std::string GetExtension(const std::string& Path);
// In any case of letters; the extension is given without its ".".
[[nodiscard]] bool HasExtension(const std::string& path, std::string_view extension);

// The characters from First to Last, both included, counted from 1. Error 5 when First is less than 1, or Last lies
// more than one before First.
[[nodiscard]] std::string MidRange(const std::string& Text, int32_t First, int32_t Last);

// Replaces "%1", "%2" ... by the arguments, in turn: a "%2" that came with the first argument is replaced by the
// second.
[[nodiscard]] std::string FillPlaceholders(const std::string& Template, const std::vector<Variant>& Arguments);

}  // namespace kestrun
