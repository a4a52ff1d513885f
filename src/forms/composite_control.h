// A control that is made of other controls instead of painting itself. Its constituents stand in it as in a frame, and
// are drawn and clicked like any others, but they are its own: the form does not list them, and scripts reach them only
// through what the control gives out.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"

namespace kestrun {

class CompositeControl : public Control {
 public:
  using Control::Control;

  // 0 shows what lies behind the control, 1 its own background.
  Property<int> BackStyle{*this, PropertyId::kBackStyle, 1};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle};

  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] bool IsContainer() const override { return true; }
  [[nodiscard]] std::span<const Ref<Control>> Constituents() const override { return constituents_; }

 protected:
  // Adds one in front of those that are there. It lives as long as the control. Its TabIndex counts among the control's
  // own constituents.
  template <class T>
  T& AddConstituent(std::string name, int index = -1) {
    return AddConstituent<T>(std::move(name), index, [](T&) {});
  }
  // The same for one that is prepared before the screen hears of it: whether it answers clicks is asked then.
  template <class T, class Prepare>
  T& AddConstituent(std::string name, int index, Prepare&& prepare) {
    Ref<T> made = MakeRef<T>(form(), std::move(name), index);
    prepare(*made);
    constituents_.push_back(made);
    made->SetContainer(*this);
    return *made;
  }

  // Takes one out again. References to it keep only a shell.
  void RemoveConstituent(Control& constituent);

  // Runs when the control's size has changed.
  virtual void Resized() {}
  void PropertyChanged(PropertyId id) override;
  void Disconnect() override;

 private:
  std::vector<Ref<Control>> constituents_;  // back to front
};

}  // namespace kestrun
