// The commands of the play list.
#include "base/number.h"
#include "base/text.h"
#include "forms/keys.h"
#include "game/lists/list_texts.h"
#include "maps/file_tools.h"
#include "maps/map_picture.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/style_hook.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"
#include "web/web_paths.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

constexpr int kA = 'A';

// What was searched for last, for the life of the program.
struct LastSearch {
  std::string text;
  int position = 0;  // behind the row that was found; 0 when none was
};
LastSearch& last_search() {
  static LastSearch search;
  return search;
}

}  // namespace

void frmputlist::ConnectLists() {
  lstmaps.Click = [this] { Attempt([this] { ShowRowOfList(); }); };
  lstmaps.DblClick = [this] { RunCommand([this] { Command7_Click(); }); };
  lstmaps.KeyDown = [this](int& key_code, int shift_state) { HandleListKey(key_code, shift_state); };
  FileMaps.Click = [this] { FileMaps.ToolTipText = FileMaps.FileName(); };
  FileMaps.DblClick = [this] { cmdadd.Press(); };
  FileMaps.KeyDown = [this](int& key_code, int shift_state) {
    const bool is_select_all = key_code == kA && shift_state == shift::kCtrl;
    if (!is_select_all && key_code != key::kEnter) return;
    key_code = 0;
    if (is_select_all) {
      SelectFiles(true);
    } else {
      cmdadd.Press();
    }
  };
  lstmaps.MouseUp = [this](int button, int, int, int) {
    if (button == mouse::kRight) PopupMenu(mnu_list);
  };
  FileMaps.PathChange = [this] { ShowFileCount(); };
  txtfolder.Change = [this] { RunCommand([this] { FolderChanged(); }); };
  FilesDropped = [this](const std::vector<std::string>& paths) { RunCommand([&] { TakeDropped(paths); }); };
  SetCommand({&Command1.Click}, [this] { BrowseFolder(); });
  SetCommand({&cmdadd.Click}, [this] { AddFiles(true); });
  SetCommand({&cmdaddall.Click}, [this] { AddFiles(false); });
  SetCommand({&Command6.Click}, [this] { AddUrl(); });
  SetCommand({&cmdremove.Click}, [this] { Cmdremove_Click(); });
  SetCommand({&cmdremoveall.Click}, [this] { Cmdremoveall_Click(); });
  SetCommand({&cmdup.Click}, [this] { cmdup_Click(); });
  SetCommand({&cmddown.Click}, [this] { Cmddown_Click(); });
  SetCommand({&Command7.Click}, [this] { Command7_Click(); });
  ImgPreview.Click = [this] { RunCommand([this] { OpenPreview(); }, "ImgPreview "); };
}

void frmputlist::ConnectListMenus() {
  SetCommand({&mnu_refreshlist.Click}, [this] { mnu_refreshlist_Click(); });
  SetCommand({&mnu_clearlist.Click}, [this] { ClearList(); });
  SetCommand({&mnu_MixMaps.Click}, [this] { AskToMix(); });
  SetCommand({&mnu_SearchMap.Click}, [this] { SearchMap(); });
  SetCommand({&mnu_replacestring.Click}, [this] { ReplaceString(); });
  SetCommand({&mnu_selectallmaps.Click}, [this] { SelectMaps(true); });
  SetCommand({&mnu_deselectmaps.Click}, [this] { SelectMaps(false); });
  SetCommand({&mnu_selectallfiles.Click}, [this] { SelectFiles(true); });
  SetCommand({&mnu_deselectfiles.Click}, [this] { SelectFiles(false); });
  mnu_loadlist.Click = [this] { mnu_loadlist_Click(); };
  mnu_savelist.Click = [this] { Attempt([this] { SaveList(); }); };
  mnu_saveas.Click = [this] {
    list_file_.clear();
    Attempt([this] { SaveList(); });
  };
  mnu_addmap.Click = [this] { Attempt([this] { AddMapFile(); }); };
}

// ---- what the lists show -------------------------------------------------------------------------------------------

