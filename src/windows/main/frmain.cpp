// Loading and unloading of the main window, and what scripts can call.
#include "windows/main/frmain.h"

#include <functional>
#include <initializer_list>

#include "base/convert.h"
#include "forms/member_rows.h"
#include "game/editor_files.h"
#include "platform/platform.h"
#include "program/default_copy.h"
#include "program/game_paths.h"
#include "program/originals_hook.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/start_mode.h"
#include "program/style_hook.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/run_command.h"
#include "styles/mod_trans_control.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmain::kName, [] { return MakeRef<frmain>(); });

constexpr const char* kLoading = "Loading Kestrun ";

frmain& Self(Object& object) { return static_cast<frmain&>(object); }

Variant CallSetFlashingArrow(Object& object, Arguments arguments) {
  auto* target = arguments[0].Is(VarType::kObject) ? dynamic_cast<Control*>(arguments[0].object()) : nullptr;
  if (!target) Raise(error::kTypeMismatch);
  Self(object).SetFlashingArrow(*target);
  return {};
}

Variant CallGetNewBanner(Object& object, Arguments arguments) {
  Self(object).GetNewBanner(ToText(arguments[0]), arguments.size() > 1 && ToBoolean(arguments[1]));
  return {};
}

constexpr Member kRows[]{
    MethodRow<&frmain::ExtractEditorFiles>("ExtractEditorFiles", "Folder"),
    MethodRow<&frmain::mnu_checkforupdate_Click>("mnu_checkforupdate_Click"),
    RawMethodRow("SetFlashingArrow", 1, 1, &CallSetFlashingArrow, "Target"),
    MethodRow<&frmain::PlayPack1>("PlayPack1"),
    MethodRow<&frmain::PlayPack2>("PlayPack2"),
    MethodRow<&frmain::PlayDownload>("PlayDownload"),
    MethodRow<&frmain::PlayAutoHost>("PlayAutoHost"),
    MethodRow<&frmain::LoadMenuIcons>("LoadMenuIcons"),
    RawMethodRow("GetNewBanner", 1, 2, &CallGetNewBanner, "Url, Force"),
    MethodRow<&frmain::InitTransControls>("InitTransControls"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

}  // namespace

const MemberTable& frmain::Members() const { return kTable; }

frmain::frmain() : Form(kName) {
  LayOut();
  Resize = [this] {
    if (!StyleActive()) Arrange();  // a style has its own places
  };
  ConnectMaps();
  ConnectHealth();
  ConnectCommands();
  AddWindowCommands();
  ConnectGuide();
  ConnectBanner();
  ConnectStatusLine();
}

void frmain::Load() {
  EnableWhatIsThere();
  if (SafeMode()) {
    LoadSafely();
    return;
  }
  // Each step stands for itself: when one fails the next runs all the same.
  const std::initializer_list<std::function<void()>> steps{
      [this] { LoadBanner(); },
      [this] { Load_Programs(); },
      [this] { LoadMenuIcons(); },
      [] { WriteSetting(setting::kApp, OwnFile()); },
      [this] { txtoutput.Text = ReadSetting(setting::kOutputText); },
      [this] { ShowStoredFolder(); },
      [this] {
        if (!FileExists(Text1.Text)) ShowFolderInstead(platform().program().Folder());
      },
      [this] { FileMaps.SetPath(Text1.Text.get()); },
      [this] { ShowStatusLine(TextToBoolean(ReadSetting(setting::kStatusLine))); },
      [this] { LoadIcons(); },
      [this] { ApplyStyleAtOnce(*this, "applystyle "); },
      [this] { LoadQuickLinks(); },
  };
  for (const auto& step : steps) RunCommand(step, kLoading);
}

// The plain list stands in for the painted one; no setting is read.
void frmain::LoadSafely() {
  QuickLinks.Visible = false;
  ListBox.Visible = false;
  FileMaps.Visible = true;
}

void frmain::Shown() {
  if (SafeMode()) return;
  BeginDueBanner();
  RunCommand([this] { AskForZipIcon(); }, kLoading);
  RunCommand([] { CheckGameArchive(); }, kLoading);
}

void frmain::Unloading() {
  TmrQuickLinks.Enabled = false;
  Attempt([this] { WriteSetting(setting::kStatusLine, BooleanToText(txtstatusbar.Visible)); });
  const std::string path = OwnPath();
  Attempt([&] { SaveSetting("DFLWKESTRUN", "launcher", "PATH", path); });
}

void frmain::InitTransControls() { CutAllControls(*this); }

bool frmain::ExtractEditorFiles(const std::string& Folder) { return kestrun::ExtractEditorFiles(Folder); }

}  // namespace kestrun
