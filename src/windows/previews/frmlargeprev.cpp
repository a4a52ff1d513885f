#include "windows/previews/frmlargeprev.h"

#include "forms/keys.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/place_controls.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmLargeprev::kName, [] { return MakeRef<frmLargeprev>(); });

constexpr int kMargin = 60;
constexpr int kStyleTimerMs = 100;

}  // namespace

frmLargeprev::frmLargeprev() : Form(kName) {
  LayOutDialog(*this, "Kestrun - Map Preview");
  KeyPreview = true;
  Picture1.BorderStyle = 0;
  Picture1.AutoSize = true;
  Picture1.TabStop = false;
  Picture1.ToolTipText = "Click or press Esc to close.";
  Picture1.Move(kMargin, kMargin, 4800, 3600);
  Picture1.Click = [this] { Unload(); };
  KeyDown = [this](int& key_code, int) {
    if (key_code == key::kEscape || key_code == key::kEnter) Unload();
  };
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void frmLargeprev::Load() { StartStyleTimer(Timer1); }

}  // namespace kestrun
