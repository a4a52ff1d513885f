// Owner of one POSIX file descriptor.
#pragma once

#ifndef _WIN32

#include <unistd.h>

#include <utility>

namespace kestrun {

class FileDescriptor {
 public:
  FileDescriptor() noexcept = default;
  explicit FileDescriptor(int descriptor) noexcept : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(other.Release()) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    FileDescriptor taken(std::move(other));
    std::swap(descriptor_, taken.descriptor_);
    return *this;
  }
  ~FileDescriptor() {
    if (IsOpen()) ::close(descriptor_);
  }

  [[nodiscard]] bool IsOpen() const noexcept { return descriptor_ >= 0; }
  [[nodiscard]] int get() const noexcept { return descriptor_; }
  // Gives the descriptor away: the caller closes it.
  [[nodiscard]] int Release() noexcept { return std::exchange(descriptor_, -1); }

 private:
  int descriptor_ = -1;
};

}  // namespace kestrun

#endif  // _WIN32
