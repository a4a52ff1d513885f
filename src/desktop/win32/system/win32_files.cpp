#include "desktop/win32/system/win32_files.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/win32_file_lock.h"

namespace kestrun {
namespace {

struct ErrorRow {
  DWORD windows_error;
  int number;
};

constexpr std::array kErrorRows{
    ErrorRow{ERROR_FILE_NOT_FOUND, error::kFileNotFound},
    ErrorRow{ERROR_PATH_NOT_FOUND, error::kPathNotFound},
    ErrorRow{ERROR_INVALID_DRIVE, error::kPathNotFound},
    ErrorRow{ERROR_BAD_NETPATH, error::kPathNotFound},
    ErrorRow{ERROR_BAD_PATHNAME, error::kPathNotFound},
    ErrorRow{ERROR_DIRECTORY, error::kPathNotFound},
    ErrorRow{ERROR_INVALID_NAME, error::kBadFileName},
    ErrorRow{ERROR_FILENAME_EXCED_RANGE, error::kBadFileName},
    ErrorRow{ERROR_ACCESS_DENIED, error::kPermissionDenied},
    ErrorRow{ERROR_SHARING_VIOLATION, error::kPermissionDenied},
    ErrorRow{ERROR_LOCK_VIOLATION, error::kPermissionDenied},
    ErrorRow{ERROR_WRITE_PROTECT, error::kPermissionDenied},
    ErrorRow{ERROR_TOO_MANY_OPEN_FILES, error::kTooManyFiles},
    ErrorRow{ERROR_FILE_EXISTS, error::kFileAlreadyExists},
    ErrorRow{ERROR_ALREADY_EXISTS, error::kFileAlreadyExists},
    ErrorRow{ERROR_DISK_FULL, error::kDiskFull},
    ErrorRow{ERROR_HANDLE_DISK_FULL, error::kDiskFull},
    ErrorRow{ERROR_NOT_READY, error::kDiskNotReady},
    ErrorRow{ERROR_DIR_NOT_EMPTY, error::kPathFileAccess},
};

[[noreturn]] void RaiseLastError() { RaiseWindowsError(GetLastError()); }

void Require(BOOL succeeded) {
  if (!succeeded) RaiseLastError();
}

class Win32File final : public File {
 public:
  explicit Win32File(FileHandle handle) : handle_(std::move(handle)) {}

  [[nodiscard]] uint64_t Size() override {
    LARGE_INTEGER size{};
    Require(GetFileSizeEx(handle_.get(), &size));
    return static_cast<uint64_t>(size.QuadPart);
  }

  [[nodiscard]] size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
    size_t done = 0;
    while (done < buffer.size()) {
      OVERLAPPED place = PlaceAt(offset + done);
      DWORD read = 0;
      if (!ReadFile(handle_.get(), buffer.data() + done, Chunk(buffer.size() - done), &read, &place)) {
        if (GetLastError() == ERROR_HANDLE_EOF) break;
        RaiseLastError();
      }
      if (read == 0) break;
      done += read;
    }
    return done;
  }

  void WriteAt(uint64_t offset, ByteView bytes) override {
    for (size_t done = 0; done < bytes.size();) {
      OVERLAPPED place = PlaceAt(offset + done);
      DWORD written = 0;
      Require(WriteFile(handle_.get(), bytes.data() + done, Chunk(bytes.size() - done), &written, &place));
      if (written == 0) Raise(error::kDiskFull);
      done += written;
    }
  }

  void Flush() override { Require(FlushFileBuffers(handle_.get())); }
  void Truncate(uint64_t bytes) override {
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(bytes);
    Require(SetFilePointerEx(handle_.get(), end, nullptr, FILE_BEGIN));
    Require(SetEndOfFile(handle_.get()));
  }
  // The system has calls that promise room; Wine answers to them without taking any.
  void Reserve(uint64_t bytes) override { ReserveByZeros(bytes); }
  void Close() override { Require(CloseHandle(handle_.Release())); }

 private:
  static OVERLAPPED PlaceAt(uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
  }
  static DWORD Chunk(size_t bytes) { return static_cast<DWORD>(std::min<size_t>(bytes, size_t{1} << 30)); }

