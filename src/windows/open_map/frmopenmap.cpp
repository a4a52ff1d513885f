#include "windows/open_map/frmopenmap.h"

#include <algorithm>

#include "base/convert.h"
#include "base/text.h"
#include "forms/keys.h"
#include "forms/member_rows.h"
#include "maps/fetch/fetch_map.h"
#include "maps/fetch/fetch_turn.h"
#include "maps/map_picture.h"
#include "maps/put/put_map.h"
#include "platform/platform.h"
#include "program/ask.h"
#include "program/game_paths.h"
#include "program/open_window.h"
#include "program/path_text.h"
#include "program/run_command.h"
#include "program/settings.h"
#include "program/style_hook.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmopenmap::kName, [] { return MakeRef<frmopenmap>(); });

constexpr Member kRows[]{
    MethodRow<&frmopenmap::UploadMap>("UploadMap"),
    MethodRow<&frmopenmap::SaveMapAs>("SaveMapAs"),
    MethodRow<&frmopenmap::AddAutoHost>("AddAutoHost"),
    MethodRow<&frmopenmap::ShowMapInfo>("ShowMapInfo"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

// By task: the window without which it cannot do anything.
constexpr std::array<std::string_view, frmopenmap::kTaskCount> kTaskWindows{
    window_name::kMapInfo, window_name::kMapList, {}, {}, window_name::kUploader, window_name::kMain};

// The test looks at the whole text, folders included.
bool LooksLikeAMap(const std::string& address) {
  constexpr std::array kEndings{".bms", ".BMS", ".zip", ".ZIP"};
  return std::any_of(kEndings.begin(), kEndings.end(),
                     [&](const char* ending) { return address.find(ending) != std::string::npos; });
}

std::string InMapFolder(const std::string& local) { return MapFolder() + "\\" + GetFileName(local); }

}  // namespace

frmopenmap::frmopenmap() : Form(kName) {
  for (int task = 0; task < kTaskCount; ++task) LblTask[static_cast<size_t>(task)] = &Add<Label>("LblTask", task);
  LayOut();
  LayOutTasks();
  Connect();
  ConnectTasks();
}

const MemberTable& frmopenmap::Members() const { return kTable; }

void frmopenmap::Connect() {
  TxtFile.Change = [this] {
    RunCommand([this] {
      ImgPreview.Picture = LoadMapPicture(TxtFile.Text);
      FitPreview();
    });
  };
  FilesDropped = [this](const std::vector<std::string>& paths) {
    if (!paths.empty()) TxtFile.Text = paths.front();
  };
  CmdBrowse.Click = [this] { RunCommand([this] { Browse(); }); };
  cmdputin.Click = [this] { RunCommand([this] { PutAndPlay(kPutInArchive); }); };
  cmdplaying.Click = [this] { RunCommand([this] { PutAndPlay(kPutBesideOnly); }); };
  Command1.Click = [this] { RunCommand([this] { LaunchGame(); }); };
  ImgPreview.Click = [this] { RunCommand([this] { ShowPreview(); }); };
  Label3.Click = [this] { ImgPreview.Click(); };
  Timer1.Tick = [this] {
    Timer1.Enabled = false;
    RunCommand([this] { FormLoadStyle(*this); }, "Apply style ");
  };
  KeyDown = [this](int& key_code, int) {
    if (key_code != key::kEscape) return;
    key_code = 0;
    Unload();
  };
}

// A task stands out under the mouse, and while the keyboard is on it.
void frmopenmap::ConnectTasks() {
  for (int task = 0; task < kTaskCount; ++task) {
    Label& label = *LblTask[static_cast<size_t>(task)];
    label.Click = [this, task] { RunCommand([this, task] { RunTask(task); }); };
    label.MouseMove = [this, task](int, int, int, int) { Highlight(task); };
    label.GotFocus = [this, task] { Highlight(task); };
    label.LostFocus = [this] { Highlight(-1); };
  }
  PctTasks.MouseMove = [this](int, int, int, int) { Highlight(-1); };
}

void frmopenmap::Load() {
  if (!TxtFile.Text->empty() && !LooksLikeAMap(TxtFile.Text) &&
      !AskYesNo("Warning a BMS mission file or a zip file is necessary! If you try to use other files that aren't BMS "
                "files your game can be damaged!!!" +
                    std::string(kCrLf) + "continue?",
                BoxIcon::kWarning)) {
    Unload();
    return;
  }
  RestoreChoices();
  DisableTasksWithoutWindow();
  if (StyleActive()) Timer1.Enabled = true;
}

// A choice that cannot be read is reported and takes none of the others with it: closing stores all of them, and so
// mends the file.
void frmopenmap::RestoreChoices() {
  RunCommand([this] { options0.Value = TextToBoolean(ReadSetting(setting::kChooseDeathmatch)); });
  RunCommand([this] { options1.Value = TextToBoolean(ReadSetting(setting::kChooseCaptureTheFlag)); });
  RunCommand([this] { options3.Value = TextToBoolean(ReadSetting(setting::kChooseRename)); });
  RunCommand([this] {
    txtrename.Text = ReadSetting(setting::kOutputText);
    choices_restored_ = true;
  });
}

void frmopenmap::Unloading() {
  // A window that closed before it had read the choices has none to keep.
  if (!choices_restored_) return;
  RunCommand([this] {
    WriteSetting(setting::kChooseDeathmatch, BooleanToText(options0.Value));
    WriteSetting(setting::kChooseCaptureTheFlag, BooleanToText(options1.Value));
    WriteSetting(setting::kChooseRename, BooleanToText(options3.Value));
    WriteSetting(setting::kOutputText, txtrename.Text);
  });
}

void frmopenmap::DisableTasksWithoutWindow() {
  for (size_t task = 0; task < kTaskWindows.size(); ++task) {
    LblTask[task]->Enabled = kTaskWindows[task].empty() || IsWindowRegistered(kTaskWindows[task]);
  }
  // The heading stays readable, but the keyboard does not stop at what leads nowhere.
  Label3.TabStop = IsWindowRegistered(window_name::kLargePreview) || IsWindowRegistered(window_name::kPreviewManager);
}

void frmopenmap::Browse() {
  dlgopen.DialogTitle = "Select file on your PC";
  dlgopen.Filter =
      "All supported files (*.bms, *.zip)|*.bms;*.zip|Binary mission files (*.bms)|*.bms|Zip files (*.zip)|*.zip|All "
      "files (*.*)|*.*|";
  dlgopen.FileName = "";
  if (dlgopen.ShowOpen()) TxtFile.Text = dlgopen.FileName;
}

void frmopenmap::PutAndPlay(int32_t mode) {
  FetchTurn turn;
  const std::string local = FetchMap(TxtFile.Text);
  std::string name = ChosenName();
  if (local.empty()) return;
  const bool packed = PutMap(local, name, mode, true);
  turn.End();
  MsgBox(packed ? "Successfully packed map" : "Failed to pack map");
}

std::string frmopenmap::ChosenName() {
  if (options1.Value) txtrename.Text = kCaptureTheFlagMission;
  if (options0.Value) txtrename.Text = kDeathmatchMission;
  return options0.Value || options1.Value || options3.Value ? txtrename.Text.get() : std::string();
}

void frmopenmap::LaunchGame() {
  const std::string game = GameFolder() + "\\" + ReadSetting(setting::kGameProgram);
  if (FileExists(game)) {
    // As from the main window, the game starts with the text "0" for its parameters.
    ShellOpen("open", game, int32_t{0}, GameFolder(), kShowNormal);
    return;
  }
  MsgBox("Game file 'dflwdem.exe' not found! Please select your game folder in the options window!", BoxButtons::kOk,
         BoxIcon::kCritical);
}

void frmopenmap::RunTask(int task) {
  switch (task) {
    case 0: ShowMapInfo(); break;
    case 1: AddAutoHost(); break;
    case 2: (IsGameRunning() ? cmdplaying : cmdputin).Click(); break;
    case 3: SaveMapAs(); break;
    case 4: UploadMap(); break;
    default: static_cast<void>(ShowWindow(window_name::kMain));
  }
}

bool frmopenmap::AddressIsMissing(const char* request) {
  if (!TxtFile.Text->empty()) return false;
  MsgBox(request);
  TxtFile.SetFocus();
  return true;
}

void frmopenmap::SaveMapAs() {
  RunCommand([this] {
    if (AddressIsMissing("Enter path!")) return;
    if (!AskYesNo("This will download or copy the map to the default map folder continue?")) return;
    const FetchTurn turn;
    const std::string local = FetchMap(TxtFile.Text);
    if (local.empty() || !FileExists(local)) return;
    const std::string target = InMapFolder(local);
    if (!EqualsNoCase(local, target)) platform().files().Copy(local, target);
  });
}

void frmopenmap::AddAutoHost() {
  RunCommand([this] {
    if (AddressIsMissing("Enter path!")) return;
    const FetchTurn turn;
    std::string target = TxtFile.Text;
    if (!FileExists(target) || MapFileKind(target) != map_file_kind::kMap) {
      const std::string local = FetchMap(TxtFile.Text);
      if (local.empty()) return;
      target = InMapFolder(local);
      const bool is_there_already = EqualsNoCase(local, target);
      if (!is_there_already && FileExists(target) &&
          !AskYesNo("Warning: the file " + target + " already exists overwrite the file?")) {
        return;
      }
      if (!is_there_already) platform().files().Copy(local, target);
    }
    if (FileExists(target)) AddToMapList(target);
  });
}

void frmopenmap::ShowMapInfo() {
  RunCommand([this] {
    if (AddressIsMissing("Enter Path!")) return;
    const FetchTurn turn;
    const std::string local = FetchMap(TxtFile.Text);
    if (!local.empty() && FileExists(local)) OpenMapInfo(local);
  });
}

void frmopenmap::UploadMap() {
  RunCommand([this] {
    const std::string path = TxtFile.Text;
    if (IsUrl(path)) {
      MsgBox("You can't upload a map that's already on the internet");
    } else if (MapFileKind(path) != map_file_kind::kZip) {
      MsgBox("You need to zip your map first before you can upload it." + std::string(kCrLf) +
             "Download Winzip or use the Windows XP utility to zip it.");
    } else {
      OpenUploader(path);
    }
  });
}

void frmopenmap::ShowPreview() {
  if (ImgPreview.Picture.get()) {
    ShowLargePicture(ImgPreview.Picture);
    return;
  }
  const std::string address = TxtFile.Text;
  if (address.empty() || !(FileExists(address) || IsUrl(address)) || !IsWindowRegistered(window_name::kPreviewManager))
    return;
  Form& window = WindowByName(window_name::kPreviewManager);
  PutMember(ControlOf(window, "lblmap"), "Caption", address);
  window.Show();
}

void frmopenmap::Highlight(int task) {
  for (int at = 0; at < kTaskCount; ++at) LblTask[static_cast<size_t>(at)]->Emphasize(at == task);
}

}  // namespace kestrun
