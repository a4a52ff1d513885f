// The headless platform as the command-line program has it: real files, folders and processes of this machine, and
// nobody to ask. A box prints its text to standard error and takes the safe answer.
#pragma once

#ifndef _WIN32

#include <string>
#include <vector>

#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"

namespace kestrun {

class CommandLineHost {
 public:
  // The raw command line behind the program's own name. Drive Z: is the root, C: that of the user's Wine prefix.
  explicit CommandLineHost(std::string command_line);

  [[nodiscard]] HeadlessPlatform& platform() { return platform_; }

 private:
  void NameFolders();

  PosixFileSystem files_;
  HeadlessPlatform platform_{files_};
};

// Names of the running processes as /proc lists them; a Windows program under Wine with its ".exe".
[[nodiscard]] std::vector<std::string> ListSystemProcesses();

// Names of the other processes that have the file open, as /proc tells.
[[nodiscard]] std::vector<std::string> ListFileHolders(const std::string& native_path);

}  // namespace kestrun

#endif  // _WIN32
