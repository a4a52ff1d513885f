#include "windows/style_editor/frmeditcheck.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "forms/keys.h"
#include "platform/platform.h"
#include "program/program_pictures.h"
#include "program/window_kit/place_controls.h"
#include "windows/style_editor/frmedit.h"
#include "windows/style_editor/run_quietly.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmEditCheck::kName, [] { return MakeRef<FrmEditCheck>(); });

constexpr int kClientWidth = 9000;
constexpr int kClientHeight = 4500;
constexpr int kLeastWidth = 5400;
constexpr int kLeastHeight = 2700;
constexpr int kTwipsPerInch = 1440;
constexpr int kTextEdge = 8;   // pixels beside the text of a row
constexpr int kLongWord = 60;  // pixels that a line may stay empty at its end
constexpr int kMostLines = 4;
constexpr int kBarHeight = 255;

FrmEdit& Editor() { return Window<FrmEdit>(); }

std::string ResultOf(const std::string& project, size_t faults) {
  if (faults == 0) return "No faults were found in " + project + ".";
  if (faults == 1) return "One fault was found in " + project + ". Enter shows its line.";
  return std::to_string(faults) + " faults were found in " + project + ". Enter shows the line of one.";
}

// What was not looked at may have faults too.
std::string UnfinishedResultOf(const std::string& project, size_t faults, const std::string& rest) {
  const std::string count = faults == 0   ? "no faults were"
                            : faults == 1 ? "one fault was"
                                          : std::to_string(faults) + " faults were";
  return rest + " The list is incomplete: " + count + " found in " + project + " until then.";
}

std::string ProgressOf(const std::string& project, const StyleCheck& check) {
  const std::string window = "window " + std::to_string(check.done() + 1) + " of " +
                             std::to_string(check.windows().size()) + " (" + check.windows()[check.done()] + ")";
  return "Checking " + project + ": " + window + ". Esc ends the check.";
}

// In pixels.
int WidthOf(const std::string& text, const FontDescription& font) {
  Windowing& windowing = platform().windowing();
  return windowing.MeasureText(text, font, kTwipsPerInch / windowing.Screen().twips_per_pixel).width;
}

// How many lines a text takes in so many twips, when words stay whole.
int LinesOf(const std::string& text, const FontDescription& font, int width_twips) {
  const int room = width_twips / platform().windowing().Screen().twips_per_pixel - kLongWord;
  return std::clamp(1 + WidthOf(text, font) / std::max(1, room), 1, kMostLines);
}

}  // namespace

FrmEditCheck::FrmEditCheck() : Form(kName) {
  Caption = "Kestrun - Check style";
  Icon = ProgramIcon();
  StartUpPosition = static_cast<int>(StartPosition::kCenterOwner);
  LblResult.BackStyle = 0;
  LblResult.WordWrap = true;
  LblResult.UseMnemonic = false;
  LstFaults.ToolTipText = "What is wrong with the style. Double click a row to see the line that is to blame.";
  SetCaptionAndTip(CmdOpen, "&Open", "Shows the line of the module that is to blame for the selected fault.");
  SetCaptionAndTip(CmdAgain, "Check &again", "Checks the style as it stands in the editor now.");
  prgcheck.ToolTipText = "How many of the windows have been looked at.";
  prgcheck.BroderStyle = 1;
  prgcheck.BackColor = color::kWindowBackground;
  prgcheck.Progresscolor = color::kHighlight;
  prgcheck.ShowPercent = false;
  prgcheck.Visible = false;
  TmrCheck.Enabled = false;
  TmrCheck.Interval = 1;
  CmdOpen.Default = true;
  CmdClose.Cancel = true;
  SetClientSize(kClientWidth, kClientHeight);
  SetLeastClientSize(kLeastWidth, kLeastHeight);
  Resize = [this] { Place(); };
  LstFaults.Click = [this] { ShowWhatIsPossible(); };
  LstFaults.DblClick = [this] { OpenChosen(); };
  CmdOpen.Click = [this] { OpenChosen(); };
  CmdAgain.Click = [] { RunQuietly([] { Editor().CheckStyle(); }); };
  CmdClose.Click = [this] { CloseOrLeave(); };
  TmrCheck.Tick = [this] { Step(); };
  ShowState();
}

