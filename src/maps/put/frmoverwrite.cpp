#include "maps/put/frmoverwrite.h"

#include "base/convert.h"
#include "forms/member_rows.h"
#include "program/settings.h"
#include "program/window_kit/apply_style.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmOverWrite::kName, [] { return MakeRef<FrmOverWrite>(); });

constexpr Member kRows[]{MethodRow<&FrmOverWrite::ApplyStyle>("ApplyStyle")};
const MemberTable kTable{&Form::kFormMembers, kRows};

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
}

const MemberTable& FrmOverWrite::Members() const { return kTable; }

void FrmOverWrite::ApplyStyle() { Timer1.Enabled = true; }

void FrmOverWrite::Load() {
  if (!TextToBoolean(ReadSetting(setting::kWarnOverwrite))) ChShow.Value = 1;
  StartStyleTimer(Timer1);
}

// The tab order is the order of reading; the question itself is answered by Enter or the space bar.
void FrmOverWrite::Shown() { CmdOK.SetFocus(); }

}  // namespace kestrun
