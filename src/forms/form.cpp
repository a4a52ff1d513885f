#include "forms/form.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/flag_scope.h"
#include "base/text.h"
#include "forms/control_collections.h"
#include "forms/member_rows.h"
#include "forms/menu_item.h"
#include "forms/window_registry.h"
#include "platform/failure_box.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

Form& Self(Object& object) { return static_cast<Form&>(object); }

Variant ShowWithMode(Object& object, Arguments arguments) {
  const bool modal = !arguments.empty() && ToLong(arguments[0]) != 0;
  if (modal) {
    Self(object).ShowModal();
  } else {
    Self(object).Show();
  }
  return {};
}

// Form.Controls is the collection, Form.Controls(which) one of its elements.
Variant GetControls(Object& object, Arguments which) {
  const Ref<ControlCollection> all = MakeRef<ControlCollection>(Ref<Form>(&Self(object)));
  return which.empty() ? Variant(all) : all->Item(which[0]);
}

Variant CallPopupMenu(Object& object, Arguments given) {
  auto* menu = given[0].Is(VarType::kObject) ? dynamic_cast<MenuItem*>(given[0].object()) : nullptr;
  if (!menu) Raise(error::kObjectRequired);
  Self(object).PopupMenu(*menu);
  return {};
}

constexpr Member kRows[]{
    PropertyRow<&Form::Caption>("Caption"),
    PropertyRow<&Form::BorderStyle>("BorderStyle"),
    PropertyRow<&Form::StartUpPosition>("StartUpPosition"),
    PropertyRow<&Form::WindowState>("WindowState"),
    PropertyRow<&Form::MinButton>("MinButton"),
    PropertyRow<&Form::MaxButton>("MaxButton"),
    PropertyRow<&Form::ControlBox>("ControlBox"),
    PropertyRow<&Form::ShowInTaskbar>("ShowInTaskbar"),
    PropertyRow<&Form::KeyPreview>("KeyPreview"),
    PropertyRow<&Form::Icon>("Icon"),
    {"Controls", MemberKind::kReadOnly, 0, 1, &GetControls, nullptr, "Controls", "Index"},
    {"ActiveControl", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) -> Variant {
       Control* active = Self(object).ActiveControl();
       return active ? Variant(active) : Variant::Nothing();
     },
     nullptr, "Object"},
    RawMethodRow("PopupMenu", 1, 5, &CallPopupMenu, "Menu, Flags, x, y, DefaultMenu"),
    RawMethodRow("Show", 0, 2, &ShowWithMode, "Modal, OwnerForm"),
    MethodRow<&Form::Hide>("Hide"),
};

}  // namespace

const MemberTable Form::kFormMembers{&DrawableControl::kDrawableMembers, kRows};

Form::Form(std::string name) : DrawableControl(this, std::move(name), -1) {
  Visible.StoreQuietly(false);
  ForeColor.StoreQuietly(color::kButtonText);
}

Form::~Form() {
  for (const Ref<Control>& control : controls_) control->Disconnect();
}

int Form::ScaleWidth() const {
  return BorderStyle == static_cast<int>(FormBorder::kNone) ? Width.get() : Width - kFrameWidth;
}

int Form::ScaleHeight() const {
  const int frame = BorderStyle == static_cast<int>(FormBorder::kNone) ? 0 : kFrameHeight;
  return Height - frame - (HasMenu() ? kMenuHeight : 0);
}

void Form::SetClientSize(int width_twips, int height_twips) {
  Width = width_twips + (Width - ScaleWidth());
  Height = height_twips + (Height - ScaleHeight());
}

void Form::PropertyChanged(PropertyId id) {
  DrawableControl::PropertyChanged(id);
  placed_ = placed_ || id == PropertyId::kLeft || id == PropertyId::kTop;
  if (id != PropertyId::kVisible || Visible == shown_) return;
  if (Visible) {
    Show();
  } else {
    Hide();
  }
}

