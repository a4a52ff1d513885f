#include "forms/menu_item.h"

#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&MenuItem::Caption>("Caption"),
    PropertyRow<&MenuItem::Checked>("Checked"),
    PropertyRow<&MenuItem::Shortcut>("Shortcut"),
    PropertyRow<&MenuItem::Picture>("Picture"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& MenuItem::Members() const { return kTable; }

void MenuItem::SetParent(MenuItem& parent) {
  parent_ = &parent;
  if (FormPeer* shown = peer()) shown->MenuChanged();
}

std::vector<MenuItem*> MenuItem::Items() const {
  std::vector<MenuItem*> items;
  if (!form()) return items;
  for (const Ref<Control>& control : form()->controls()) {
    auto* item = dynamic_cast<MenuItem*>(control.get());
    if (item && item->parent_ == this) items.push_back(item);
  }
  return items;
}

bool MenuItem::Choose() {
  for (const MenuItem* item = this; item; item = item->parent_) {
    // A hidden item of the menu bar may still pop up.
    const bool pops_up = item != this && !item->parent_;
    if (!item->Enabled || (!item->Visible && !pops_up)) return false;
  }
  DispatchEvent(form(), [&] { Click(); });
  return true;
}

void MenuItem::PropertyChanged(PropertyId) {
  if (FormPeer* shown = peer()) shown->MenuChanged();
}

}  // namespace kestrun
