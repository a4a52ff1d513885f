// A temporary folder of a benchmark's own, with a desktop whose files are the real ones.
#pragma once

#include <cstdlib>
#include <string>

#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"
#include "platform/platform.h"

namespace kestrun {

// Runs measure(files, folder) and gives the exit code of the program: 0 when it returned true. It must leave the folder
// empty.
template <class Measure>
int RunInBenchFolder(Measure&& measure) {
  PosixFileSystem files;
  HeadlessPlatform desktop(files);
  const PlatformInstallation installation(desktop);
  std::string folder = "/tmp/kestrun-bench-XXXXXX";
  if (!::mkdtemp(folder.data())) return 1;
  const bool passes = measure(files, folder);
  files.RemoveFolder(folder);
  return passes ? 0 : 1;
}

}  // namespace kestrun
