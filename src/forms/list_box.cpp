#include "forms/list_box.h"

#include <algorithm>

#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

ListBox& Self(Object& object) { return static_cast<ListBox&>(object); }

constexpr Member kRows[]{
    PropertyRow<&ListBox::MultiSelect>("MultiSelect"),
    ReadOnlyRow<&ListBox::SelCount>("SelCount"),
    ReadOnlyRow<&ListBox::Text>("Text"),
    {"Selected", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).Selected(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) {
       Self(object).SetSelected(ToLong(at[0]), ToBoolean(value));
     },
     "Boolean", "Index"},
};
const MemberTable kTable{&ItemListControl::kItemListMembers, kRows};

}  // namespace

const MemberTable& ListBox::Members() const { return kTable; }

bool ListBox::Selected(int row) const {
  const Row& asked = RowAt(row);
  return MultiSelect == 0 ? row == ListIndex : asked.selected;
}

void ListBox::SetSelected(int row, bool selected) {
  Row& target = RowAt(row);
  if (MultiSelect == 0) {
    ListIndex = selected ? row : -1;
    return;
  }
  target.selected = selected;
  if (FormPeer* shown = peer()) shown->Update(*this, PropertyId::kSelection);
}

int ListBox::SelCount() const {
  if (MultiSelect == 0) return ListIndex < 0 ? 0 : 1;
  return static_cast<int>(std::count_if(rows().begin(), rows().end(), [](const Row& row) { return row.selected; }));
}

int ListBox::MarkedRow() const {
  const auto found = std::find_if(rows().begin(), rows().end(), [](const Row& row) { return row.marked; });
  return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

void ListBox::MarkRow(int row) {
  const int before = MarkedRow();
  if (before == row) return;
  if (row >= 0) RowAt(row).marked = true;
  if (before >= 0) RowAt(before).marked = false;
  if (FormPeer* shown = peer()) shown->Update(*this, PropertyId::kStyle);
}

}  // namespace kestrun
