// Turns between processes by locks on files.
#pragma once

#ifndef _WIN32

#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace kestrun {

// Null while somebody else holds the lock. The lock covers one byte far behind the text, as the Windows program's does,
// so that the two exclude each other where it runs under Wine. Raises what opening the file raises.
[[nodiscard]] std::unique_ptr<FileLock> TryLockFile(const std::string& native_path, std::string_view program);

// The run-time error that an errno stands for.
[[nodiscard]] int ErrorNumberOfErrno(int code);

}  // namespace kestrun

#endif  // _WIN32
