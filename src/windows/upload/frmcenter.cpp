// The uploader's folder, settings and menus. The run stands in frmcenter_run.cpp, the late binding in
// frmcenter_members.cpp.
#include "windows/upload/frmcenter.h"

#include "base/convert.h"
#include "base/text.h"
#include "base/text_file.h"
#include "forms/keys.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/menu_pictures.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/site_file.h"
#include "program/style_hook.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmCenter::kName, [] { return MakeRef<FrmCenter>(); });

constexpr const char* kStyleContext = "applystyle ";
constexpr const char* kNoLocation =
    "Unable to load map center location. Make sure you are connected to the internet and kestrun can access it.";
constexpr const char* kNoAnswer =
    "Connect error: cannot connect to the mapping center. Please wait and try again later.";

}  // namespace

FrmCenter::FrmCenter() : Form(kName) {
  LayOut();
  ConnectControls();
  ConnectList();
}

void FrmCenter::ConnectControls() {
  TxtDir.Change = [this] { TakeFolder(); };
  SetCommand({&CmdBrowse.Click}, [this] { BrowseFolder(); });
  SetCommand({&Command1.Click}, [this] { UploadAll(); });
  CmdCancel.Click = [this] { CancelRun(); };
  SetCommand({&mnu_savelog.Click}, [this] { SaveLog(); });
  SetCommand({&mnu_exit.Click}, [this] { Unload(); });
  SetCommand({&mnu_refresh.Click}, [this] { RefreshList(); });
  SetCommand({&mnu_index.Click}, [] { OpenHelpFile(); });
  SetCommand({&mnu_about.Click}, [] { OpenWindow(window_name::kAbout); });
  FilesDropped = [this](const std::vector<std::string>& paths) { RunCommand([&] { TakeDropped(paths); }); };
  KeyDown = [this](int& key_code, int) {
    if (key_code != key::kEscape || !is_running_) return;
    key_code = 0;
    StopAtOnce();
  };
}

void FrmCenter::ConnectList() {
  FileMaps.ColumnTexts = [this](const std::string& name) -> std::vector<std::string> {
    if (!overview_) return {};
    const MapParts parts = overview_->PartsOf(FileMaps.Path(), name);
    return {parts.zip, parts.picture, parts.comments};
  };
  FileMaps.PathChange = [this] { ShowOverview(); };
  SetCommand({&FileMaps.DblClick}, [this] { LoadSelectedMap(); });
  FileMaps.KeyDown = [this](int& key_code, int shift_state) {
    const bool is_select_all = key_code == 'A' && shift_state == shift::kCtrl;
    if (!is_select_all && key_code != key::kEnter && key_code != key::kF5) return;
    if (is_select_all) SelectAll();
    if (key_code == key::kEnter) FileMaps.DblClick();
    if (key_code == key::kF5) mnu_refresh.Click();
    key_code = 0;
  };
}

// ---- loading and settings ------------------------------------------------------------------------------------------

// The window stands before the site is asked, which shows how far it is in the status line.
void FrmCenter::Load() {
  mnu_about.Enabled = IsWindowRegistered(window_name::kAbout);
  const auto load = [this] {
    Show();
    RunPendingEvents();
    if (IsLoaded()) Connect();
    if (IsLoaded()) LoadSettings();
  };
  RunCommand(load, "Loading Mapping Center");
  if (!IsLoaded()) return;
  if (StyleActive()) ApplyStyle();
  LoadMenuIcons();
}

void FrmCenter::ApplyStyle() { ApplyStyleAtOnce(*this, kStyleContext); }

void FrmCenter::LoadSettings() {
  Chcomments.Value = TextToLong(ReadSetting(setting::kUploadComments));
  ChAutoRename.Value = TextToLong(ReadSetting(setting::kUploadAutoRename));
  ChPassword.Value = TextToLong(ReadSetting(setting::kUploadSavePassword));
  TxtDir.Text = ReadSetting(setting::kUploadFolder);
  TxtUsername.Text = ReadSetting(setting::kUploadUser);
  if (ChPassword.Value == 1) TxtPassword.Text = ReadSetting(setting::kUploadPassword);
  has_settings_ = true;
}

// A window that was closed before it had read the settings has none to write.
void FrmCenter::Unloading() {
  cancels_ = true;
  leaves_post_ = true;
  if (has_settings_) RunCommand([this] { StoreSettings(); }, "Unload");
}

