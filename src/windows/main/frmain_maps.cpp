// The folder, its list of maps in two forms, and the preview of the selected one.
#include <utility>

#include "base/code_page.h"
#include "base/text.h"
#include "formats/profile/profile_file.h"
#include "forms/keys.h"
#include "forms/picture_loading.h"
#include "maps/file_tools.h"
#include "maps/map_picture.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/menu_pictures.h"
#include "program/path_text.h"
#include "program/program_pictures.h"
#include "program/settings.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/run_command.h"
#include "web/fetch_scope.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

constexpr int kZipIcon = 0;  // of ImageList

// For a folder that was chosen and not only begun to be typed.
void TellWhenNotRemembered(const std::string& folder) {
  if (EncodeText(folder).size() <= kProfileValueBytes) return;
  MsgBox(
      "Kestrun works with this folder now but cannot remember it for the next start: its path has more than " +
      std::to_string(kProfileValueBytes) +
      " characters. Move your maps to a folder with a shorter path, or type a shorter path that leads to it, such as "
      "a link or a drive letter." +
      std::string(kCrLf) + folder);
}

}  // namespace

void frmain::ConnectMaps() {
  Text1.Change = [this] { RunCommand([this] { FolderTextChanged(); }); };
  Text1.KeyDown = [this](int& key_code, int) {
    if (key_code != key::kEnter) return;
    key_code = 0;  // the key belongs to the folder: it puts no map in
    RunCommand([this] { TakeTypedFolder(); });
  };
  Timer1.Tick = [this] {
    Timer1.Enabled = false;
    ListBox.Refresh();
  };
  SetCommand({&Command1.Click, &mnu_changefolder.Click}, [this] { BrowseFolder(); });
  SetCommand({&Command6.Click, &mnu_refresh.Click, &mnu_refreshmaplist.Click}, [this] { RefreshList(); });

  ListBox.SelChange = [this] { MirrorSelection(); };
  ListBox.MouseClick = [this] { MirrorSelection(); };
  ListBox.DbClick = [this] {
    MirrorSelection();
    Command2.Click();
  };
  FileMaps.Click = [this] {
    Attempt([this] { ShowPreviewOfSelection(); });
    Attempt([this] { TellHealthOfSelection(); });
  };
  FileMaps.DblClick = [this] { Command2.Click(); };
  FileMaps.PathChange = [this] { Attempt([this] { ShowPreviewOfFolder(); }); };

  ListBox.KeyDown = [this](int& key_code, int) { HandleListKey(key_code); };
  FileMaps.KeyDown = [this](int& key_code, int) { HandleListKey(key_code); };
  // A list with rows raises this event when it has selected the row under the mouse; one without rows raises only the
  // event of all controls.
  ListBox.MouseUp = [this](int button, int, int, int) {
    if (button == mouse::kRight) PopupMenu(mnu_file);
  };
  static_cast<Control&>(ListBox).MouseUp = [this](int button, int, int, int) {
    if (button == mouse::kRight && ListBox.ListCount() == 0) PopupMenu(mnu_file);
  };
  FileMaps.MouseUp = [this](int button, int, int, int) {
    if (button == mouse::kRight) PopupMenu(mnu_file);
  };
  FilesDropped = [this](const std::vector<std::string>& paths) { RunCommand([&] { TakeDropped(paths); }); };
  ImgPreview.MouseUp = [this](int button, int, int, int) {
    if (button == mouse::kRight) PopupMenu(mnu_rightclick);
  };
}

void frmain::FolderTextChanged() {
  if (!keeps_stored_folder_) WriteSetting(setting::kMapFolder, Text1.Text);
  // While a path is being typed most of its beginnings are no folders: the lists keep the last one that was.
  if (!Attempt([this] { FileMaps.SetPath(Text1.Text.get()); })) return;
  FillListBox();
  Timer1.Enabled = true;
}

// One that is not there may be a stored path that was cut to what a setting can be: it is not stored in its place.
void frmain::ShowStoredFolder() {
  const std::string folder = MapFolder();
  if (FileExists(folder)) {
    Text1.Text = folder;
  } else {
    ShowFolderInstead(folder);
  }
}

void frmain::ShowFolderInstead(const std::string& folder) {
  keeps_stored_folder_ = true;
  Text1.Text = folder;
  keeps_stored_folder_ = false;
}

// Whoever has typed the whole path is told when there is no such folder.
void frmain::TakeTypedFolder() {
  FileMaps.SetPath(Text1.Text.get());
  FillListBox();
  ListBox.Refresh();
  TellWhenNotRemembered(Text1.Text);
}

