// The commands of the main window's buttons and menu items.
#include "base/text.h"
#include "maps/fetch/fetch_map.h"
#include "maps/fetch/fetch_turn.h"
#include "maps/map_file_commands.h"
#include "maps/map_picture.h"
#include "maps/put/mission_name.h"
#include "maps/put/put_map.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/user_programs.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/run_command.h"
#include "web/site.h"
#include "windows/main/frmain.h"

namespace kestrun {
void frmain::ConnectCommands() {
  SetCommand({&Command2.Click, &mnu_putmapin.Click}, [this] { PutSelectedMap(kPutInArchive); });
  SetCommand({&Command7.Click, &mnu_imalreadyplaying.Click}, [this] { PutSelectedMap(kPutBesideOnly); });
  SetCommand({&Command3.Click, &mnu_launchDFLW.Click}, [] { launchDFLW(); });
  SetCommand({&Command4.Click, &mnu_launcheditor.Click}, [this] { LaunchEditor(); });
  SetCommand({&mnu_OpenFolder.Click}, [this] { ShellOpen("open", FileMaps.Path(), "", FileMaps.Path(), kShowNormal); });
  SetCommand({&mnu_exit.Click}, [this] { Unload(); });
  SetCommand({&ImgPreview.Click}, [this] { HandMapToPreviewManager(PreviewTask::kChoose); });
  SetCommand({&mnu_copymapto.Click}, [this] { CopyMapTo(FileMaps, dlgcopyto); });
  SetCommand({&mnu_renamemap.Click}, [this] { RenameMap(FileMaps); });
  SetCommand({&mnu_deletemap.Click}, [this] {
    if (DeleteMap(FileMaps)) RefreshList();
  });
  SetCommand({&mnu_mapname.Click}, [this] { CopyMapName(FileMaps); });
  SetCommand({&mnu_bmstomis.Click}, [] {
    StartTool(ReadSetting(setting::kConverter),
              "can't find the file 'DF3BMStoMIS.exe' please select it in the options window.");
  });
  SetCommand({&mnu_colorpicker.Click}, [] {
    StartTool(ReadSetting(setting::kColorPicker),
              "can't find the file 'ColorPicker.EXE' please select it in the options window.");
  });
  SetCommand({&dflwdemolobby.Click}, [] { OpenDocument(SiteUrl("DFStartup.htm")); });
  SetCommand({&dflwfullversionlobby.Click}, [] { OpenDocument(SiteUrl("DFFVstartup.htm")); });
  SetCommand({&mnu_helpindex.Click}, [] { OpenHelpFile(); });
}

// ---- putting a map into the game -----------------------------------------------------------------------------------

std::string frmain::SelectedPath() const { return FileMaps.Path() + "\\" + FileMaps.FileName(); }

std::string frmain::SelectedMap() {
  if (FileMaps.ListIndex >= 0) return SelectedPath();
  MsgBox("Select map!");
  return {};
}

void frmain::PutSelectedMap(int32_t mode) {
  std::string path = SelectedMap();
  if (path.empty()) return;
  FetchTurn turn;
  if (MapFileKind(path) == map_file_kind::kZip) path = GetFileFromZip(path);
  if (path.empty()) return;
  std::string name = ChosenMission({opcapflag, opdeath, oprename, txtoutput});
  const bool packed = PutMap(path, name, mode, true);
  turn.End();
  std::string message = packed ? "Successfully packed map" : "Failed to pack map";
  if (mode == kPutBesideOnly) message += ": " + GetFileName(path);
  MsgBox(message);
}

// ---- what stands beside the game -----------------------------------------------------------------------------------

void frmain::LaunchEditor() {
  const std::string editor = GameFolder() + "\\" + ReadSetting(setting::kEditorProgram);
  if (!FileExists(editor)) {
    MsgBox("Can't find the editor program! Please select it in the options window.");
    OpenWindow(window_name::kOptions);
    return;
  }
  if (!ExtractEditorFiles(GameFolder()))
    MsgBox("Failed to extract the files to the right folder. Editor may not work properly.");
  // The editor starts with the text "0" for its parameters, as the game does.
  ShellOpen("open", editor, int32_t{0}, GameFolder(), kShowNormal);
}

void frmain::StartTool(const std::string& program, const std::string& missing) {
  if (FileExists(program)) {
    ShellOpen("open", program, "", ParentFolder(program), kShowNormal);
    return;
  }
  MsgBox(missing + std::string(kCrLf) + program);
  OpenWindow(window_name::kOptions, ShowWay::kShowModal);
}

// ---- windows that are handed the selected map ----------------------------------------------------------------------

void frmain::ShowMapInfo() {
  const std::string map = SelectedMap();
  if (!map.empty()) OpenMapInfo(map, ShowWay::kShowModal, &status_line_);
}

void frmain::HandMapToPreviewManager(PreviewTask task) {
  if (!IsWindowRegistered(window_name::kPreviewManager)) return;
  const std::string map = SelectedMap();
  if (!map.empty()) OpenPreviewManager(map, task);
}

// ---- the user's own programs ---------------------------------------------------------------------------------------

void frmain::Load_Programs() {
  const auto load = [this] {
    for (const UserProgram& program : ReadUserPrograms().programs) {
      AddProgram(program.number, program.name, program.path);
    }
  };
  RunCommand(load, "Load_Programs()");
}

void frmain::AddProgram(int number, const std::string& name, const std::string& path) {
  program_paths_.resize(static_cast<size_t>(number) + 1);
  program_paths_.back() = path;
  auto& item = Add<MenuItem>("mnu_launchprogram", number + 1);
  item.Caption = name;
  item.SetParent(mnu_actions);
  item.Click = [this, number] { RunCommand([this, number] { LaunchProgram(number); }); };
}

void frmain::LaunchProgram(int number) {
  const std::string& path = program_paths_[static_cast<size_t>(number)];
  if (FileExists(path)) {
    ShellOpen("open", path, int32_t{0}, ParentFolder(path), kShowNormal);
  } else {
    MsgBox("File not found please change the program path.");
  }
}

}  // namespace kestrun
