#include "maps/frmain.h"

#include "base/text.h"
#include "frame/folders.h"
#include "frame/game_paths.h"
#include "frame/path_text.h"
#include "frame/settings.h"
#include "frame/show_error.h"
#include "frame/start_mode.h"
#include "frame/style_hook.h"
#include "maps/put_map.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmain::kName, [] { return MakeRef<frmain>(); });

// A zip has to be opened before the map in it can go into the game.
bool IsZip(const std::string& path) {
  Bytes start(4);
  bool read = false;
  Attempt([&] { read = platform().files().Open(path, OpenMode::kRead)->ReadAt(0, start) == start.size(); });
  return read && AsChars(start) == "PK\x03\x04";
}

// Runs one command of the window; its failure is reported without a context, and the window goes on.
template <class Command>
void RunCommand(Command&& command) {
  try {
    command();
  } catch (const std::exception&) {
    ShowError("");
  }
}

// One step of loading: reported under its context when it fails, the next step runs all the same.
template <class Step>
void LoadStep(Step&& step) {
  try {
    step();
  } catch (const std::exception&) {
    ShowError("Loading Kestrun ");
  }
}

}  // namespace

frmain::frmain() : Form(kName) {
  LayOut();
  Connect();
  ShowTipsInStatusLine();
}

void frmain::Connect() {
  Text1.Change = [this] { FolderTextChanged(); };
  Command1.Click = [this] { RunCommand([this] { BrowseFolder(); }); };
  Command2.Click = [this] { RunCommand([this] { PutSelectedMap(kPutInArchive); }); };
  Command7.Click = [this] { RunCommand([this] { PutSelectedMap(kPutBesideOnly); }); };
  Command3.Click = [] { RunCommand([] { launchDFLW(); }); };
  Command6.Click = [this] { RunCommand([this] { RefreshList(); }); };
  FileMaps.DblClick = [this] { Command2.Click(); };
  FileMaps.KeyDown = [this](int& key_code, int) {
    constexpr int kF5 = 116;
    if (key_code == kF5) Command6.Click();
  };
}

void frmain::ShowTipsInStatusLine() {
  for (const Ref<Control>& control : controls()) {
    if (control->ToolTipText->empty()) continue;
    control->MouseMove = [this, shown = control.get()](int, int, int, int) { txtstatusbar.Text = shown->ToolTipText; };
  }
  Text1.MouseMove = [this](int, int, int, int) {
    txtstatusbar.Text = "The current folder you are looking for *.bms (maps) files";
  };
}

void frmain::Load() {
  if (SafeMode()) return;
  LoadStep([] { WriteSetting(setting::kApp, platform().program().ExeName() + ".exe"); });
  LoadStep([this] { txtoutput.Text = ReadSetting(setting::kOutputText); });
  LoadStep([this] {
    const std::string folder = MapFolder();
    Text1.Text = FileExists(folder) ? folder : platform().program().Folder();
  });
  LoadStep([this] { FileMaps.SetPath(Text1.Text.get()); });
  LoadStep([this] {
    if (StyleActive()) FormLoadStyle(*this);
  });
}

void frmain::Unloading() {
  const std::string path = platform().program().Folder() + "\\" + platform().program().ExeName() + ".exe";
  Attempt([&] { SaveSetting("DFLWKESTRUN", "launcher", "PATH", path); });
}

void frmain::FolderTextChanged() {
  WriteSetting(setting::kMapFolder, Text1.Text);
  // While a path is being typed most of its beginnings are no folders: the list keeps the last one that was.
  Attempt([this] { FileMaps.SetPath(Text1.Text.get()); });
}

void frmain::BrowseFolder() {
  std::string folder = BrowseForFolder("Select the folder where you want to load maps from.", folder::kMyComputer, "");
  if (folder.empty()) return;
  folder.pop_back();
  Text1.Text = folder;
}

void frmain::RefreshList() { FileMaps.Reload(); }

std::string frmain::ChosenName() {
  if (opcapflag.Value) txtoutput.Text = kCaptureTheFlagMission;
  if (opdeath.Value) txtoutput.Text = kDeathmatchMission;
  return txtoutput.Text;
}

void frmain::PutSelectedMap(int32_t mode) {
  if (FileMaps.ListIndex < 0) {
    MsgBox("Select map!");
    return;
  }
  const std::string path = FileMaps.Path() + "\\" + FileMaps.FileName();
  if (IsZip(path)) {
    MsgBox("The file '" + FileMaps.FileName() + "' is a zip archive. Unpack it and select the map inside.");
    return;
  }
  std::string name = ChosenName();
  const bool packed = PutMap(path, name, mode, true);
  std::string message = packed ? "Successfully packed map" : "Failed to pack map";
  if (mode == kPutBesideOnly) message += ": " + GetFileName(path);
  MsgBox(message);
}

}  // namespace kestrun