// A dropped folder is listed; anything else goes to the load-map window.
void frmain::TakeDropped(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  const std::string& path = paths.front();
  if (platform().files().IsFolder(path)) {
    Text1.Text = path;
    TellWhenNotRemembered(path);
    return;
  }
  OpenAddress(path);
}

void frmain::BrowseFolder() {
  std::string folder = BrowseForFolder("Select the folder where you want to load maps from.", folder::kMyComputer, "");
  if (folder.empty()) return;
  folder.pop_back();
  Text1.Text = folder;
  TellWhenNotRemembered(folder);
}

// The map that is selected stays selected as long as there is one of its name.
void frmain::RefreshList() {
  const std::string selected = FileMaps.FileName();
  FileMaps.Reload();
  health_.LookAgain();
  FillListBox();
  ListBox.Refresh();
  SelectByName(selected);
}

void frmain::SelectByName(const std::string& name) {
  if (name.empty()) return;
  for (int row = 0; row < FileMaps.ListCount(); ++row) {
    if (FileMaps.List(row) != name) continue;
    FileMaps.ListIndex = row;
    if (ListBox.Visible) ListBox.SetListIndex(row);
    return;
  }
}

Control& frmain::VisibleList() { return ListBox.Visible ? static_cast<Control&>(ListBox) : FileMaps; }

void frmain::FillListBox() {
  ListBox.Clear();
  const int count = FileMaps.ListCount();
  for (int row = 0; row < count; ++row) {
    const std::string name = FileMaps.List(row);
    if (MatchesPattern(name, "*.zip") || MatchesPattern(name, "*.bms")) ListBox.AddItem(name);
  }
}

// Both lists have the same names at the same places. After a map was copied or renamed the painted one is older: a row
// that the other no longer has selects nothing.
void frmain::MirrorSelection() {
  // A click below the rows leaves a list without a selection as it is, and means the current row all the same: the row
  // that commands will work on is to be seen.
  if (ListBox.SelCount() == 0 && ListBox.ListIndex() >= 0) {
    ListBox.SetListIndex(ListBox.ListIndex());  // comes here again
    return;
  }
  Attempt([this] { FileMaps.ListIndex = ListBox.ListIndex(); });
}

void frmain::ShowPreviewOfSelection() {
  const FetchScope fetch(&status_line_);
  ShowPicture(FileMaps.ListIndex < 0 ? Ref<kestrun::Picture>() : LoadMapPicture(SelectedPath()));
}

// A picture may be stored under the folder's path. The name of a selected map follows it in the key, without a
// separator.
void frmain::ShowPreviewOfFolder() {
  const std::string stored = ReadSetting(setting::kPreviewPicture, FileMaps.Path() + FileMaps.FileName());
  ShowPicture(LoadPictureOrNull(stored));
}

void frmain::ShowPicture(const Ref<kestrun::Picture>& picture) {
  if (ImgPreview.Picture.get() == picture) return;
  ImgPreview.Picture = picture;
  PlacePreview();
}

// The first row has the focus before any is selected: these keys then select it instead of passing over it.
void frmain::HandleListKey(int& key_code) {
  switch (key_code) {
    case key::kUp:
    case key::kDown:
    case key::kHome:
    case key::kSpace:
      if (!ListBox.Visible || ListBox.SelCount() > 0 || ListBox.ListCount() == 0) return;
      ListBox.SetListIndex(ListBox.ListIndex());
      break;
    case key::kDelete: mnu_deletemap.Choose(); break;
    case key::kF2: mnu_renamemap.Choose(); break;
    case key::kMenu: PopupMenu(mnu_file); break;
    default: return;
  }
  key_code = 0;
}

// A drawn zip stands in until the window is shown: the shell takes a quarter of the whole start for its icon.
void frmain::LoadIcons() {
  ImageList.AddNewImage(ZipPicture());
  ListBox.SetImageList(Ref<Object>(&ImageList));
}

void frmain::AskForZipIcon() {
  if (std::exchange(is_zip_icon_asked_, true)) return;
  platform().clock().Post([window = Ref<frmain>(this)] {
    if (!window->IsLoaded()) return;
    constexpr int32_t kSmall = 1;
    const Ref<kestrun::Picture> icon = GetIcon("zip", kSmall);
    if (!icon) return;
    window->ImageList.SetListImages(kZipIcon, icon);
    window->ListBox.Refresh();
  });
}

}  // namespace kestrun
