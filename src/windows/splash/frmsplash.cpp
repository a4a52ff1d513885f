#include "windows/splash/frmsplash.h"

#include <algorithm>

#include "forms/member_rows.h"
#include "forms/window_registry.h"
#include "platform/platform.h"
#include "program/start_up.h"
#include "program/style_hook.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmsplash::kName, [] { return MakeRef<frmsplash>(); });

constexpr Member kRows[]{MethodRow<&frmsplash::LoadStyle>("LoadStyle")};
const MemberTable kTable{&Form::kFormMembers, kRows};

}  // namespace

frmsplash::frmsplash() : Form(kName) {
  LayOut();
  Label2.Click = [] { platform().processes().EndProcess(); };
}

const MemberTable& frmsplash::Members() const { return kTable; }

void frmsplash::LoadStyle() { FormLoadStyle(*this); }

// The program has started when other windows are there: the style editor shows this one to look at.
void frmsplash::Load() {
  const std::vector<Form*> windows = LoadedWindows();
  const bool has_started =
      std::any_of(windows.begin(), windows.end(), [this](const Form* form) { return form != this && form->IsShown(); });
  if (!has_started) return RunStartUp(*this, lblversion, platform().program().CommandLine());
  Label2.Click = [this] { Unload(); };
  if (StyleActive()) LoadStyle();
}

}  // namespace kestrun
