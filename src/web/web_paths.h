// Web addresses as the platform sees them.
#pragma once

#include <string>

namespace kestrun {

// Fetches the newest version of an address into a file, and waits until that has ended. Reports nothing.
[[nodiscard]] bool DownloadFile(const std::string& Url, const std::string& LocalPath);

// The platform's URL test: what tells a web address from a local path for every routine.
[[nodiscard]] bool IsUrl(const std::string& Path);

// True when the platform reports any internet connection.
[[nodiscard]] bool IsOnline();

}  // namespace kestrun
