// What counts as a downloaded file.
#pragma once

#include <string>

namespace kestrun {

// Fetches the newest version of an address into a file, of any size that the disk takes, and waits until that has
// ended. Over http and https: an answer with a status from 200 to 299 whose body arrived whole. It is written piece by
// piece under an unused name beside the target and put in its place at the end, so that whatever fails leaves the
// target as it was. No cache on the way may answer. Every other scheme goes to the system's own download. False on
// every failure; reports nothing and never raises.
[[nodiscard]] bool DownloadFile(const std::string& Url, const std::string& LocalPath);

}  // namespace kestrun
