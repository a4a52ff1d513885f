// McListBox as scripts and stored windows see it.
#include <algorithm>

#include "base/convert.h"
#include "controls/list_box/mc_list_box.h"

namespace kestrun {
namespace {

McListBox& Self(Object& object) { return static_cast<McListBox&>(object); }

bool IsGiven(Arguments arguments, size_t at) { return at < arguments.size() && !arguments[at].IsMissing(); }

int LongOr(Arguments arguments, size_t at, int otherwise) {
  return IsGiven(arguments, at) ? ToLong(arguments[at]) : otherwise;
}

bool FlagOr(Arguments arguments, size_t at, bool otherwise) {
  return IsGiven(arguments, at) ? ToBoolean(arguments[at]) : otherwise;
}

Variant CallAddItem(Object& object, Arguments arguments) {
  const Variant data = IsGiven(arguments, 4) ? arguments[4] : Variant();
  Self(object).AddItem(ToText(arguments[0]), LongOr(arguments, 1, -1), LongOr(arguments, 2, ListItems::kNoIcon),
                       FlagOr(arguments, 3, false), data);
  return {};
}

Variant CallRemove(Object& object, Arguments arguments) {
  Self(object).Remove(LongOr(arguments, 0, -1));
  return {};
}

Variant CallSplitToLines(Object& object, Arguments arguments) {
  const std::vector<std::string> lines =
      Self(object).SplitToLines(ToText(arguments[0]), ToLong(arguments[1]), FlagOr(arguments, 2, false));
  Ref<ArrayBody> array = MakeRef<ArrayBody>(std::vector<int32_t>{static_cast<int32_t>(lines.size())});
  std::copy(lines.begin(), lines.end(), array->elements.begin());
  return Variant(array);
}

Variant GetSelItem(Object& object, Arguments arguments) { return Self(object).SelItem(ToLong(arguments[0])); }
Variant GetItemData(Object& object, Arguments arguments) { return Self(object).ItemData(ToLong(arguments[0])); }

Variant CallTranslateColor(Object& object, Arguments arguments) {
  return Self(object).TranslateColor(ColorFrom(arguments[0]));
}

constexpr Member kRows[]{
    PropertyRow<&McListBox::Picture>("Picture"),
    FontRow("Font"),
    PropertyRow<&Control::ForeColor>("ForeColor"),
    PropertyRow<&Control::BackColor>("BackColor"),
    PropertyRow<&McListBox::SelColor>("SelColor"),
    PropertyRow<&McListBox::SelForeColor>("SelForeColor"),
    PropertyRow<&McListBox::StrechIcon>("StrechIcon"),
    PropertyRow<&McListBox::Appearance>("Appearance"),
    PropertyRow<&McListBox::BorderStyle>("BorderStyle"),
    PropertyRow<&McListBox::FullRowSelect>("FullRowSelect"),
    PropertyRow<&McListBox::MultiSelect>("MultiSelect"),
    PropertyRow<&McListBox::FocusRectangle>("FocusRectangle"),
    PropertyRow<&McListBox::ShowIcon>("ShowIcon"),
    PropertyRow<&McListBox::SortOrder>("SortOrder"),
    PropertyRow<&McListBox::IconFocus>("IconFocus"),
    PropertyRow<&McListBox::TextAlignment>("TextAlignment"),
    PropertyRow<&McListBox::GridLines>("GridLines"),
    PropertyRow<&McListBox::GridColor>("GridColor"),
    PropertyRow<&McListBox::RowHeight>("RowHeight"),
    PropertyRow<&McListBox::BackGradient>("BackGradient"),
    PropertyRow<&McListBox::SelGradient>("SelGradient"),
    PropertyRow<&McListBox::BackGradientCol>("BackGradientCol"),
    PropertyRow<&McListBox::SelGradientCol>("SelGradientCol"),
    PropertyRow<&McListBox::SelectionStyle>("SelectionStyle"),
    PropertyRow<&McListBox::FlatScrollBar>("FlatScrollBar"),
    PropertyRow<&McListBox::AutoHideScrollBars>("AutoHideScrollBars"),
    ReadOnlyRow<&McListBox::ListCount>("ListCount"),
    {"ItemData", MemberKind::kReadOnly, 1, 1, &GetItemData, nullptr, {}, "Index"},
    {"ListIcon", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments arguments) -> Variant { return Self(object).ListIcon(ToLong(arguments[0])); },
     [](Object& object, Arguments arguments, const Variant& value) {
       Self(object).SetListIcon(ToLong(arguments[0]), ToLong(value));
     },
     "Long", "Index"},
    {"ListBold", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments arguments) -> Variant { return Self(object).ListBold(ToLong(arguments[0])); },
     [](Object& object, Arguments arguments, const Variant& value) {
       Self(object).SetListBold(ToLong(arguments[0]), ToBoolean(value));
     },
     "Boolean", "Index"},
    AccessorRow<&McListBox::ListIndex, &McListBox::SetListIndex>("ListIndex"),
    ReadOnlyRow<&McListBox::Text>("Text"),
    {"List", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments arguments) -> Variant { return Self(object).List(ToLong(arguments[0])); },
     [](Object& object, Arguments arguments, const Variant& value) {
       Self(object).SetList(ToLong(arguments[0]), ToText(value));
     },
     "String", "Index"},
    ReadOnlyRow<&McListBox::SelCount>("SelCount"),
    {"ImageList", MemberKind::kWriteOnly, 0, 0, nullptr,
     [](Object& object, Arguments, const Variant& value) {
       if (!value.Is(VarType::kObject)) Raise(error::kObjectRequired);
       Self(object).SetImageList(Ref<Object>(value.object()));
     }},
    {"SelItem", MemberKind::kReadOnly, 1, 1, &GetSelItem, nullptr, {}, "Index"},
    MethodRow<&McListBox::ClearSelection>("ClearSelection"),
    MethodRow<&McListBox::SelectAll>("SelectAll"),
    RawMethodRow("AddItem", 1, 5, &CallAddItem, "Text, Index, Icon, Bold, Data"),
    RawMethodRow("Remove", 0, 1, &CallRemove, "Index"),
    MethodRow<&McListBox::Clear>("Clear"),
    MethodRow<&McListBox::Refresh>("Refresh"),
    RawMethodRow("SplitToLines", 2, 3, &CallSplitToLines, "Text, Width, Strip"),
    MethodRow<&McListBox::IsDelim>("IsDelim", "Character"),
    MethodRow<&McListBox::BlendColor>("BlendColor", "First, Second, Alpha"),
    RawMethodRow("TranslateColor", 1, 2, &CallTranslateColor, "Color, Palette"),
};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

