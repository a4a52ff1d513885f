#include "windows/update/frmupdate.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/platform.h"
#include "program/downloaded_file.h"
#include "program/game_paths.h"
#include "program/settings.h"
#include "program/site_file.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/download_bar.h"
#include "program/window_kit/run_command.h"
#include "web/site.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmUpdate::kName, [] { return MakeRef<FrmUpdate>(); });

constexpr const char* kUpdateFile = "Updkestrun.exe";

}  // namespace

FrmUpdate::FrmUpdate() : Form(kName) {
  LayOut();
  FollowDownload(Downloader1, ProgressBar1, LblAmount);
  Downloader1.DownloadComplete = [this](int64_t total, const std::string&) { told_bytes_ = total; };
  Command1.Click = [this] { Leave(); };
  Timer.Tick = [this] {
    Timer.Enabled = false;
    RunCommand([this] { Update(); });
  };
}

void FrmUpdate::Load() {
  Timer.Enabled = true;
  ApplyStyleAtOnce(*this, "applystyle ");
}

void FrmUpdate::Leave() {
  is_cancelled_ = true;
  Downloader1.Cancel();
  Unload();
}

void FrmUpdate::Update() {
  const Ref<Form> keep(this);
  if (!HasNewVersion()) {
    Unload();
    return;
  }
  if (AskYesNo("There is a new version on the site start download version ")) {
    FetchProgram();
  } else {
    Unload();
  }
}

// False when the user has ended the fetch, or when it has failed, which is told.
bool FrmUpdate::HasSiteFile() {
  FetchLabel label(LblAmount);
  const SiteFetch fetch = FetchSiteFile(&label);
  if (fetch == SiteFetch::kFailed) MsgBox("Can't access the server try again later.");
  return fetch == SiteFetch::kThere;
}

bool FrmUpdate::HasNewVersion() {
  if (!HasSiteFile()) return false;
  const int64_t own = ProgramVersionNumber();
  if (ReadSiteNumber(SiteFilePath(), site::kVersion) > own) return true;
  MsgBox("There is no new version.(" + std::to_string(own) + ")");
  return false;
}

void FrmUpdate::FetchProgram() {
  const std::string path = AppFile(kUpdateFile);
  const std::string url = ReadSiteValue(SiteFilePath(), site::kProgram);
  LblState.Caption = "Fetching the new version ...";
  LblNotice.Caption = OpenConnectionNotice(url);
  // Before the download: meanwhile another window may fetch the site file anew, or delete it.
  hash_ = ReadSiteValue(SiteFilePath(), site::kProgramHash);
  notice_ = ReadSiteValue(SiteFilePath(), site::kUpdateNotice);
  const bool is_there = Downloader1.BeginDownload(url, path, true);
  if (is_cancelled_ || !IsLoaded()) return;  // closed meanwhile
  if (is_there) return Install(path);
  MsgBox("Can't access the file try again later or update manually from " + std::string(kSite));
  OpenDocument(std::string(kSite));
  Unload();
}

void FrmUpdate::Install(const std::string& path) {
  LblState.Caption = "The new version is there.";
  if (!HasHash(path, hash_)) {
    return Refuse(path, "The downloaded file is not the one that the site announces: its SHA-256 differs.");
  }
  if (!IsProgramOfSize(path, told_bytes_)) {
    return Refuse(path, "The downloaded file is no complete Windows program.");
  }
  if (AskYesNo("The download has finished (" + path + "). Start instalation?")) {
    if (!notice_.empty()) MsgBox(notice_, BoxButtons::kOk, BoxIcon::kInformation);
    DeleteSiteFile();
    ShellOpen("open", path, "", platform().program().Folder(), kShowNormal);
    platform().processes().EndProcess();
  } else {
    DeleteSiteFile();
    Unload();
  }
}

void FrmUpdate::Refuse(const std::string& path, const std::string& why) {
  MsgBox(why + " It was not started and is kept as " + PutAside(path));
  DeleteSiteFile();
  Unload();
}

}  // namespace kestrun
