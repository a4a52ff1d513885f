// The menus of the auto host window: captions, access keys and pictures.
#include <initializer_list>

#include "program/menu_pictures.h"
#include "program/program_pictures.h"
#include "program/window_kit/run_command.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

struct MenuRow {
  MenuItem& item;
  const char* caption;
};
constexpr const char* kLine = "-";

// Items stand in a menu in the order in which the window declares them.
void Fill(MenuItem& menu, const char* caption, std::initializer_list<MenuRow> rows) {
  menu.Caption = caption;
  for (const MenuRow& row : rows) {
    row.item.Caption = row.caption;
    row.item.SetParent(menu);
  }
}

}  // namespace

void frmputlist::BuildMenus() {
  Fill(mnu_file, "&File",
       {{mnu_loadlist, "&Load Map List"},
        {mnu_savelist, "&Save Map List"},
        {mnu_saveas, "Save Map List &As"},
        {mnu_line1, kLine},
        {mnu_addmap, "&Add map"},
        {mnu_line2, kLine},
        {mnu_back, "&Load Kestrun"},
        {mnu_close, "&Close"}});
  Fill(mnu_list, "&List",
       {{mnu_refreshlist, "&Refresh list"},
        {mnu_clearlist, "&Clear list"},
        {mnu_MixMaps, "&Mix maps"},
        {mnu_line3, kLine},
        {mnu_SearchMap, "&Search map"},
        {mnu_replacestring, "&Replace string"},
        {mnu_line4, kLine},
        {mnu_selectallmaps, "S&elect all maps"},
        {mnu_deselectmaps, "&Deselect all maps"},
        {mnu_selectallfiles, "Se&lect all files"},
        {mnu_deselectfiles, "D&eselect all files"}});
  Fill(mnu_tools, "&Tools", {{mnu_addgametype, "Add new gametype"}, {mnu_changeDFversion, "&Change DF version"}});
  Fill(mnu_addins, "A&dd-Ins", {{mnu_addin, "Add-&In Manager"}});
  Fill(mnu_help, "&Help", {{mnu_quickhelp, "&Index"}, {mnu_helpAbout, "&About"}});
  mnu_loadlist.Shortcut = "Ctrl+O";
  mnu_savelist.Shortcut = "Ctrl+S";
  mnu_SearchMap.Shortcut = "Ctrl+F";
  mnu_replacestring.Shortcut = "Ctrl+H";
  mnu_refreshlist.Shortcut = "F5";
  mnu_selectallmaps.KeyHint = "Ctrl+A";
}

void frmputlist::LoadMenuIcons() {
  struct Use {
    Image& kept;
    Ref<kestrun::Picture> (*draw)();
    std::initializer_list<MenuItem*> items;
  };
  RunCommand([this] {
    for (const Use& use :
         {Use{ImgOpen, &FolderPicture, {&mnu_loadlist}}, Use{ImgSave, &DiskPicture, {&mnu_savelist}},
          Use{ImgMap, &MapPicture, {&mnu_addmap}}, Use{ImgClose, &DoorPicture, {&mnu_close}},
          Use{ImgRefresh, &RefreshPicture, {&mnu_refreshlist}}, Use{ImgDel, &CrossPicture, {&mnu_clearlist}},
          Use{ImgSearch, &SearchPicture, {&mnu_SearchMap}}, Use{ImgReplace, &ReplacePicture, {&mnu_replacestring}},
          Use{ImgHelp, &HelpMarkPicture, {&mnu_quickhelp}}}) {
      if (!use.kept.Picture.get()) use.kept.Picture = use.draw();
      for (MenuItem* item : use.items) item->Picture = use.kept.Picture;
    }
  });
}

}  // namespace kestrun
