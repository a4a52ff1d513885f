#include "program/style_hook.h"

namespace kestrun {
namespace {

StyleRuntime& Runtime() {
  static StyleRuntime runtime;
  return runtime;
}

}  // namespace

void InstallStyleRuntime(StyleRuntime runtime) { Runtime() = std::move(runtime); }

bool StyleActive() { return Runtime().is_active && Runtime().is_active(); }

StyleIdentity CurrentStyleIdentity() {
  return StyleActive() && Runtime().identity ? Runtime().identity() : StyleIdentity{};
}

void LoadStyleFile(const std::string& path) {
  if (Runtime().load_file) Runtime().load_file(path);
}

void FormLoadStyle(Form& form) {
  if (Runtime().apply) Runtime().apply(form);
}

}  // namespace kestrun
