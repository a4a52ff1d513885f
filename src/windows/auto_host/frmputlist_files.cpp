// The files behind the lists: the folder of maps, list files, maps that are added from elsewhere.
#include "base/text.h"
#include "game/lists/map_list_file.h"
#include "maps/fetch/fetch_map.h"
#include "maps/fetch/fetch_turn.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/run_command.h"
#include "web/web_paths.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

constexpr const char* kListFilter = "List files (*.lst)|*.lst|All files (*.*)|*.*|";

}  // namespace

// ---- the folder ----------------------------------------------------------------------------------------------------

void frmputlist::FolderChanged() {
  // While a path is being typed most of its beginnings are no folders: the list keeps the last one that was.
  Attempt([this] { FileMaps.SetPath(txtfolder.Text.get()); });
}

void frmputlist::BrowseFolder() {
  std::string folder = BrowseForFolder("Select folder", folder::kGivenPath, txtfolder.Text);
  if (folder.empty()) return;
  folder.pop_back();
  txtfolder.Text = folder;
}

// ---- a map from elsewhere ------------------------------------------------------------------------------------------

void frmputlist::AddMapFile() {
  SetUpFileDialog(CommonDialog1, "Select a map.", "Binary Missions and zip (*.bms;*.zip)|*.bms;*.zip|");
  if (!CommonDialog1.ShowOpen()) return;
  const FetchTurn turn;
  std::string map = CommonDialog1.FileName;
  if (IsUrl(map) || MapFileKind(map) == map_file_kind::kZip) map = MapFromArchive(map);
  if (map.empty() || !FileExists(map)) return;
  lstmaps.AddItem(map);
  Edited = true;
  FitPlayList();
  ShowGlance();
}

std::string frmputlist::MapFromArchive(const std::string& chosen) {
  const std::string temporary = FetchMap(chosen);
  if (temporary.empty()) return {};
  std::string target = MapFolder() + "\\" + GetFileName(temporary);
  if (FileExists(target) &&
      !AskYesNo("Warning: the file " + target + " already exists overwrite the file?", BoxIcon::kWarning)) {
    return {};
  }
  platform().files().Copy(temporary, target);
  return target;
}

// ---- list files ----------------------------------------------------------------------------------------------------

void frmputlist::mnu_loadlist_Click() {
  Attempt([this] { AskAndLoadList(); });
}

void frmputlist::AskAndLoadList() {
  if (Edited && AskYesNo("Save changed to this map list?")) SaveList();
  SetUpFileDialog(CommonDialog1, "Load map list", kListFilter);
  if (!CommonDialog1.ShowOpen()) return;
  LoadList(CommonDialog1.FileName);
  FitPlayList();
  Edited = false;
}

void frmputlist::LoadList(const std::string& File) {
  RunCommand([this, &File] {
    if (lstmaps.ListCount() > 0 && AskYesNo("Do you want to clear the current map list?")) lstmaps.Clear();
    lstmaps.AddItems(MapList(File).rows());
    ShowListCount();
    list_file_ = File;
    FitPlayList();
  });
  ShowGlance();
}

std::vector<std::string> frmputlist::PlayList() const {
  std::vector<std::string> rows;
  rows.reserve(static_cast<size_t>(lstmaps.ListCount()));
  for (int row = 0; row < lstmaps.ListCount(); ++row) rows.push_back(lstmaps.List(row));
  return rows;
}

std::string frmputlist::ChosenListFile() {
  if (!list_file_.empty()) {
    return AskYesNo("Are you sure you want to save map list '" + list_file_ + "' ?") ? list_file_ : std::string();
  }
  SetUpFileDialog(CommonDialog1, "Save map list", kListFilter, "lst");
  return AskWhereToSave(CommonDialog1);
}

void frmputlist::SaveList() {
  const std::string path = ChosenListFile();
  if (path.empty()) return;
  if (!WriteMapList(path, PlayList())) {
    // Told where it holds nothing up; the list stays marked as edited, so that it is not lost on closing.
    lblstatus.Caption = "The list could not be saved to " + path + ". Save it in a folder that you may write to.";
    return;
  }
  lblstatus.Caption = "";
  list_file_ = path;
  ShowListCount();
  Edited = false;
}

// ---- drops ---------------------------------------------------------------------------------------------------------

void frmputlist::TakeDropped(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) TakeDroppedPath(path);
  ShowListCount();
  FitPlayList();
  ShowGlance();
}

// A folder stands for the maps in it, an internet shortcut for its address, a list file for its rows.
void frmputlist::TakeDroppedPath(const std::string& path) {
  if (HasExtension(path, "lst")) {
    LoadList(path);
    return;
  }
  std::vector<std::string> maps{path};
  if (platform().files().IsFolder(path)) {
    maps.clear();
    for (const FolderEntry& entry : platform().files().List(path)) {
      if (!entry.is_folder && HasExtension(entry.name, "bms")) maps.push_back(path + "\\" + entry.name);
    }
  } else if (HasExtension(path, "url")) {
    maps = {GetIniValue(path, "InternetShortcut", "URL", "")};
  } else if (!IsUrl(path) && MapFileKind(path) == map_file_kind::kZip) {
    const FetchTurn turn;
    maps = {MapFromArchive(path)};
  }
  for (const std::string& map : maps) {
    if (!IsUrl(map) && !HasExtension(map, "bms")) continue;
    lstmaps.AddItem(map);
    Edited = true;
  }
}

}  // namespace kestrun
