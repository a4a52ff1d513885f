// A timer: ticks every Interval milliseconds while it is enabled and the interval is not 0.
#pragma once

#include "forms/control.h"
#include "platform/clock.h"

namespace kestrun {

class Timer final : public Control {
 public:
  Timer(Form* form, std::string name, int index);
  ~Timer() override;

  Property<int> Interval{*this, PropertyId::kInterval};
  // The tick.
  Event<> Tick;

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "Timer"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Interval"); }

 protected:
  void PropertyChanged(PropertyId id) override;
  void Disconnect() override;

 private:
  void Stop();
  void Restart();

  TimerId running_ = 0;
};

}  // namespace kestrun
