// The banner and the news of the program's site: what is fetched, when it shows, and what a click opens.
#include <algorithm>
#include <limits>
#include <utility>

#include "base/convert.h"
#include "base/number.h"
#include "base/text.h"
#include "forms/picture_loading.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/settings.h"
#include "program/site_file.h"
#include "program/start_mode.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/run_command.h"
#include "web/redirect.h"
#include "web/web_paths.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

constexpr const char* kAnimatedFormat = "gif";
// Behind the window's first painting.
constexpr int kFetchAfterMs = 200;

BannerService& banner_service() {
  static BannerService service = SiteBannerService();
  return service;
}

std::string SiteFileForBanner() { return AppFile(kBannerSiteFile); }

// The format becomes a part of a file's name.
bool IsFormat(const std::string& format) {
  constexpr size_t kMostLetters = 4;
  return !format.empty() && format.size() <= kMostLetters && std::all_of(format.begin(), format.end(), [](char c) {
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9');
  });
}

void DeleteQuietly(const std::string& path) {
  Attempt([&] { platform().files().Delete(path); });
}

// The first and the last come up half as often as the others, and each run of the program draws the same sequence.
int64_t DrawBanner(int64_t count) {
  return static_cast<int64_t>(RoundToEven(RandomDraw() * static_cast<double>(count - 1) + 1));
}

bool IsBannerWanted() { return TextToBoolean(ReadSetting(setting::kShowBanner)); }

}  // namespace

void InstallBannerService(BannerService service) { banner_service() = std::move(service); }

BannerService SiteBannerService() {
  return {[](frmain& window, const std::string& url, bool force) { window.FetchBanner(url, force); },
          [](frmain& window) { window.RefreshBanner(); }, [](frmain& window) { window.CheckForMaps(); }};
}

void frmain::ConnectBanner() {
  // The system takes its time for the answer: it looks for it while the window is laid out.
  if (!SafeMode() && IsBannerWanted()) is_online_ = std::async(&IsOnline);
  TmrBanner.Enabled = false;
  TmrBanner.Interval = kFetchAfterMs;
  TmrBanner.Tick = [this] {
    TmrBanner.Enabled = false;
    GetNewBanner(SiteFileUrl());
  };
  Downloader.DownloadComplete = [this](int64_t, const std::string& path) {
    Attempt([&] { path == SiteFileForBanner() ? TakeBannerFile() : TakeBanner(path); });
  };
  Downloader.DownloadError = [this](const std::string& path, int, const std::string&, const std::string& url) {
    if (path == SiteFileForBanner() || has_tried_again_) return;
    has_tried_again_ = true;
    Downloader.BeginDownload(url, path, false);
  };
  SetCommand({&AnimGIF1.Click, &mnu_openbanner.Click}, [this] { OpenBanner(); });
}

// A start without a network, or with a server that never answers, shows a usable window as soon as one without a
// banner: nothing is fetched before the window stands, and then in the background.
void frmain::LoadBanner() {
  const bool shows =
      IsBannerWanted() && banner_service().get_new_banner && (is_online_.valid() ? is_online_.get() : IsOnline());
  ShowBannerPlace(shows);
  is_banner_due_ = shows;
}

void frmain::BeginDueBanner() { TmrBanner.Enabled = std::exchange(is_banner_due_, false); }

void frmain::GetNewBanner(const std::string& Url, bool force) {
  if (banner_service().get_new_banner) banner_service().get_new_banner(*this, Url, force);
}

// Every request goes past the caches, so that a forced fetch is like any other.
void frmain::FetchBanner(const std::string& url, bool) {
  static_cast<void>(Downloader.BeginDownload(url, SiteFileForBanner(), false));
}

void frmain::TakeBannerFile() {
  const std::string file = SiteFileForBanner();
  const int64_t count = ReadSiteNumber(file, site::kBannerCount);
  const int64_t drawn = DrawBanner(count);
  if (drawn >= 1 && drawn <= count) {
    const int number = static_cast<int>(std::min<int64_t>(drawn, std::numeric_limits<int>::max()));
    RunPendingEvents();
    if (!IsLoaded()) return DeleteQuietly(file);
    if (ReadSiteNumber(file, site::kVersion) > ProgramVersionNumber()) ShowUpdateNotice();
    BeginBanner(ReadSiteValue(file, site::kBannerPicture, number), ReadSiteValue(file, site::kBannerFormat, number),
                ReadSiteValue(file, site::kBannerLink, number));
  }
  DeleteQuietly(file);
}

void frmain::BeginBanner(const std::string& url, const std::string& format, const std::string& link) {
  AnimGIF1.Url = link;
  AnimGIF1.Tag = format;
  mnu_openbanner.Enabled = !link.empty();
  has_tried_again_ = false;
  if (IsFormat(format)) static_cast<void>(Downloader.BeginDownload(url, AppFile("banner." + format), false));
}

// What cannot be shown to its end leaves the banner as it was, without a word.
void frmain::TakeBanner(const std::string& path) {
  const int kind = EqualsNoCase(AnimGIF1.Tag.get(), kAnimatedFormat) ? kAnimatedGif : 0;
  if (AnimatedGIF::CanLoad(path, kind)) {
    AnimGIF1.LoadNewPicture(path, kind);
    PlaceBanner();
  }
  DeleteQuietly(path);
}

void frmain::ShowUpdateNotice() {
  PctUpdate.Visible = true;
  PctUpdate.ZOrder(0);
}

// The link comes from the web: it opens in the browser and nowhere else.
void frmain::OpenBanner() {
  const std::string link = AnimGIF1.Url;
  if (!link.empty()) OpenDocument(IsHttpUrl(link) ? link : "http://" + link);
}

void frmain::RefreshBanner() {
  GetNewBanner(SiteFileUrl(), true);
  if (!IsBannerWanted()) {
    if (!AskYesNo("You disabled the banner do you want to enable it?")) return;
    WriteSetting(setting::kShowBanner, BooleanToText(true));
  }
  if (!has_banner_place_) ShowBannerPlace(true);
}

void frmain::CheckForMaps() {
  const SiteFetch fetch = FetchSiteFile(&status_line_);
  if (fetch == SiteFetch::kCancelled) return;
  if (fetch == SiteFetch::kFailed) {
    MsgBox("Cannot connect to the server make sure you are connected to the internet.");
    return;
  }
  const int64_t count = ReadSiteNumber(SiteFilePath(), site::kMapCount);
  MsgBox("There are " + std::to_string(count - NumberAtStart(ReadSetting(setting::kLastVisit))) +
         " new maps on the site.");
  DeleteSiteFile();
  WriteSetting(setting::kLastVisit, std::to_string(count));
}

void frmain::EnableNews() {
  mnu_refreshbanner.Enabled = static_cast<bool>(banner_service().refresh_banner);
  mnu_checkformaps.Enabled = static_cast<bool>(banner_service().check_for_maps);
  mnu_openbanner.Enabled = !AnimGIF1.Url.get().empty() && AnimGIF1.ImgPic(0).Picture.get();
  SetCommand({&mnu_refreshbanner.Click}, [this] { banner_service().refresh_banner(*this); });
  SetCommand({&mnu_checkformaps.Click}, [this] { banner_service().check_for_maps(*this); });
}

}  // namespace kestrun