  FileHandle handle_;
};

DWORD AttributesOf(std::string_view path) { return GetFileAttributesW(ToWidePath(path).c_str()); }

// A folder where a file is wanted is refused by the system as a denied access; the logic tells the two apart.
[[noreturn]] void RaiseForPath(std::string_view path) {
  const DWORD failure = GetLastError();
  const DWORD attributes = AttributesOf(path);
  const bool is_folder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (failure == ERROR_ACCESS_DENIED && is_folder) Raise(error::kPathFileAccess);
  RaiseWindowsError(failure);
}

// A short name that no file has, in the folder of the file that it is to become: a file of the user's is not written
// over on the way, and a name as long as can be has one too.
std::wstring UnusedSibling(const std::wstring& target) {
  const std::wstring folder = target.substr(0, target.find_last_of(L"\\:") + 1);
  for (unsigned number = 1;; ++number) {
    std::wstring path = folder + L"~kestrun" + std::to_wstring(number) + L".tmp";
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return path;
  }
}

FileHandle OpenForTimes(std::string_view path) {
  FileHandle handle(CreateFileW(ToWidePath(path).c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!handle.IsValid()) RaiseLastError();
  return handle;
}

// Links followed; empty when the path leads to nothing.
std::wstring FinalPath(const std::wstring& path) {
  const FileHandle handle = OpenForQuestions(path);
  if (!handle.IsValid()) return {};
  std::wstring final_path(GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0), L'\0');
  final_path.resize(
      GetFinalPathNameByHandleW(handle.get(), final_path.data(), static_cast<DWORD>(final_path.size()), 0));
  constexpr std::wstring_view kServerMark = L"\\\\?\\UNC\\";
  constexpr std::wstring_view kMark = L"\\\\?\\";
  if (final_path.starts_with(kServerMark)) return L"\\\\" + final_path.substr(kServerMark.size());
  return final_path.starts_with(kMark) ? final_path.substr(kMark.size()) : final_path;
}

uint64_t FromFileTime(FILETIME time) { return (uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime; }
FILETIME ToFileTime(uint64_t units) { return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)}; }

FILETIME LocalToFileTime(uint64_t units) {
  const FILETIME local = ToFileTime(units);
  FILETIME time{};
  Require(LocalFileTimeToFileTime(&local, &time));
  return time;
}

}  // namespace

void RaiseWindowsError(unsigned long windows_error) {
  const auto* row = std::find_if(kErrorRows.begin(), kErrorRows.end(),
                                 [windows_error](const ErrorRow& one) { return one.windows_error == windows_error; });
  Raise(row == kErrorRows.end() ? error::kDeviceIo : row->number);
}

std::unique_ptr<File> Win32FileSystem::Open(std::string_view path, OpenMode mode) {
  const DWORD access = mode == OpenMode::kRead ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  const DWORD creation = mode == OpenMode::kRead     ? OPEN_EXISTING
                         : mode == OpenMode::kCreate ? CREATE_ALWAYS
                                                     : OPEN_ALWAYS;
  // Whoever only reads keeps nobody from renaming or removing the file, as on other systems. What is written stays
  // where it is: a journal must not go while its archive is worked on.
  const DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | (mode == OpenMode::kRead ? FILE_SHARE_DELETE : 0);
  FileHandle handle(
      CreateFileW(ToWidePath(path).c_str(), access, share, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle.IsValid()) RaiseForPath(path);
  return std::make_unique<Win32File>(std::move(handle));
}

bool Win32FileSystem::Exists(std::string_view path) { return AttributesOf(path) != INVALID_FILE_ATTRIBUTES; }

bool Win32FileSystem::IsFolder(std::string_view path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void Win32FileSystem::Copy(std::string_view from, std::string_view to) {
  if (IsFolder(to)) Raise(error::kPathFileAccess);
  if (IsFolder(from)) Raise(error::kPathFileAccess);
  const std::wstring source = ToWidePath(from);
  const std::wstring target = ToWidePath(to);
  if (source == target) Raise(error::kPermissionDenied);
  const DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    Raise(error::kPermissionDenied);
  }
  const std::wstring temporary = UnusedSibling(target);
  if (!CopyFileW(source.c_str(), temporary.c_str(), TRUE)) {
    const DWORD failure = GetLastError();
    if (failure != ERROR_FILE_EXISTS) DeleteFileW(temporary.c_str());
    RaiseWindowsError(failure);
  }
  SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)) return;
  const DWORD failure = GetLastError();
  DeleteFileW(temporary.c_str());
  RaiseWindowsError(failure);
}

void Win32FileSystem::Delete(std::string_view path) {
  if (!DeleteFileW(ToWidePath(path).c_str())) RaiseForPath(path);
}

