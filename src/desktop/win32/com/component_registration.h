// How a component is asked to register itself.
#pragma once

#include <string>

namespace kestrun {

// Loads the file and runs its entry DllRegisterServer, or DllUnregisterServer, on a thread of its own. False when the
// file or the entry is not there. The entry's own result is not looked at. An entry that runs for more than ten seconds
// ends the calling thread: the call does not return.
[[nodiscard]] bool RunRegistrationEntry(const std::string& file, bool unregister);

}  // namespace kestrun
