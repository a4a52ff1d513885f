#include "desktop/headless/posix_files.h"

#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <limits>
#include <optional>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/file_descriptor.h"
#include "desktop/headless/posix_file_lock.h"
#include "desktop/headless/posix_folder_index.h"

namespace kestrun {
namespace {

using Status = struct stat;

struct ErrnoRow {
  int code;
  int error_number;
};

constexpr std::array kErrnoTable{
    ErrnoRow{ENOENT, error::kFileNotFound},
    ErrnoRow{ENOTDIR, error::kPathNotFound},
    ErrnoRow{ELOOP, error::kPathNotFound},
    ErrnoRow{EACCES, error::kPermissionDenied},
    ErrnoRow{EPERM, error::kPermissionDenied},
    ErrnoRow{EROFS, error::kPermissionDenied},
    ErrnoRow{ETXTBSY, error::kPermissionDenied},
    ErrnoRow{EBUSY, error::kPermissionDenied},
    ErrnoRow{EEXIST, error::kPathFileAccess},
    ErrnoRow{EISDIR, error::kPathFileAccess},
    ErrnoRow{ENOTEMPTY, error::kPathFileAccess},
    ErrnoRow{ENOSPC, error::kDiskFull},
    ErrnoRow{EDQUOT, error::kDiskFull},
    ErrnoRow{EFBIG, error::kDiskFull},
    ErrnoRow{EIO, error::kDeviceIo},
    ErrnoRow{EMFILE, error::kTooManyFiles},
    ErrnoRow{ENFILE, error::kTooManyFiles},
    ErrnoRow{ENAMETOOLONG, error::kBadFileName},
    ErrnoRow{EILSEQ, error::kBadFileName},
    ErrnoRow{ENXIO, error::kDiskNotReady},
    ErrnoRow{ENODEV, error::kDiskNotReady},
    ErrnoRow{ENOMEM, error::kOutOfMemory},
};

}  // namespace

int ErrorNumberOfErrno(int code) {
  const auto* found =
      std::find_if(kErrnoTable.begin(), kErrnoTable.end(), [code](const ErrnoRow& row) { return row.code == code; });
  return found == kErrnoTable.end() ? error::kPathFileAccess : found->error_number;
}

namespace {

std::string FolderOf(const std::string& path) {
  const size_t end = path.find_last_not_of('/');
  const size_t slash = end == std::string::npos ? std::string::npos : path.rfind('/', end);
  if (slash == std::string::npos) return end == std::string::npos ? "/" : ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool GetStatus(const std::string& path, Status& status) { return ::stat(path.c_str(), &status) == 0; }

bool IsThere(const std::string& path) {
  Status status{};
  return ::lstat(path.c_str(), &status) == 0;
}

bool IsSameFile(const Status& left, const Status& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

// The failure of a call that took a path: a missing name is told apart from a missing folder before it.
[[noreturn]] void RaiseForPath(int code, const std::string& path) {
  Status status{};
  if (code == ENOENT && !GetStatus(FolderOf(path), status)) Raise(error::kPathNotFound);
  Raise(ErrorNumberOfErrno(code));
}

[[noreturn]] void RaiseErrno() { Raise(ErrorNumberOfErrno(errno)); }

std::string ResolveComponents(const std::string& path) {
  std::string resolved = path.front() == '/' ? "/" : "";
  size_t position = path.find_first_not_of('/');
  while (position != std::string::npos) {
    const size_t end = std::min(path.find('/', position), path.size());
    std::string component = path.substr(position, end - position);
    if (!IsThere(resolved + component)) {
      std::string other_case = TheFolderIndex().Find(resolved.empty() ? "." : resolved, component);
      if (other_case.empty()) return resolved + path.substr(position);
      component = std::move(other_case);
    }
    resolved += component;
    if (end < path.size()) resolved += '/';
    position = path.find_first_not_of('/', end);
  }
  return resolved;
}

// Links followed; nothing when the path leads to nothing.
std::optional<std::string> RealPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), ::free);
  if (!real) return std::nullopt;
  return real.get();
}

FileDescriptor OpenDescriptor(const std::string& path, int flags) {
  int descriptor = -1;
  // Non-blocking, so that a pipe with nobody at its other end is refused below instead of waited for.
  do descriptor = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
  while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) RaiseForPath(errno, path);
  return FileDescriptor(descriptor);
}

