#include "forms/item_list_control.h"

#include <algorithm>

#include "base/text.h"
#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

ItemListControl& Self(Object& object) { return static_cast<ItemListControl&>(object); }

constexpr Member kRows[]{
    PropertyRow<&ItemListControl::ListIndex>("ListIndex"),
    PropertyRow<&ItemListControl::Sorted>("Sorted"),
    PropertyRow<&ItemListControl::Appearance>("Appearance"),
    ReadOnlyRow<&ItemListControl::ListCount>("ListCount"),
    ReadOnlyRow<&ItemListControl::NewIndex>("NewIndex"),
    {"List", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).List(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) { Self(object).SetList(ToLong(at[0]), ToText(value)); },
     "String", "Index"},
    {"ItemData", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments at) -> Variant { return Self(object).ItemData(ToLong(at[0])); },
     [](Object& object, Arguments at, const Variant& value) { Self(object).SetItemData(ToLong(at[0]), ToLong(value)); },
     "Long", "Index"},
    RawMethodRow(
        "AddItem", 1, 2,
        [](Object& object, Arguments given) -> Variant {
          Self(object).AddItem(ToText(given[0]), given.size() > 1 ? ToLong(given[1]) : -1);
          return {};
        },
        "Item, Index"),
    MethodRow<&ItemListControl::RemoveItem>("RemoveItem", "Index"),
    MethodRow<&ItemListControl::Clear>("Clear"),
};

}  // namespace

const MemberTable ItemListControl::kItemListMembers{&Control::kWindowedMembers, kRows};

ItemListControl::ItemListControl(Form* form, std::string name, int index) : Control(form, std::move(name), index) {
  TakeWindowColors();
}

ItemListControl::Row& ItemListControl::RowAt(int row) {
  if (row < 0 || row >= ListCount()) Raise(error::kInvalidProcedureCall);
  return rows_[static_cast<size_t>(row)];
}

const ItemListControl::Row& ItemListControl::RowAt(int row) const {
  return const_cast<ItemListControl*>(this)->RowAt(row);
}

std::string_view ItemListControl::TextOf(const Row& row) const {
  return std::string_view(texts_).substr(row.text_begin, row.text_size);
}

void ItemListControl::StoreText(Row& row, std::string_view text) {
  row.text_begin = texts_.size();
  row.text_size = text.size();
  texts_ += text;
}

void ItemListControl::DropUnusedTexts() {
  if (unused_text_ <= texts_.size() / 2) return;
  std::string used;
  used.reserve(texts_.size() - unused_text_);
  for (Row& row : rows_) {
    const std::string_view text = TextOf(row);
    row.text_begin = used.size();
    used += text;
  }
  texts_ = std::move(used);
  unused_text_ = 0;
}

void ItemListControl::RowsChanged() {
  ++revision_;
  if (FormPeer* shown = peer()) shown->ListChanged(*this);
}

std::string ItemListControl::List(int row) const {
  return row < 0 || row >= ListCount() ? std::string() : std::string(TextOf(rows_[static_cast<size_t>(row)]));
}

void ItemListControl::SetList(int row, std::string_view text) {
  Row& changed = RowAt(row);
  unused_text_ += changed.text_size;
  StoreText(changed, text);
  DropUnusedTexts();
  RowsChanged();
}

int ItemListControl::ItemData(int row) const { return RowAt(row).data; }

void ItemListControl::SetItemData(int row, int data) { RowAt(row).data = data; }

void ItemListControl::AddItem(std::string_view text, int row) {
  auto place = rows_.end();
  if (row >= 0) {
    if (row > ListCount()) Raise(error::kInvalidProcedureCall);
    place = rows_.begin() + row;
  } else if (Sorted) {
    place = std::upper_bound(rows_.begin(), rows_.end(), text, [this](std::string_view added, const Row& present) {
      return CompareNoCase(added, TextOf(present)) < 0;
    });
  }
  new_index_ = static_cast<int>(place - rows_.begin());
  StoreText(*rows_.insert(place, Row{}), text);
  if (ListIndex >= new_index_) ListIndex.StoreQuietly(ListIndex + 1);
  RowsChanged();
}

void ItemListControl::AddItems(std::span<const std::string_view> texts) {
  if (Sorted) {
    for (const std::string_view text : texts) AddItem(text);
    return;
  }
  size_t added_size = 0;
  for (const std::string_view text : texts) added_size += text.size();
  texts_.reserve(texts_.size() + added_size);
  rows_.reserve(rows_.size() + texts.size());
  for (const std::string_view text : texts) StoreText(rows_.emplace_back(), text);
  if (!texts.empty()) new_index_ = ListCount() - 1;
  RowsChanged();
}

void ItemListControl::RemoveItem(int row) {
  unused_text_ += RowAt(row).text_size;
  rows_.erase(rows_.begin() + row);
  DropUnusedTexts();
  new_index_ = -1;
  if (ListIndex == row) ListIndex.StoreQuietly(-1);
  if (ListIndex > row) ListIndex.StoreQuietly(ListIndex - 1);
  RowsChanged();
}

void ItemListControl::Clear() {
  rows_.clear();
  texts_.clear();
  unused_text_ = 0;
  new_index_ = -1;
  ListIndex.StoreQuietly(-1);
  RowsChanged();
}

void ItemListControl::PropertyChanged(PropertyId id) {
  if (id != PropertyId::kListIndex) return;
  if (ListIndex < -1 || ListIndex >= ListCount()) {
    ListIndex.StoreQuietly(-1);
    Raise(error::kInvalidProcedureCall);
  }
  CurrentRowChanged();
}

}  // namespace kestrun
