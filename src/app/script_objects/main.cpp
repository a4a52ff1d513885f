// Writes the parts of docs/ that come from the member tables:
//   script_objects                         prints docs/script_objects.md
//   script_objects --check FILE            fails when the file holds another page
//   script_objects --add-ins               prints the end of docs/add-ins.md
//   script_objects --check-add-ins FILE    fails when the file ends in another way
// and what the manual is checked against:
//   script_objects --texts                 prints the captions of menus and options, the command words, and a number
//   for
//                                          the look of each window
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "app/script_objects/page.h"
#include "app/script_objects/window_texts.h"
#include "desktop/headless/headless_platform.h"
#include "desktop/headless/posix_files.h"
#include "forms/window_registry.h"

namespace {

int Check(const char* path, const std::string& expected, bool is_whole) {
  std::ifstream file(path, std::ios::binary);
  const std::string present{std::istreambuf_iterator<char>(file), {}};
  if (is_whole ? present == expected : present.ends_with("\n" + expected)) return 0;
  std::fprintf(stderr, "%s is out of date: tools/script_objects writes it anew\n", path);
  return 1;
}

}  // namespace

int main(int argument_count, char** arguments) {
  kestrun::PosixFileSystem files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const std::string word = argument_count > 1 ? arguments[1] : "";
  if (word == "--texts") {
    std::fputs(kestrun::WindowTexts().c_str(), stdout);
    kestrun::CloseAllWindows();
    return 0;
  }
  const std::string page = kestrun::ScriptObjectsPage();
  const std::string surface = kestrun::AddInSurface();
  kestrun::CloseAllWindows();
  if (argument_count == 3 && word == "--check") return Check(arguments[2], page, true);
  if (argument_count == 3 && word == "--check-add-ins") return Check(arguments[2], surface, false);
  std::fputs((word == "--add-ins" ? surface : page).c_str(), stdout);
  return 0;
}
