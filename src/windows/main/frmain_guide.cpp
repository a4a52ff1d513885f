// What tells a player where things are: the status line, the flashing arrow and the panel of guided links.
#include <initializer_list>
#include <utility>

#include "base/convert.h"
#include "platform/platform.h"
#include "program/settings.h"
#include "program/window_kit/run_command.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

constexpr const char* kTick = "\xE2\x9C\x93 ";
constexpr const char* kShowAtStartup = "Show at startup";
constexpr int kFlips = 11;
constexpr uint32_t kFlipMs = 500;
constexpr int kSlideStep = 40;

struct GuideLink {
  const char* key;
  const char* caption;
  const char* window;  // without which it leads nowhere; null when it needs none
  void (*follow)(frmain& main);
};

void OpenMapList(frmain&) {
  MsgBox("This will open the auto host window");
  OpenWindow(window_name::kMapList);
}

constexpr GuideLink kLinks[]{
    {"pack1", "Play a new map", nullptr, [](frmain& main) { main.PlayPack1(); }},
    {"pack2", "Change map when hosting", nullptr, [](frmain& main) { main.PlayPack2(); }},
    {"autohost", "Auto change the maps", window_name::kMapList, &OpenMapList},
    {"download", "Download a map", window_name::kOpenMap, [](frmain& main) { main.mnu_loadmapfromhd.Click(); }},
    {"editor", "Make a new map", nullptr, [](frmain& main) { main.Command4.Click(); }},
    {"upload", "Upload maps to Velmoor", window_name::kUploader, [](frmain&) { OpenWindow(window_name::kUploader); }},
};

}  // namespace

// ---- status line ---------------------------------------------------------------------------------------------------

// A control's tip stands in the status line while the mouse is over it. Over what has none, and outside the window, the
// line has its own text.
void frmain::ConnectStatusLine() {
  const auto show = [this](Control& control, std::string text) {
    control.MouseMove = [this, text = std::move(text)](int, int, int, int) { status_line_.Say(text); };
  };
  for (const Ref<Control>& control : controls()) {
    if (!control->ToolTipText->empty()) show(*control, control->ToolTipText);
  }
  show(ListBox, FileMaps.ToolTipText);
  show(ImgPreview, "A preview of this map click load image to load a screen shot");
  show(Text1, "The current folder you are looking for *.bms (maps) files");
  for (Control* silent : std::initializer_list<Control*>{this, &Frame1, &Picture2, &txtstatusbar, &lblfolder, &lblmaps,
                                                         &lblpreview, &lblnopreview, &lblnamelength}) {
    silent->MouseMove = [this](int, int, int, int) { status_line_.SayOwnWords(); };
  }
  MouseLeave = [this] { status_line_.SayOwnWords(); };
  mnu_status.Click = [this] { ShowStatusLine(!txtstatusbar.Visible); };
  mnu_status.Checked = true;
}

void frmain::ShowStatusLine(bool visible) {
  status_line_.Switch(visible);
  mnu_status.Checked = visible;
}

// ---- flashing arrow ------------------------------------------------------------------------------------------------

void frmain::SetFlashingArrow(Control& Target) {
  const Ref<Form> keep(this);
  PctArrow.Top = Target.Top - PctArrow.Height;
  PctArrow.Left = Target.Left + Target.Width / 2 - PctArrow.Width / 2;
  for (int flip = 0; flip < kFlips; ++flip) {
    PctArrow.Visible = !PctArrow.Visible;
    Sleep(kFlipMs);
    RunPendingEvents();
    if (!IsLoaded()) return;  // closed meanwhile
  }
  PctArrow.Visible = false;
}

void frmain::PlayPack1() {
  const Ref<Form> keep(this);
  MsgBox("First select a map from the list.");
  SetFlashingArrow(ListBox);
  if (!IsLoaded()) return;
  MsgBox("Then click the 'Put Map in DFLW' button and select 'YES' in the message.");
  SetFlashingArrow(Command2);
}

void frmain::PlayPack2() {
  const Ref<Form> keep(this);
  MsgBox("To change the map when game is open first click a new map in the listbox.");
  SetFlashingArrow(ListBox);
  if (!IsLoaded()) return;
  MsgBox("Then click the 'I'm already playing' button.");
  SetFlashingArrow(Command7);
}

void frmain::PlayDownload() {}

void frmain::PlayAutoHost() {}

// ---- guided links --------------------------------------------------------------------------------------------------

void frmain::ConnectGuide() {
  QuickLinks.LinkClick = [this](const std::string& key, int) { RunCommand([&] { FollowLink(key); }); };
  QuickLinks.LblCloseClick = [this] { CloseQuickLinks(); };
  QuickLinks.ChStartupClick = [this] {
    MarkStartup(!stays_closed_at_startup_);
    RunCommand([this] { WriteSetting(setting::kShowQuickLinks, stays_closed_at_startup_ ? "1" : "0"); });
  };
  // The label begins close to the panel's edge: there is room for one character.
  QuickLinks.LblClose.Caption = "\xC3\x97";
  TmrQuickLinks.Tick = [this] { SlideIn(); };
  mnu_showtips.Click = [this] { RunCommand([this] { OpenQuickLinks(); }); };
  lblCloseUpdate.Click = [this] { PctUpdate.Visible = false; };
}

void frmain::LoadQuickLinks() {
  QuickLinks.Height = 0;
  MarkStartup(ReadSetting(setting::kShowQuickLinks) == "1");
  QuickLinks.Visible = false;
  if (!stays_closed_at_startup_) OpenQuickLinks();
}

void frmain::OpenQuickLinks() {
  if (QuickLinks.LinkCount() == 0) {
    for (const GuideLink& link : kLinks) {
      QuickLinks.AddLink(link.key, link.caption);
      QuickLinks.LblLink(QuickLinks.LinkCount() - 1).Enabled = !link.window || IsWindowRegistered(link.window);
    }
  }
  QuickLinks.Visible = true;
  TmrQuickLinks.Enabled = !QuickLinks.IsFullyOpen();
}

// The focus goes on to the list, where the next step is.
void frmain::CloseQuickLinks() {
  TmrQuickLinks.Enabled = false;
  QuickLinks.Visible = false;
  VisibleList().SetFocus();
}

// A tick in front of the words says that the panel comes at the next start; the words stay in their place.
void frmain::MarkStartup(bool stays_closed) {
  Label& label = QuickLinks.ChStartup();
  const int tick_width = platform().windowing().TextWidth(kTick, label.Font);
  if (stays_closed != stays_closed_at_startup_) label.Left = label.Left + (stays_closed ? tick_width : -tick_width);
  stays_closed_at_startup_ = stays_closed;
  label.Caption = stays_closed ? kShowAtStartup : std::string(kTick) + kShowAtStartup;
  label.ToolTipText = stays_closed ? "This panel stays closed when the program starts. Click to open it then."
                                   : "This panel opens when the program starts. Click to keep it closed then.";
}

void frmain::SlideIn() {
  if (is_sliding_) return;  // a tick inside the message pass of another
  const Ref<Form> keep(this);
  is_sliding_ = true;
  QuickLinks.Height = QuickLinks.Height + kSlideStep;
  RunPendingEvents();
  is_sliding_ = false;
  if (IsLoaded() && QuickLinks.IsFullyOpen()) TmrQuickLinks.Enabled = false;
}

void frmain::FollowLink(const std::string& key) {
  for (const GuideLink& link : kLinks) {
    if (key == link.key) link.follow(*this);
  }
}

void frmain::mnu_checkforupdate_Click() { OpenWindow(window_name::kUpdate); }

}  // namespace kestrun
