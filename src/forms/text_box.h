// A text box of one or more lines.
#pragma once

#include "forms/control.h"

namespace kestrun {

class TextBox final : public Control {
 public:
  TextBox(Form* form, std::string name, int index);

  Property<std::string> Text{*this, PropertyId::kText};
  Property<bool> Locked{*this, PropertyId::kLocked};
  // Longest text that a user can type, in characters; 0 for no limit. Assigned text is cut to it.
  Property<int> MaxLength{*this, PropertyId::kMaxLength};
  Property<bool> MultiLine{*this, PropertyId::kMultiLine};
  Property<std::string> PasswordChar{*this, PropertyId::kPasswordChar};
  // 0 none, 1 horizontal, 2 vertical, 3 both.
  Property<int> ScrollBars{*this, PropertyId::kScrollBars};
  Property<int> Alignment{*this, PropertyId::kAlignment};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, 1};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};
  // Start and length of the selection, in characters (UTF-16 units).
  Property<int> SelStart{*this, PropertyId::kSelection};
  Property<int> SelLength{*this, PropertyId::kSelection};

  Event<> Change;

  [[nodiscard]] std::string SelText() const;
  // Replaces the selection and puts the insertion point behind the new text.
  void SetSelText(std::string_view text);
  // What takes the place of the selection while SetSelText changes the text, null at any other time: a peer types it,
  // so that the user can take it back.
  [[nodiscard]] const std::string* Replacement() const { return replacement_; }

  [[nodiscard]] std::string TypeName() const override { return "TextBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  const std::string* replacement_ = nullptr;
};

}  // namespace kestrun
