#include "program/check_list_hook.h"

#include <utility>

namespace kestrun {
namespace {

std::function<void(const std::string& command)>& Installed() {
  static std::function<void(const std::string& command)> check;
  return check;
}

}  // namespace

void CheckListCommand(const std::string& command) {
  if (Installed()) Installed()(command);
}

void InstallListCheck(std::function<void(const std::string& command)> check) { Installed() = std::move(check); }

}  // namespace kestrun
