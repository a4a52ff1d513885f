#include "windows/auto_host/frmchecklist.h"

#include <utility>

#include "base/text.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmCheckList::kName, [] { return MakeRef<FrmCheckList>(); });

constexpr int kStyleTimerMs = 200;
constexpr int kCheckTimerMs = 15;

// Twips.
constexpr int kInside = 8400;
constexpr int kBarTop = kWindowMargin + kLabelHeight + 60;
constexpr int kBarHeight = 255;
constexpr int kReportTop = kBarTop + kBarHeight + kControlGap;
constexpr int kReportHeight = 4200;
constexpr int kButtonTop = kReportTop + kReportHeight + kWindowMargin;
constexpr int kWideButton = 1860;

// Says what the bytes of the text are, for programs that would guess.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

}  // namespace

FrmCheckList::FrmCheckList() : Form(kName) {
  LayOut();
  TmrCheck.Tick = [this] { RunCommand([this] { GoOn(); }); };
  SetCommand({&CmdSelect.Click}, [this] { SelectAndClose(); });
  SetCommand({&CmdSave.Click}, [this] { Save(); });
  SetCommand({&CmdCancel.Click}, [this] { CancelOrClose(); });
}

void FrmCheckList::LayOut() {
  LayOutDialog(*this, "Kestrun - Check the list");
  SetClientSize(kInside + 2 * kWindowMargin, kButtonTop + kDialogButtonHeight + kWindowMargin);
  LblTask.BackStyle = 0;
  LblTask.UseMnemonic = false;
  LblTask.Move(kWindowMargin, kWindowMargin, kInside, kLabelHeight);
  ProgressBar1.Move(kWindowMargin, kBarTop, kInside, kBarHeight);
  ProgressBar1.BroderStyle = 1;
  ProgressBar1.ToolTipText = "How many of the rows are checked";
  TxtReport.MultiLine = true;
  TxtReport.Locked = true;
  TxtReport.ScrollBars = 3;
  TxtReport.ToolTipText = "The report of the check";
  TxtReport.Move(kWindowMargin, kReportTop, kInside, kReportHeight);
  PlaceButton(CmdSelect, {kWindowMargin, kButtonTop, kWideButton, kDialogButtonHeight}, "&Select bad rows",
              "Close this window and select the rows that would fail.");
  PlaceButton(CmdSave, {kWindowMargin + kWideButton + kControlGap, kButtonTop, kWideButton, kDialogButtonHeight},
              "Sa&ve as text ...", "Write the report into a file.");
  PlaceButton(CmdCancel,
              {kWindowMargin + kInside - kDialogButtonWidth, kButtonTop, kDialogButtonWidth, kDialogButtonHeight},
              "Cancel", "End the check, or close this window.");
  CmdCancel.Cancel = true;
  CmdSelect.Enabled = false;
  CmdSave.Enabled = false;
  TmrCheck.Enabled = false;
  TmrCheck.Interval = kCheckTimerMs;
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void FrmCheckList::Load() { StartStyleTimer(Timer1); }

void FrmCheckList::Check(const std::string& list, std::vector<std::string> rows, MapUse use) {
  ProgressBar1.Max = static_cast<int>(rows.size());
  ProgressBar1.Value = 0;
  check_ = std::make_unique<ListCheck>(list, std::move(rows), std::move(use));
  LblTask.Caption = check_->Task();
  TmrCheck.Enabled = true;
}

void FrmCheckList::GoOn() {
  if (!check_->Advance()) return Finish();
  LblTask.Caption = check_->Task();
  ProgressBar1.Value = check_->DoneRows();
}

void FrmCheckList::Finish() {
  TmrCheck.Enabled = false;
  report_ = check_->Report();
  LblTask.Caption = "Checked: " + CountText(report_);
  ProgressBar1.Value = check_->DoneRows();
  TxtReport.Text = ReportText(report_);
  CmdSelect.Enabled = report_.Count(Health::kBad) > 0;
  CmdSave.Enabled = true;
  CmdCancel.Caption = "Close";
  // A reader that follows the focus reads the report.
  if (IsShown()) TxtReport.SetFocus();
}

void FrmCheckList::CancelOrClose() {
  if (TmrCheck.Enabled) return Finish();
  Unload();
}

void FrmCheckList::SelectAndClose() {
  is_selection_wanted_ = true;
  Unload();
}

void FrmCheckList::Save() {
  SetUpFileDialog(CommonDialog1, "Save the report", "Text files (*.txt)|*.txt|All files (*.*)|*.*|", "txt");
  const std::string path = AskWhereToSave(CommonDialog1);
  if (path.empty()) return;
  platform().files().WriteAllDurably(path, AsBytes(std::string(kUtf8Mark) + TxtReport.Text.get()));
}

std::vector<int> FrmCheckList::BadRows() const {
  std::vector<int> rows;
  for (size_t row = 0; row < report_.rows.size(); ++row) {
    if (report_.rows[row].health.health == Health::kBad) rows.push_back(static_cast<int>(row));
  }
  return rows;
}

std::unordered_map<std::string, MapFacts> FrmCheckList::Addresses() const {
  return check_ ? check_->Addresses() : std::unordered_map<std::string, MapFacts>();
}

}  // namespace kestrun
