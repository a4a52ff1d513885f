#include "program/default_copy.h"

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr const char* kApplication = "Kes_Trun";
// The folder that is noted at a start goes to a name of its own.
constexpr const char* kNotedApplication = "Kes_Trn";
constexpr const char* kSection = "DEFAULT";
constexpr const char* kFolderKey = "APP";
constexpr const char* kFileKey = "EXE";
constexpr const char* kAskedKey = "ASKEDFORMAPS";

}  // namespace

std::string OwnPath() { return AppFile(OwnFile()); }

std::string OwnFile() { return platform().program().ExeName() + ".exe"; }

bool IsDefaultCopy() {
  return GetSetting(kApplication, kSection, kFolderKey, "") == platform().program().Folder() &&
         GetSetting(kApplication, kSection, kFileKey, "") == OwnFile();
}

void MakeDefaultCopy() {
  Attempt([] { SaveSetting(kApplication, kSection, kFolderKey, platform().program().Folder()); });
  Attempt([] { SaveSetting(kApplication, kSection, kFileKey, OwnFile()); });
}

// Nobody reads the folder under the other name: both values are written at each start until the user makes a copy the
// default one.
void NoteDefaultCopy() {
  if (!GetSetting(kApplication, kSection, kFolderKey, "").empty()) return;
  Attempt([] { SaveSetting(kNotedApplication, kSection, kFolderKey, platform().program().Folder()); });
  Attempt([] { SaveSetting(kApplication, kSection, kFileKey, OwnFile()); });
}

bool HasNotedCopy() { return !GetSetting(kApplication, kSection, kFileKey, "").empty(); }

bool HasAskedForMaps() { return !GetSetting(kApplication, kSection, kAskedKey, "").empty(); }

void NoteAskedForMaps() { SaveSetting(kApplication, kSection, kAskedKey, "True"); }

void ForgetDefaultCopy() {
  Attempt([] { DeleteSetting(kApplication, kSection, kFolderKey); });
  Attempt([] { DeleteSetting(kApplication, kSection, kFileKey); });
}

std::string SendToShortcut() { return SpecialFolder(folder::kSendTo) + "DFLW.lnk"; }

}  // namespace kestrun
