#include "maps/put/frmoverwrite.h"

#include "base/convert.h"
#include "program/run_command.h"
#include "program/settings.h"
#include "program/style_hook.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmOverWrite::kName, [] { return MakeRef<FrmOverWrite>(); });

bool overwrite_answer = false;

}  // namespace

bool OverwriteAnswer() { return overwrite_answer; }

void SetOverwriteAnswer(bool answer) { overwrite_answer = answer; }

FrmOverWrite::FrmOverWrite() : Form(kName) {
  LayOut();
  CmdOK.Click = [this] {
    WriteSetting(setting::kWarnOverwrite, BooleanToText(ChShow.Value != 1));
    SetOverwriteAnswer(true);
    Unload();
  };
  CmdCancel.Click = [this] {
    SetOverwriteAnswer(false);
    Unload();
  };
  Timer1.Tick = [this] {
    Timer1.Enabled = false;
    RunCommand([this] { FormLoadStyle(*this); }, "Applystyle");
  };
}

void FrmOverWrite::Load() {
  if (!TextToBoolean(ReadSetting(setting::kWarnOverwrite))) ChShow.Value = 1;
  if (StyleActive()) Timer1.Enabled = true;
}

}  // namespace kestrun