// Most files that are read are there under the very name: they are opened without a look at their folder before.
// Closed when that fails, for whatever reason, or when the mode could make a new file.
FileDescriptor OpenAsWritten(const std::string& path, OpenMode mode) {
  if (mode != OpenMode::kRead) return FileDescriptor();
  return FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
}

Status StatusOf(const FileDescriptor& descriptor) {
  Status status{};
  if (::fstat(descriptor.get(), &status) != 0) RaiseErrno();
  return status;
}

off_t FileOffset(uint64_t offset) {
  if (offset > static_cast<uint64_t>(std::numeric_limits<off_t>::max())) Raise(error::kInvalidProcedureCall);
  return static_cast<off_t>(offset);
}

size_t ReadFully(int descriptor, uint64_t offset, MutableByteView buffer) {
  size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t count = ::pread(descriptor, buffer.data() + done, buffer.size() - done, FileOffset(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) RaiseErrno();
    if (count == 0) break;
    done += static_cast<size_t>(count);
  }
  return done;
}

void WriteFully(int descriptor, uint64_t offset, ByteView bytes) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::pwrite(descriptor, bytes.data() + done, bytes.size() - done, FileOffset(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) RaiseErrno();
    if (count == 0) Raise(error::kDiskFull);
    done += static_cast<size_t>(count);
  }
}

class PosixFile final : public File {
 public:
  explicit PosixFile(FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

  uint64_t Size() override { return static_cast<uint64_t>(StatusOf(descriptor_).st_size); }
  size_t ReadAt(uint64_t offset, MutableByteView buffer) override {
    return ReadFully(descriptor_.get(), offset, buffer);
  }
  void WriteAt(uint64_t offset, ByteView bytes) override { WriteFully(descriptor_.get(), offset, bytes); }
  void Flush() override {
    // The bytes and the length; the time of the change is nothing to wait for.
    if (::fdatasync(descriptor_.get()) != 0) RaiseErrno();
  }
  void Truncate(uint64_t bytes) override {
    if (::ftruncate(descriptor_.get(), FileOffset(bytes)) != 0) RaiseErrno();
  }
  void Reserve(uint64_t bytes) override {
    if (HasRoomFor(bytes)) return;
    RequireFreeRoom(bytes);
    if (::fallocate(descriptor_.get(), FALLOC_FL_KEEP_SIZE, 0, FileOffset(bytes)) == 0) return;
    const int failure = errno;
    if (failure == EOPNOTSUPP || failure == ENOSYS) return ReserveByZeros(bytes);
    // What the system has taken behind the file's end before it refused.
    static_cast<void>(::ftruncate(descriptor_.get(), StatusOf(descriptor_).st_size));
    Raise(ErrorNumberOfErrno(failure));
  }
  void Close() override {
    // An interrupted close has closed all the same.
    if (::close(descriptor_.Release()) != 0 && errno != EINTR) RaiseErrno();
  }

 private:
  // The system takes whatever is left of the disk before it refuses: until the file is cut again no other program could
  // write anything.
  void RequireFreeRoom(uint64_t bytes) {
    struct statvfs disk {};
    if (::fstatvfs(descriptor_.get(), &disk) != 0) return;
    const uint64_t free_bytes = uint64_t{disk.f_bavail} * disk.f_frsize;
    const uint64_t taken = static_cast<uint64_t>(StatusOf(descriptor_).st_blocks) * kBlockUnit;
    if (bytes > taken && bytes - taken > free_bytes) Raise(error::kDiskFull);
  }
  static constexpr uint64_t kBlockUnit = 512;  // of st_blocks
  // Asking for room that is there already would make the next flush wait for the file system's own journal. A file with
  // holes has less room than bytes.
  [[nodiscard]] bool HasRoomFor(uint64_t bytes) {
    const Status status = StatusOf(descriptor_);
    const auto length = static_cast<uint64_t>(status.st_size);
    return bytes <= length && static_cast<uint64_t>(status.st_blocks) * kBlockUnit >= length;
  }

  FileDescriptor descriptor_;
};

int OpenFlags(OpenMode mode) {
  switch (mode) {
    case OpenMode::kReadWrite: return O_RDWR | O_CREAT;
    case OpenMode::kCreate: return O_RDWR | O_CREAT | O_TRUNC;
    case OpenMode::kRead: break;
  }
  return O_RDONLY;
}

FileDescriptor OpenResolved(const std::string& path, OpenMode mode) {
  const bool is_new = mode != OpenMode::kRead && !IsThere(path);
  FileDescriptor descriptor = OpenDescriptor(path, OpenFlags(mode));
  if (is_new) TheFolderIndex().NoteNew(path.substr(0, path.rfind('/') + 1), path.substr(path.rfind('/') + 1));
  return descriptor;
}

// A file under a name that nobody uses, in the folder of the file that it is to become. Removed unless it got there.
class TemporarySibling {
 public:
  explicit TemporarySibling(const std::string& target)
      : path_(FolderOf(target) + "/.kestrun-XXXXXX"), descriptor_(::mkostemp(path_.data(), O_CLOEXEC)) {
    if (!descriptor_.IsOpen()) RaiseForPath(errno, target);
  }
  ~TemporarySibling() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }
  TemporarySibling(const TemporarySibling&) = delete;
  TemporarySibling& operator=(const TemporarySibling&) = delete;

