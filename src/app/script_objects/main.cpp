// Writes docs/script_objects.md:
//   script_objects                prints the page
//   script_objects --check FILE   fails when the file holds another page
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "app/script_objects/page.h"
#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"
#include "forms/window_registry.h"

int main(int argument_count, char** arguments) {
  kestrun::PosixFileSystem files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const std::string page = kestrun::ScriptObjectsPage();
  kestrun::CloseAllWindows();
  if (argument_count != 3 || std::string(arguments[1]) != "--check") {
    std::fputs(page.c_str(), stdout);
    return 0;
  }
  std::ifstream file(arguments[2], std::ios::binary);
  const std::string present{std::istreambuf_iterator<char>(file), {}};
  if (present == page) return 0;
  std::fprintf(stderr, "%s is out of date: tools/script_objects writes it anew\n", arguments[2]);
  return 1;
}
