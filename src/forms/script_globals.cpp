#include "forms/script_globals.h"

#include <algorithm>

#include "base/list_enumeration.h"
#include "base/text.h"
#include "forms/active_form.h"
#include "forms/member_rows.h"
#include "forms/picture.h"
#include "forms/script_system.h"
#include "forms/window_registry.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

int& Pointer() {
  static int pointer = 0;
  return pointer;
}

Variant ReferenceTo(Object* object) { return object ? Variant(object) : Variant::Nothing(); }

Variant GetForm(Object&, Arguments which) {
  if (which[0].Is(VarType::kString)) {
    Form* named = LoadedWindow(ToText(which[0]));
    if (!named) Raise(error::kSubscriptOutOfRange);
    return named;
  }
  const std::vector<Form*> forms = LoadedWindows();
  const int at = ToLong(which[0]);
  if (at < 0 || at >= static_cast<int>(forms.size())) Raise(error::kSubscriptOutOfRange);
  return forms[static_cast<size_t>(at)];
}

// Screen.Forms is the collection, Screen.Forms(which) one of its elements.
Variant GetForms(Object& object, Arguments which) {
  return which.empty() ? Variant(MakeRef<FormCollection>()) : GetForm(object, which);
}

Variant GetFont(Object&, Arguments which) {
  const std::vector<std::string> names = platform().windowing().FontNames();
  const int at = ToLong(which[0]);
  if (at < 0 || at >= static_cast<int>(names.size())) Raise(error::kSubscriptOutOfRange);
  return names[static_cast<size_t>(at)];
}

Variant GetActiveControl(Object&, Arguments) {
  const Form* form = ActiveForm();
  return ReferenceTo(form ? form->ActiveControl() : nullptr);
}

using Getter = Variant (*)(Object&, Arguments);
constexpr Member Reading(std::string_view name, Getter get, std::string_view type) {
  return {name, MemberKind::kReadOnly, 0, 0, get, nullptr, type};
}

constexpr Member kScreenRows[]{
    Reading(
        "Width", [](Object&, Arguments) -> Variant { return platform().windowing().Screen().width_twips; }, "Long"),
    Reading(
        "Height", [](Object&, Arguments) -> Variant { return platform().windowing().Screen().height_twips; }, "Long"),
    Reading(
        "TwipsPerPixelX", [](Object&, Arguments) -> Variant { return platform().windowing().Screen().twips_per_pixel; },
        "Long"),
    Reading(
        "TwipsPerPixelY", [](Object&, Arguments) -> Variant { return platform().windowing().Screen().twips_per_pixel; },
        "Long"),
    {"Forms", MemberKind::kReadOnly, 0, 1, &GetForms, nullptr, "Forms", "Index"},
    Reading(
        "ActiveForm", [](Object&, Arguments) { return ReferenceTo(ActiveForm()); }, "Form"),
    Reading("ActiveControl", &GetActiveControl, "Object"),
    {"MousePointer", MemberKind::kReadWrite, 0, 0, [](Object&, Arguments) -> Variant { return Pointer(); },
     [](Object&, Arguments, const Variant& value) { Pointer() = ToLong(value); }, "Long"},
    Reading(
        "FontCount",
        [](Object&, Arguments) -> Variant { return static_cast<int>(platform().windowing().FontNames().size()); },
        "Long"),
    {"Fonts", MemberKind::kReadOnly, 1, 1, &GetFont, nullptr, "String", "Index"},
};
constexpr MemberTable kScreenTable{nullptr, kScreenRows};

constexpr Member kFormsRows[]{
    Reading(
        "Count", [](Object&, Arguments) -> Variant { return static_cast<int>(LoadedWindows().size()); }, "Long"),
    {"Item", MemberKind::kReadOnly, 1, 1, &GetForm, nullptr, "Form", "Index"},
};
constexpr MemberTable kFormsTable{nullptr, kFormsRows};

