#include "program/shell_integration.h"

#include <utility>

namespace kestrun {
namespace {

ShellIntegration& Installed() {
  static ShellIntegration integration;
  return integration;
}

}  // namespace

void InstallShellIntegration(ShellIntegration integration) { Installed() = std::move(integration); }

const ShellIntegration& shell_integration() { return Installed(); }

}  // namespace kestrun