  [[nodiscard]] int descriptor() const { return descriptor_.get(); }
  void MoveTo(const std::string& target) {
    if (::close(descriptor_.Release()) != 0 && errno != EINTR) RaiseErrno();
    if (::rename(path_.c_str(), target.c_str()) != 0) RaiseForPath(errno, target);
    path_.clear();
  }

 private:
  std::string path_;
  FileDescriptor descriptor_;
};

void CopyContent(int from, int to) {
  constexpr size_t kBlock = size_t{256} * 1024;
  Bytes block(kBlock);
  uint64_t offset = 0;
  while (const size_t count = ReadFully(from, offset, block)) {
    WriteFully(to, offset, ByteView(block).first(count));
    offset += count;
  }
}

// Content and last write time of the source, in the place of the target.
void CopyFileTo(const std::string& from, std::string to) {
  const FileDescriptor source = OpenDescriptor(from, O_RDONLY);
  const Status source_status = StatusOf(source);
  if (!S_ISREG(source_status.st_mode)) Raise(error::kPathFileAccess);
  mode_t mode = source_status.st_mode;
  Status target_status{};
  if (GetStatus(to, target_status)) {
    if (S_ISDIR(target_status.st_mode)) Raise(error::kPathFileAccess);
    if (IsSameFile(source_status, target_status)) Raise(error::kPermissionDenied);
    if (::faccessat(AT_FDCWD, to.c_str(), W_OK, AT_EACCESS) != 0) RaiseForPath(errno, to);
    mode = target_status.st_mode;
    // Where the target is a link, what it points at is replaced, not the link.
    to = RealPath(to).value_or(to);
  }
  TemporarySibling copy(to);
  CopyContent(source.get(), copy.descriptor());
  const std::array times{timespec{0, UTIME_OMIT}, source_status.st_mtim};
  if (::fchmod(copy.descriptor(), mode & 0777) != 0 || ::futimens(copy.descriptor(), times.data()) != 0) RaiseErrno();
  copy.MoveTo(to);
}

void RenameWithoutReplacing(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  if (errno == EINVAL || errno == ENOSYS) {  // a file system that does not know the flag
    if (IsThere(to)) Raise(error::kFileAlreadyExists);
    if (::rename(from.c_str(), to.c_str()) == 0) return;
  }
  if (errno == EEXIST) Raise(error::kFileAlreadyExists);
  if (errno != EXDEV) RaiseForPath(errno, IsThere(from) ? to : from);
  CopyFileTo(from, to);
  ::unlink(from.c_str());
}

constexpr uint64_t kUnitsPerSecond = 10'000'000;
constexpr int64_t kSecondsFrom1601To1970 = 11'644'473'600;

uint64_t ToFileTime(const timespec& time) {
  return static_cast<uint64_t>(time.tv_sec + kSecondsFrom1601To1970) * kUnitsPerSecond +
         static_cast<uint64_t>(time.tv_nsec) / 100;
}

FolderEntry MakeEntry(int folder, const char* name) {
  FolderEntry entry{.name = name};
  Status status{};
  if (::fstatat(folder, name, &status, 0) != 0) return entry;  // a dangling link
  entry.is_folder = S_ISDIR(status.st_mode);
  if (S_ISREG(status.st_mode)) entry.size = static_cast<uint64_t>(status.st_size);
  entry.write_time = ToFileTime(status.st_mtim);
  return entry;
}