void FrmEditCheck::Place() {
  const int width = std::max(ScaleWidth(), kLeastWidth);
  const int height = std::max(ScaleHeight(), kLeastHeight);
  const int right = width - kWindowMargin;
  const int buttons_top = height - kWindowMargin - kDialogButtonHeight;
  const int result_height = kLabelHeight * LinesOf(LblResult.Caption, LblResult.Font, right - kWindowMargin);
  const int list_top = kWindowMargin + result_height + kControlGap / 2;
  LblResult.Move(kWindowMargin, kWindowMargin, right - kWindowMargin, result_height);
  LstFaults.Move(kWindowMargin, list_top, right - kWindowMargin, buttons_top - kWindowMargin - list_top);
  int left = right - kDialogButtonWidth;
  for (CommandButton* button : {&CmdClose, &CmdAgain, &CmdOpen}) {
    button->Move(left, buttons_top, kDialogButtonWidth, kDialogButtonHeight);
    left -= kDialogButtonWidth + kControlGap;
  }
  prgcheck.Move(kWindowMargin, buttons_top + (kDialogButtonHeight - kBarHeight) / 2,
                left + kDialogButtonWidth - kWindowMargin, kBarHeight);
}

void FrmEditCheck::Check(const std::string& project, std::unique_ptr<StyleCheck> check) {
  LstFaults.Clear();
  project_ = project;
  check_ = std::move(check);
  LstFaults.HorizontalExtent = 0;
  TmrCheck.Enabled = true;
  ShowState();
}

// One step at a time: between them the window can be used. The timer is off meanwhile, and a step that fails ends the
// check: each of its ticks would raise a box of the same failure.
void FrmEditCheck::Step() {
  TmrCheck.Enabled = false;
  OnFailure([this] { check_->Step(); }, [this](const RuntimeError&) { Leave(); });
  ListNewFaults();
  TmrCheck.Enabled = IsChecking();
  ShowState();
}

void FrmEditCheck::Leave() {
  check_->Leave();
  TmrCheck.Enabled = false;
  ListNewFaults();
  ShowState();
}

// Rows are as wide as the longest of them, so that all of it can be scrolled to.
void FrmEditCheck::ListNewFaults() {
  int width = LstFaults.HorizontalExtent;
  for (int row = LstFaults.ListCount(); row < static_cast<int>(check_->faults().size()); ++row) {
    LstFaults.AddItem(LineOf(check_->faults()[static_cast<size_t>(row)]));
    width = std::max(width, WidthOf(LstFaults.List(row), LstFaults.Font) + kTextEdge);
  }
  LstFaults.HorizontalExtent = width;
  if (LstFaults.ListIndex < 0 && LstFaults.ListCount() > 0) LstFaults.ListIndex = 0;
}

void FrmEditCheck::CloseOrLeave() {
  if (IsChecking()) {
    Leave();
  } else {
    Unload();
  }
}

void FrmEditCheck::ShowState() {
  const bool is_checking = IsChecking();
  if (is_checking) {
    LblResult.Caption = ProgressOf(project_, *check_);
    prgcheck.Max = static_cast<int>(check_->windows().size());
    prgcheck.Value = static_cast<int>(check_->done());
    SetCaptionAndTip(CmdClose, "&Cancel", "Ends the check. What it has found stays in the list.");
  } else {
    SetCaptionAndTip(CmdClose, "&Close", "");
    const size_t faults = check_ ? check_->faults().size() : 0;
    const std::string rest = check_ ? check_->Rest() : std::string();
    LblResult.Caption = !check_        ? std::string()
                        : rest.empty() ? ResultOf(project_, faults)
                                       : UnfinishedResultOf(project_, faults, rest);
  }
  prgcheck.Visible = is_checking;
  CmdAgain.Enabled = !is_checking;
  Place();
  ShowWhatIsPossible();
}

const StyleFault* FrmEditCheck::Chosen() const {
  const int row = LstFaults.ListIndex;
  return row < 0 ? nullptr : &check_->faults()[static_cast<size_t>(row)];
}

// What has no line, such as a control that nothing of the style has touched, opens nothing.
void FrmEditCheck::ShowWhatIsPossible() { CmdOpen.Enabled = Chosen() && !Chosen()->place.entry.empty(); }

void FrmEditCheck::OpenChosen() {
  if (!CmdOpen.Enabled) return;
  const StylePlace place = Chosen()->place;
  RunQuietly([&] { Editor().ShowLine(place.entry, place.line); });
}

}  // namespace kestrun
