// The main window: the maps of one folder with their pictures, the choice of the mission, the commands that put a map
// into the game, and the ways to all other windows.
#pragma once

#include <functional>
#include <future>
#include <string>
#include <vector>

#include "controls/animated_gif/animated_gif.h"
#include "controls/image_list/image_list.h"
#include "controls/list_box/mc_list_box.h"
#include "controls/progress_bar/progress_bar.h"
#include "controls/quick_link/quick_link.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "maps/health/health_watch.h"
#include "maps/health/map_health.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/status_line.h"
#include "web/downloader.h"

namespace kestrun {

class frmain final : public Form {
 public:
  static constexpr const char* kName = window_name::kMain;
  frmain();

  // ---- controls, in tab order ----
  Label& lblfolder = Add<Label>("lblfolder");
  TextBox& Text1 = Add<TextBox>("Text1");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  Label& lblmaps = Add<Label>("lblmaps");
  McListBox& ListBox = Add<McListBox>("ListBox");
  // The one list of the folder's maps: its path, index and names are what the commands use. ListBox shows the same
  // names at the same places; in safe mode this list is shown itself.
  FileListBox& FileMaps = Add<FileListBox>("FileMaps");
  McImageList& ImageList = Add<McImageList>("ImageList");
  CommandButton& Command6 = Add<CommandButton>("Command6");
  Label& lblpreview = Add<Label>("lblpreview");
  Label& lblnopreview = Add<Label>("lblnopreview");
  Image& ImgPreview = Add<Image>("ImgPreview");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& opcapflag = Add<OptionButton>("opcapflag");
  OptionButton& opdeath = Add<OptionButton>("opdeath");
  OptionButton& oprename = Add<OptionButton>("oprename");
  TextBox& txtoutput = Add<TextBox>("txtoutput");
  // How many of the characters that the archive has room for the name takes.
  Label& lblnamelength = Add<Label>("lblnamelength");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommandButton& Command7 = Add<CommandButton>("Command7");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& Command4 = Add<CommandButton>("Command4");
  CommandButton& Command8 = Add<CommandButton>("Command8");
  CommandButton& Command5 = Add<CommandButton>("Command5");
  // The banner, with its link as its address and its format as its tag; the words stand in its place without one.
  Label& lblnews = Add<Label>("lblnews");
  AnimatedGIF& AnimGIF1 = Add<AnimatedGIF>("AnimGIF1");
  PictureBox& Picture2 = Add<PictureBox>("Picture2");
  TextBox& txtstatusbar = Add<TextBox>("txtstatusbar");
  ProgressBar& prgfetch = Add<ProgressBar>("prgfetch");
  // The notice of an update, in the place of the status line until it is closed.
  PictureBox& PctUpdate = Add<PictureBox>("PctUpdate");
  Label& lblupdate = Add<Label>("lblupdate");
  Label& lblCloseUpdate = Add<Label>("lblCloseUpdate");
  QuickLink& QuickLinks = Add<QuickLink>("QuickLinks");
  PictureBox& PctArrow = Add<PictureBox>("PctArrow");
  // Paints ListBox once after its rows have changed.
  Timer& Timer1 = Add<Timer>("Timer1");
  Timer& TmrQuickLinks = Add<Timer>("TmrQuickLinks");
  // Fetches the site file and the banner's picture, once the window stands.
  kestrun::Downloader& Downloader = Add<kestrun::Downloader>("Downloader");
  Timer& TmrBanner = Add<Timer>("TmrBanner");
  // The badges of the maps' health.
  Image& ImgGood = Add<Image>("ImgGood");
  Image& ImgDoubtful = Add<Image>("ImgDoubtful");
  Image& ImgBad = Add<Image>("ImgBad");
  CommonDialog& dlgcopyto = Add<CommonDialog>("dlgcopyto");
  CommonDialog& dlgCommonDialog = Add<CommonDialog>("dlgCommonDialog");

