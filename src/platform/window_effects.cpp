#include "platform/window_effects.h"

#include <utility>

#include "base/runtime_error.h"

namespace kestrun {
namespace {

constexpr int kActionNotSupported = 445;

WindowEffects*& Installed() {
  static WindowEffects* effects = nullptr;
  return effects;
}

}  // namespace

WindowEffects* InstallWindowEffects(WindowEffects* effects) { return std::exchange(Installed(), effects); }

WindowEffects& window_effects() {
  if (!Installed()) Raise(kActionNotSupported, "Object doesn't support this action");
  return *Installed();
}

}  // namespace kestrun