void Form::SetLeastClientSize(int width_twips, int height_twips) {
  least_scale_width_ = width_twips;
  least_scale_height_ = height_twips;
}

void Form::EnsureLoaded() {
  if (loaded_ || !IsAlive()) return;  // a closed window never comes back
  loaded_ = true;
  const Ref<Form> keep(this);
  try {
    Load();
  } catch (...) {
    // Half a window, which nobody has seen, must not keep the process alive; the next use makes another.
    if (loaded_) Discard();
    throw;
  }
}

void Form::Show() {
  EnsureLoaded();
  if (!loaded_) return;  // the load handler closed the form again
  if (shown_) {
    if (peer_) peer_->BringToFront();
    return;
  }
  shown_ = true;
  Visible.StoreQuietly(true);
  EnsurePeer();
  peer_->Show();
  Shown();
}

// A window that the load handler makes is owned by the present one already.
void Form::ShowModal() {
  const Ref<Form> keep(this);
  const FlagScope modal(modal_);
  EnsureLoaded();
  if (!loaded_) return;
  Show();
  platform().windowing().RunModal(*this);
}

void Form::Hide() {
  if (!shown_) return;
  shown_ = false;
  Visible.StoreQuietly(false);
  ClosePeer();
}

void Form::EnsurePeer() {
  if (!peer_ && IsAlive()) peer_ = platform().windowing().MakePeer(*this);
}

void Form::ClosePeer() {
  if (!peer_) return;
  peer_->Close();
  // The peer may be the caller of the handler that hides the form: it goes when that is over.
  platform().clock().Post([closed = std::exchange(peer_, nullptr)] {});
}

bool Form::Unload() {
  if (!loaded_ || unloading_) return true;
  const Ref<Form> keep(this);
  const FlagScope closing(unloading_);
  bool cancel = false;
  QueryUnload(cancel);
  if (cancel) return false;
  try {
    Unloading();
  } catch (const std::exception&) {
    ReportEventFault();  // the window closes all the same: otherwise nothing could close it
  }
  Discard();
  return true;
}

void Form::Discard() {
  Hide();
  ClosePeer();
  loaded_ = false;
  for (const Ref<Control>& control : controls_) control->Disconnect();
  Disconnect();
  WindowClosed(*this);
}

void Form::PopupMenu(MenuItem& item) {
  if (const std::shared_ptr<FormPeer> shown = peer_) shown->PopUpMenu(item);
}

std::vector<Control*> Form::StackingOrder() const {
  std::vector<Control*> order;
  order.reserve(stacking_.size());
  for (Control* control : stacking_) {
    order.push_back(control);
    for (const Ref<Control>& constituent : control->Constituents()) order.push_back(constituent.get());
  }
  return order;
}

Control* Form::FindControl(std::string_view name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Ref<Control>& control) {
    return (index < 0 || control->Index() == index) && EqualsNoCase(control->Name(), name);
  });
  return found == controls_.end() ? nullptr : found->get();
}

std::vector<MenuItem*> Form::TopMenus() const {
  std::vector<MenuItem*> items;
  for (const Ref<Control>& control : controls_) {
    auto* item = dynamic_cast<MenuItem*>(control.get());
    if (item && !item->Parent()) items.push_back(item);
  }
  return items;
}

bool Form::HasMenu() const {
  const std::vector<MenuItem*> items = TopMenus();
  return std::any_of(items.begin(), items.end(), [](const MenuItem* item) { return item->Visible.get(); });
}

std::vector<Control*> Form::TabOrder() const {
  // Constituents stand where their control stands, in an order of their own.
  struct Stop {
    int index;
    int inner_index;
    Control* control;
  };
  std::vector<Stop> stops;
  const auto add = [&stops](int index, int inner_index, Control& control) {
    if (control.TakesFocus() && control.TabStop && control.IsUsable()) stops.push_back({index, inner_index, &control});
  };
  for (const Ref<Control>& control : controls_) {
    add(control->TabIndex, 0, *control);
    for (const Ref<Control>& constituent : control->Constituents()) {
      add(control->TabIndex, constituent->TabIndex, *constituent);
    }
  }
  std::stable_sort(stops.begin(), stops.end(), [](const Stop& left, const Stop& right) {
    return std::tie(left.index, left.inner_index) < std::tie(right.index, right.inner_index);
  });
  std::vector<Control*> order;
  order.reserve(stops.size());
  for (const Stop& stop : stops) order.push_back(stop.control);
  return order;
}

