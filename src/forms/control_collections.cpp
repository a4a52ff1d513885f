#include "forms/control_collections.h"

#include <algorithm>

#include "base/list_enumeration.h"
#include "base/text.h"
#include "forms/control_kinds.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

ControlCollection& Collection(Object& object) { return static_cast<ControlCollection&>(object); }
ControlArray& Array(Object& object) { return static_cast<ControlArray&>(object); }

Variant CallAdd(Object& object, Arguments given) {
  Control* container = nullptr;
  if (given.size() > 2 && !given[2].IsMissing()) {
    container = given[2].Is(VarType::kObject) ? dynamic_cast<Control*>(given[2].object()) : nullptr;
    if (!container) Raise(error::kInvalidPropertyValue);
  }
  return &Collection(object).Add(ToText(given[0]), ToText(given[1]), container);
}

Variant CallRemove(Object& object, Arguments given) {
  Collection(object).Remove(given[0]);
  return {};
}

constexpr Member kCollectionRows[]{
    ReadOnlyRow<&ControlCollection::Count>("Count"),
    {"Item", MemberKind::kReadOnly, 1, 1,
     [](Object& object, Arguments which) { return Collection(object).Item(which[0]); }, nullptr, "Object", "Index"},
    RawMethodRow("Add", 2, 3, &CallAdd, "ProgID, Name, Container"),
    RawMethodRow("Remove", 1, 1, &CallRemove, "Index"),
};
constexpr MemberTable kCollectionTable{nullptr, kCollectionRows};

constexpr Member kArrayRows[]{
    ReadOnlyRow<&ControlArray::Count>("Count"),
    ReadOnlyRow<&ControlArray::LBound>("LBound"),
    ReadOnlyRow<&ControlArray::UBound>("UBound"),
    {"Item", MemberKind::kReadOnly, 1, 1, [](Object& object, Arguments which) { return Array(object).Item(which[0]); },
     nullptr, "Object", "Index"},
};
constexpr MemberTable kArrayTable{nullptr, kArrayRows};

}  // namespace

// ---- the controls of a form ----------------------------------------------------------------------------------------

const MemberTable& ControlCollection::Members() const { return kCollectionTable; }

Variant ControlCollection::Item(const Variant& which) const {
  if (!which.Is(VarType::kString)) {
    const int at = ToLong(which);
    if (at < 0 || at >= Count()) Raise(error::kSubscriptOutOfRange);
    return form_->controls()[static_cast<size_t>(at)];
  }
  Control* found = form_->FindControl(ToText(which));
  if (!found) Raise(error::kMemberNotFound);
  if (found->Index() < 0) return found;
  return MakeRef<ControlArray>(form_, found->Name());
}

Control& ControlCollection::Add(std::string_view kind, std::string_view name, Control* container) {
  if (name.empty()) Raise(error::kInvalidPropertyValue);
  if (form_->FindMember(name) != kNoMember) Raise(error::kNameInUse);
  if (container && (!container->IsContainer() || container->form() != form_.get())) {
    Raise(error::kInvalidPropertyValue);
  }
  return AddControlOfKind(*form_, kind, std::string(name), container);
}

void ControlCollection::Remove(const Variant& which) {
  const Variant item = Item(which);
  auto* control = dynamic_cast<Control*>(item.object());
  if (!control || !control->IsMadeByScript()) Raise(error::kNotMadeByScript);
  form_->Remove(*control);
}

std::unique_ptr<Enumeration> ControlCollection::Enumerate() {
  if (!IsAlive()) Raise(error::kObjectRequired);
  return std::make_unique<ListEnumeration<Ref<Control>>>(form_->controls());
}

// ---- a control array -----------------------------------------------------------------------------------------------

const MemberTable& ControlArray::Members() const { return kArrayTable; }

std::vector<Ref<Control>> ControlArray::Elements() const {
  std::vector<Ref<Control>> elements;
  for (const Ref<Control>& control : form_->controls()) {
    if (control->Index() >= 0 && EqualsNoCase(control->Name(), name_)) elements.push_back(control);
  }
  std::sort(elements.begin(), elements.end(),
            [](const Ref<Control>& left, const Ref<Control>& right) { return left->Index() < right->Index(); });
  return elements;
}

int ControlArray::LBound() const {
  const std::vector<Ref<Control>> elements = Elements();
  if (elements.empty()) Raise(error::kSubscriptOutOfRange);
  return elements.front()->Index();
}

int ControlArray::UBound() const {
  const std::vector<Ref<Control>> elements = Elements();
  if (elements.empty()) Raise(error::kSubscriptOutOfRange);
  return elements.back()->Index();
}

Variant ControlArray::Item(const Variant& index) const {
  const int wanted = ToLong(index);
  Control* element = wanted < 0 ? nullptr : form_->FindControl(name_, wanted);
  if (!element) Raise(error::kSubscriptOutOfRange);
  return element;
}

std::unique_ptr<Enumeration> ControlArray::Enumerate() {
  if (!IsAlive()) Raise(error::kObjectRequired);
  return std::make_unique<ListEnumeration<Ref<Control>>>(Elements());
}

}  // namespace kestrun