bool Win32FileSystem::IsReadOnly(std::string_view path) {
  const DWORD attributes = GetFileAttributesW(ToWidePath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
         (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

void Win32FileSystem::ClearReadOnly(std::string_view path) {
  const std::wstring wide = ToWidePath(path);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0) return;
  SetFileAttributesW(wide.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

void Win32FileSystem::Rename(std::string_view from, std::string_view to) {
  Require(MoveFileExW(ToWidePath(from).c_str(), ToWidePath(to).c_str(), MOVEFILE_COPY_ALLOWED));
}

void Win32FileSystem::Replace(std::string_view from, std::string_view to) {
  Require(MoveFileExW(ToWidePath(from).c_str(), ToWidePath(to).c_str(), MOVEFILE_REPLACE_EXISTING));
}

void Win32FileSystem::MakeFolder(std::string_view path) {
  if (CreateDirectoryW(ToWidePath(path).c_str(), nullptr)) return;
  const DWORD failure = GetLastError();
  if (failure == ERROR_ALREADY_EXISTS) Raise(error::kPathFileAccess);
  RaiseWindowsError(failure);
}

void Win32FileSystem::RemoveFolder(std::string_view path) {
  if (RemoveDirectoryW(ToWidePath(path).c_str())) return;
  const DWORD failure = GetLastError();
  if (failure == ERROR_FILE_NOT_FOUND) Raise(error::kPathNotFound);
  RaiseWindowsError(failure);
}

std::vector<FolderEntry> Win32FileSystem::List(std::string_view folder) {
  if (!IsFolder(folder)) Raise(error::kPathNotFound);
  WIN32_FIND_DATAW found{};
  std::wstring pattern = ToWidePath(folder);
  if (pattern.back() != L'\\') pattern += L'\\';
  const FindHandle search(FindFirstFileW((pattern + L"*").c_str(), &found));
  std::vector<FolderEntry> entries;
  if (!search.IsValid()) {
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return entries;
    RaiseLastError();
  }
  do {
    const std::wstring_view name(found.cFileName);
    if (name == L"." || name == L"..") continue;
    const uint64_t size = (static_cast<uint64_t>(found.nFileSizeHigh) << 32) | found.nFileSizeLow;
    entries.push_back({.name = FromWide(name),
                       .is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
                       .size = size,
                       .write_time = FromFileTime(found.ftLastWriteTime)});
  } while (FindNextFileW(search.get(), &found));
  const auto is_before = [](const FolderEntry& left, const FolderEntry& right) {
    const int order = CompareNoCase(left.name, right.name);
    return order != 0 ? order < 0 : left.name < right.name;
  };
  // Most file systems list in this order already.
  if (!std::is_sorted(entries.begin(), entries.end(), is_before)) std::sort(entries.begin(), entries.end(), is_before);
  return entries;
}

uint64_t Win32FileSystem::WriteTime(std::string_view path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!GetFileAttributesExW(ToWidePath(path).c_str(), GetFileExInfoStandard, &data)) RaiseForPath(path);
  return FromFileTime(data.ftLastWriteTime);
}

void Win32FileSystem::SetWriteTime(std::string_view path, uint64_t file_time) {
  const FileHandle handle = OpenForTimes(path);
  const FILETIME time = ToFileTime(file_time);
  Require(SetFileTime(handle.get(), nullptr, nullptr, &time));
}

void Win32FileSystem::SetLocalTimes(std::string_view path, const LocalFileTimes& times) {
  const FileHandle handle = OpenForTimes(path);
  const FILETIME creation = LocalToFileTime(times.creation);
  const FILETIME access = LocalToFileTime(times.access);
  const FILETIME write = LocalToFileTime(times.write);
  Require(SetFileTime(handle.get(), &creation, &access, &write));
}

std::string Win32FileSystem::CurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return FromWide(folder);
}

void Win32FileSystem::FlushFolder(std::string_view folder) {
  const FileHandle handle(CreateFileW(ToWidePath(folder).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (handle.IsValid()) FlushFileBuffers(handle.get());
}

std::string Win32FileSystem::TruePath(std::string_view path) {
  const std::wstring wide = ToWidePath(path);
  if (const std::wstring there = FinalPath(wide); !there.empty()) return FromWide(there);
  const size_t name = wide.find_last_of(L"\\/") + 1;
  const std::wstring folder = FinalPath(name == 0 ? L"." : wide.substr(0, name));
  if (folder.empty()) return std::string(path);
  return FromWide((folder.back() == L'\\' ? folder : folder + L'\\') + wide.substr(name));
}

std::unique_ptr<FileLock> Win32FileSystem::TryLock(std::string_view path, std::string_view program) {
  return TryLockFile(ToWidePath(path), program);
}

}  // namespace kestrun
