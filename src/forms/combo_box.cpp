#include "forms/combo_box.h"

#include "base/text.h"
#include "forms/member_rows.h"
#include "forms/text_selection.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&ComboBox::Style>("Style"),         PropertyRow<&ComboBox::Text>("Text"),
    PropertyRow<&ComboBox::Locked>("Locked"),       PropertyRow<&ComboBox::SelStart>("SelStart"),
    PropertyRow<&ComboBox::SelLength>("SelLength"), AccessorRow<&ComboBox::SelText, &ComboBox::SetSelText>("SelText"),
};
const MemberTable kTable{&ItemListControl::kItemListMembers, kRows};

}  // namespace

const MemberTable& ComboBox::Members() const { return kTable; }

std::string ComboBox::SelText() const { return SelectedPart(Text.get(), SelStart, SelLength); }

void ComboBox::SetSelText(std::string_view text) {
  ReplacedText replaced = ReplaceSelection(Text.get(), SelStart, SelLength, text);
  Text = std::move(replaced.text);
  SelStart = replaced.end;
  SelLength = 0;
}

void ComboBox::PropertyChanged(PropertyId id) {
  ItemListControl::PropertyChanged(id);
  if (id == PropertyId::kText) TakeText();
}

// What is typed makes no row the current one; an assigned text that a row has does.
void ComboBox::TakeText() {
  int row = 0;
  while (row < ListCount() && !EqualsNoCase(List(row), Text.get())) ++row;
  if (!CanBeTyped()) {
    if (row == ListCount()) {
      Text.StoreQuietly(shown_text_);
      Raise(error::kPropertyReadOnly);
    }
    ListIndex = row;
    return;
  }
  shown_text_ = Text;
  ListIndex.StoreQuietly(row < ListCount() ? row : -1);
  Change();
}

void ComboBox::CurrentRowChanged() {
  shown_text_ = List(ListIndex);
  Text.StoreQuietly(shown_text_);
  Click();
}

}  // namespace kestrun
