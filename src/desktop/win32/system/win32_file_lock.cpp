#include "desktop/win32/system/win32_file_lock.h"

#include <utility>

#include "base/runtime_error.h"
#include "desktop/win32/system/win32_files.h"

namespace kestrun {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The file is marked for removal while the lock still holds, and is gone with the last handle that looks at it.
class Win32FileLock final : public FileLock {
 public:
  Win32FileLock(std::wstring path, FileHandle handle) : path_(std::move(path)), handle_(std::move(handle)) {}
  ~Win32FileLock() override {
    if (!FileStays()) DeleteFileW(path_.c_str());
  }
  Win32FileLock(const Win32FileLock&) = delete;
  Win32FileLock& operator=(const Win32FileLock&) = delete;

 private:
  std::wstring path_;
  FileHandle handle_;
};

// A file that is about to be removed cannot be opened: somebody is at the end of a turn.
bool IsBeingRemoved(const std::wstring& path, DWORD failure) {
  if (failure != ERROR_ACCESS_DENIED) return false;
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES || GetLastError() == ERROR_ACCESS_DENIED;
}

bool TakeLock(const FileHandle& handle) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(kLockedByte);
  if (LockFileEx(handle.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place)) return true;
  const DWORD failure = GetLastError();
  if (failure == ERROR_LOCK_VIOLATION || failure == ERROR_IO_PENDING) return false;
  RaiseWindowsError(failure);
}

bool IsStillAt(const std::wstring& path, const FileHandle& handle) {
  const FileHandle there = OpenForQuestions(path);
  BY_HANDLE_FILE_INFORMATION locked{};
  BY_HANDLE_FILE_INFORMATION present{};
  return there.IsValid() && GetFileInformationByHandle(handle.get(), &locked) &&
         GetFileInformationByHandle(there.get(), &present) &&
         locked.dwVolumeSerialNumber == present.dwVolumeSerialNumber &&
         locked.nFileIndexHigh == present.nFileIndexHigh && locked.nFileIndexLow == present.nFileIndexLow;
}

// Only for others to read: a turn holds without it.
void WriteHolder(const FileHandle& handle, std::string_view program) {
  const std::string text = FormatLockHolder({GetCurrentProcessId(), std::string(program)});
  DWORD written = 0;
  WriteFile(handle.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  SetEndOfFile(handle.get());
}

}  // namespace

FileHandle OpenForQuestions(const std::wstring& path) {
  return FileHandle(
      CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::unique_ptr<FileLock> TryLockFile(const std::wstring& path, std::string_view program) {
  FileHandle handle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, kShareAll, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle.IsValid()) {
    const DWORD failure = GetLastError();
    if (IsBeingRemoved(path, failure)) return nullptr;
    RaiseWindowsError(failure);
  }
  // Locked, but removed by the holder before: the next attempt makes the file anew.
  if (!TakeLock(handle) || !IsStillAt(path, handle)) return nullptr;
  WriteHolder(handle, program);
  return std::make_unique<Win32FileLock>(path, std::move(handle));
}

}  // namespace kestrun
