#include "program/window_kit/download_bar.h"

#include <algorithm>
#include <limits>
#include <memory>

#include "base/kilobytes.h"
#include "base/text.h"
#include "program/window_kit/place_controls.h"

namespace kestrun {
namespace {

constexpr int kWhole = 100;
constexpr int kBarHeight = 330;
constexpr int kWordsHeight = 2 * kLabelHeight;
constexpr int kGap = kDownloadHeight - kBarHeight - kWordsHeight;

// The bar counts in whole numbers of 32 bits: larger files in units of more bytes.
void ShowShare(ProgressBar& bar, int64_t read, int64_t total) {
  const int64_t unit = total / std::numeric_limits<int>::max() + 1;
  bar.TellsValue = true;
  bar.ShowPercent = true;
  bar.Max = static_cast<int>(total / unit);
  bar.Value = static_cast<int>(read / unit);
}

void Move(ProgressBar& bar, int& place) {
  constexpr int kStep = 2;
  bar.TellsValue = false;
  bar.ShowPercent = false;
  bar.Max = kWhole;
  place = (place + kStep) % kWhole;
  bar.Value = place;
}

}  // namespace

void FollowDownload(Downloader& downloader, ProgressBar& bar, Label& words) {
  downloader.DownloadProgress = [&](int64_t read, int64_t total, const std::string&, double speed) {
    ShowShare(bar, read, total);
    words.Caption = InKilobytes(static_cast<uint64_t>(read)) + " of " + InKilobytes(static_cast<uint64_t>(total)) +
                    ", " + std::to_string(static_cast<int64_t>(speed)) + " KB per second";
  };
  downloader.Receiving = [&, place = std::make_shared<int>(0)](const FetchState& state) {
    if (state.total_bytes.value_or(0) != 0) return;
    Move(bar, *place);
    words.Caption =
        state.received_bytes == 0 ? std::string("Waiting for the server ...") : InKilobytes(state.received_bytes);
  };
}

void PlaceDownload(ProgressBar& bar, Label& words, int left, int top, int width) {
  bar.Move(left, top, width, kBarHeight);
  bar.BorderStyle = 1;
  bar.BackColor = color::kWindowBackground;
  bar.Progresscolor = color::kHighlight;
  bar.ShowPercent = false;
  bar.ToolTipText = "Progress of the download";
  PlaceLabel(words, left, top + kBarHeight + kGap, width, "");
  words.Height = kWordsHeight;
  words.WordWrap = true;
}

void PlaceDownloadCancel(CommandButton& button, int right, int top) {
  PlaceButton(button, {right - kDialogButtonWidth, top, kDialogButtonWidth, kDialogButtonHeight}, "Cancel",
              "End the download and close the window.");
  button.Cancel = true;
}

std::string OpenConnectionNotice(const std::string& url) {
  constexpr std::string_view kOpenScheme = "http://";
  if (!EqualsNoCase(url.substr(0, kOpenScheme.size()), kOpenScheme)) return {};
  return "The address is plain http: others on the way could change the file.";
}

}  // namespace kestrun
