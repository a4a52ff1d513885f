#include "maps/map_file_commands.h"

#include "base/text.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

bool NothingIsSelected(const FileListBox& maps, const char* request) {
  if (maps.ListIndex >= 0) return false;
  MsgBox(request);
  return true;
}

// The whole name of the selected map, taken before any question: the list may show another folder when that is
// answered.
struct SelectedMap {
  explicit SelectedMap(const FileListBox& maps) : name(maps.FileName()), folder(maps.Path()) {}
  [[nodiscard]] std::string Path() const { return Beside(name); }
  [[nodiscard]] std::string Beside(const std::string& other_name) const { return folder + "\\" + other_name; }

  std::string name;
  std::string folder;
};

// The map that the user works on stays selected, under its new name as well: commands go on with it. A name that the
// list does not show selects nothing.
void ReloadAndSelect(FileListBox& maps, const std::string& name) {
  maps.Reload();
  Attempt([&] { maps.SetFileName(name); });
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

void CopyMapTo(FileListBox& maps, CommonDialog& dlgcopyto) {
  RunCommand([&] {
    if (NothingIsSelected(maps, "Select a map")) return;
    const SelectedMap map(maps);
    dlgcopyto.DialogTitle = "Select folder and filename to copy map to";
    dlgcopyto.Filter = "BMS files (*.bms)|*.bms|All files (*.*)|*.*|";
    dlgcopyto.FileName = map.name;
    dlgcopyto.CancelError = false;
    if (!dlgcopyto.ShowSave()) return;
    const std::string target = dlgcopyto.FileName;
    if (FileExists(target) && !AskYesNo("This file already exists do you want to overwrite it?")) return;
    platform().files().Copy(map.Path(), target);
    ReloadAndSelect(maps, map.name);
  });
}

void RenameMap(FileListBox& maps) {
  RunCommand([&] {
    if (NothingIsSelected(maps, "Select map!")) return;
    const SelectedMap map(maps);
    const std::string answer =
        platform()
            .dialogs()
            .AskText("Enter a new name for the map. Don't forget the .bms / .zip !", "", map.name)
            .value_or(std::string());
    const std::string new_path = map.Beside(answer);
    // Without a name the path is that of the folder: no map stands in the way, and the copy fails.
    if (!answer.empty() && FileExists(new_path)) {
      TellThatNameIsTaken();
      return;
    }
    if (EqualsNoCase(map.Path(), new_path)) return;
    platform().files().Copy(map.Path(), new_path);
    platform().files().Delete(map.Path());
    ReloadAndSelect(maps, answer);
  });
}

bool DeleteMap(FileListBox& maps) {
  bool is_deleted = false;
  RunCommand([&] {
    if (NothingIsSelected(maps, "Select map!")) return;
    const SelectedMap map(maps);
    if (!AskYesNo("Are you sure you want to delete " + map.name + "?", BoxIcon::kWarning)) return;
    platform().files().Delete(map.Path());
    is_deleted = true;
  });
  return is_deleted;
}

void CopyMapName(FileListBox& maps) {
  RunCommand([&] {
    if (NothingIsSelected(maps, "Please select map!")) return;
    platform().clipboard().SetText(maps.FileName());
  });
}

}  // namespace kestrun