timespec ToTimespec(uint64_t file_time) {
  return {static_cast<time_t>(static_cast<int64_t>(file_time / kUnitsPerSecond) - kSecondsFrom1601To1970),
          static_cast<long>(file_time % kUnitsPerSecond * 100)};
}

// What the clock on the wall shows, by the rules for summer time of that day.
timespec LocalToTimespec(uint64_t file_time) {
  timespec moment = ToTimespec(file_time);
  tm parts{};
  ::gmtime_r(&moment.tv_sec, &parts);
  parts.tm_isdst = -1;
  moment.tv_sec = ::mktime(&parts);
  return moment;
}

}  // namespace

void PosixFileSystem::MapDrive(char letter, std::string folder) {
  drives_[static_cast<char>(letter & ~0x20)] = std::move(folder);
}

std::string PosixFileSystem::WithDriveAndSlashes(std::string_view path) const {
  if (path.find('\0') != std::string_view::npos) Raise(error::kBadFileName);
  if (path.empty()) Raise(error::kPathNotFound);
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  const char letter = static_cast<char>(native[0] & ~0x20);
  if (native.size() < 2 || native[1] != ':' || letter < 'A' || letter > 'Z') return native;
  const auto drive = drives_.find(letter);
  if (drive == drives_.end()) Raise(error::kPathNotFound);
  return drive->second + "/" + native.substr(2);
}

std::string PosixFileSystem::NativePath(std::string_view path) const {
  std::string native = WithDriveAndSlashes(path);
  return IsThere(native) ? native : ResolveComponents(native);
}

std::unique_ptr<File> PosixFileSystem::Open(std::string_view path, OpenMode mode) {
  FileDescriptor descriptor = OpenAsWritten(WithDriveAndSlashes(path), mode);
  if (!descriptor.IsOpen()) descriptor = OpenResolved(NativePath(path), mode);
  const mode_t kind = StatusOf(descriptor).st_mode;
  if (!S_ISREG(kind) && !S_ISCHR(kind)) Raise(error::kPathFileAccess);
  return std::make_unique<PosixFile>(std::move(descriptor));
}

bool PosixFileSystem::Exists(std::string_view path) {
  Status status{};
  return Attempt([&] {
    if (!GetStatus(NativePath(path), status)) Raise(error::kFileNotFound);
  });
}

bool PosixFileSystem::IsFolder(std::string_view path) {
  Status status{};
  return Attempt([&] {
           if (!GetStatus(NativePath(path), status)) Raise(error::kFileNotFound);
         }) &&
         S_ISDIR(status.st_mode);
}

bool PosixFileSystem::IsReadOnly(std::string_view path) {
  constexpr mode_t kAnyWriter = S_IWUSR | S_IWGRP | S_IWOTH;
  Status status{};
  bool is_read_only = false;
  Attempt([&] {
    is_read_only = GetStatus(NativePath(path), status) && S_ISREG(status.st_mode) && (status.st_mode & kAnyWriter) == 0;
  });
  return is_read_only;
}

void PosixFileSystem::Copy(std::string_view from, std::string_view to) { CopyFileTo(NativePath(from), NativePath(to)); }

void PosixFileSystem::Delete(std::string_view path) {
  const std::string native = NativePath(path);
  if (::unlink(native.c_str()) != 0) RaiseForPath(errno, native);
}

void PosixFileSystem::Rename(std::string_view from, std::string_view to) {
  const std::string source = NativePath(from);
  const std::string written_target = WithDriveAndSlashes(to);
  const std::string target = NativePath(to);
  Status source_status{};
  Status target_status{};
  if (GetStatus(source, source_status) && GetStatus(target, target_status)) {
    // Only a change of case is a rename onto itself that makes sense.
    if (!IsSameFile(source_status, target_status) || source != target) Raise(error::kFileAlreadyExists);
    const std::string new_name = written_target.substr(written_target.rfind('/') + 1);
    if (new_name.empty()) Raise(error::kFileAlreadyExists);
    return RenameWithoutReplacing(source, FolderOf(target) + "/" + new_name);
  }
  RenameWithoutReplacing(source, target);
}