void FrmCenter::StoreSettings() {
  WriteSetting(setting::kUploadComments, std::to_string(Chcomments.Value));
  WriteSetting(setting::kUploadAutoRename, std::to_string(ChAutoRename.Value));
  WriteSetting(setting::kUploadSavePassword, std::to_string(ChPassword.Value));
  WriteSetting(setting::kUploadFolder, TxtDir.Text);
  WriteSetting(setting::kUploadUser, TxtUsername.Text);
  if (ChPassword.Value == 1) WriteSetting(setting::kUploadPassword, TxtPassword.Text);
}

void FrmCenter::LoadMenuIcons() {
  const auto load = [this] {
    mnu_savelog.Picture = DiskPicture();
    mnu_exit.Picture = DoorPicture();
    mnu_refresh.Picture = RefreshPicture();
    mnu_index.Picture = HelpMarkPicture();
    mnu_about.Picture = InfoPicture();
  };
  RunCommand(load, "loading mnu icons ");
}

// ---- the site ------------------------------------------------------------------------------------------------------

void FrmCenter::Connect() {
  const Ref<Form> keep(this);
  std::string failure;
  {
    const FetchScope fetch(&status_line_);
    if (FetchSiteFile() != SiteFetch::kThere) {
      failure = kNoLocation;
    } else {
      service_ = ReadSiteValue(SiteFilePath(), site::kMapCenter);
      if (!AskForGames()) failure = kNoAnswer;
    }
    if (fetch.IsCancelled()) return;
  }
  if (!failure.empty()) MsgBox(failure);
}

// False when the site does not answer.
bool FrmCenter::AskForGames() {
  const Ref<ClsHTTP> http = MakeRef<ClsHTTP>();
  SetGamesParameters(*http);
  const std::string reply = http->DownloadURl(GamesPage(service_), "POST");
  CmbGames.Clear();
  for (const std::string& game : GamesOf(reply)) CmbGames.AddItem(game);
  if (CmbGames.ListCount() > 0) CmbGames.ListIndex = 0;
  return !reply.empty();
}

// ---- the folder and its maps ---------------------------------------------------------------------------------------

// While a path is being typed it is no folder at times: the list keeps the last one that was.
void FrmCenter::TakeFolder() {
  const std::string folder = TxtDir.Text;
  if (platform().files().IsFolder(folder)) {
    RunCommand([&] { FileMaps.SetPath(folder); });
  } else {
    SayNoFolder();
  }
}

void FrmCenter::SayNoFolder() {
  status_line_.Say("There is no folder of this name. The list shows " + FileMaps.Path());
}

void FrmCenter::BrowseFolder() {
  const std::string picked = BrowseForFolder("Select new maps folder.", folder::kMyComputer, "");
  if (!picked.empty()) TxtDir.Text = WithoutLastBackslash(picked);
}

// A folder is listed; of files their folder is, and they are selected.
void FrmCenter::TakeDropped(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  if (platform().files().IsFolder(paths.front())) {
    TxtDir.Text = paths.front();
    return;
  }
  TxtDir.Text = ParentFolder(paths.front());
  for (int row = 0; row < FileMaps.ListCount(); ++row) {
    const bool is_dropped = std::ranges::any_of(
        paths, [&](const std::string& path) { return EqualsNoCase(GetFileName(path, true), FileMaps.List(row)); });
    FileMaps.SetSelected(row, is_dropped);
  }
  ChSelected.Value = 1;
}

void FrmCenter::RefreshList() {
  FileMaps.Reload();
  ShowOverview();
}

void FrmCenter::SelectAll() {
  for (int row = 0; row < FileMaps.ListCount(); ++row) FileMaps.SetSelected(row, true);
}

// Looks anew at what there is beside the maps, and says how many there are.
void FrmCenter::ShowOverview() {
  overview_ = std::make_unique<UploadOverview>();
  const int count = FileMaps.ListCount();
  status_line_.Say(count == 0   ? "There are no zip files in this folder."
                   : count == 1 ? "1 map in this folder."
                                : std::to_string(count) + " maps in this folder.");
}

void FrmCenter::LoadSelectedMap() {
  if (FileMaps.ListIndex >= 0) ShowInMainWindow(FileMaps.Path() + "\\" + FileMaps.FileName());
}

void FrmCenter::SaveLog() {
  SetUpFileDialog(CommonDialog1, "select file", "Text files (*.txt)|*.txt|All files (*.*)|*.*", "txt");
  const std::string path = AskWhereToSave(CommonDialog1, "File already exists overwrite it?");
  if (path.empty()) return;
  platform().files().WriteAllDurably(path, AsBytes(EncodeTextFile(txtLog.Text.get())));
}

}  // namespace kestrun
