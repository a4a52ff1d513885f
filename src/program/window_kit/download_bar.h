// What a window shows of a download: a progress bar, and a label with words.
#pragma once

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/label.h"
#include "web/downloader.h"
#include "web/fetch_scope.h"

namespace kestrun {

// Lets the bar take the bytes of each download, and move to and fro while nobody knows how many there are. The words
// say both, and the speed.
void FollowDownload(Downloader& downloader, ProgressBar& bar, Label& words);

// How far the fetches of a command are, as words in a label.
class FetchLabel final : public FetchDisplay {
 public:
  explicit FetchLabel(Label& label) : label_(label) {}
  void ShowFetch(const FetchState& state) override { label_.Caption = DescribeFetch(state); }
  void EndFetch() override { label_.Caption = ""; }

 private:
  Label& label_;
};

// The bar and two lines for the words below it, which a long address may need, and the button that ends the download,
// with its right edge at that of the bar. Twips.
inline constexpr int kDownloadHeight = 930;
void PlaceDownload(ProgressBar& bar, Label& words, int left, int top, int width);
void PlaceDownloadCancel(CommandButton& button, int right, int top);

// Nothing for an address of https; for one of http a line that says what that means.
[[nodiscard]] std::string OpenConnectionNotice(const std::string& url);

}  // namespace kestrun
