#include "windows/about/frmhelp.h"

#include "base/text.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/style_hook.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/run_command.h"
#include "web/site.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmhelp::kName, [] { return MakeRef<frmhelp>(); });

// A style names its site itself: what is no web address becomes one, so that it can only ever open in the browser.
void OpenSiteOfStyle() {
  const std::string site = CurrentStyleIdentity().site;
  if (site.empty()) return;
  const bool is_web_address =
      FindNoCase(site, "http://") == 0 || FindNoCase(site, "https://") == 0 || FindNoCase(site, "www.") == 0;
  OpenDocument(is_web_address ? site : "http://" + site);
}

std::string Joined(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : std::string(kCrLf)) + line;
  return text;
}

std::string AboutText() {
  const Version version = platform().program().ProgramVersion();
  return Joined(
      {"Use this program at your own risk! It's allowed to distribute it FREE without any changes. Don't "
       "blame me or novalogic if there is a problem on your computer caused by this program! The minimum "
       "system requirements are:",
       "Windows  98 / XP", "Pentium 200 Mhz or better",
       "Your version is: " + std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.revision)});
}

void ShowDesigner() {
  const StyleIdentity style = CurrentStyleIdentity();
  MsgBox(Joined({"Style file made by:     " + style.designer, "", "Website: " + style.site,
                 "Made for Kestrun versions: " + style.version}),
         BoxButtons::kOk, BoxIcon::kInformation);
}

}  // namespace

frmhelp::frmhelp() : Form(kName) {
  LayOut();
  Connect();
}

void frmhelp::Connect() {
  Label3.Click = [] { RunCommand([] { OpenDocument(std::string(kSite)); }); };
  Label5.Click = [] { RunCommand([] { ShowDesigner(); }); };
  Label6.Click = [] { RunCommand([] { OpenSiteOfStyle(); }); };
  Command1.Click = [this] { Unload(); };
}

void frmhelp::Load() {
  Label4.Caption = AboutText();
  if (StyleActive()) ShowStyleLines();
  ApplyStyleAtOnce(*this, "applystyle ");
}

}  // namespace kestrun
