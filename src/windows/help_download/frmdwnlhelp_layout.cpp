#include "base/text.h"
#include "program/window_kit/download_bar.h"
#include "program/window_kit/place_controls.h"
#include "windows/help_download/frmdwnlhelp.h"

namespace kestrun {
namespace {

constexpr int kMargin = 240;
constexpr int kClientWidth = 6600;
constexpr int kInside = kClientWidth - 2 * kMargin;
constexpr int kBarTop = kMargin + 2 * kLabelHeight + kControlGap;
constexpr int kLogTop = kBarTop + kDownloadHeight + kControlGap;
constexpr int kLogHeight = 1800;
constexpr int kNoticeTop = kLogTop + kLogHeight + kControlGap;
constexpr int kButtonTop = kNoticeTop + kLabelHeight + kControlGap;
constexpr int kTimerMs = 3000;

}  // namespace

void frmdwnlhelp::LayOut() {
  LayOutDialog(*this, "Kestrun - Help", InTaskbar::kYes);
  SetClientSize(kClientWidth, kButtonTop + kDialogButtonHeight + kMargin);
  PlaceLabel(Label1, kMargin, kMargin, kInside, "Downloading help from internet please wait ...");
  PlaceLabel(Label2, kMargin, kBarTop - kLabelHeight - kControlGap / 4, kInside, "Progress:");
  PlaceDownload(ProgressBar1, LblAmount, kMargin, kBarTop, kInside);
  txtprogress.Move(kMargin, kLogTop, kInside, kLogHeight);
  txtprogress.MultiLine = true;
  txtprogress.Locked = true;
  txtprogress.ScrollBars = 2;
  txtprogress.ToolTipText = "What has been done so far.";
  txtprogress.Text = "Please wait ..." + std::string(kCrLf);
  PlaceLabel(LblNotice, kMargin, kNoticeTop, kInside, "");
  PlaceDownloadCancel(Command1, kClientWidth - kMargin, kButtonTop);
  Timer1.Enabled = false;
  Timer1.Interval = kTimerMs;
}

}  // namespace kestrun
