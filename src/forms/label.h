// Static text. Has no window of its own: its container draws it. A label that answers a click is a link: keys reach it
// as they reach a button, and Enter or the space bar clicks it.
#pragma once

#include "forms/control.h"

namespace kestrun {

// Values of the Alignment property.
enum class TextAlignment { kLeft = 0, kRight = 1, kCenter = 2 };

class Label final : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<int> Alignment{*this, PropertyId::kAlignment};
  // The label takes the size of its text; with WordWrap its width stays, and its height follows.
  Property<bool> AutoSize{*this, PropertyId::kAutoSize};
  Property<bool> WordWrap{*this, PropertyId::kWordWrap};
  // "&" marks the access key; off for texts that hold names of files.
  Property<bool> UseMnemonic{*this, PropertyId::kCaption, true};
  // 0 transparent, 1 opaque.
  Property<int> BackStyle{*this, PropertyId::kBackStyle, 1};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  // Bold and underlined, as a link that the mouse or the keyboard is on.
  void Emphasize(bool emphasized);

  [[nodiscard]] std::string TypeName() const override { return "Label"; }
  [[nodiscard]] const MemberTable& Members() const override;
  // A link from the day its Click has a handler; what shows the form looks at that when the form is shown.
  [[nodiscard]] bool TakesFocus() const override { return static_cast<bool>(Click); }
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Caption"); }

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  void FitToText();
};

}  // namespace kestrun
