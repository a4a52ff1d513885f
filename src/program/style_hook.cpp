#include "program/style_hook.h"

#include <utility>

namespace kestrun {
namespace {

StyleRuntime& Runtime() {
  static StyleRuntime runtime;
  return runtime;
}

}  // namespace

StyleRuntime InstallStyleRuntime(StyleRuntime runtime) { return std::exchange(Runtime(), std::move(runtime)); }

bool StyleActive() { return Runtime().is_active && Runtime().is_active(); }

StyleIdentity CurrentStyleIdentity() {
  return StyleActive() && Runtime().identity ? Runtime().identity() : StyleIdentity{};
}

void LoadStyleFile(const std::string& path) {
  if (Runtime().load_file) Runtime().load_file(path);
}

std::vector<std::string> CheckStyleFile(const std::string& path) {
  return Runtime().check ? Runtime().check(path) : std::vector<std::string>{};
}

void FormLoadStyle(Form& form) {
  if (Runtime().apply) Runtime().apply(form);
}

}  // namespace kestrun
