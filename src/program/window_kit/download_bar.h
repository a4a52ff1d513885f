// A progress bar and a line of words that follow a download in the background.
#pragma once

#include "controls/progress_bar/progress_bar.h"
#include "forms/label.h"
#include "web/downloader.h"

namespace kestrun {

// Lets the bar take the bytes of each download, and move to and fro while nobody knows how many there are. The words
// say both, and the speed.
void FollowDownload(Downloader& downloader, ProgressBar& bar, Label& words);

// The looks of such a bar, with what screen readers call it.
void LayOutDownloadBar(ProgressBar& bar, const std::string& name);

// Nothing for an address of https; for one of http a line that says what that means.
[[nodiscard]] std::string OpenConnectionNotice(const std::string& url);

}  // namespace kestrun
