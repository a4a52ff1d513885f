// Other people's programs, run at test time: archives that they write prove a reader better than our own.
#pragma once

#ifndef _WIN32

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace kestrun {

// For the shell: the text as one word, whatever is in it.
[[nodiscard]] inline std::string ShellWord(std::string_view text) {
  std::string word = "'";
  for (const char one : text) word += one == '\'' ? std::string("'\\''") : std::string(1, one);
  return word + "'";
}

[[nodiscard]] inline bool HasTool(const std::string& name) {
  return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

// Runs a command line in a folder; true when it succeeds.
[[nodiscard]] inline bool RunIn(std::string folder, const std::string& command) {
  std::replace(folder.begin(), folder.end(), '\\', '/');
  return std::system(("cd " + ShellWord(folder) + " && {\n" + command + "\n} >/dev/null 2>&1").c_str()) == 0;
}

}  // namespace kestrun

#endif  // _WIN32