  // ---- menus ----
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_putmapin = Add<MenuItem>("mnu_putmapin");
  MenuItem& mnu_imalreadyplaying = Add<MenuItem>("mnu_imalreadyplaying");
  MenuItem& mnu_line1 = Add<MenuItem>("mnu_line", 1);
  MenuItem& mnu_loadmap = Add<MenuItem>("mnu_loadmap");
  MenuItem& mnu_loadfromURL = Add<MenuItem>("mnu_loadfromURL");
  MenuItem& mnu_loadmapfromhd = Add<MenuItem>("mnu_loadmapfromhd");
  MenuItem& mnu_line2 = Add<MenuItem>("mnu_line", 2);
  MenuItem& mnu_showmapinfo = Add<MenuItem>("mnu_showmapinfo");
  MenuItem& mnu_largepreview = Add<MenuItem>("mnu_largepreview");
  MenuItem& mnu_mapPreview = Add<MenuItem>("mnu_mapPreview");
  MenuItem& mnu_searchpreview1 = Add<MenuItem>("mnu_searchpreview1");
  MenuItem& mnu_line3 = Add<MenuItem>("mnu_line", 3);
  MenuItem& mnu_copymapto = Add<MenuItem>("mnu_copymapto");
  MenuItem& mnu_renamemap = Add<MenuItem>("mnu_renamemap");
  MenuItem& mnu_deletemap = Add<MenuItem>("mnu_deletemap");
  MenuItem& mnu_mapname = Add<MenuItem>("mnu_mapname");
  MenuItem& mnu_line4 = Add<MenuItem>("mnu_line", 4);
  MenuItem& mnu_changefolder = Add<MenuItem>("mnu_changefolder");
  MenuItem& mnu_OpenFolder = Add<MenuItem>("mnu_OpenFolder");
  MenuItem& mnu_refreshmaplist = Add<MenuItem>("mnu_refreshmaplist");
  MenuItem& mnu_line5 = Add<MenuItem>("mnu_line", 5);
  MenuItem& mnu_exit = Add<MenuItem>("mnu_exit");
  MenuItem& mnu_view = Add<MenuItem>("mnu_view");
  MenuItem& mnu_refresh = Add<MenuItem>("mnu_refresh");
  MenuItem& mnu_refreshbanner = Add<MenuItem>("mnu_refreshbanner");
  MenuItem& mnu_openbanner = Add<MenuItem>("mnu_openbanner");
  MenuItem& mnu_line6 = Add<MenuItem>("mnu_line", 6);
  MenuItem& mnu_status = Add<MenuItem>("mnu_status");
  MenuItem& mnu_line7 = Add<MenuItem>("mnu_line", 7);
  MenuItem& mnu_options = Add<MenuItem>("mnu_options");
  MenuItem& mnu_actions = Add<MenuItem>("mnu_actions");
  MenuItem& mnu_launchDFLW = Add<MenuItem>("mnu_launchDFLW");
  MenuItem& mnu_launcheditor = Add<MenuItem>("mnu_launcheditor");
  MenuItem& mnu_restoremissions = Add<MenuItem>("mnu_restoremissions");
  MenuItem& mnu_line8 = Add<MenuItem>("mnu_line", 8);
  MenuItem& mnu_makemaplist = Add<MenuItem>("mnu_makemaplist");
  MenuItem& mnu_launchchat = Add<MenuItem>("mnu_launchchat");
  MenuItem& mnu_nameeditor = Add<MenuItem>("mnu_nameeditor");
  MenuItem& mnu_mapupdater = Add<MenuItem>("mnu_mapupdater");
  MenuItem& mnu_Editor = Add<MenuItem>("mnu_Editor");
  MenuItem& mnu_line9 = Add<MenuItem>("mnu_line", 9);
  MenuItem& mnu_makeroomfor = Add<MenuItem>("mnu_makeroomfor");
  MenuItem& mnu_bmstomis = Add<MenuItem>("mnu_bmstomis");
  MenuItem& mnu_colorpicker = Add<MenuItem>("mnu_colorpicker");
  MenuItem& mnu_line14 = Add<MenuItem>("mnu_line", 14);
  // Element 0 opens the window that edits the list of the user's own programs; program i is element i + 1.
  MenuItem& mnu_launchprogram = Add<MenuItem>("mnu_launchprogram", 0);
  MenuItem& mnu_internet = Add<MenuItem>("mnu_internet");
  MenuItem& mnu_connectinternet = Add<MenuItem>("mnu_connectinternet");
  MenuItem& mnu_line10 = Add<MenuItem>("mnu_line", 10);
  MenuItem& mnu_checkforupdate = Add<MenuItem>("mnu_checkforupdate");
  MenuItem& mnu_checkformaps = Add<MenuItem>("mnu_checkformaps");
  MenuItem& mnu_upload = Add<MenuItem>("mnu_upload");
  MenuItem& mnu_line11 = Add<MenuItem>("mnu_line", 11);
  MenuItem& dflwdemolobby = Add<MenuItem>("dflwdemolobby");
  MenuItem& dflwfullversionlobby = Add<MenuItem>("dflwfullversionlobby");
  MenuItem& mnu_help = Add<MenuItem>("mnu_help");
  MenuItem& mnu_helpindex = Add<MenuItem>("mnu_helpindex");
  MenuItem& mnu_helpdoc = Add<MenuItem>("mnu_helpdoc");
  MenuItem& mnu_line12 = Add<MenuItem>("mnu_line", 12);
  MenuItem& mnu_showtips = Add<MenuItem>("mnu_showtips");
  MenuItem& mnu_line13 = Add<MenuItem>("mnu_line", 13);
  MenuItem& mnu_helpAbout = Add<MenuItem>("mnu_helpAbout");
  // Pops up over the preview.
  MenuItem& mnu_rightclick = Add<MenuItem>("mnu_rightclick");
  MenuItem& mnu_largepreview2 = Add<MenuItem>("mnu_largepreview2");
  MenuItem& mnu_loadpreview = Add<MenuItem>("mnu_loadpreview");
  MenuItem& mnu_searchpreview = Add<MenuItem>("mnu_searchpreview");

