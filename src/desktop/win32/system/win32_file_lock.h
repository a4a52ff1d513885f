// Turns between processes by locks on files.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "desktop/win32/system/handles.h"
#include "platform/files.h"

namespace kestrun {

// Null while somebody else holds the lock. Raises what opening the file raises.
[[nodiscard]] std::unique_ptr<FileLock> TryLockFile(const std::wstring& path, std::string_view program);

// A handle of a file or folder that asks for no access: nobody who has it open is in the way.
[[nodiscard]] FileHandle OpenForQuestions(const std::wstring& path);

}  // namespace kestrun
