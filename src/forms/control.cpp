#include "forms/control.h"

#include <algorithm>

#include "forms/font_object.h"
#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

Control& Self(Object& object) { return static_cast<Control&>(object); }

Variant MoveWithDefaults(Object& object, Arguments arguments) {
  Control& control = Self(object);
  const auto value = [&](size_t at, int present) {
    return at < arguments.size() && !arguments[at].IsMissing() ? ToLong(arguments[at]) : present;
  };
  control.Move(value(0, control.Left), value(1, control.Top), value(2, control.Width), value(3, control.Height));
  return {};
}

// One member of the font, read and written as a property of the control.
template <auto kField>
constexpr Member FontRow(std::string_view name) {
  using Value = std::remove_cvref_t<decltype(std::declval<FontDescription>().*kField)>;
  return {
      name,
      MemberKind::kReadWrite,
      0,
      0,
      [](Object& object, Arguments) -> Variant { return VariantTraits<Value>::To(Self(object).Font.get().*kField); },
      [](Object& object, Arguments, const Variant& value) {
        FontDescription font = Self(object).Font;
        font.*kField = VariantTraits<Value>::From(value);
        static_cast<void>(CheckedFontSize(font.size_points));
        Self(object).Font = font;
      }};
}

Variant ReferenceTo(Control* control) { return control ? Variant(control) : Variant::Nothing(); }

constexpr Member kRows[]{
    ReadOnlyRow<&Control::Name>("Name"),
    ReadOnlyRow<&Control::Index>("Index"),
    PropertyRow<&Control::Left>("Left"),
    PropertyRow<&Control::Top>("Top"),
    PropertyRow<&Control::Width>("Width"),
    PropertyRow<&Control::Height>("Height"),
    PropertyRow<&Control::Visible>("Visible"),
    PropertyRow<&Control::Enabled>("Enabled"),
    PropertyRow<&Control::ToolTipText>("ToolTipText"),
    PropertyRow<&Control::Tag>("Tag"),
    PropertyRow<&Control::TabIndex>("TabIndex"),
    PropertyRow<&Control::TabStop>("TabStop"),
    PropertyRow<&Control::MousePointer>("MousePointer"),
    PropertyRow<&Control::ForeColor>("ForeColor"),
    PropertyRow<&Control::BackColor>("BackColor"),
    {"Font", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) -> Variant { return MakeRef<FontObject>(Ref<Control>(&Self(object))); }},
    FontRow<&FontDescription::name>("FontName"),
    FontRow<&FontDescription::size_points>("FontSize"),
    FontRow<&FontDescription::bold>("FontBold"),
    FontRow<&FontDescription::italic>("FontItalic"),
    FontRow<&FontDescription::underline>("FontUnderline"),
    FontRow<&FontDescription::strikethrough>("FontStrikethru"),
    {"Container", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) { return ReferenceTo(Self(object).Container()); }},
    {"Parent", MemberKind::kReadOnly, 0, 0, [](Object& object, Arguments) { return ReferenceTo(Self(object).form()); }},
    RawMethodRow("Move", 1, 4, &MoveWithDefaults),
    MethodRow<&Control::SetFocus>("SetFocus"),
    MethodRow<&Control::Refresh>("Refresh"),
    RawMethodRow("ZOrder", 0, 1,
                 [](Object& object, Arguments arguments) -> Variant {
                   Self(object).ZOrder(arguments.empty() ? 0 : ToLong(arguments[0]));
                   return {};
                 }),
};

}  // namespace

const MemberTable Control::kControlMembers{nullptr, kRows};

namespace internal {

void NotifyPropertyChanged(Control& owner, PropertyId id) {
  if (id == PropertyId::kNone) return;
  owner.PropertyChanged(id);
  if (FormPeer* peer = owner.peer(); peer && owner.HasBody()) peer->Update(owner, id);
}

}  // namespace internal

Control::Control(Form* form, std::string name, int index)
    : form_(form), container_(nullptr), name_(std::move(name)), index_(index) {
  Control* const owner = form;
  if (owner != this) container_ = owner;
}

void Control::SetContainer(Control& container) {
  container_ = &container;
  if (FormPeer* shown = peer()) shown->ControlsChanged();
}

void Control::Move(int left, int top, int width, int height) {
  Left = left;
  Top = top;
  Width = width;
  Height = height;
}

void Control::SetFocus() {
  if (!IsUsable()) Raise(error::kInvalidProcedureCall);
  if (FormPeer* shown = peer()) shown->SetFocus(*this);
}

void Control::Refresh() {
  if (FormPeer* shown = peer()) shown->Repaint(*this);
}

void Control::ZOrder(int position) {
  if (form_) form_->Restack(*this, position == 0);
}

bool Control::IsUsable() const {
  for (const Control* control = this; control; control = control->container_) {
    if (!control->Visible || !control->Enabled) return false;
  }
  return form_ != nullptr;
}

void Control::Disconnect() {
  form_ = nullptr;
  container_ = nullptr;
}

FormPeer* Control::peer() const { return form_ ? form_->form_peer() : nullptr; }

}  // namespace kestrun
