#include "forms/timer.h"

#include "forms/form.h"
#include "forms/member_rows.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{PropertyRow<&Timer::Interval>("Interval")};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

Timer::Timer(Form* form, std::string name, int index) : Control(form, std::move(name), index) {}

Timer::~Timer() { Stop(); }

const MemberTable& Timer::Members() const { return kTable; }

void Timer::PropertyChanged(PropertyId id) {
  if (id == PropertyId::kInterval || id == PropertyId::kEnabled) Restart();
}

void Timer::Disconnect() {
  Stop();
  Control::Disconnect();
}

void Timer::Stop() {
  if (running_ == 0) return;
  platform().clock().StopTimer(running_);
  running_ = 0;
}

void Timer::Restart() {
  Stop();
  if (!Enabled || Interval <= 0 || !form()) return;
  running_ = platform().clock().StartTimer(static_cast<uint32_t>(Interval.get()), [this] {
    const Ref<Timer> keep(this);
    DispatchEvent(form(), [this] { Tick(); });
  });
}

}  // namespace kestrun
