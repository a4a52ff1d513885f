// Web addresses: what they are, and what their servers call the files behind them.
#pragma once

#include <string>

namespace kestrun {

// The platform's URL test: what tells a web address from a local path for every routine.
[[nodiscard]] bool IsUrl(const std::string& Path);

// True when the platform reports any internet connection.
[[nodiscard]] bool IsOnline();

// The name that the server of an address gives to the file behind it; empty when it gives none.
[[nodiscard]] std::string NameFromServer(const std::string& url);

}  // namespace kestrun
