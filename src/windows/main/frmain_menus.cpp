// The menus of the main window: captions and access keys, and the items that do nothing but open a window.
#include <initializer_list>

#include "program/menu_pictures.h"
#include "program/window_kit/fill_menu.h"
#include "program/window_kit/run_command.h"
#include "windows/main/frmain.h"

namespace kestrun {
void frmain::BuildMenus() {
  BuildFileMenu();
  BuildOtherMenus();
  mnu_refresh.Shortcut = "F5";
  mnu_refreshmaplist.KeyHint = "F5";
  mnu_putmapin.KeyHint = "Enter";
  mnu_renamemap.KeyHint = "F2";
  mnu_deletemap.KeyHint = "Del";
}

void frmain::BuildFileMenu() {
  FillMenu(mnu_file, "&File",
           {{mnu_putmapin, "Put &map in DFLW"},
            {mnu_imalreadyplaying, "I'm already &playing"},
            {mnu_line1, kMenuLine},
            {mnu_loadmap, "&Load map from"},
            {mnu_line2, kMenuLine},
            {mnu_showmapinfo, "Show map &info"},
            {mnu_largepreview, "&Large map preview"},
            {mnu_mapPreview, "&Load map preview"},
            {mnu_searchpreview1, "&Search map preview"},
            {mnu_line3, kMenuLine},
            {mnu_copymapto, "C&opy map to ..."},
            {mnu_renamemap, "&Rename map"},
            {mnu_deletemap, "&Delete selected map"},
            {mnu_mapname, "Copy map &name"},
            {mnu_line4, kMenuLine},
            {mnu_changefolder, "&Change folder"},
            {mnu_OpenFolder, "&Open folder"},
            {mnu_refreshmaplist, "&Refresh list"},
            {mnu_line5, kMenuLine},
            {mnu_exit, "&Exit"}});
  FillMenu(mnu_loadmap, "&Load map from", {{mnu_loadfromURL, "&URL"}, {mnu_loadmapfromhd, "&File on hard disk"}});
  FillMenu(mnu_rightclick, "Preview",
           {{mnu_largepreview2, "&Large preview"},
            {mnu_loadpreview, "L&oad preview"},
            {mnu_searchpreview, "&Search preview"}});
  mnu_rightclick.Visible = false;
}

void frmain::BuildOtherMenus() {
  FillMenu(mnu_view, "&View",
           {{mnu_refresh, "&Refresh list"},
            {mnu_refreshbanner, "R&efresh banner"},
            {mnu_openbanner, "Open the news &page"},
            {mnu_line6, kMenuLine},
            {mnu_status, "&Status bar"},
            {mnu_line7, kMenuLine},
            {mnu_options, "&Options"}});
  FillMenu(mnu_actions, "A&ctions",
           {{mnu_launchDFLW, "&Launch DFLW"},
            {mnu_launcheditor, "Launch &Editor"},
            {mnu_restoremissions, "Restore &stock missions ..."},
            {mnu_line8, kMenuLine},
            {mnu_makemaplist, "&Make maplist (auto host)"},
            {mnu_launchchat, "&Auto Messenger"},
            {mnu_nameeditor, "Launch &name editor"},
            {mnu_mapupdater, "&Map updater"},
            {mnu_Editor, "&Skin creator"},
            {mnu_line9, kMenuLine},
            {mnu_makeroomfor, "Make &room for more players"},
            {mnu_bmstomis, "Launch &BMS => MIS "},
            {mnu_colorpicker, "Launch &color picker"},
            {mnu_line14, kMenuLine},
            {mnu_launchprogram, "Add &your program"}});
  FillMenu(mnu_internet, "&Internet",
           {{mnu_connectinternet, "Connect to &internet"},
            {mnu_line10, kMenuLine},
            {mnu_checkforupdate, "Check for &update"},
            {mnu_checkformaps, "Check for &new maps"},
            {mnu_upload, "&Upload maps"},
            {mnu_line11, kMenuLine},
            {dflwdemolobby, "DFLW Demo lobby"},
            {dflwfullversionlobby, "DFLW Full version lobby"}});
  FillMenu(mnu_help, "&Help",
           {{mnu_helpindex, "Index"},
            {mnu_helpdoc, "&Online help document"},
            {mnu_line12, kMenuLine},
            {mnu_showtips, "&Tips"},
            {mnu_line13, kMenuLine},
            {mnu_helpAbout, "&About"}});
}

// ---- what opens another window -------------------------------------------------------------------------------------

struct frmain::Opening {
  const char* window;
  std::vector<Control*> controls;
  std::function<void()> open;
};

// Each window with what leads to it, and how it is opened.
std::vector<frmain::Opening> frmain::Openings() {
  const auto show = [](const char* window) { return [window] { OpenWindow(window); }; };
  const auto show_modal = [](const char* window) { return [window] { OpenWindow(window, ShowWay::kShowModal); }; };
  namespace name = window_name;
  return {
      {name::kOptions, {&Command5, &mnu_options}, show_modal(name::kOptions)},
      {name::kPrograms, {&mnu_launchprogram}, show_modal(name::kPrograms)},
      {name::kMessenger, {&Command8, &mnu_launchchat}, show(name::kMessenger)},
      {name::kNameEditor, {&mnu_nameeditor}, show(name::kNameEditor)},
      {name::kMapList, {&mnu_makemaplist}, show(name::kMapList)},
      {name::kRestore, {&mnu_restoremissions}, show(name::kRestore)},
      {name::kOpenMap, {&mnu_loadfromURL, &mnu_loadmapfromhd}, show(name::kOpenMap)},
      {name::kUpdate, {&mnu_checkforupdate, &lblupdate}, show(name::kUpdate)},
      {name::kUploader, {&mnu_upload}, show(name::kUploader)},
      {name::kMapUpdater, {&mnu_mapupdater}, show(name::kMapUpdater)},
      {name::kStyleEditor, {&mnu_Editor}, show(name::kStyleEditor)},
      {name::kHelpDownload, {&mnu_helpdoc}, show(name::kHelpDownload)},
      {name::kAbout, {&mnu_helpAbout}, show(name::kAbout)},
      {name::kMapInfo, {&mnu_showmapinfo}, [this] { ShowMapInfo(); }},
      {name::kPreviewManager,
       {&mnu_mapPreview, &mnu_loadpreview},
       [this] { HandMapToPreviewManager(PreviewTask::kChoose); }},
      {name::kPreviewManager,
       {&mnu_searchpreview1, &mnu_searchpreview},
       [this] { HandMapToPreviewManager(PreviewTask::kSearch); }},
      {name::kLargePreview, {&mnu_largepreview, &mnu_largepreview2}, [this] { ShowLargePicture(ImgPreview.Picture); }},
  };
}

void frmain::AddWindowCommands() {
  for (const Opening& opening : Openings()) {
    for (Control* control : opening.controls) SetCommand({&control->Click}, opening.open);
  }
}

void frmain::EnableWhatIsThere() {
  for (const Opening& opening : Openings()) {
    for (Control* control : opening.controls) control->Enabled = IsWindowRegistered(opening.window);
  }
  mnu_loadmap.Enabled = IsWindowRegistered(window_name::kOpenMap);
  EnableNews();
  // These two stand in the menu without a command.
  mnu_connectinternet.Enabled = false;
  mnu_makeroomfor.Enabled = false;
}

// ---- pictures ------------------------------------------------------------------------------------------------------

// Items with the same picture share it: each is drawn once.
void frmain::LoadMenuIcons() {
  struct Use {
    Ref<kestrun::Picture> (*draw)();
    std::initializer_list<MenuItem*> items;
  };
  const auto load = [this] {
    for (const Use& use :
         {Use{&PutInPicture, {&mnu_putmapin}}, Use{&SwapPicture, {&mnu_imalreadyplaying}},
          Use{&InfoPicture, {&mnu_showmapinfo}}, Use{&PreviewPicture, {&mnu_mapPreview, &mnu_loadpreview}},
          Use{&SearchPicture, {&mnu_searchpreview1, &mnu_searchpreview}}, Use{&CopyPicture, {&mnu_copymapto}},
          Use{&PencilPicture, {&mnu_renamemap, &mnu_launcheditor}}, Use{&CrossPicture, {&mnu_deletemap}},
          Use{&FolderPicture, {&mnu_changefolder, &mnu_loadmapfromhd}},
          Use{&RefreshPicture, {&mnu_refreshmaplist, &mnu_refresh}}, Use{&OptionsPicture, {&mnu_options}},
          Use{&PlayPicture, {&mnu_launchDFLW}}, Use{&ListPicture, {&mnu_makemaplist}},
          Use{&SpeechPicture, {&mnu_launchchat}}, Use{&DownPicture, {&mnu_checkforupdate}},
          Use{&UpPicture, {&mnu_upload}}, Use{&GlobePicture, {&dflwdemolobby, &dflwfullversionlobby, &mnu_loadfromURL}},
          Use{&HelpMarkPicture, {&mnu_helpindex}}}) {
      const Ref<kestrun::Picture> picture = use.draw();
      for (MenuItem* item : use.items) item->Picture = picture;
    }
  };
  RunCommand(load, "loading mnu icons ");
}

}  // namespace kestrun