  // ---- public operations ----
  // Puts the files that the game's map editor needs into a folder, each after a question when it is missing. False
  // after a failure, which is shown; a file that the user does not want is none.
  bool ExtractEditorFiles(const std::string& Folder);
  // Opens the window that updates the program.
  void mnu_checkforupdate_Click();
  // Lets an arrow flash above a control for five and a half seconds. The window stays usable.
  void SetFlashingArrow(Control& Target);
  // Show a new player where to click.
  void PlayPack1();
  void PlayPack2();
  void PlayDownload();
  void PlayAutoHost();
  // Gives the menu items their pictures.
  void LoadMenuIcons();
  // Fetches the next banner as the settings file at the address says; `force` passes over what the system has kept of
  // an earlier visit. Nothing happens while no banner service is installed.
  void GetNewBanner(const std::string& Url, bool force = false);
  // What the program's own banner service does: begins to fetch the site file, offers to switch the banner on again,
  // tells how many maps are new.
  void FetchBanner(const std::string& url, bool force);
  void RefreshBanner();
  void CheckForMaps();
  // Makes the window higher by the banner's place above the status line, or lower again.
  void ShowBannerPlace(bool shown);
  // Adds the user's own programs to the actions menu.
  void Load_Programs();
  // Shows the window and cuts each control to what it shows beside TransColor. For styles alone.
  void InitTransControls();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Shown() override;
  void Unloading() override;

 private:
  void LoadSafely();

  // The banner.
  void LoadBanner();
  void BeginDueBanner();
  void ConnectBanner();
  void TakeBannerFile();
  void BeginBanner(const std::string& url, const std::string& format, const std::string& link);
  void TakeBanner(const std::string& path);
  void OpenBanner();
  void ShowUpdateNotice();
  void LayOutBanner();
  void PlaceBanner();

