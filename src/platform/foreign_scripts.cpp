#include "platform/foreign_scripts.h"

namespace kestrun {
namespace {

ForeignScriptMaker& Installed() {
  static ForeignScriptMaker maker = nullptr;
  return maker;
}

}  // namespace

void InstallForeignScripts(ForeignScriptMaker maker) { Installed() = maker; }

ForeignScriptMaker ForeignScripts() { return Installed(); }

}  // namespace kestrun
