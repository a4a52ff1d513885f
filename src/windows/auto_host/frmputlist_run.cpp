// The run in its window: its buttons and clocks, and what plays, what comes next, and when.
#include "base/convert.h"
#include "base/number.h"
#include "base/text.h"
#include "game/run/rotation.h"
#include "game/run/run_log.h"
#include "game/run/running_clock.h"
#include "maps/put/put_map.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/show_error.h"
#include "program/window_kit/run_command.h"
#include "web/download_file.h"
#include "web/web_paths.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

constexpr Color kRed = 255;

const Setting& StoredTime(TimeField field) {
  return field == TimeField::kMinutes ? setting::kAutoHostMinutes : setting::kAutoHostSeconds;
}

// The file's name, whatever the row says.
std::string ShortName(const std::string& text) { return text.substr(text.find_last_of("\\/") + 1); }

}  // namespace

RunSurroundings frmputlist::MakeSurroundings() {
  return {platform().clock(),
          MemControl1,
          [](const std::string& map, std::string& mission) { return PutMapSilently(map, mission, kPutBesideOnly); },
          &IsUrl,
          &DownloadFile,
          AppFile("file.tmp"),
          &RandomDraw,
          [](const std::string& text) { MsgBox(text); },
          [] { ShowError(""); },
          [this](const RunEvent& event) { Note(event); }};
}

