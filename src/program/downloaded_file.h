// What a downloaded file has to be before the program starts or opens it.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// The file as the site announces it. The hash is 64 hexadecimal digits in any case, or empty where the site names none.
// A hash that is no hash matches no file.
[[nodiscard]] bool HasHash(const std::string& path, const std::string& hash);

// True for a whole Windows program of so many bytes.
[[nodiscard]] bool IsProgramOfSize(const std::string& path, int64_t bytes);

// Renames a file that was refused to an unused name beside it, "name.refused", so that nobody starts it by mistake.
// Gives the new path, the old one where it could not be renamed.
std::string PutAside(const std::string& path);

}  // namespace kestrun
