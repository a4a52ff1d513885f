// The menus of the auto host window: captions, access keys and pictures.
#include <initializer_list>

#include "program/menu_pictures.h"
#include "program/program_pictures.h"
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/run_command.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {

// An image of the window keeps the picture of a menu item, so that a style can put another in.
struct frmputlist::MenuPicture {
  Image& kept;
  MenuItem& item;
  Ref<kestrun::Picture> (*draw)();
};

void frmputlist::BuildMenus() {
  FillMenu(mnu_file, "&File",
           {{mnu_loadlist, "&Load Map List"},
            {mnu_savelist, "&Save Map List"},
            {mnu_saveas, "Save Map List &As"},
            {mnu_line1, kMenuLine},
            {mnu_addmap, "&Add map"},
            {mnu_line2, kMenuLine},
            {mnu_back, "&Load Kestrun"},
            {mnu_close, "&Close"}});
  FillMenu(mnu_list, "&List",
           {{mnu_refreshlist, "&Refresh list"},
            {mnu_clearlist, "&Clear list"},
            {mnu_MixMaps, "&Mix maps"},
            {mnu_line3, kMenuLine},
            {mnu_SearchMap, "&Search map"},
            {mnu_replacestring, "&Replace string"},
            {mnu_line4, kMenuLine},
            {mnu_selectallmaps, "S&elect all maps"},
            {mnu_deselectmaps, "&Deselect all maps"},
            {mnu_selectallfiles, "Se&lect all files"},
            {mnu_deselectfiles, "D&eselect all files"}});
  FillMenu(mnu_actions, "A&ctions", {{mnu_checklist, "&Check the list"}, {mnu_rehearse, "Re&hearse ..."}});
  FillMenu(mnu_tools, "&Tools", {{mnu_addgametype, "Add new gametype"}, {mnu_changeDFversion, "&Change DF version"}});
  FillMenu(mnu_addins, "A&dd-Ins", {{mnu_addin, "Add-&In Manager"}});
  FillMenu(mnu_help, "&Help", {{mnu_quickhelp, "&Index"}, {mnu_helpAbout, "&About"}});
  for (const MenuPicture& picture : MenuPictures()) picture.kept.Visible = false;
  mnu_loadlist.Shortcut = "Ctrl+O";
  mnu_savelist.Shortcut = "Ctrl+S";
  mnu_SearchMap.Shortcut = "Ctrl+F";
  mnu_replacestring.Shortcut = "Ctrl+H";
  mnu_refreshlist.Shortcut = "F5";
  mnu_selectallmaps.KeyHint = "Ctrl+A";
}

// ---- pictures ------------------------------------------------------------------------------------------------------

std::vector<frmputlist::MenuPicture> frmputlist::MenuPictures() {
  return {{ImgOpen, mnu_loadlist, &FolderPicture},
          {ImgSave, mnu_savelist, &DiskPicture},
          {ImgMap, mnu_addmap, &MapPicture},
          {ImgClose, mnu_close, &DoorPicture},
          {ImgRefresh, mnu_refreshlist, &RefreshPicture},
          {ImgDel, mnu_clearlist, &CrossPicture},
          {ImgSearch, mnu_SearchMap, &SearchPicture},
          {ImgReplace, mnu_replacestring, &ReplacePicture},
          {ImgHelp, mnu_quickhelp, &HelpMarkPicture}};
}

void frmputlist::LoadMenuIcons() {
  RunCommand([this] {
    for (const MenuPicture& picture : MenuPictures()) {
      if (!picture.kept.Picture.get()) picture.kept.Picture = picture.draw();
      picture.item.Picture = picture.kept.Picture;
    }
  });
}

}  // namespace kestrun
