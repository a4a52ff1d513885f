#include "windows/splash/frmsplash.h"

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

void frmsplash::Load() { RunStartUp(*this, lblversion, platform().program().CommandLine()); }

}  // namespace kestrun