void frmputlist::ShowRowOfList() {
  const int row = lstmaps.ListIndex;
  if (row < 0) return;
  const std::string text = lstmaps.List(row);
  lblinserts.Caption = std::to_string(lstmaps.ItemData(row));
  lstmaps.ToolTipText = text;
  lblpath.Caption = text;
  lblpath.ToolTipText = text;
  TellHealthOfRow();
  ShowPreview(LoadMapPicture(text));
}

void frmputlist::ShowPreview(const Ref<kestrun::Picture>& picture) {
  ImgPreview.Picture = picture;
  if (!StyleActive()) PlacePreview();
}

void frmputlist::OpenPreview() {
  if (ImgPreview.Picture.get()) {
    ShowLargePicture(ImgPreview.Picture);
  } else if (lstmaps.ListIndex >= 0) {
    OpenPreviewManager(lstmaps.Text());
  }
}

void frmputlist::ShowListCount() { lbllistmaps.Caption = std::to_string(lstmaps.ListCount()); }

void frmputlist::ShowFileCount() { lblfilemaps.Caption = std::to_string(FileMaps.ListCount()); }

void frmputlist::FitPlayList() { FitListWidth(*this, lstmaps); }

void frmputlist::HandleListKey(int& key_code, int shift_state) {
  const bool is_ctrl = shift_state == shift::kCtrl;
  switch (key_code) {
    case key::kDelete: cmdremove.Press(); break;
    case key::kEnter: Command7.Press(); break;
    case key::kMenu: PopupMenu(mnu_list); break;
    case key::kUp:
      if (!is_ctrl) return;
      cmdup.Press();
      break;
    case key::kDown:
      if (!is_ctrl) return;
      cmddown.Press();
      break;
    case kA:
      if (!is_ctrl) return;
      SelectMaps(true);
      break;
    default: return;
  }
  key_code = 0;
}

// ---- adding and removing -------------------------------------------------------------------------------------------

void frmputlist::AddFiles(bool only_selected) {
  const int count = FileMaps.ListCount();
  for (int row = 0; row < count; ++row) {
    if (!only_selected || FileMaps.Selected(row)) lstmaps.AddItem(FileMaps.Path() + "\\" + FileMaps.List(row));
  }
  ShowListCount();
  if (count > 0) Edited = true;
  FitPlayList();
  ShowGlance();
}

void frmputlist::AddUrl() {
  const auto url = platform().dialogs().AskText("Please enter a URL. Use Ctrl + V to paste from clipboard.", "", "");
  if (!url) return;
  if (IsUrl(*url)) {
    lstmaps.AddItem(*url);
    ShowListCount();
  } else {
    MsgBox("Cannot add! Is not a URL!");
  }
  Edited = true;
  FitPlayList();
  ShowGlance();
}

void frmputlist::Cmdremove_Click() {
  if (AskYesNo("Are you sure you want to remove the selected map(s) from the list? (not from your hard disk)",
               BoxIcon::kQuestion)) {
    RemoveSelected();
    ShowListCount();
  }
  Edited = true;
  ShowGlance();
}

void frmputlist::RemoveSelected() {
  for (int row = lstmaps.ListCount() - 1; row >= 0; --row) {
    if (lstmaps.Selected(row)) lstmaps.RemoveItem(row);
  }
}

void frmputlist::Cmdremoveall_Click() {
  if (AskYesNo("Are you sure you want to remove all the maps from the list? (not from HD)", BoxIcon::kQuestion)) {
    lstmaps.Clear();
    ShowListCount();
  }
  Edited = true;
  ShowGlance();
}

void frmputlist::ClearList() {
  if (AskYesNo("Are you sure you want to clear the map list?")) lstmaps.Clear();
  ShowGlance();
}

void frmputlist::mnu_refreshlist_Click() {
  FileMaps.Reload();
  health_.LookAgain();
  lstmaps.Refresh();
  ShowFileCount();
  FitPlayList();
  ShowGlance();
}

// ---- order ---------------------------------------------------------------------------------------------------------

