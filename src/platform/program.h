// What the running program knows of itself.
#pragma once

#include <string>

namespace kestrun {

struct Version {
  int major = 1;
  int minor = 0;
  int revision = 0;
};

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
};

}  // namespace kestrun
