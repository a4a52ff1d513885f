#include "maps/map_file_commands.h"

#include "base/text.h"
#include "frame/path_text.h"
#include "frame/show_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr bool kListIsFine = false;
constexpr bool kRebuildList = true;

// Runs one command; a failure is reported without a context and leaves the lists as they are.
template <class Command>
bool RunCommand(Command&& command) {
  try {
    return command();
  } catch (const std::exception&) {
    ShowError("");
  }
  return kListIsFine;
}

bool NothingIsSelected(const FileListBox& maps, const char* request) {
  if (maps.ListIndex >= 0) return false;
  MsgBox(request);
  return true;
}

std::string InFolderOf(const FileListBox& maps, const std::string& name) { return maps.Path() + "\\" + name; }

bool AskYesNo(const std::string& question, BoxIcon icon = BoxIcon::kNone) {
  return MsgBox(question, BoxButtons::kYesNo, icon) == BoxAnswer::kYes;
}

// The answer changes nothing; No is at hand for those who press Enter.
void TellThatNameIsTaken() {
  MessageBoxRequest box;
  box.text = "The new file name already exists are you sure you want to overwrite the map?";
  box.buttons = BoxButtons::kYesNo;
  box.default_button = 2;
  static_cast<void>(platform().dialogs().ShowMessage(box));
}

}  // namespace

bool CopyMapTo(FileListBox& maps, CommonDialog& dlgcopyto) {
  return RunCommand([&] {
    if (NothingIsSelected(maps, "Select a map")) return kListIsFine;
    const std::string map = InFolderOf(maps, maps.FileName());
    dlgcopyto.DialogTitle = "Select folder and filename to copy map to";
    dlgcopyto.Filter = "BMS files (*.bms)|*.bms|All files (*.*)|*.*|";
    dlgcopyto.FileName = maps.FileName();
    dlgcopyto.CancelError = false;
    if (!dlgcopyto.ShowSave()) return kListIsFine;
    const std::string target = dlgcopyto.FileName;
    if (FileExists(target) && !AskYesNo("This file already exists do you want to overwrite it?")) return kListIsFine;
    platform().files().Copy(map, target);
    maps.Reload();
    return kListIsFine;
  });
}

bool RenameMap(FileListBox& maps) {
  return RunCommand([&] {
    if (NothingIsSelected(maps, "Select map!")) return kListIsFine;
    const std::string old_path = InFolderOf(maps, maps.FileName());
    const std::string answer =
        platform()
            .dialogs()
            .AskText("Enter a new name for the map. Don't forget the .bms / .zip !", "", maps.FileName())
            .value_or(std::string());
    const std::string new_path = InFolderOf(maps, answer);
    // Without a name the path is that of the folder: no map stands in the way, and the copy fails.
    if (!answer.empty() && FileExists(new_path)) {
      TellThatNameIsTaken();
      return kListIsFine;
    }
    if (EqualsNoCase(old_path, new_path)) return kListIsFine;
    platform().files().Copy(old_path, new_path);
    platform().files().Delete(old_path);
    maps.Reload();
    return kListIsFine;
  });
}

bool DeleteMap(FileListBox& maps) {
  return RunCommand([&] {
    if (NothingIsSelected(maps, "Select map!")) return kListIsFine;
    const std::string name = maps.FileName();
    if (!AskYesNo("Are you sure you want to delete " + name + "?", BoxIcon::kWarning)) return kListIsFine;
    platform().files().Delete(InFolderOf(maps, name));
    return kRebuildList;
  });
}

bool CopyMapName(FileListBox& maps) {
  return RunCommand([&] {
    if (NothingIsSelected(maps, "Please select map!")) return kListIsFine;
    platform().clipboard().SetText(maps.FileName());
    return kListIsFine;
  });
}

}  // namespace kestrun
