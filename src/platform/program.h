// What the running program knows of itself.
#pragma once

#include <string>
#include <string_view>

#include "base/bytes.h"
#include "base/runtime_error.h"

namespace kestrun {

struct Version {
  int major = 0;
  int minor = 0;
  int revision = 0;
};

[[noreturn]] inline void RaiseMissingResource(int number) {
  Raise(error::kResourceNotFound, "Resource with identifier '" + std::to_string(number) + "' not found");
}

class Program {
 public:
  virtual ~Program() = default;
  // Folder of the program file, without a trailing separator.
  [[nodiscard]] virtual std::string Folder() = 0;
  // File name of the program without ".exe".
  [[nodiscard]] virtual std::string ExeName() = 0;
  // The raw command line behind the program's own name, unsplit.
  [[nodiscard]] virtual std::string CommandLine() = 0;
  [[nodiscard]] virtual Version ProgramVersion() = 0;
  // The bytes of a file that was built into the program. Error 326 when there is none of that type and number.
  [[nodiscard]] virtual Bytes Resource(std::string_view type, int number) = 0;
};

}  // namespace kestrun
