#include "windows/auto_host/frmrehearsal.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "base/text_file.h"
#include "maps/file_tools.h"
#include "maps/health/list_check.h"
#include "platform/background_work.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/fixed_pitch.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "web/web_paths.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmrehearsal::kName, [] { return MakeRef<frmrehearsal>(); });

constexpr int kStyleTimerMs = 200;
constexpr int kListSize = 9;
constexpr uint32_t kMostMinutes = 240;
constexpr uint32_t kMostHours = 24;

constexpr int kClientWidth = 10500;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
constexpr int kQuestionHeight = kTextBoxHeight;
constexpr int kMessagesTop = kWindowMargin + kQuestionHeight + 90;
constexpr int kSummaryTop = kMessagesTop + kOptionHeight + kControlGap;
constexpr int kSummaryHeight = 3 * kLabelHeight;
constexpr int kListTop = kSummaryTop + kSummaryHeight + 60;
constexpr int kListHeight = 4200;
constexpr int kButtonsTop = kListTop + kListHeight + kControlGap;
constexpr int kSaveWidth = 1860;

// As far as can be told without opening the game's archive.
LoadedMission MissionOfArchive() {
  LoadedMission mission;
  mission.source = "archive";
  mission.name = "the game's own mission";
  return mission;
}

std::string GameFolderNow() {
  const GameFolderUnasked unasked;
  std::string folder;
  Attempt([&] { folder = GameFolder(); });
  return folder;
}

}  // namespace

// Ended by the window; the background looks at it as well.
struct frmrehearsal::Reading {
  std::atomic<bool> is_left = false;
};

