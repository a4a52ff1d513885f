// A failure of the file system that knows which file it was about, and what to tell the user about it.
#pragma once

#include <string>

#include "base/runtime_error.h"

namespace kestrun {

class FileError : public RuntimeError {
 public:
  // The number's standard text is the description.
  FileError(int number, std::string path) : RuntimeError(number), path_(std::move(path)) {}
  FileError(const RuntimeError& failure, std::string path) : RuntimeError(failure), path_(std::move(path)) {}

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// A file without a single byte where one with content is needed: error 9.
[[noreturn]] void RaiseEmptyFile(const std::string& path);

// The failure in flight, seen from inside a catch block, as a box tells it: number and description. Behind the
// description of a FileError stand the file, what is in the way as far as the system tells at this moment, and what the
// user can do about it.
[[nodiscard]] RuntimeError ExplainedError();

}  // namespace kestrun
