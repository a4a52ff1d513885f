#include "windows/auto_host/frmdfversion.h"

#include "forms/keys.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

const WindowRegistration registration(Frmdfversion::kName, [] { return MakeRef<Frmdfversion>(); });

constexpr int kStyleTimerMs = 50;
constexpr int kWidth = 3960;
constexpr int kFrameTop = kWindowMargin + kLabelHeight + 90;
constexpr int kFirstOption = 285;
constexpr int kOptionStep = 330;
constexpr int kFrameInside = kFirstOption + 3 * kOptionStep + 90;
constexpr int kButtonTop = kFrameTop + kFrameInside + kWindowMargin;

// Null while the auto host is not open: the dialogue, opened by itself, then changes nothing.
frmputlist* Host() { return static_cast<frmputlist*>(LoadedWindow(frmputlist::kName)); }

}  // namespace

Frmdfversion::Frmdfversion() : Form(kName) {
  LayOut();
  KeyPreview = true;
  KeyDown = [this](int& key_code, int) {
    if (key_code == key::kEscape) Unload();
  };
  SetCommand({&Command1.Click}, [this] { TakeChoice(); });
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void Frmdfversion::LayOut() {
  LayOutDialog(*this, "Kestrun - Choose Version");
  SetClientSize(kWidth + 2 * kWindowMargin, kButtonTop + kDialogButtonHeight + kWindowMargin);
  PlaceLabel(Label1, kWindowMargin, kWindowMargin, kWidth, "Select what version of dflw you are using:");
  Frame1.Caption = "Dflw version:";
  Frame1.Move(kWindowMargin, kFrameTop, kWidth, kFrameInside);
  const char* const captions[]{"Demo V0.99.49", "Full version V1.00.42", "Demo V1.0.31"};
  OptionButton* const options[]{&optdfversion0, &optdfversion1, &optdfversion2};
  for (int at = 0; at < 3; ++at) {
    PlaceOption(*options[at], Frame1, kWindowMargin, kFirstOption + at * kOptionStep, kWidth - 2 * kWindowMargin,
                captions[at], "The title of the game's window tells its version.");
  }
  PlaceButton(Command1,
              {kWindowMargin + kWidth - kDialogButtonWidth, kButtonTop, kDialogButtonWidth, kDialogButtonHeight}, "OK");
  Command1.Default = true;
}

void Frmdfversion::Load() {
  const int version = Host() ? Host()->run.fields.DfVersion : -1;
  (version == 0 ? optdfversion0 : version == 1 ? optdfversion1 : optdfversion2).Value = true;
  StartStyleTimer(Timer1);
}

void Frmdfversion::TakeChoice() {
  const int version = optdfversion0.Value ? 0 : optdfversion2.Value ? 2 : 1;
  if (frmputlist* host = Host()) host->run.fields.DfVersion = static_cast<int16_t>(version);
  Unload();
}

}  // namespace kestrun