frmrehearsal::frmrehearsal() : Form(kName) {
  LayOut();
  SetCommand({&CmdPlay.Click}, [this] { Play(); });
  SetCommand({&CmdSave.Click}, [this] { SaveReport(); });
  SetCommand({&CmdClose.Click}, [this] { EndOrClose(); });
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

frmrehearsal::~frmrehearsal() { LeaveReading(); }

void frmrehearsal::LayOut() {
  LayOutDialog(*this, "Kestrun - Rehearsal");
  SetClientSize(kClientWidth, kButtonsTop + kDialogButtonHeight + kWindowMargin);
  LayOutQuestions();
  LblSummary.Move(kWindowMargin, kSummaryTop, kInside, kSummaryHeight);
  LblSummary.WordWrap = true;
  LblSummary.UseMnemonic = false;
  LblSummary.BackStyle = 0;
  LstLines.Move(kWindowMargin, kListTop, kInside, kListHeight);
  LstLines.ToolTipText = "Hours, minutes and seconds from the start, and what happens then.";
  GiveFixedPitch(LstLines, kListSize);
  PlaceButton(CmdSave, {kWindowMargin, kButtonsTop, kSaveWidth, kDialogButtonHeight}, "&Save as text ...",
              "Keep all that stands here in a text file.");
  PlaceButton(CmdClose,
              {kClientWidth - kWindowMargin - kDialogButtonWidth, kButtonsTop, kDialogButtonWidth, kDialogButtonHeight},
              "Close");
  CmdClose.Cancel = true;
}

void frmrehearsal::LayOutQuestions() {
  constexpr int kField = 600;
  struct Question {
    Label& label;
    TextBox& box;
    Label& unit;
    const char* caption;
    const char* unit_caption;
    const char* tip;
    const char* text;
    int label_width;
  };
  int left = kWindowMargin;
  for (const Question& each : {Question{LblRound, TxtRound, LblRoundUnit, "A &round of the game lasts", "minutes,",
                                        "Minutes that the game's round clock begins with.", "15", 2250},
                               Question{LblHours, TxtHours, LblHoursUnit, "and the &night", "hours.",
                                        "Hours that are played in advance.", "8", 1410}}) {
    PlaceLabel(each.label, left, kWindowMargin + 45, each.label_width, each.caption);
    left += each.label_width + 60;
    each.box.Move(left, kWindowMargin, kField, kTextBoxHeight);
    each.box.Text = each.text;
    each.box.ToolTipText = each.tip;
    left += kField + 60;
    PlaceLabel(each.unit, left, kWindowMargin + 45, 810, each.unit_caption);
    left += 810 + 60;
  }
  ChMessages.Caption = "With the &messages of the auto messenger";
  ChMessages.ToolTipText = "The messages that were saved in the auto messenger, as if it were enabled all the time.";
  ChMessages.Value = 1;
  ChMessages.Move(kWindowMargin, kMessagesTop, kInside - kSaveWidth - kControlGap, kOptionHeight);
  PlaceButton(CmdPlay, {kClientWidth - kWindowMargin - kSaveWidth, kWindowMargin, kSaveWidth, kDialogButtonHeight},
              "&Play it again", "Play the night anew. Nothing in the game's folder is changed by that.");
  CmdPlay.Default = true;
}

void frmrehearsal::Load() {
  StartStyleTimer(Timer1);
  // Without the auto host there is no list yet.
  if (LoadedWindow(frmputlist::kName)) RunCommand([this] { Play(); });
}

uint32_t frmrehearsal::NumberIn(const TextBox& box, const char* what, uint32_t most) {
  int32_t number = 0;
  Attempt([&] { number = TextToLong(box.Text.get()); });
  if (number >= 1 && number <= static_cast<int32_t>(most)) return static_cast<uint32_t>(number);
  Raise(error::kTypeMismatch,
        std::string("Enter the ") + what + " as a number from 1 to " + std::to_string(most) + ".");
}

RehearsalPlan frmrehearsal::MakePlan() {
  auto& host = Window<frmputlist>();
  RehearsalPlan plan;
  plan.rows = host.PlayList();
  plan.Rename = host.run.fields.Rename;
  plan.random = host.run.fields.Random;
  plan.uses_game_timer = host.ChGameTimer.Value == 1;
  plan.sends_reset_games = host.Check1.Value == 1;
  plan.minutes = host.TxtTimeMin.Text;
  plan.seconds = host.TxtTimeSec.Text;
  plan.DfVersion = host.run.fields.DfVersion;
  if (ChMessages.Value == 1) plan.messenger = ReadMessengerSettings();
  plan.first_mission = MissionOfArchive();
  plan.round_seconds = NumberIn(TxtRound, "minutes of a round", kMostMinutes) * 60;
  plan.hours = NumberIn(TxtHours, "hours of the night", kMostHours);
  plan.begins = platform().clock().LocalDateTime();
  return plan;
}

void frmrehearsal::Play() {
  plan_ = MakePlan();
  LeaveReading();
  maps_.clear();
  reading_ = std::make_shared<Reading>();
  CmdClose.Caption = "Cancel";
  ReadGameFolder();
}

void frmrehearsal::Read(std::function<void(FileSystem& files)> work, std::function<void()> done) {
  RunInBackground(
      [reading = reading_, work = std::move(work), &files = platform().files()] {
        if (!reading->is_left) work(files);
      },
      [this, reading = reading_, done = std::move(done)] {
        if (!reading->is_left && IsLoaded()) RunCommand(done);
      });
}

void frmrehearsal::ReadGameFolder() {
  struct Facts {
    RehearsedMap first;
    bool is_closed = false;
  };
  const std::string folder = GameFolderNow();
  LblSummary.Caption = "Reading the game's folder: " + folder;
  const auto facts = std::make_shared<Facts>();
  Read(
      [facts, folder, loose = folder + "\\" + plan_.Rename](FileSystem& files) {
        facts->is_closed = IsClosedGameFolder(files, folder);
        facts->first = ReadRehearsedMap(files, loose);
      },
      [this, facts, folder] {
        if (facts->first.refusal.empty()) plan_.first_mission = facts->first.mission;
        if (facts->is_closed) plan_.put_refusal = "The game's folder needs administrator rights: " + folder;
        GoOn();
      });
}

// Each map that is read may lead the night to others: what follows a map that fails is another one.
void frmrehearsal::GoOn() {
  Rehearsal night = Rehearse(plan_, maps_);
  if (night.unread.empty()) return ShowNight(std::move(night));
  wanted_.assign(night.unread.rbegin(), night.unread.rend());
  ReadNextMap();
}

void frmrehearsal::ReadNextMap() {
  if (wanted_.empty()) return GoOn();
  const std::string path = wanted_.back();
  wanted_.pop_back();
  LblSummary.Caption = "Reading the maps: " + std::to_string(maps_.size()) + " of " +
                       std::to_string(maps_.size() + wanted_.size() + 1) + std::string(kCrLf) + path;
  const auto map = std::make_shared<RehearsedMap>();
  Read([map, path](FileSystem& files) { *map = ReadRehearsedMap(files, path); },
       [this, map, path] {
         maps_[path] = *map;
         if (!map->refusal.empty()) WantRowBehind(path);
         ReadNextMap();
       });
}

// The run takes it in the place of a map that fails. Without it the night would be played anew for each row of a list
// whose disk is gone.
void frmrehearsal::WantRowBehind(const std::string& path) {
  const auto row = std::ranges::find(plan_.rows, path);
  if (row == plan_.rows.end()) return;
  const std::string& next = row + 1 == plan_.rows.end() ? plan_.rows.front() : *(row + 1);
  if (IsUrl(next) || maps_.contains(next) || std::ranges::find(wanted_, next) != wanted_.end()) return;
  wanted_.push_back(next);
}

void frmrehearsal::LeaveReading() {
  if (reading_) reading_->is_left = true;
  reading_.reset();
}

// What was not read by then counts as good, and the summary says so.
void frmrehearsal::EndOrClose() {
  if (reading_) {
    ShowNight(Rehearse(plan_, maps_));
  } else {
    Unload();
  }
}

void frmrehearsal::ShowNight(Rehearsal night) {
  LeaveReading();
  CmdClose.Caption = "Close";
  rehearsal_ = std::move(night);
  hours_ = plan_.hours;
  std::string summary;
  for (const std::string& line : RehearsalSummary(rehearsal_, hours_)) {
    summary += (summary.empty() ? "" : std::string(kCrLf)) + line;
  }
  LblSummary.Caption = summary;
  LstLines.Clear();
  const std::vector<std::string> texts = RehearsalTexts(rehearsal_);
  const std::vector<std::string_view> rows(texts.begin(), texts.end());
  LstLines.AddItems(rows);
  FitListWidth(*this, LstLines);
  CmdSave.Enabled = !rehearsal_.lines.empty();
}

void frmrehearsal::SaveReport() {
  SetUpFileDialog(CommonDialog1, "Save the rehearsal", "Text files (*.txt)|*.txt|All files (*.*)|*.*|", "txt");
  const std::string path = AskWhereToSave(CommonDialog1);
  if (path.empty()) return;
  platform().files().WriteAllDurably(path, AsBytes(EncodeTextFile(RehearsalReport(rehearsal_, hours_))));
}

}  // namespace kestrun
