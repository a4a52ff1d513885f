#include "program/window_kit/download_bar.h"
#include "program/window_kit/place_controls.h"
#include "windows/update/frmupdate.h"

namespace kestrun {
namespace {

constexpr int kMargin = 240;
constexpr int kGap = 120;
constexpr int kClientWidth = 6600;
constexpr int kInside = kClientWidth - 2 * kMargin;
constexpr int kBarTop = kMargin + kLabelHeight + kGap;
constexpr int kBarHeight = 330;
constexpr int kAmountTop = kBarTop + kBarHeight + kGap;
constexpr int kAmountHeight = 2 * kLabelHeight;  // an address may need both lines
constexpr int kNoticeTop = kAmountTop + kAmountHeight + kGap / 2;
constexpr int kButtonTop = kNoticeTop + kLabelHeight + kGap;
constexpr int kTimerMs = 1000;

}  // namespace

void FrmUpdate::LayOut() {
  LayOutDialog(*this, "Kestrun - Update", InTaskbar::kYes);
  SetClientSize(kClientWidth, kButtonTop + kDialogButtonHeight + kMargin);
  PlaceLabel(LblState, kMargin, kMargin, kInside, "Looking for a new version ...");
  ProgressBar1.Move(kMargin, kBarTop, kInside, kBarHeight);
  LayOutDownloadBar(ProgressBar1, "Progress of the download");
  PlaceLabel(LblAmount, kMargin, kAmountTop, kInside, "");
  LblAmount.Height = kAmountHeight;
  LblAmount.WordWrap = true;
  PlaceLabel(LblNotice, kMargin, kNoticeTop, kInside, "");
  PlaceButton(Command1,
              {kClientWidth - kMargin - kDialogButtonWidth, kButtonTop, kDialogButtonWidth, kDialogButtonHeight},
              "Cancel", "End the download and close the window.");
  Command1.Cancel = true;
  Timer.Enabled = false;
  Timer.Interval = kTimerMs;
}

}  // namespace kestrun
