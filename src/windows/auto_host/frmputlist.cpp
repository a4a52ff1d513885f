// Loading and closing of the auto host window, and what scripts and add-ins can call.
#include "windows/auto_host/frmputlist.h"

#include "base/convert.h"
#include "base/field_row.h"
#include "forms/member_rows.h"
#include "game/run/rotation.h"
#include "maps/map_picture.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/style_hook.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmputlist::kName, [] { return MakeRef<frmputlist>(); });

frmputlist& Self(Object& object) { return static_cast<frmputlist&>(object); }

RunFields& FieldsOf(Object& object) { return Self(object).run.fields; }

// The second argument takes the stored address.
Variant CallGetPicturePath(Object&, Arguments arguments) {
  std::string url;
  const std::string path = GetMapPath(ToText(arguments[0]), &url);
  arguments[1] = url;
  return path;
}

constexpr Member kRows[]{
    FieldRow<&RunFields::Random, FieldsOf>("Random"),
    FieldRow<&RunFields::Rename, FieldsOf>("Rename"),
    FieldRow<&RunFields::NextMap, FieldsOf>("NextMap"),
    FieldRow<&RunFields::Errors, FieldsOf>("Errors"),
    FieldRow<&RunFields::DfVersion, FieldsOf>("DfVersion"),
    FieldRow<&RunFields::MemoryAdress, FieldsOf>("MemoryAdress"),
    FieldRow<&RunFields::GameTimer, FieldsOf>("GameTimer"),
    FieldRow<&RunFields::GameEndAddr, FieldsOf>("GameEndAddr"),
    FieldRow<&RunFields::PState, FieldsOf>("PState"),
    FieldRow<&RunFields::LTime, FieldsOf>("LTime"),
    FieldRow<&frmputlist::Edited, Self>("Edited"),
    MethodRow<&frmputlist::GetAddin>("GetAddin", "Index"),
    MethodRow<&frmputlist::GetForm>("GetForm", "Index"),
    MethodRow<&frmputlist::GetFormIndex>("GetFormIndex", "Name"),
    RawMethodRow("GetPicturePath", 2, 2, &CallGetPicturePath, "Map, Url"),
    MethodRow<&frmputlist::Cmddown_Click>("Cmddown_Click"),
    MethodRow<&frmputlist::Cmdremove_Click>("Cmdremove_Click"),
    MethodRow<&frmputlist::Cmdremoveall_Click>("Cmdremoveall_Click"),
    MethodRow<&frmputlist::cmdup_Click>("cmdup_Click"),
    MethodRow<&frmputlist::Command2_Click>("Command2_Click"),
    MethodRow<&frmputlist::StopList>("StopList"),
    MethodRow<&frmputlist::StartList>("StartList"),
    MethodRow<&frmputlist::Command3_Click>("Command3_Click"),
    MethodRow<&frmputlist::Command4_Click>("Command4_Click"),
    MethodRow<&frmputlist::Command5_Click>("Command5_Click"),
    MethodRow<&frmputlist::Insert_Map_List>("Insert_Map_List", "Random"),
    MethodRow<&frmputlist::Writemessage>("Writemessage", "Message, KeyAscii, MemoryAdress"),
    MethodRow<&frmputlist::Command7_Click>("Command7_Click"),
    MethodRow<&frmputlist::LoadMenuIcons>("LoadMenuIcons"),
    MethodRow<&frmputlist::LoadAddins>("LoadAddins"),
    MethodRow<&frmputlist::mnu_back_Click>("mnu_back_Click"),
    MethodRow<&frmputlist::mnu_loadlist_Click>("mnu_loadlist_Click"),
    MethodRow<&frmputlist::LoadList>("LoadList", "File"),
    MethodRow<&frmputlist::mnu_refreshlist_Click>("mnu_refreshlist_Click"),
    MethodRow<&frmputlist::ResetTime>("ResetTime"),
    MethodRow<&frmputlist::MixTheMaps>("MixTheMaps"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

// A number of the settings that a check box shows: 1 is ticked, anything else clear.
int StoredTick(const Setting& row) { return ToLong(ReadSetting(row)) == 1 ? 1 : 0; }

}  // namespace

const MemberTable& frmputlist::Members() const { return kTable; }

frmputlist::frmputlist() : Form(kName) {
  LayOut();
  Resize = [this] {
    if (!StyleActive()) Arrange();  // a style has its own places
  };
  Connect();
}

void frmputlist::Connect() {
  ConnectLists();
  ConnectListMenus();
  ConnectRun();
  ConnectHealth();
  QueryUnload = [this](bool& cancel) { AskBeforeUnload(cancel); };
  SetCommand({&mnu_back.Click}, [this] { mnu_back_Click(); });
  SetCommand({&mnu_close.Click}, [this] { Unload(); });
  SetCommand({&mnu_rehearse.Click}, [] { OpenWindow(window_name::kRehearsal, ShowWay::kShowModal); });
  SetCommand({&mnu_addgametype.Click}, [] { OpenWindow(window_name::kGameTypes, ShowWay::kShowModal); });
  SetCommand({&mnu_changeDFversion.Click}, [] { OpenWindow(window_name::kGameVersion, ShowWay::kShowModal); });
  SetCommand({&mnu_addin.Click}, [] { OpenWindow(window_name::kAddInManager, ShowWay::kShowModal); });
  SetCommand({&mnu_quickhelp.Click}, [] { OpenHelpFile(); });
  SetCommand({&mnu_helpAbout.Click}, [] { OpenWindow(window_name::kAbout, ShowWay::kShowModal); });
}

void frmputlist::EnableWhatIsThere() {
  mnu_addin.Enabled = IsWindowRegistered(window_name::kAddInManager);
  mnu_helpAbout.Enabled = IsWindowRegistered(window_name::kAbout);
  mnu_back.Enabled = IsWindowRegistered(window_name::kMain);
}

void frmputlist::mnu_back_Click() { OpenWindow(window_name::kMain); }

// The window is on the screen before its settings are read: one of them may open the dialogue of the game's version,
// which stands in front of it.
void frmputlist::Load() {
  EnableWhatIsThere();
  Show();
  RunCommand([this] {
    ApplyStyleAtOnce(*this, "applystyle ");
    ReadStoredSettings();
    ShowListCount();
    ShowFileCount();
    TakeRename();
    LoadMenuIcons();
    LoadAddins();
    Edited = false;
  });
  ShowGlance();
}

void frmputlist::ReadStoredSettings() {
  txtfolder.Text = ReadSetting(setting::kAutoHostFolder);
  run.fields.DfVersion = ToInteger(ReadSetting(setting::kAutoHostVersion));
  Check1.Value = StoredTick(setting::kAutoHostResetGames);
  txtrename.Text = ReadSetting(setting::kAutoHostRename);
  TxtTimeSec.Text = ReadSetting(setting::kAutoHostSeconds);
  TxtTimeMin.Text = ReadSetting(setting::kAutoHostMinutes);
  ChLog.Value = StoredTick(setting::kAutoHostLog);
  ChGameTimer.Value = StoredTick(setting::kAutoHostGameTimer);
}

void frmputlist::WriteStoredSettings() {
  WriteSetting(setting::kAutoHostGameTimer, std::to_string(ChGameTimer.Value.get()));
  WriteSetting(setting::kAutoHostFolder, txtfolder.Text);
  WriteSetting(setting::kAutoHostVersion, std::to_string(run.fields.DfVersion));
  WriteSetting(setting::kAutoHostResetGames, std::to_string(Check1.Value.get()));
  WriteSetting(setting::kAutoHostRename, txtrename.Text);
  WriteSetting(setting::kAutoHostSeconds, TxtTimeSec.Text);
  WriteSetting(setting::kAutoHostMinutes, TxtTimeMin.Text);
  // Only somebody who has used it finds it among the settings.
  if (StoredTick(setting::kAutoHostLog) != ChLog.Value) {
    WriteSetting(setting::kAutoHostLog, std::to_string(ChLog.Value.get()));
  }
}

void frmputlist::AskBeforeUnload(bool& cancel) {
  if (Edited) {
    const BoxAnswer answer =
        MsgBox("Do you want to save the changes to the map list?", BoxButtons::kYesNoCancel, BoxIcon::kQuestion);
    cancel = answer == BoxAnswer::kCancel;
    if (answer == BoxAnswer::kYes) {
      SaveList();
      cancel = Edited;  // it was not saved after all: nothing is thrown away
    }
  }
  WriteStoredSettings();
  if (!cancel) {
    SetPresentRotation({});
    if (Command3.Enabled) Note({RunEvent::Kind::kStopped, -1, "", "the window was closed"});
  }
  ReleaseAddins();
}

}  // namespace kestrun
