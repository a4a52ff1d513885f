// The program's entries in the registry: which files and links the system opens with it, and where it finds the
// program; and shortcuts.
//
// Classes are written for the present user, so that no administrator is needed, and read as the system shows them, the
// user's before the machine's. A system that does not show them so gets them in its own classes too.
//
// A registration is this program's when its command is this very file's. What belongs to nobody is taken; what is
// alive and somebody else's is asked for.
#pragma once

#include <cstdint>
#include <string>

#include "program/shell_integration.h"

namespace kestrun {

// Makes the files of an extension belong to a class whose files the command opens. No icon is given for an empty one.
// False when the system refuses.
bool CreateAssociation(const std::string& Extension, const std::string& Command, const std::string& ClassName,
                       const std::string& Icon);

// Ask before they take the files of another program. True when they are this program's then.
bool AssociateBms();
bool AssociateLst();
bool AssociateStl();
// Ask, and leave another program's files alone. True when the registration is gone.
bool RemoveBms();
bool RemoveLst();
bool RemoveStl();
[[nodiscard]] bool IsBmsAssociated();
[[nodiscard]] bool IsLstAssociated();
[[nodiscard]] bool IsStlAssociated();

// kestrun:// links. `Current` takes the command that is registered, empty when there is none.
[[nodiscard]] bool IsProtocolRegistered(std::string& Current);
bool RegisterProtocol();
// Leaves the keys and an empty command, which tells the next start that no copy is registered.
void ClearProtocol();

// The machine's App Paths entry. `Current` takes the path that is registered.
[[nodiscard]] bool IsAppPathRegistered(std::string& Current);
bool RegisterAppPath();

// Writes a shell link; ".lnk" is added to a name without it. Nothing for an empty target. The work folder "(auto)" is
// that of the target. Without Replace a link that is there stays.
bool CreateShortcut(const std::string& Link, const std::string& Target, bool Replace, const std::string& WorkFolder,
                    const std::string& Arguments, const std::string& IconFile, int32_t IconIndex,
                    const std::string& Description, int32_t HotKey, int32_t ShowCommand);

// All of it, for start-up and the options window.
[[nodiscard]] ShellIntegration RegistryShellIntegration();

}  // namespace kestrun
