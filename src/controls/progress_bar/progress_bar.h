// A bar made of two labels: one is the filled part, the other shows the progress in percent.
#pragma once

#include "controls/stored_control.h"
#include "forms/accessible.h"
#include "forms/composite_control.h"
#include "forms/label.h"

namespace kestrun {

class ProgressBar final : public CompositeControl, public StoredControl, public Accessible {
 public:
  ProgressBar(Form* form, std::string name, int index);

  // The progress, from 0 to Max. Every assignment draws; a value above Max is kept and leaves the picture as it is.
  LetProperty<int> Value{0, [this] { Draw(); }};
  // Colour of the filled part.
  LetProperty<Color> Progresscolor{0xFF0000, [this] { ApplyProgressColor(); }};
  // Alignment of the text, as of a label.
  LetProperty<int> Alignment{2, [this] { ApplyAlignment(); }};
  // Shows at the next drawing, which takes 0 as 100.
  LetProperty<int> Max{100, [this] { MarkChanged("Max"); }};
  LetProperty<bool> ShowPercent{true, [this] { ApplyShowPercent(); }};
  // Whether Value is how far something is. False while the bar only moves, since nobody knows the whole: screen readers
  // then get no share.
  bool TellsValue = true;
  // The frame; the control's BorderStyle under the name that callers know it by.
  Property<int>& BroderStyle = BorderStyle;

  // The filled part, and the text in front of it.
  Label& lbl = AddConstituent<Label>("lbl");
  Label& LblPercent = AddConstituent<Label>("LblPercent");

  void WriteProperties(PropertyBag& bag) const;
  // What is not stored takes its default. A text colour of white is written as the default and read back as black.
  void ReadProperties(const PropertyBag& bag);

  [[nodiscard]] Role AccessibleRole() const override { return Role::kProgressBar; }
  [[nodiscard]] std::string AccessibleName() const override { return ToolTipText; }
  // Without the blanks that stand around it in the bar, whether it is shown there or not; empty unless TellsValue.
  [[nodiscard]] std::string AccessibleValue() const override;

  [[nodiscard]] std::string TypeName() const override { return "ProgressBar"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Value"); }

 protected:
  void Resized() override;
  void PropertyChanged(PropertyId id) override;

 private:
  [[nodiscard]] double Share() const;
  void Draw();
  void ApplyProgressColor();
  void ApplyAlignment();
  void ApplyShowPercent();
};

}  // namespace kestrun