void frmputlist::ConnectRun() {
  for (OptionButton* option : {&Options0, &Options1, &Options2}) {
    option->Click = [this] { RunCommand([this] { TakeRename(); }); };
  }
  txtrename.Change = [this] {
    if (Options2.Value) TakeRename();
  };
  chrandom.Click = [this] {
    run.fields.Random = chrandom.Value == 1;
    ShowGlance();
  };
  SetCommand({&Check1.Click}, [this] { ClickResetGames(); });
  SetCommand({&ChGameTimer.Click}, [this] { ClickGameTimer(); });
  TxtTimeMin.Change = [this] { RestoreUnlessNumber(TimeField::kMinutes); };
  TxtTimeSec.Change = [this] { RestoreUnlessNumber(TimeField::kSeconds); };
  txtmin.Change = [this] { txtmin.Text = LimitedMinutes(txtmin.Text); };
  txtsec.Change = [this] { txtsec.Text = LimitedSeconds(txtsec.Text); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  TmrInsert.Tick = [this] {
    run.Tick();
    if (IsLoaded()) ShowGlance();  // it may have been closed while the tick waited
  };
}

// ---- settings of the run -------------------------------------------------------------------------------------------

void frmputlist::TakeRename() {
  if (Options0.Value) run.fields.Rename = "D08M04.BMS";
  if (Options1.Value) run.fields.Rename = "D08M03.BMS";
  if (Options2.Value) run.fields.Rename = txtrename.Text.get();
  lstmaps.Refresh();  // what the maps go in as decides about their health
}

// The reset command is known to work with the first two builds only.
void frmputlist::ClickResetGames() {
  if (Check1.Value != 1 || HasCommandBuild()) return;
  OpenWindow(window_name::kGameVersion, ShowWay::kShowModal);
  if (HasCommandBuild()) return;
  MsgBox("Wrong DF version!");
  run.fields.DfVersion = 0;
}

void frmputlist::ClickGameTimer() {
  const bool is_ticked = ChGameTimer.Value == 1;
  TxtTimeMin.Enabled = !is_ticked;
  TxtTimeSec.Enabled = !is_ticked;
  if (is_ticked && !HasCommandBuild()) OpenWindow(window_name::kGameVersion, ShowWay::kShowModal);
  ShowGlance();
}

void frmputlist::RestoreUnlessNumber(TimeField field) {
  const std::string text = LongestTime(field);
  if (!text.empty() && !IsNumeric(text)) RestoreLongestTime(field);
}

std::string frmputlist::LongestTime(TimeField field) { return LongestBox(field).Text; }

void frmputlist::RestoreLongestTime(TimeField field) { LongestBox(field).Text = ReadSetting(StoredTime(field)); }

void frmputlist::FocusLongestTime(TimeField field) {
  Attempt([&] { LongestBox(field).SetFocus(); });
}

std::string frmputlist::ShownTime(TimeField field) { return ClockBox(field).Text; }

void frmputlist::ShowTime(TimeField field, const std::string& text) { ClockBox(field).Text = text; }

// ---- start, stop, pause --------------------------------------------------------------------------------------------

void frmputlist::Command2_Click() {
  const std::string caption = Command2.Caption;
  if (caption == "Start" || caption == "START!") {
    run.StartList();
  } else {
    run.StopList();
  }
}

// These let events through: the window may be closed meanwhile, and lives until they are over.
void frmputlist::Command3_Click() {
  const Ref<Form> keep(this);
  run.InsertNow();
}

void frmputlist::Insert_Map_List(bool random) {
  const Ref<Form> keep(this);
  run.InsertNext(random);
}

void frmputlist::Writemessage(const std::string& Message, int32_t KeyAscii, int32_t MemoryAdress) {
  const Ref<Form> keep(this);
  run.WriteMessage(Message, KeyAscii, MemoryAdress);
}

void frmputlist::SwitchButtons(CommandButton& from, CommandButton& to) {
  to.Enabled = true;
  if (ActiveControl() == &from) to.SetFocus();
  from.Enabled = false;
}

void frmputlist::Follow(RunStep step) {
  const bool runs_on = step == RunStep::kStart || step == RunStep::kContinue;
  TmrInsert.Enabled = runs_on;
  if (step == RunStep::kPause) {
    SwitchButtons(Command4, Command5);
  } else if (step == RunStep::kContinue) {
    SwitchButtons(Command5, Command4);
  } else {
    Command4.Enabled = runs_on;
    const bool starts = step == RunStep::kStart;
    for (Control* fixed_in_a_run : {static_cast<Control*>(&Check1), static_cast<Control*>(&ChGameTimer),
                                    static_cast<Control*>(&mnu_changeDFversion)}) {
      fixed_in_a_run->Enabled = !starts;
    }
    Command2.Caption = starts ? "Reset" : "START!";
    Command3.Enabled = starts;
    if (!starts) {
      Command5.Enabled = false;
      lstmaps.MarkRow(-1);
      plays_now_.clear();
      lblstatus.Caption = "";
    }
  }
  ShowGlance();
}

void frmputlist::ShowPut(int row) {
  plays_now_ = lstmaps.List(row);
  if (row < lstmaps.ListCount()) lstmaps.MarkRow(row);
  ShowGlance();
}

void frmputlist::ShowFailure(const std::string& text) {
  Picture5.Visible = true;
  Label11.ForeColor = kRed;
  Label11.Caption = text;
  Label11.ToolTipText = text;
}

void frmputlist::HideFailure() {
  Picture5.Visible = false;
  Label11.Caption = "";
}

void frmputlist::ShowRefusal(const std::string& sentence) { lblstatus.Caption = sentence; }

void frmputlist::Note(const RunEvent& event) {
  if (ChLog.Value != 1) return;
  Attempt([&] { AppendToRunLog(event); },
          [this](const RuntimeError&) { lblstatus.Caption = "autohost.log: " + ExplainedError().description(); });
}

// ---- at a glance ---------------------------------------------------------------------------------------------------

void frmputlist::ShowGlance() {
  const bool has_started = Command3.Enabled;
  lblplaysnow.Caption = !plays_now_.empty() ? ShortName(plays_now_)
                        : has_started       ? "Whatever the server plays: nothing was inserted yet"
                                            : "Nothing: the auto host is not started";
  lblplaysnow.ToolTipText = plays_now_;
  lblplaysnext.Caption = NextText();
  lblchangeswhen.Caption = WhenText();
  PublishRotation();
}

void frmputlist::PublishRotation() {
  const int count = lstmaps.ListCount();
  if (!Command3.Enabled || count == 0) {
    SetPresentRotation({});
    return;
  }
  const std::string next = run.fields.Random ? "a random map" : PlainMapName(lstmaps.List(NextRowInOrder()));
  SetPresentRotation({PlainMapName(plays_now_), next, TimeLeftText(txtmin.Text, txtsec.Text)});
}

std::string frmputlist::NextText() {
  const int count = lstmaps.ListCount();
  if (count == 0) return "Nothing: the play list is empty";
  if (run.fields.Random) return "One of the " + std::to_string(count) + " maps, at random";
  const int next = NextRowInOrder();
  return ShortName(lstmaps.List(next)) + ", row " + std::to_string(next + 1) + " of " + std::to_string(count);
}

std::string frmputlist::WhenText() {
  const bool has_started = Command3.Enabled;
  if (!has_started) return "When you press " + Command2.Caption.get();
  if (!TmrInsert.Enabled) return "Paused: when you press continue, or Insert now";
  if (UsesGameTimer()) {
    return "When the round ends; its clock shows " + TimeLeftText(txtmin.Text, txtsec.Text);
  }
  return "In " + TimeLeftText(txtmin.Text, txtsec.Text) + ", or when the game ends";
}

}  // namespace kestrun
