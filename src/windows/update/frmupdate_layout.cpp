#include "program/window_kit/download_bar.h"
#include "program/window_kit/place_controls.h"
#include "windows/update/frmupdate.h"

namespace kestrun {
namespace {

constexpr int kMargin = 240;
constexpr int kClientWidth = 6600;
constexpr int kInside = kClientWidth - 2 * kMargin;
constexpr int kBarTop = kMargin + kLabelHeight + kControlGap;
constexpr int kNoticeTop = kBarTop + kDownloadHeight + kControlGap / 2;
constexpr int kButtonTop = kNoticeTop + kLabelHeight + kControlGap;
constexpr int kTimerMs = 1000;

}  // namespace

void FrmUpdate::LayOut() {
  LayOutDialog(*this, "Kestrun - Update", InTaskbar::kYes);
  SetClientSize(kClientWidth, kButtonTop + kDialogButtonHeight + kMargin);
  PlaceLabel(LblState, kMargin, kMargin, kInside, "Looking for a new version ...");
  PlaceDownload(ProgressBar1, LblAmount, kMargin, kBarTop, kInside);
  PlaceLabel(LblNotice, kMargin, kNoticeTop, kInside, "");
  PlaceDownloadCancel(Command1, kClientWidth - kMargin, kButtonTop);
  Timer.Enabled = false;
  Timer.Interval = kTimerMs;
}

}  // namespace kestrun
