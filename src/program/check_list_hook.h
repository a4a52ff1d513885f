// The way into the check of a play list for the command word -checklist, which lies below it.
#pragma once

#include <functional>
#include <string>

namespace kestrun {

// -checklist "file.lst" name: the name of the mission that the maps would go in as may be left out.
void CheckListCommand(const std::string& command);
// Who carries it out. Until somebody is installed nothing happens.
void InstallListCheck(std::function<void(const std::string& command)> check);

}  // namespace kestrun