void Form::AddControl(Ref<Control> control) {
  control->TabIndex.StoreQuietly(static_cast<int>(controls_.size()));
  stacking_.push_back(control.get());
  controls_.push_back(std::move(control));
  if (peer_) peer_->ControlsChanged();
}

void Form::Remove(Control& control) {
  const Ref<Control> keep(&control);
  std::erase(stacking_, &control);
  std::erase(controls_, keep);
  if (active_control_ && (active_control_ == &control || active_control_->Container() == &control)) {
    active_control_ = nullptr;
  }
  if (peer_) peer_->ControlsChanged();
  control.Disconnect();
}

void Form::Restack(Control& control, bool in_front) {
  if (&control == this) {
    if (peer_ && in_front) peer_->BringToFront();
    return;
  }
  if (std::erase(stacking_, &control) == 0) return;  // a constituent keeps its place
  stacking_.insert(in_front ? stacking_.end() : stacking_.begin(), &control);
  if (peer_) peer_->ControlsChanged();
}

MemberId Form::FindMember(std::string_view name) const {
  const MemberId own = Members().Find(name);
  if (own != kNoMember) return own;
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Ref<Control>& control) { return EqualsNoCase(control->Name(), name); });
  if (found == controls_.end()) return kNoMember;
  return static_cast<MemberId>(Members().Size() + static_cast<size_t>(found - controls_.begin()));
}

std::vector<MemberInfo> Form::ListMembers() const {
  std::vector<MemberInfo> list = Control::ListMembers();
  for (const Ref<Control>& control : controls_) {
    const int indexes = control->Index() < 0 ? 0 : 1;
    list.push_back({control->Name(), MemberKind::kReadOnly, indexes, indexes, {}, indexes ? "Index" : ""});
  }
  return list;
}

std::string_view Form::ParameterNames(MemberId member) const {
  return static_cast<size_t>(member) < Members().Size() ? Control::ParameterNames(member) : std::string_view("Index");
}

Variant Form::Get(MemberId member, Arguments arguments) {
  if (!IsAlive()) Raise(error::kObjectRequired);
  const auto position = static_cast<size_t>(member);
  if (position < Members().Size()) return Control::Get(member, arguments);
  return ControlByMember(position - Members().Size(), arguments);
}

void Form::Put(MemberId member, Arguments arguments, const Variant& value) {
  if (!IsAlive()) Raise(error::kObjectRequired);
  const auto position = static_cast<size_t>(member);
  if (position < Members().Size()) {
    Control::Put(member, arguments, value);
    return;
  }
  // Assigning to a control means its default property.
  const Variant control = ControlByMember(position - Members().Size(), arguments);
  const MemberId target = control.object()->DefaultMember();
  if (target == kNoMember) Raise(error::kMemberNotFound);
  control.object()->Put(target, {}, value);
}

Variant Form::ControlByMember(size_t position, Arguments arguments) const {
  if (position >= controls_.size()) Raise(error::kObjectRequired);
  const Ref<Control>& first = controls_[position];
  if (first->Index() < 0) {
    if (!arguments.empty()) Raise(error::kWrongArgumentCount);
    return first;
  }
  if (arguments.size() > 1) Raise(error::kWrongArgumentCount);
  const Ref<ControlArray> array = MakeRef<ControlArray>(Ref<Form>(first->form()), first->Name());
  return arguments.empty() ? Variant(array) : array->Item(arguments[0]);
}

void ReportEventFault() {
  Attempt([] { ShowFailureBox("", BoxIcon::kCritical); });
}

}  // namespace kestrun