void PosixFileSystem::Replace(std::string_view from, std::string_view to) {
  const std::string source = NativePath(from);
  const std::string target = NativePath(to);
  if (::rename(source.c_str(), target.c_str()) == 0) return;
  if (errno != EXDEV) RaiseForPath(errno, IsThere(source) ? target : source);
  CopyFileTo(source, target);
  ::unlink(source.c_str());
}

void PosixFileSystem::MakeFolder(std::string_view path) {
  const std::string native = NativePath(path);
  if (::mkdir(native.c_str(), 0777) == 0) return;
  Raise(errno == ENOENT ? error::kPathNotFound : ErrorNumberOfErrno(errno));
}

void PosixFileSystem::RemoveFolder(std::string_view path) {
  if (::rmdir(NativePath(path).c_str()) == 0) return;
  Raise(errno == ENOENT ? error::kPathNotFound : ErrorNumberOfErrno(errno));
}

std::vector<FolderEntry> PosixFileSystem::List(std::string_view folder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(NativePath(folder).c_str()), ::closedir);
  if (!listing) Raise(errno == ENOENT ? error::kPathNotFound : ErrorNumberOfErrno(errno));
  std::vector<FolderEntry> entries;
  while (const dirent* entry = ::readdir(listing.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == ".." || name.find('\\') != std::string_view::npos) continue;
    entries.push_back(MakeEntry(::dirfd(listing.get()), entry->d_name));
  }
  std::sort(entries.begin(), entries.end(), [](const FolderEntry& left, const FolderEntry& right) {
    const int order = CompareNoCase(left.name, right.name);
    return order != 0 ? order < 0 : left.name < right.name;
  });
  return entries;
}

uint64_t PosixFileSystem::WriteTime(std::string_view path) {
  const std::string native = NativePath(path);
  Status status{};
  if (!GetStatus(native, status)) RaiseForPath(errno, native);
  return ToFileTime(status.st_mtim);
}

void PosixFileSystem::SetWriteTime(std::string_view path, uint64_t file_time) {
  const std::string native = NativePath(path);
  const std::array times{timespec{0, UTIME_OMIT}, ToTimespec(file_time)};
  if (::utimensat(AT_FDCWD, native.c_str(), times.data(), 0) != 0) RaiseForPath(errno, native);
}

void PosixFileSystem::SetLocalTimes(std::string_view path, const LocalFileTimes& local) {
  const std::string native = NativePath(path);
  const std::array times{LocalToTimespec(local.access), LocalToTimespec(local.write)};
  if (::utimensat(AT_FDCWD, native.c_str(), times.data(), 0) != 0) RaiseForPath(errno, native);
}

std::string PosixFileSystem::CurrentFolder() {
  const std::unique_ptr<char, void (*)(void*)> folder(::getcwd(nullptr, 0), ::free);
  if (!folder) RaiseErrno();
  return folder.get();
}

void PosixFileSystem::FlushFolder(std::string_view folder) {
  Attempt([&] { ::fsync(OpenDescriptor(NativePath(folder), O_RDONLY | O_DIRECTORY).get()); });
}

void PosixFileSystem::FlushFiles(const std::string& folder, const std::vector<std::string>& names) {
  constexpr size_t kFew = 8;
  if (names.size() <= kFew) return FileSystem::FlushFiles(folder, names);
  if (::syncfs(OpenDescriptor(NativePath(folder), O_RDONLY | O_DIRECTORY).get()) != 0) RaiseErrno();
}

std::string PosixFileSystem::TruePath(std::string_view path) {
  std::string native = NativePath(path);
  if (const auto real = RealPath(native)) return *real;
  const auto folder = RealPath(FolderOf(native));
  if (!folder) return native;
  return (*folder == "/" ? "" : *folder) + "/" + native.substr(native.rfind('/') + 1);
}

std::unique_ptr<FileLock> PosixFileSystem::TryLock(std::string_view path, std::string_view program) {
  // Its users ask for it beside a true path: there is no other case to be looked for.
  const std::string native = WithDriveAndSlashes(path);
  try {
    return TryLockFile(native, program);
  } catch (const RuntimeError& failure) {
    if (failure.number() == error::kFileNotFound) Raise(error::kPathNotFound);
    throw;
  }
}

}  // namespace kestrun

#endif  // _WIN32
