#include "desktop/headless/posix_file_lock.h"

#ifndef _WIN32

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "base/bytes.h"
#include "base/runtime_error.h"
#include "desktop/headless/file_descriptor.h"

namespace kestrun {
namespace {

// The file is removed while the lock still holds: who opened it before finds, once it has the lock, that the path leads
// elsewhere, and tries again.
class PosixFileLock final : public FileLock {
 public:
  PosixFileLock(std::string path, FileDescriptor descriptor)
      : path_(std::move(path)), descriptor_(std::move(descriptor)) {}
  ~PosixFileLock() override {
    if (!FileStays()) ::unlink(path_.c_str());
  }
  PosixFileLock(const PosixFileLock&) = delete;
  PosixFileLock& operator=(const PosixFileLock&) = delete;

 private:
  std::string path_;
  FileDescriptor descriptor_;
};

FileDescriptor OpenLockFile(const std::string& path) {
  // Where every user may write, the lock of one must not keep the others out for good.
  FileDescriptor descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666));
  if (!descriptor.IsOpen()) Raise(ErrorNumberOfErrno(errno));
  return descriptor;
}

// Of this open file, not of the process: two of one process exclude each other too.
bool TakeLock(const FileDescriptor& descriptor) {
  struct flock range {};
  range.l_type = F_WRLCK;
  range.l_whence = SEEK_SET;
  range.l_start = kLockedByte;
  range.l_len = 1;
  if (::fcntl(descriptor.get(), F_OFD_SETLK, &range) == 0) return true;
  if (errno == EAGAIN || errno == EACCES) return false;
  Raise(ErrorNumberOfErrno(errno));
}

bool IsStillAt(const std::string& path, const FileDescriptor& descriptor) {
  struct stat locked {};
  struct stat there {};
  return ::fstat(descriptor.get(), &locked) == 0 && ::stat(path.c_str(), &there) == 0 &&
         locked.st_dev == there.st_dev && locked.st_ino == there.st_ino;
}

// Only for others to read: a turn holds without it. The file is not emptied before: some file systems take that for
// replacing it and write it out at once.
void WriteHolder(const FileDescriptor& descriptor, std::string_view program) {
  const std::string text = FormatLockHolder({static_cast<uint32_t>(::getpid()), std::string(program)});
  const auto length = static_cast<off_t>(text.size());
  struct stat status {};
  if (::pwrite(descriptor.get(), text.data(), text.size(), 0) != length) return;
  if (::fstat(descriptor.get(), &status) == 0 && status.st_size > length) {
    static_cast<void>(!::ftruncate(descriptor.get(), length));
  }
}

}  // namespace

std::unique_ptr<FileLock> TryLockFile(const std::string& native_path, std::string_view program) {
  for (;;) {
    FileDescriptor descriptor = OpenLockFile(native_path);
    if (!TakeLock(descriptor)) return nullptr;
    if (!IsStillAt(native_path, descriptor)) continue;
    WriteHolder(descriptor, program);
    return std::make_unique<PosixFileLock>(native_path, std::move(descriptor));
  }
}

}  // namespace kestrun

#endif  // _WIN32
