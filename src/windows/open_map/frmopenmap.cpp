#include "windows/open_map/frmopenmap.h"

#include <algorithm>
#include <array>

#include "base/convert.h"
#include "base/text.h"
#include "forms/keys.h"
#include "forms/member_rows.h"
#include "maps/fetch/fetch_map.h"
#include "maps/fetch/fetch_turn.h"
#include "maps/map_picture.h"
#include "maps/put/mission_name.h"
#include "maps/put/put_map.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"
#include "web/fetch_scope.h"
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

// The test looks at the whole text, folders included.
bool LooksLikeAMap(const std::string& address) {
  constexpr std::array kEndings{".bms", ".BMS", ".zip", ".ZIP"};
  return std::any_of(kEndings.begin(), kEndings.end(),
                     [&](const char* ending) { return address.find(ending) != std::string::npos; });
}

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
  TxtFile.Change = [this] { RunCommand([this] { ShowPictureOf(TxtFile.Text); }); };
  FilesDropped = [this](const std::vector<std::string>& paths) {
    if (!paths.empty()) TxtFile.Text = paths.front();
  };
  CmdBrowse.Click = [this] { RunCommand([this] { Browse(); }); };
  cmdputin.Click = [this] { RunCommand([this] { PutAndPlay(kPutInArchive); }); };
  cmdplaying.Click = [this] { RunCommand([this] { PutAndPlay(kPutBesideOnly); }); };
  Command1.Click = [this] { RunCommand([this] { LaunchGame(); }); };
  ImgPreview.Click = [this] { RunCommand([this] { ShowPreview(); }); };
  Label3.Click = [this] { ImgPreview.Click(); };
  KeyDown = [this](int& key_code, int) {
    if (key_code != key::kEscape) return;
    key_code = 0;
    Unload();
  };
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
  EnableWhatIsThere();
  StartStyleTimer(Timer1);
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
  const std::optional<std::string> local = FetchAddress();
  if (!local) return;
  std::string name = ChosenMission({options1, options0, options3, txtrename});
  if (local->empty()) return;
  const bool packed = PutMap(*local, name, mode, true);
  turn.End();
  MsgBox(packed ? "Successfully packed map" : "Failed to pack map");
}

std::optional<std::string> frmopenmap::FetchAddress() {
  const FetchScope fetch(&status_line_);
  const std::string address = TxtFile.Text;
  std::string local = FetchMap(address);
  if (fetch.IsCancelled()) return std::nullopt;
  if (!local.empty() && local != address && !ImgPreview.Picture.get()) ShowPictureOf(local);
  return local;
}

void frmopenmap::ShowPictureOf(const std::string& map) {
  const FetchScope fetch(&status_line_);
  ImgPreview.Picture = LoadMapPicture(map);
  FitPreview();
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

void frmopenmap::ShowPreview() {
  if (ImgPreview.Picture.get()) {
    ShowLargePicture(ImgPreview.Picture);
    return;
  }
  const std::string address = TxtFile.Text;
  if (!address.empty() && (FileExists(address) || IsUrl(address))) OpenPreviewManager(address);
}

}  // namespace kestrun
