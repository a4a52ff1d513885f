#include "windows/help_download/frmdwnlhelp.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "platform/platform.h"
#include "program/downloaded_file.h"
#include "program/game_paths.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/site_file.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/download_bar.h"
#include "program/window_kit/run_command.h"
#include "program/window_kit/text_end.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmdwnlhelp::kName, [] { return MakeRef<frmdwnlhelp>(); });

// What the shell opens to be read. Anything else could be run, and the extension comes from the web.
bool IsDocumentExtension(const std::string& extension) {
  constexpr std::array<std::string_view, 9> kDocuments{".pdf", ".txt", ".rtf", ".htm", ".html",
                                                       ".chm", ".hlp", ".doc", ".odt"};
  return std::any_of(kDocuments.begin(), kDocuments.end(),
                     [&](std::string_view document) { return EqualsNoCase(document, extension); });
}

std::string HelpFile(const std::string& version, const std::string& extension) {
  return AppFile("kestrunhelp" + version + extension);
}

}  // namespace

frmdwnlhelp::frmdwnlhelp() : Form(kName) {
  LayOut();
  FollowDownload(Downloader1, ProgressBar1, LblAmount);
  Downloader1.DownloadComplete = [this](int64_t, const std::string& path) { RunCommand([&] { TakeHelp(path); }); };
  Downloader1.DownloadError = [this](const std::string&, int, const std::string& text, const std::string&) {
    Append("The download failed: " + text);
    LblAmount.Caption = "";
  };
  Command1.Click = [this] { Unload(); };
  Timer1.Tick = [this] {
    Timer1.Enabled = false;
    RunCommand([this] { Check(); });
  };
}

void frmdwnlhelp::Load() {
  Timer1.Enabled = true;
  ApplyStyleAtOnce(*this, "applystyle ");
}

void frmdwnlhelp::Append(const std::string& line) {
  txtprogress.Text = txtprogress.Text.get() + line + std::string(kCrLf);
  PutCaretAtEnd(txtprogress);
}

void frmdwnlhelp::Check() {
  const Ref<Form> keep(this);
  Append("Connecting ...");
  FetchLabel label(LblAmount);
  const SiteFetch fetch = FetchSiteFile(&label);
  if (fetch == SiteFetch::kThere) return Compare();
  if (fetch == SiteFetch::kFailed) MsgBox("Can't access files on server please try again later.");
  Unload();
}

void frmdwnlhelp::Compare() {
  const std::string local = ReadSetting(setting::kHelpVersion);
  const int64_t on_site = ReadSiteNumber(SiteFilePath(), site::kHelpVersion);
  Append("Host found");
  Append("Help version on HD:" + local);
  Append("Help version on site:" + std::to_string(on_site));
  const std::string extension = ReadSiteValue(SiteFilePath(), site::kHelpExtension);
  if (!IsDocumentExtension(extension)) {
    Append("The help on the site is no document that can be read: " + extension);
    return OpenHelp();
  }
  const bool is_newer = on_site > NumberAtStart(local) || !FileExists(HelpFile(local, extension));
  if (is_newer && AskYesNo("There is a new help version do you want to download it?")) {
    BeginFetch(HelpFile(std::to_string(on_site), extension), on_site);
  } else {
    OpenHelp();
  }
}

// The settings name the document at once: after a failed download its file is missing, and the next time asks again.
void frmdwnlhelp::BeginFetch(const std::string& path, int64_t version) {
  Append("Downloading");
  const std::string url = ReadSiteValue(SiteFilePath(), site::kHelp);
  LblNotice.Caption = OpenConnectionNotice(url);
  hash_ = ReadSiteValue(SiteFilePath(), site::kHelpHash);
  const bool begun = Downloader1.BeginDownload(url, path, false);
  WriteSetting(setting::kHelpPath, path);
  WriteSetting(setting::kHelpVersion, std::to_string(version));
  if (!begun) Append("The site names no address for the help.");
}

void frmdwnlhelp::TakeHelp(const std::string& path) {
  if (HasHash(path, hash_)) return OpenHelp();
  Append("The downloaded file is not the one that the site announces: its SHA-256 differs. It is kept as " +
         PutAside(path));
}

void frmdwnlhelp::OpenHelp() {
  const std::string path = ReadSetting(setting::kHelpPath);
  if (path.empty() || !FileExists(path)) return;
  ShellOpen("Open", path, "", platform().program().Folder(), kShowNormal);
  Unload();
}

}  // namespace kestrun