// The texts change places, and with them the mark of what plays; the numbers of inserts stay.
void frmputlist::SwapRows(int one, int other) {
  const int marked = lstmaps.MarkedRow();
  const std::string text = lstmaps.List(one);
  lstmaps.SetList(one, lstmaps.List(other));
  lstmaps.SetList(other, text);
  if (marked == one) {
    lstmaps.MarkRow(other);
  } else if (marked == other) {
    lstmaps.MarkRow(one);
  }
}

void frmputlist::cmdup_Click() { MoveSelected(-1); }

void frmputlist::Cmddown_Click() { MoveSelected(1); }

// Each selected row changes places with its neighbour, beginning at the end that the rows move to. Nothing moves while
// the current row stands there already.
void frmputlist::MoveSelected(int step) {
  const int current = lstmaps.ListIndex;
  if (current < 0) {
    MsgBox("Select map!");
    return;
  }
  const int count = lstmaps.ListCount();
  const int end = step < 0 ? 0 : count - 1;
  if (current == end) return;
  for (int row = end - step; row >= 0 && row < count; row -= step) {
    if (!lstmaps.Selected(row)) continue;
    SwapRows(row, row + step);
    lstmaps.SetSelected(row, false);
    lstmaps.SetSelected(row + step, true);
  }
  Edited = true;
  ShowGlance();
}

void frmputlist::AskToMix() {
  if (AskYesNo("This will put all maps in random order do you want to continue?")) MixTheMaps();
}

void frmputlist::MixTheMaps() {
  const auto mix = [this] {
    const int last = lstmaps.ListCount() - 1;
    if (last < 0) return;
    for (int row = 0; row <= last; ++row) SwapRows(RoundToInt(RandomDraw() * last), row);
    Edited = true;
  };
  RunCommand(mix, "Mixing the maps");
  ShowGlance();
}

// ---- search, replace, select ---------------------------------------------------------------------------------------

void frmputlist::SearchMap() {
  LastSearch& search = last_search();
  if (search.position != 0 && !AskYesNo("Search next?")) search.position = 0;
  if (search.position == 0) {
    const auto wanted =
        platform().dialogs().AskText("Please enter a map name you want to search for.", "", search.text);
    if (!wanted) return;
    search.text = *wanted;
  }
  for (int row = search.position; row < lstmaps.ListCount(); ++row) {
    if (!ContainsNoCase(lstmaps.List(row), search.text)) continue;
    MsgBox("Found map.");
    search.position = row + 1;
    SelectMaps(false);
    lstmaps.ListIndex = row;
    lstmaps.SetSelected(row, true);
    return;
  }
  search.position = 0;
  MsgBox("No maps found");
}

void frmputlist::ReplaceString() {
  Dialogs& dialogs = platform().dialogs();
  const auto wanted = dialogs.AskText("Enter the text you want to replace in the selected map(s).", "", "");
  if (!wanted) return;
  const auto replacement = dialogs.AskText("Enter the new text", "", "");
  if (!replacement) return;
  for (int row = 0; row < lstmaps.ListCount(); ++row) {
    if (!lstmaps.Selected(row)) continue;
    const std::string text = ReplaceAllNoCase(lstmaps.List(row), *wanted, *replacement);
    lstmaps.RemoveItem(row);
    lstmaps.AddItem(text, row);
  }
  MsgBox("Done.");
  Edited = true;
  ShowGlance();
}

void frmputlist::SelectMaps(bool selected) {
  for (int row = 0; row < lstmaps.ListCount(); ++row) lstmaps.SetSelected(row, selected);
}

void frmputlist::SelectFiles(bool selected) {
  for (int row = 0; row < FileMaps.ListCount(); ++row) FileMaps.SetSelected(row, selected);
}

void frmputlist::Command7_Click() {
  if (lstmaps.ListIndex < 0) {
    MsgBox("Please select a map!");
    return;
  }
  OpenMapInfo(lstmaps.Text());
}

}  // namespace kestrun
