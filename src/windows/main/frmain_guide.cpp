// What tells a player where things are: the status line, the flashing arrow and the panel of guided links.
#include "base/convert.h"
#include "platform/platform.h"
#include "program/settings.h"
#include "program/window_kit/run_command.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

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

void frmain::ConnectStatusLine() {
  const auto tell = [this](Control& control, const Control& tip_of) {
    control.MouseMove = [this, shown = &tip_of](int, int, int, int) { txtstatusbar.Text = shown->ToolTipText; };
  };
  for (const Ref<Control>& control : controls()) {
    if (!control->ToolTipText->empty()) tell(*control, *control);
  }
  tell(ListBox, FileMaps);
  ImgPreview.MouseMove = [this](int, int, int, int) {
    txtstatusbar.Text = "A preview of this map click load image to load a screen shot";
  };
  Text1.MouseMove = [this](int, int, int, int) {
    txtstatusbar.Text = "The current folder you are looking for *.bms (maps) files";
  };
  mnu_status.Click = [this] { ShowStatusLine(!txtstatusbar.Visible); };
  mnu_status.Checked = true;
}

void frmain::ShowStatusLine(bool visible) {
  txtstatusbar.Visible = visible;
  mnu_status.Checked = visible;
  PlaceStatusLine();
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
  QuickLinks.LblCloseClick = [this] {
    TmrQuickLinks.Enabled = false;
    QuickLinks.Visible = false;
  };
  QuickLinks.ChStartupClick = [this] {
    MarkStartup(!is_startup_checked_);
    RunCommand([this] { WriteSetting(setting::kShowQuickLinks, is_startup_checked_ ? "1" : "0"); });
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
  if (!is_startup_checked_) OpenQuickLinks();
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

// The tick of a mark keeps the panel closed at the next start; struck out, the words say so.
void frmain::MarkStartup(bool checked) {
  is_startup_checked_ = checked;
  Label& label = QuickLinks.ChStartup();
  FontDescription font = label.Font;
  font.strikethrough = checked;
  label.Font = font;
  label.ToolTipText = checked ? "This panel stays closed when the program starts. Click to open it then."
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
