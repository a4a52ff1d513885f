#include "program/shell_registration.h"

#include "base/text.h"
#include "platform/platform.h"
#include "program/default_copy.h"
#include "program/path_text.h"
#include "program/registry_access.h"
#include "program/window_kit/ask.h"

namespace kestrun {
namespace {

constexpr const char* kUserClasses = "Software\\Classes";
constexpr const char* kOpenCommand = "\\shell\\open\\command";
constexpr const char* kDefaultIcon = "\\DefaultIcon";
constexpr const char* kProtocolCommandKey = "Kestrun\\Shell\\Open\\Command";
constexpr const char* kAppPathKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwkestrun.exe";
constexpr const char* kDefaultValue = "";

struct FileKind {
  const char* extension;
  const char* in_capitals;
  const char* class_name;
  const char* icon;
};
constexpr FileKind kMap{".bms", ".BMS", "Kestrun Map", ",1"};
constexpr FileKind kList{".lst", ".LST", "Auto Host List", ",2"};
constexpr FileKind kStyle{".stl", ".STL", "Kestrun Style File", ",3"};

// ---- classes -------------------------------------------------------------------------------------------------------

std::string UserKey(const std::string& key) { return std::string(kUserClasses) + "\\" + key; }

std::string ReadClass(const std::string& key) {
  return platform().registry().Read(RegistryRoot::kClassesRoot, key, kDefaultValue).value_or(std::string());
}

bool WriteClass(const std::string& key, const std::string& name, const std::string& text) {
  Registry& registry = platform().registry();
  registry.Write(RegistryRoot::kCurrentUser, UserKey(key), name, text);
  if (registry.Read(RegistryRoot::kClassesRoot, key, name) == text) return true;
  return registry.Write(RegistryRoot::kClassesRoot, key, name, text);
}

// ---- files ---------------------------------------------------------------------------------------------------------

// Of the class that the extension's files belong to; empty when they belong to none.
std::string CommandFor(const FileKind& kind) {
  const std::string class_name = ReadClass(kind.extension);
  return class_name.empty() ? std::string() : ReadClass(class_name + kOpenCommand);
}

bool IsAssociated(const FileKind& kind) { return CommandFor(kind) == OwnPath() + " %1"; }

bool MayTakeOver(const FileKind& kind) {
  const std::string line_break(kCrLf);
  return AskYesNo("The program " + line_break + CommandFor(kind) + line_break + "is the default program for " +
                      kind.extension + " files do you want to change it to " + line_break + OwnPath(),
                  BoxIcon::kQuestion);
}

bool Associate(const FileKind& kind) {
  if (!ReadClass(kind.extension).empty()) {
    if (IsAssociated(kind)) return true;
    if (!MayTakeOver(kind)) return false;
  }
  return CreateAssociation(kind.extension, OwnPath(), kind.class_name, OwnPath() + kind.icon);
}

// The class with its command stays behind.
bool Remove(const FileKind& kind) {
  if (!IsAssociated(kind)) return false;
  if (!AskYesNo(std::string("Are you sure you want to remove this program as default editor for ") + kind.in_capitals +
                    " files?",
                BoxIcon::kQuestion)) {
    return false;
  }
  const bool is_gone = RegDeleteSubkey(RegistryRoot::kCurrentUser, kUserClasses, kind.extension);
  return IsAssociated(kind) ? RegDeleteSubkey(RegistryRoot::kClassesRoot, "", kind.extension) : is_gone;
}

// ---- the protocol --------------------------------------------------------------------------------------------------

std::string ProtocolCommand() { return OwnPath() + " \"%1\""; }

}  // namespace

bool CreateAssociation(const std::string& Extension, const std::string& Command, const std::string& ClassName,
                       const std::string& Icon) {
  // What tells whose the files are comes last, the command and the extension: where the system refuses in the middle,
  // they stay with the program that has them.
  return (Icon.empty() || WriteClass(ClassName + kDefaultIcon, kDefaultValue, Icon)) &&
         WriteClass(ClassName + kOpenCommand, kDefaultValue, Command + " %1") &&
         WriteClass(Extension, kDefaultValue, ClassName);
}

bool AssociateBms() { return Associate(kMap); }
bool AssociateLst() { return Associate(kList); }
bool AssociateStl() { return Associate(kStyle); }
bool RemoveBms() { return Remove(kMap); }
bool RemoveLst() { return Remove(kList); }
bool RemoveStl() { return Remove(kStyle); }
bool IsBmsAssociated() { return IsAssociated(kMap); }
bool IsLstAssociated() { return IsAssociated(kList); }
bool IsStlAssociated() { return IsAssociated(kStyle); }

bool IsProtocolRegistered(std::string& Current) {
  Current = ReadClass(kProtocolCommandKey);
  return EqualsNoCase(Current, ProtocolCommand());
}

// The command, which tells that the protocol is registered, comes last, and only where all before it are written.
bool RegisterProtocol() {
  struct Row {
    const char* key;
    const char* name;
    std::string text;
  };
  for (const Row& row :
       {Row{"Kestrun", kDefaultValue, "URL:kestrun Protocol"}, Row{"Kestrun", "URL Protocol", ""},
        Row{"Kestrun\\DefaultIcon", kDefaultValue, OwnPath() + ", 2"}, Row{"Kestrun\\Shell", kDefaultValue, "open"},
        Row{"Kestrun\\Shell\\Open", kDefaultValue, "&Load this Map"},
        Row{kProtocolCommandKey, kDefaultValue, ProtocolCommand()}}) {
    if (!WriteClass(row.key, row.name, row.text)) return false;
  }
  return true;
}

void ClearProtocol() { WriteClass(kProtocolCommandKey, kDefaultValue, ""); }

bool IsAppPathRegistered(std::string& Current) {
  Current = platform().registry().Read(RegistryRoot::kLocalMachine, kAppPathKey, kDefaultValue).value_or(std::string());
  return ToLower(Current) == ToLower(OwnPath());
}

// The program's path, which tells whose the entry is, comes last.
bool RegisterAppPath() {
  Registry& registry = platform().registry();
  return registry.Write(RegistryRoot::kLocalMachine, kAppPathKey, "Path", platform().program().Folder()) &&
         registry.Write(RegistryRoot::kLocalMachine, kAppPathKey, kDefaultValue, OwnPath());
}

bool CreateShortcut(const std::string& Link, const std::string& Target, bool Replace, const std::string& WorkFolder,
                    const std::string& Arguments, const std::string& IconFile, int32_t IconIndex,
                    const std::string& Description, int32_t HotKey, int32_t ShowCommand) {
  constexpr std::string_view kExtension = ".lnk";
  if (Target.empty()) return false;
  const std::string link = ToLower(Link).ends_with(kExtension) ? Link : Link + std::string(kExtension);
  if (!Replace && FileExists(link)) return false;
  const std::string folder = WorkFolder == "(auto)" ? Target.substr(0, Target.rfind('\\') + 1) : WorkFolder;
  return platform().shell().WriteShortcut(
      link, {Target, folder, Arguments, IconFile, IconIndex, Description, HotKey, ShowCommand});
}

ShellIntegration RegistryShellIntegration() {
  ShellIntegration integration;
  integration.is_protocol_registered = &IsProtocolRegistered;
  integration.register_protocol = &RegisterProtocol;
  integration.clear_protocol = &ClearProtocol;
  integration.is_app_path_registered = &IsAppPathRegistered;
  integration.register_app_path = &RegisterAppPath;
  integration.is_bms_associated = &IsBmsAssociated;
  integration.associate_bms = &AssociateBms;
  integration.remove_bms = &RemoveBms;
  integration.is_lst_associated = &IsLstAssociated;
  integration.associate_lst = &AssociateLst;
  integration.remove_lst = &RemoveLst;
  integration.is_stl_associated = &IsStlAssociated;
  integration.associate_stl = &AssociateStl;
  integration.remove_stl = &RemoveStl;
  integration.create_shortcut = [](const std::string& link) {
    return CreateShortcut(link, OwnPath(), true, "(auto)", "", "", 0, "DFLW, 0, 0", 0, 5);
  };
  return integration;
}

}  // namespace kestrun
