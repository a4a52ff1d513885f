// From any name of a map, a path, a web address, a zip or a zip on the web, to one local file.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// What a file is by the last four characters of its name, in any case. For a web address the server may be asked.
namespace map_file_kind {
inline constexpr int32_t kOther = 0;
inline constexpr int32_t kMap = 1;  // .bms
inline constexpr int32_t kZip = 2;  // .zip
}  // namespace map_file_kind
[[nodiscard]] int32_t MapFileKind(const std::string& Path);

// The local path of a map; empty when it cannot be fetched or the user gave up. A web address is downloaded to
// "tempmap.bms" in the temporary folder, in the place of the one before; "Can't download: " + Path tells a failure, and
// an Esc of the user's ends it silently. A zip goes through GetFileFromZip. A local path comes back as it is, existing
// or not. Failures are shown.
[[nodiscard]] std::string FetchMap(const std::string& Path);

// Asks whether to load a map from inside the zip, and which. The member's path below "tempzip" in the temporary folder;
// the zip's own path when the user wants it as it is; empty when the user gave up. Failures are shown.
[[nodiscard]] std::string GetFileFromZip(const std::string& Path);

}  // namespace kestrun
