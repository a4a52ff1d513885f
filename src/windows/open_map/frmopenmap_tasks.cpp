// The list of tasks: what can be done with the address.
#include "base/text.h"
#include "maps/fetch/fetch_map.h"
#include "maps/fetch/fetch_turn.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"
#include "web/web_paths.h"
#include "windows/open_map/frmopenmap.h"

namespace kestrun {
namespace {

constexpr int kNoTask = -1;

struct Task {
  const char* caption;
  const char* window;  // without which it cannot do anything; null when it needs none
  void (*run)(frmopenmap& window);
};
constexpr std::array<Task, frmopenmap::kTaskCount> kTasks{{
    {"View map info", window_name::kMapInfo, [](frmopenmap& window) { window.ShowMapInfo(); }},
    {"Add to auto host list", window_name::kMapList, [](frmopenmap& window) { window.AddAutoHost(); }},
    {"Play this map", nullptr,
     [](frmopenmap& window) { (IsGameRunning() ? window.cmdplaying : window.cmdputin).Click(); }},
    {"Download this map", nullptr, [](frmopenmap& window) { window.SaveMapAs(); }},
    {"Upload this map", window_name::kUploader, [](frmopenmap& window) { window.UploadMap(); }},
    {"Open Kestrun", window_name::kMain, [](frmopenmap&) { OpenWindow(window_name::kMain); }},
}};

std::string InMapFolder(const std::string& local) { return MapFolder() + "\\" + GetFileName(local); }

}  // namespace

// A task stands out under the mouse, and while the keyboard is on it.
void frmopenmap::ConnectTasks() {
  for (int task = 0; task < kTaskCount; ++task) {
    Label& label = *LblTask[static_cast<size_t>(task)];
    const Task& row = kTasks[static_cast<size_t>(task)];
    label.Caption = row.caption;
    label.Click = [this, &row] { RunCommand([this, &row] { row.run(*this); }); };
    label.MouseMove = [this, task](int, int, int, int) { Highlight(task); };
    label.GotFocus = [this, task] { Highlight(task); };
    label.LostFocus = [this] { Highlight(kNoTask); };
  }
  PctTasks.MouseMove = [this](int, int, int, int) { Highlight(kNoTask); };
}

void frmopenmap::EnableWhatIsThere() {
  for (size_t task = 0; task < kTasks.size(); ++task) {
    LblTask[task]->Enabled = !kTasks[task].window || IsWindowRegistered(kTasks[task].window);
  }
  // The heading stays readable, but the keyboard does not stop at what leads nowhere.
  Label3.TabStop = IsWindowRegistered(window_name::kLargePreview) || IsWindowRegistered(window_name::kPreviewManager);
}

void frmopenmap::Highlight(int task) {
  for (int at = 0; at < kTaskCount; ++at) LblTask[static_cast<size_t>(at)]->Emphasize(at == task);
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
    const std::string local = FetchAddress().value_or("");
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
      const std::string local = FetchAddress().value_or("");
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
    const std::string local = FetchAddress().value_or("");
    if (!local.empty() && FileExists(local)) OpenMapInfo(local, ShowWay::kShow, &status_line_);
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

}  // namespace kestrun
