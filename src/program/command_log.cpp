#include "program/command_log.h"

#include "base/code_page.h"
#include "base/text.h"
#include "platform/platform.h"
#include "program/settings.h"

namespace kestrun {

void AppendToLog(const std::string& line) {
  platform().files().Append(AppFile("kestrun.log"), AsBytes(EncodeText(line + std::string(kCrLf))));
}

void LogNotKept(const std::string& name, const std::string& reason) {
  AppendToLog("The original of \"" + name + "\" cannot be kept: " + reason);
}

}  // namespace kestrun