  // Layout.
  void LayOut();
  void LayOutFolderAndList();
  void LayOutChoices();
  void LayOutStatusLine();
  void NoteLeastSize();
  void Arrange();
  void PlaceFolderAndList();
  void PlaceChoices();
  void PlacePreview();
  void PlaceStatusLine();
  // How much larger the window is than it is laid out for; the height may be less, within limits.
  [[nodiscard]] int SpareWidth() const;
  [[nodiscard]] int SpareHeight() const;

  // Menus.
  void BuildMenus();
  void BuildFileMenu();
  void BuildOtherMenus();
  // What leads to a window that is not there yet is disabled.
  void EnableWhatIsThere();
  void EnableNews();
  struct Opening;
  std::vector<Opening> Openings();
  void AddWindowCommands();

  // Maps.
  void ConnectMaps();
  void FolderTextChanged();
  void ShowStoredFolder();
  // Shows a folder in the place of the stored one, which stays stored: it may be there again at the next start.
  void ShowFolderInstead(const std::string& folder);
  void TakeTypedFolder();
  void BrowseFolder();
  void RefreshList();
  void TakeDropped(const std::vector<std::string>& paths);
  void FillListBox();
  void MirrorSelection();
  void ShowPreviewOfSelection();
  void ShowPreviewOfFolder();
  void ShowPicture(const Ref<kestrun::Picture>& picture);
  void HandleListKey(int& key_code);
  void LoadIcons();
  void AskForZipIcon();
  // The list that is seen: the painted one, in safe mode the plain one.
  [[nodiscard]] Control& VisibleList();
  void SelectByName(const std::string& name);

  // Health of the maps.
  void ConnectHealth();
  [[nodiscard]] MapUse UseOfMaps() const;
  // Not known at first: it is read in the background, and the list is painted anew then.
  [[nodiscard]] MapHealth HealthOf(const std::string& name);
  void TellHealthOfSelection();

  // Commands.
  void ConnectCommands();
  void PutSelectedMap(int32_t mode);
  // Folder and name of the selected map; empty, after the request to select one, when none is.
  [[nodiscard]] std::string SelectedMap();
  // The same without a question; meaningless while none is selected.
  [[nodiscard]] std::string SelectedPath() const;
  void LaunchEditor();
  static void StartTool(const std::string& program, const std::string& missing);
  void ShowMapInfo();
  void HandMapToPreviewManager(PreviewTask task);
  void LaunchProgram(int number);
  void AddProgram(int number, const std::string& name, const std::string& path);

  // Status line and guide.
  void ConnectStatusLine();
  void ShowStatusLine(bool visible);
  void ConnectGuide();
  void LoadQuickLinks();
  // Adds the links when they are not there yet, and lets the panel slide in.
  void OpenQuickLinks();
  void FollowLink(const std::string& key);
  void SlideIn();
  void CloseQuickLinks();
  void MarkStartup(bool stays_closed);

  StatusLine status_line_{Picture2, txtstatusbar, prgfetch};
  HealthWatch health_{[this] { ListBox.Refresh(); }};
  std::vector<std::string> program_paths_;
  bool stays_closed_at_startup_ = false;
  std::future<bool> is_online_;  // asked early, for a banner that is wanted
  bool has_banner_place_ = false;
  bool is_banner_due_ = false;    // to be fetched once the window is shown
  bool has_tried_again_ = false;  // to fetch the banner's picture
  bool is_sliding_ = false;
  bool is_zip_icon_asked_ = false;
  bool keeps_stored_folder_ = false;
};

// Who fetches the banner and the news of the site: the program's own service until another is installed. The window
// leaves no room for a banner while nobody does.
struct BannerService {
  std::function<void(frmain& window, const std::string& url, bool force)> get_new_banner;
  std::function<void(frmain& window)> refresh_banner;
  std::function<void(frmain& window)> check_for_maps;
};
void InstallBannerService(BannerService service);
// The program's own.
[[nodiscard]] BannerService SiteBannerService();

}  // namespace kestrun