// ---- stored properties, each under its own name ----

template <class T>
struct StoredRow {
  std::string_view name;
  LetProperty<T> McListBox::*property;
  T default_value;
};

constexpr StoredRow<bool> kFlags[]{
    {"StrechIcon", &McListBox::StrechIcon, false},
    {"FullRowSelect", &McListBox::FullRowSelect, false},
    {"MultiSelect", &McListBox::MultiSelect, false},
    {"FocusRectangle", &McListBox::FocusRectangle, true},
    {"ShowIcon", &McListBox::ShowIcon, false},
    {"IconFocus", &McListBox::IconFocus, true},
    {"GridLines", &McListBox::GridLines, false},
    {"FlatScrollBar", &McListBox::FlatScrollBar, false},
    {"AutoHideScrollBars", &McListBox::AutoHideScrollBars, false},
};

constexpr StoredRow<int> kNumbers[]{
    {"SortOrder", &McListBox::SortOrder, 0},
    {"TextAlignment", &McListBox::TextAlignment, 0},
    {"RowHeight", &McListBox::RowHeight, McListBox::kDefaultRowHeight},
    {"BackGradient", &McListBox::BackGradient, 0},
    {"SelGradient", &McListBox::SelGradient, 0},
    {"SelectionStyle", &McListBox::SelectionStyle, McListBox::kBlendedFrame},
};

constexpr StoredRow<int16_t> kShortNumbers[]{
    {"Appearance", &McListBox::Appearance, 1},
    {"BorderStyle", &McListBox::BorderStyle, 1},
};

constexpr StoredRow<Color> kColors[]{
    {"SelColor", &McListBox::SelColor, McListBox::kDefaultSelColor},
    {"SelForeColor", &McListBox::SelForeColor, color::kWhite},
    {"GridColor", &McListBox::GridColor, color::kButtonFace},
    {"BackGradientCol", &McListBox::BackGradientCol, McListBox::kDefaultGradientColor},
    {"SelGradientCol", &McListBox::SelGradientCol, color::kWhite},
};

template <class Rows>
void WriteRows(const McListBox& list, PropertyBag& bag, const Rows& rows) {
  for (const auto& row : rows) {
    using Traits = VariantTraits<std::remove_cvref_t<decltype(row.default_value)>>;
    bag.WriteProperty(row.name, Traits::To((list.*row.property).get()), Traits::To(row.default_value));
  }
}

template <class Rows>
void ReadRows(McListBox& list, const PropertyBag& bag, const Rows& rows) {
  for (const auto& row : rows) {
    using Traits = VariantTraits<std::remove_cvref_t<decltype(row.default_value)>>;
    list.*row.property = Traits::From(bag.ReadProperty(row.name, Traits::To(row.default_value)));
  }
}

}  // namespace

const MemberTable& McListBox::Members() const { return kTable; }

void McListBox::WriteProperties(PropertyBag& bag) const {
  bag.WriteProperty("Picture", Picture.get(), Variant::Nothing());
  bag.WriteProperty("Font", StoredFont(Font), StoredFont(ContainerFont(*this)));
  bag.WriteProperty("ForeColor", StoredColor(ForeColor), StoredColor(color::kButtonText));
  bag.WriteProperty("BackColor", StoredColor(BackColor), StoredColor(kDefaultBackColor));
  WriteRows(*this, bag, kFlags);
  WriteRows(*this, bag, kNumbers);
  WriteRows(*this, bag, kShortNumbers);
  WriteRows(*this, bag, kColors);
}

void McListBox::ReadProperties(const PropertyBag& bag) {
  const Reading reading(*this);
  Picture = VariantTraits<Ref<kestrun::Picture>>::From(bag.ReadProperty("Picture", Variant::Nothing()));
  Font = FontFrom(bag.ReadProperty("Font", StoredFont(ContainerFont(*this))));
  ForeColor = ColorFrom(bag.ReadProperty("ForeColor", StoredColor(color::kButtonText)));
  BackColor = ColorFrom(bag.ReadProperty("BackColor", StoredColor(kDefaultBackColor)));
  ReadRows(*this, bag, kFlags);
  ReadRows(*this, bag, kNumbers);
  ReadRows(*this, bag, kShortNumbers);
  ReadRows(*this, bag, kColors);
}

}  // namespace kestrun
