// The two ways into the style runtime, for windows that lie below it. The style runtime installs itself here; until it
// does, no style is active and loading one does nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"

namespace kestrun {

// Who made the current style, as its own file says.
struct StyleIdentity {
  std::string designer;
  std::string site;
  std::string version;  // of the program that it was made for
};

struct StyleRuntime {
  std::function<bool()> is_active;
  std::function<void(const std::string& path)> load_file;
  std::function<void(Form& form)> apply;
  std::function<StyleIdentity()> identity = {};
  std::function<std::vector<std::string>(const std::string& path)> check = {};
};

// Gives the one before.
StyleRuntime InstallStyleRuntime(StyleRuntime runtime);

// The only test that windows make before they hand themselves over.
[[nodiscard]] bool StyleActive();
// Empty while no style is active.
[[nodiscard]] StyleIdentity CurrentStyleIdentity();
// Loads a style file and makes it the current one.
void LoadStyleFile(const std::string& path);
// What is wrong with a style file, a line for each fault, without anything of it being seen (styles/check); a last line
// when not everything was looked at. Raises what the file layer raises when the file cannot be read.
[[nodiscard]] std::vector<std::string> CheckStyleFile(const std::string& path);
// Applies the current style to a window.
void FormLoadStyle(Form& form);

}  // namespace kestrun
