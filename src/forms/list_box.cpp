#include "forms/list_box.h"

#include <algorithm>

#include "base/text.h"
#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

ListBox& Self(Object& object) { return static_cast<ListBox&>(object); }

constexpr Member kRows[]{
    PropertyRow<&ListBox::ListIndex>("ListIndex"),
    PropertyRow<&ListBox::MultiSelect>("MultiSelect"),
    PropertyRow<&ListBox::Sorted>("Sorted"),
    ReadOnlyRow<&ListBox::ListCount>("ListCount"),
    ReadOnlyRow<&ListBox::SelCount>("SelCount"),
    ReadOnlyRow<&ListBox::NewIndex>("NewIndex"),
    ReadOnlyRow<&ListBox::Text>("Text"),
    {"List", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).List(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) { Self(object).SetList(ToLong(at[0]), ToText(value)); }},
    {"ItemData", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).ItemData(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) {
       Self(object).SetItemData(ToLong(at[0]), ToLong(value));
     }},
    {"Selected", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).Selected(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) {
       Self(object).SetSelected(ToLong(at[0]), ToBoolean(value));
     }},
    RawMethodRow("AddItem", 1, 2,
                 [](Object& object, Arguments given) -> Variant {
                   Self(object).AddItem(ToText(given[0]), given.size() > 1 ? ToLong(given[1]) : -1);
                   return {};
                 }),
    MethodRow<&ListBox::RemoveItem>("RemoveItem"),
    MethodRow<&ListBox::Clear>("Clear"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& ListBox::Members() const { return kTable; }

size_t ListBox::CheckedRow(int row) const {
  if (row < 0 || row >= ListCount()) Raise(error::kInvalidProcedureCall);
  return static_cast<size_t>(row);
}

std::string ListBox::List(int row) const {
  return row < 0 || row >= ListCount() ? std::string() : rows_[static_cast<size_t>(row)].text;
}

void ListBox::SetList(int row, std::string_view text) {
  rows_[CheckedRow(row)].text = text;
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

int ListBox::ItemData(int row) const { return rows_[CheckedRow(row)].data; }

void ListBox::SetItemData(int row, int data) { rows_[CheckedRow(row)].data = data; }

bool ListBox::Selected(int row) const {
  const size_t at = CheckedRow(row);
  return MultiSelect == 0 ? row == ListIndex : rows_[at].selected;
}

void ListBox::SetSelected(int row, bool selected) {
  Row& target = rows_[CheckedRow(row)];
  if (MultiSelect == 0) {
    ListIndex = selected ? row : -1;
    return;
  }
  target.selected = selected;
  if (FormPeer* shown = peer()) shown->Update(*this, PropertyId::kSelection);
}

int ListBox::SelCount() const {
  if (MultiSelect == 0) return ListIndex < 0 ? 0 : 1;
  return static_cast<int>(std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; }));
}

void ListBox::AddItem(std::string_view text, int row) {
  auto place = rows_.end();
  if (row >= 0) {
    if (row > ListCount()) Raise(error::kInvalidProcedureCall);
    place = rows_.begin() + row;
  } else if (Sorted) {
    place = std::upper_bound(rows_.begin(), rows_.end(), text, [](std::string_view added, const Row& present) {
      return CompareNoCase(added, present.text) < 0;
    });
  }
  new_index_ = static_cast<int>(place - rows_.begin());
  rows_.insert(place, Row{std::string(text)});
  if (ListIndex >= new_index_) ListIndex.StoreQuietly(ListIndex + 1);
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

void ListBox::RemoveItem(int row) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(CheckedRow(row)));
  new_index_ = -1;
  if (ListIndex == row) ListIndex.StoreQuietly(-1);
  if (ListIndex > row) ListIndex.StoreQuietly(ListIndex - 1);
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

void ListBox::Clear() {
  rows_.clear();
  new_index_ = -1;
  ListIndex.StoreQuietly(-1);
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

void ListBox::PropertyChanged(PropertyId id) {
  if (id != PropertyId::kListIndex) return;
  if (ListIndex < -1 || ListIndex >= ListCount()) {
    ListIndex.StoreQuietly(-1);
    Raise(error::kInvalidProcedureCall);
  }
  Click();
}

}  // namespace kestrun
