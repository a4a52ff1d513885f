// Web addresses as the platform judges and fetches them.
#pragma once

#include <string>

namespace kestrun {

// The platform's URL test; it tells a web address from a local path for every routine.
[[nodiscard]] bool IsUrl(const std::string& Path);
// True when the platform reports any internet connection.
[[nodiscard]] bool IsOnline();
// Fetches the newest version into a file and waits for it. Reports nothing; true when the service succeeded.
[[nodiscard]] bool DownloadFile(const std::string& Url, const std::string& LocalPath);

}  // namespace kestrun
