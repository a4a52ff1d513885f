// A text with a list to choose it from.
#pragma once

#include "forms/item_list_control.h"

namespace kestrun {

enum class ComboStyle { kDropDown = 0, kSimple = 1, kList = 2 };

class ComboBox final : public ItemListControl {
 public:
  using ItemListControl::ItemListControl;

  // 0 a text that can be typed and a list that drops down; 1 the same with the list always open; 2 a list that drops
  // down, and no other text than its rows.
  Property<int> Style{*this, PropertyId::kStyle};
  // Assigning the text of a row makes it the current one. Where nothing can be typed, error 383 for any other text.
  Property<std::string> Text{*this, PropertyId::kText};
  Property<bool> Locked{*this, PropertyId::kLocked};
  // Start and length of the selection in the text, in characters (UTF-16 units).
  Property<int> SelStart{*this, PropertyId::kSelection};
  Property<int> SelLength{*this, PropertyId::kSelection};

  // The text was typed or assigned.
  Event<> Change;
  // The list is about to open.
  Event<> DropDown;

  [[nodiscard]] std::string SelText() const;
  // Replaces the selection and puts the insertion point behind the new text.
  void SetSelText(std::string_view text);
  [[nodiscard]] bool CanBeTyped() const { return Style != static_cast<int>(ComboStyle::kList); }

  [[nodiscard]] std::string TypeName() const override { return "ComboBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }

 protected:
  void PropertyChanged(PropertyId id) override;
  void CurrentRowChanged() override;

 private:
  void TakeText();

  std::string shown_text_;  // what Text was before the present assignment
};

}  // namespace kestrun
