#include "forms/control.h"

#include <algorithm>

#include "forms/font_object.h"
#include "forms/form.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

Control& Self(Object& object) { return static_cast<Control&>(object); }

enum class Axis { kAcross, kDown };

// Twips of one unit in which a control's place is told: its container's.
double UnitOf(const Control& control, Axis axis) {
  const Control* container = control.Container();
  if (!container) return 1;
  return axis == Axis::kAcross ? container->UnitWidth() : container->UnitHeight();
}

int ToTwips(const Variant& value, double unit) {
  return unit == 1 ? ToLong(value) : ToLong(Variant(ToDouble(value) * unit));
}

// A place or a size: stored in twips, read and written in the container's units.
template <auto kProperty, Axis kAxis>
constexpr Member PlaceRow(std::string_view name) {
  return {name,
          MemberKind::kReadWrite,
          0,
          0,
          [](Object& object, Arguments) -> Variant {
            const int twips = Self(object).*kProperty;
            const double unit = UnitOf(Self(object), kAxis);
            return unit == 1 ? Variant(twips) : Variant(twips / unit);
          },
          [](Object& object, Arguments, const Variant& value) {
            Self(object).*kProperty = ToTwips(value, UnitOf(Self(object), kAxis));
          },
          "Long"};
}

Variant MoveWithDefaults(Object& object, Arguments arguments) {
  Control& control = Self(object);
  const auto value = [&](size_t at, Axis axis, int present) {
    const bool is_given = at < arguments.size() && !arguments[at].IsMissing();
    return is_given ? ToTwips(arguments[at], UnitOf(control, axis)) : present;
  };
  control.Move(value(0, Axis::kAcross, control.Left), value(1, Axis::kDown, control.Top),
               value(2, Axis::kAcross, control.Width), value(3, Axis::kDown, control.Height));
  return {};
}

void PutContainer(Object& object, Arguments, const Variant& value) {
  if (!value.Is(VarType::kObject) || !value.object()) Raise(error::kObjectRequired);
  auto* container = dynamic_cast<Control*>(value.object());
  const bool may_hold = container && container->IsContainer() && container->form() == Self(object).form();
  bool is_inside = false;
  for (const Control* one = container; one; one = one->Container()) is_inside = is_inside || one == &object;
  if (!may_hold || is_inside) Raise(error::kInvalidPropertyValue);
  Self(object).SetContainer(*container);
}

// Another object's font is taken over as it is now; a text is a font's name.
void PutFont(Object& object, Arguments, const Variant& value) {
  FontDescription font = Self(object).Font;
  if (value.Is(VarType::kObject)) {
    if (!value.object()) Raise(error::kTypeMismatch);
    font = FontOf(*value.object());
  } else {
    font.name = ToText(value);
  }
  Self(object).Font = font;
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
      },
      VariantTraits<Value>::kTypeName};
}

Variant ReferenceTo(Control* control) { return control ? Variant(control) : Variant::Nothing(); }

constexpr Member kRows[]{
    ReadOnlyRow<&Control::Name>("Name"),
    ReadOnlyRow<&Control::Index>("Index"),
    PlaceRow<&Control::Left, Axis::kAcross>("Left"),
    PlaceRow<&Control::Top, Axis::kDown>("Top"),
    PlaceRow<&Control::Width, Axis::kAcross>("Width"),
    PlaceRow<&Control::Height, Axis::kDown>("Height"),
    PropertyRow<&Control::Visible>("Visible"),
    PropertyRow<&Control::Enabled>("Enabled"),
    PropertyRow<&Control::ToolTipText>("ToolTipText"),
    PropertyRow<&Control::Tag>("Tag"),
    PropertyRow<&Control::TabIndex>("TabIndex"),
    PropertyRow<&Control::TabStop>("TabStop"),
    PropertyRow<&Control::MousePointer>("MousePointer"),
    PropertyRow<&Control::MouseIcon>("MouseIcon"),
    PropertyRow<&Control::ForeColor>("ForeColor"),
    PropertyRow<&Control::BackColor>("BackColor"),
    {"Font", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) -> Variant { return MakeRef<FontObject>(Ref<Control>(&Self(object))); }, &PutFont,
     "Font"},
    FontRow<&FontDescription::name>("FontName"),
    FontRow<&FontDescription::size_points>("FontSize"),
    FontRow<&FontDescription::bold>("FontBold"),
    FontRow<&FontDescription::italic>("FontItalic"),
    FontRow<&FontDescription::underline>("FontUnderline"),
    FontRow<&FontDescription::strikethrough>("FontStrikethru"),
    {"Container", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) { return ReferenceTo(Self(object).Container()); }, &PutContainer, "Object"},
    {"Parent", MemberKind::kReadOnly, 0, 0, [](Object& object, Arguments) { return ReferenceTo(Self(object).form()); },
     nullptr, "Form"},
    RawMethodRow("Move", 1, 4, &MoveWithDefaults, "Left, Top, Width, Height"),
    MethodRow<&Control::SetFocus>("SetFocus"),
    MethodRow<&Control::Refresh>("Refresh"),
    RawMethodRow(
        "ZOrder", 0, 1,
        [](Object& object, Arguments arguments) -> Variant {
          Self(object).ZOrder(arguments.empty() ? 0 : ToLong(arguments[0]));
          return {};
        },
        "Position"),
};

}  // namespace

const MemberTable Control::kControlMembers{nullptr, kRows};

namespace {

constexpr Member kWindowRows[]{ReadOnlyRow<&Control::WindowNumber>("hWnd")};

}  // namespace

const MemberTable Control::kWindowedMembers{&Control::kControlMembers, kWindowRows};

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

int32_t Control::WindowNumber() const {
  if (!form_) return 0;
  form_->EnsurePeer();
  FormPeer* made = peer();
  return made ? made->WindowNumber(*this) : 0;
}

bool Control::IsUsable() const {
  for (const Control* control = this; control; control = control->container_) {
    if (!control->Visible || !control->Enabled) return false;
  }
  return form_ != nullptr;
}

void Control::TakeWindowColors() {
  BackColor.StoreQuietly(color::kWindowBackground);
  ForeColor.StoreQuietly(color::kWindowText);
}

void Control::Disconnect() {
  form_ = nullptr;
  container_ = nullptr;
}

FormPeer* Control::peer() const { return form_ ? form_->form_peer() : nullptr; }

}  // namespace kestrun
