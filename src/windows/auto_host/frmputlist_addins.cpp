// The menu of add-ins: each is made when it is ticked, handed this window, and released when it is unticked.
#include "base/text.h"
#include "game/add_ins/add_ins.h"
#include "maps/map_picture.h"
#include "program/settings.h"
#include "program/window_kit/run_command.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

void HandOver(Object& add_in, Form& window) {
  const MemberId form_member = add_in.FindMember("AHForm");
  if (form_member == kNoMember) Raise(error::kMemberNotFound);
  add_in.PutReference(form_member, {}, Variant(Ref<Object>(&window)));
  CallMember(add_in, "SetInfo");
}

}  // namespace

MenuItem* frmputlist::AddinItem(int number) const {
  return static_cast<MenuItem*>(FindControl(mnu_addin.Name(), number));
}

void frmputlist::LoadAddins() {
  for (int number = 1; MenuItem* item = AddinItem(number); ++number) Remove(*item);
  ReleaseAddins();
  addins_.clear();
  int number = 0;
  for (const AddIn& add_in : ReadAddIns(std::string(setting::kAddInClassId.text))) {
    auto& item = Add<MenuItem>(mnu_addin.Name(), ++number);
    item.Caption = add_in.name;
    item.SetParent(mnu_addins);
    item.Click = [this, number] { ClickAddin(number); };
  }
  addins_.resize(static_cast<size_t>(number));
}

void frmputlist::ReleaseAddins() {
  // What an add-in does as it goes may come back here.
  std::vector<Ref<Object>> released(addins_.size());
  released.swap(addins_);
}

void frmputlist::ClickAddin(int number) {
  // An add-in may have the menu made anew while it is being switched on.
  const Ref<Form> keep(this);
  const Ref<MenuItem> item(AddinItem(number));
  RunCommand([&] {
    const auto slot = static_cast<size_t>(number) - 1;
    if (item->Checked) {
      addins_.at(slot).Reset();
      item->Checked = false;
      return;
    }
    addins_.at(slot) = CreateAddIn(ReadSetting(setting::kAddInClassId, std::to_string(number)));
    const Ref<Object> add_in = addins_[slot];
    HandOver(*add_in, *this);
    item->Checked = true;
  });
}

Variant frmputlist::GetAddin(int Index) const {
  if (Index < 1 || static_cast<size_t>(Index) > addins_.size()) Raise(error::kSubscriptOutOfRange);
  const Ref<Object>& add_in = addins_[static_cast<size_t>(Index) - 1];
  return add_in ? Variant(add_in) : Variant::Nothing();
}

Variant frmputlist::GetForm(int Index) {
  const std::vector<Form*> windows = LoadedWindows();
  if (Index < 0 || static_cast<size_t>(Index) >= windows.size()) Raise(error::kSubscriptOutOfRange);
  return Ref<Object>(windows[static_cast<size_t>(Index)]);
}

int frmputlist::GetFormIndex(const std::string& Name) {
  const std::vector<Form*> windows = LoadedWindows();
  for (size_t at = 0; at < windows.size(); ++at) {
    if (EqualsNoCase(windows[at]->Name(), Name)) return static_cast<int>(at);
  }
  return -1;
}

}  // namespace kestrun