constexpr Member kAppRows[]{
    Reading(
        "Path", [](Object&, Arguments) -> Variant { return platform().program().Folder(); }, "String"),
    Reading(
        "EXEName", [](Object&, Arguments) -> Variant { return platform().program().ExeName(); }, "String"),
    AccessorRow<&AppObject::Title, &AppObject::SetTitle>("Title"),
    Reading(
        "ProductName", [](Object&, Arguments) -> Variant { return "Kestrun"; }, "String"),
    Reading(
        "Major", [](Object&, Arguments) -> Variant { return platform().program().ProgramVersion().major; }, "Long"),
    Reading(
        "Minor", [](Object&, Arguments) -> Variant { return platform().program().ProgramVersion().minor; }, "Long"),
    Reading(
        "Revision", [](Object&, Arguments) -> Variant { return platform().program().ProgramVersion().revision; },
        "Long"),
    Reading(
        "hInstance", [](Object&, Arguments) -> Variant { return InstalledScriptSystem().instance; }, "Long"),
    ReadOnlyRow<&AppObject::HasPreviousInstance>("PrevInstance"),
};
constexpr MemberTable kAppTable{nullptr, kAppRows};

// The numbers of the formats: text, and a picture under either of its two names.
constexpr int kTextFormat = 1;
constexpr int kBitmapFormat = 2;
constexpr int kDibFormat = 8;
constexpr int kInvalidFormat = 460;

bool IsPictureFormat(int format) { return format == kBitmapFormat || format == kDibFormat; }

// 0 and none at all leave the choice to the data.
void RequirePictureFormat(Arguments given, size_t at) {
  const int format = given.size() > at ? ToLong(given[at]) : 0;
  if (format != 0 && !IsPictureFormat(format)) Raise(kInvalidFormat, "Invalid Clipboard format");
}

Variant CallSetText(Object&, Arguments given) {
  platform().clipboard().SetText(ToText(given[0]));
  return {};
}

Variant CallGetText(Object&, Arguments) { return platform().clipboard().Text(); }

Variant CallGetFormat(Object&, Arguments which) {
  const int format = ToLong(which[0]);
  if (IsPictureFormat(format)) return InstalledScriptSystem().clipboard_picture().has_value();
  return format == kTextFormat && !platform().clipboard().Text().empty();
}

Variant CallGetData(Object&, Arguments given) {
  RequirePictureFormat(given, 0);
  std::optional<DecodedPicture> there = InstalledScriptSystem().clipboard_picture();
  if (!there) return Variant::Nothing();
  return MakeRef<Picture>(there->width, there->height, std::move(there->pixels));
}

Variant CallSetData(Object&, Arguments given) {
  RequirePictureFormat(given, 1);
  const Ref<Picture> picture = VariantTraits<Ref<Picture>>::From(given[0]);
  if (!picture) Raise(error::kTypeMismatch);
  InstalledScriptSystem().set_clipboard_picture({picture->width_pixels(), picture->height_pixels(), picture->pixels()});
  return {};
}

Variant CallClear(Object&, Arguments) {
  InstalledScriptSystem().clear_clipboard();
  return {};
}

constexpr Member kClipboardRows[]{
    RawMethodRow("Clear", 0, 0, &CallClear),
    RawMethodRow("GetText", 0, 1, &CallGetText, "Format"),
    RawMethodRow("SetText", 1, 2, &CallSetText, "Text, Format"),
    RawMethodRow("GetFormat", 1, 1, &CallGetFormat, "Format"),
    RawMethodRow("GetData", 0, 1, &CallGetData, "Format"),
    RawMethodRow("SetData", 1, 2, &CallSetData, "Picture, Format"),
};
constexpr MemberTable kClipboardTable{nullptr, kClipboardRows};

}  // namespace

const MemberTable& ScreenObject::Members() const { return kScreenTable; }
const MemberTable& FormCollection::Members() const { return kFormsTable; }
const MemberTable& AppObject::Members() const { return kAppTable; }
const MemberTable& ClipboardObject::Members() const { return kClipboardTable; }

std::unique_ptr<Enumeration> FormCollection::Enumerate() {
  const std::vector<Form*> loaded = LoadedWindows();
  return std::make_unique<ListEnumeration<Ref<Form>>>(std::vector<Ref<Form>>(loaded.begin(), loaded.end()));
}

bool AppObject::HasPreviousInstance() {
  if (!has_previous_) {
    const std::string own = platform().program().ExeName() + ".exe";
    const std::vector<std::string> names = platform().processes().RunningNames();
    has_previous_ =
        std::count_if(names.begin(), names.end(), [&](const std::string& name) { return EqualsNoCase(name, own); }) > 1;
  }
  return *has_previous_;
}

std::string AppObject::Title() const { return title_.empty() ? platform().program().ExeName() : title_; }

int ScreenMousePointer() { return Pointer(); }

}  // namespace kestrun
