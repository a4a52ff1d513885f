#include "windows/style_editor/frmeditcheck.h"

#include <algorithm>
#include <utility>

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
constexpr int kTextEdge = 8;  // pixels beside the text of a row

FrmEdit& Editor() { return Window<FrmEdit>(); }

std::string ResultOf(const std::string& project, size_t faults) {
  if (faults == 0) return "No faults were found in " + project + ".";
  if (faults == 1) return "One fault was found in " + project + ". Enter shows its line.";
  return std::to_string(faults) + " faults were found in " + project + ". Enter shows the line of one.";
}

// Rows are as wide as the longest of them, so that all of it can be scrolled to.
int WidthOfRows(const ListBox& list) {
  Windowing& windowing = platform().windowing();
  const int dpi = kTwipsPerInch / windowing.Screen().twips_per_pixel;
  int width = 0;
  for (int row = 0; row < list.ListCount(); ++row) {
    width = std::max(width, windowing.MeasureText(list.List(row), list.Font, dpi).width);
  }
  return width + kTextEdge;
}

}  // namespace

FrmEditCheck::FrmEditCheck() : Form(kName) {
  Caption = "Kestrun - Check style";
  Icon = ProgramIcon();
  StartUpPosition = static_cast<int>(StartPosition::kCenterOwner);
  LblResult.BackStyle = 0;
  LblResult.UseMnemonic = false;
  LstFaults.ToolTipText = "What is wrong with the style. Double click a row to see the line that is to blame.";
  SetCaptionAndTip(CmdOpen, "&Open", "Shows the line of the module that is to blame for the selected fault.");
  SetCaptionAndTip(CmdAgain, "Check &again", "Checks the style as it stands in the editor now.");
  SetCaptionAndTip(CmdClose, "&Close");
  CmdOpen.Default = true;
  CmdClose.Cancel = true;
  SetClientSize(kClientWidth, kClientHeight);
  SetLeastClientSize(kLeastWidth, kLeastHeight);
  Resize = [this] { Place(); };
  LstFaults.Click = [this] { ShowWhatIsPossible(); };
  LstFaults.DblClick = [this] { OpenChosen(); };
  CmdOpen.Click = [this] { OpenChosen(); };
  CmdAgain.Click = [] { RunQuietly([] { Editor().CheckStyle(); }); };
  CmdClose.Click = [this] { Unload(); };
  Place();
  ShowWhatIsPossible();
}

void FrmEditCheck::Place() {
  const int width = std::max(ScaleWidth(), kLeastWidth);
  const int height = std::max(ScaleHeight(), kLeastHeight);
  const int right = width - kWindowMargin;
  const int buttons_top = height - kWindowMargin - kDialogButtonHeight;
  const int list_top = kWindowMargin + kLabelHeight + kControlGap / 2;
  LblResult.Move(kWindowMargin, kWindowMargin, right - kWindowMargin, kLabelHeight);
  LstFaults.Move(kWindowMargin, list_top, right - kWindowMargin, buttons_top - kWindowMargin - list_top);
  int left = right - kDialogButtonWidth;
  for (CommandButton* button : {&CmdClose, &CmdAgain, &CmdOpen}) {
    button->Move(left, buttons_top, kDialogButtonWidth, kDialogButtonHeight);
    left -= kDialogButtonWidth + kControlGap;
  }
}

void FrmEditCheck::ShowFaults(const std::string& project, std::vector<StyleFault> faults) {
  faults_ = std::move(faults);
  LstFaults.Clear();
  for (const StyleFault& fault : faults_) LstFaults.AddItem(LineOf(fault));
  LstFaults.HorizontalExtent = WidthOfRows(LstFaults);
  if (!faults_.empty()) LstFaults.ListIndex = 0;
  LblResult.Caption = ResultOf(project, faults_.size());
  ShowWhatIsPossible();
}

// What has no line, such as a control that nothing of the style has touched, opens nothing.
void FrmEditCheck::ShowWhatIsPossible() {
  const int row = LstFaults.ListIndex;
  CmdOpen.Enabled = row >= 0 && !faults_[static_cast<size_t>(row)].place.entry.empty();
}

void FrmEditCheck::OpenChosen() {
  if (!CmdOpen.Enabled) return;
  const StylePlace place = faults_[static_cast<size_t>(LstFaults.ListIndex.get())].place;
  RunQuietly([&] { Editor().ShowLine(place.entry, place.line); });
}

}  // namespace kestrun
