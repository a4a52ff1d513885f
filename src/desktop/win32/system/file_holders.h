// Which programs have a file open.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrun {

// Their names as the system shows them to users, by its Restart Manager; this process is left out. None where the
// system does not tell, as Wine. Raises error 429 where the library is missing.
[[nodiscard]] std::vector<std::string> FileHolders(std::string_view path);

}  // namespace kestrun
