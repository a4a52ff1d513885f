// The two ways into the style runtime, for windows that lie below it. The style runtime installs itself here; until it
// does, no style is active and loading one does nothing.
#pragma once

#include <functional>
#include <string>

#include "forms/form.h"

namespace kestrun {

struct StyleRuntime {
  std::function<bool()> is_active;
  std::function<void(const std::string& path)> load_file;
  std::function<void(Form& form)> apply;
};

void InstallStyleRuntime(StyleRuntime runtime);

// The only test that windows make before they hand themselves over.
[[nodiscard]] bool StyleActive();
// Loads a style file and makes it the current one.
void LoadStyleFile(const std::string& path);
// Applies the current style to a window.
void FormLoadStyle(Form& form);

}  // namespace kestrun
