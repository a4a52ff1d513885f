#include "styles/check/style_check.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "base/text.h"
#include "program/style_hook.h"
#include "styles/check/unseen_desktop.h"
#include "styles/check/window_look.h"
#include "styles/style_active.h"

namespace kestrun {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Longer than the longest timer that puts a style on.
constexpr uint32_t kStyleOnMs = 900;

// The editor takes no style, and the splash window's load handler is the start of the program: it gets the style as it
// is made.
constexpr std::string_view kEditorWindows = "frmedit";
constexpr std::string_view kSplash = "frmsplash";

// Boxes by which the program's own objects tell a script that something is missing.
bool IsComplaint(const std::string& text) {
  return StartsWith(text, "Style Error: ") || StartsWith(text, "Special function Error: ") ||
         (StartsWith(text, "Sound file ") && text.ends_with(" not found!"));
}

// Which properties make a fault of that kind.
std::span<const PropertyId> CausesOf(StyleFaultKind kind) {
  static constexpr std::array kColors{PropertyId::kForeColor, PropertyId::kBackColor, PropertyId::kBackStyle,
                                      PropertyId::kPicture};
  static constexpr std::array kTexts{PropertyId::kFont,       PropertyId::kCaption,  PropertyId::kWidth,
                                     PropertyId::kHeight,     PropertyId::kAutoSize, PropertyId::kWordWrap,
                                     PropertyId::kBorderStyle};
  static constexpr std::array kPlaces{PropertyId::kLeft, PropertyId::kTop, PropertyId::kWidth, PropertyId::kHeight};
  static constexpr std::array kKeys{PropertyId::kVisible, PropertyId::kEnabled, PropertyId::kTabStop};
  switch (kind) {
    case StyleFaultKind::kContrast: return kColors;
    case StyleFaultKind::kClipped: return kTexts;
    case StyleFaultKind::kOutside:
    case StyleFaultKind::kCovered: return kPlaces;
    case StyleFaultKind::kUnreachable: return kKeys;
    default: return {};
  }
}

// Which line of the scripts changed a property last.
class ChangeLog {
 public:
  void Note(const Control& control, PropertyId property, StylePlace place) {
    if (!place.entry.empty()) lines_[{&control, property}] = {++count_, std::move(place)};
  }
  void Clear() { lines_.clear(); }
  // The control's own last change of that kind; where it has none, its container's.
  [[nodiscard]] StylePlace PlaceOf(const Control& control, StyleFaultKind kind) const {
    for (const Control* one = &control; one; one = one->Container()) {
      const Change* last = nullptr;
      for (const PropertyId property : CausesOf(kind)) {
        const auto found = lines_.find({one, property});
        if (found != lines_.end() && (!last || last->order < found->second.order)) last = &found->second;
      }
      if (last) return last->place;
    }
    return {};
  }

 private:
  struct Change {
    int order = 0;
    StylePlace place;
  };
  std::map<std::pair<const Control*, PropertyId>, Change> lines_;
  int count_ = 0;
};

class StyleCheck {
 public:
  StyleCheck(std::string file, Bytes content, StyleCheckLimits limits)
      : file_(std::move(file)), content_(std::move(content)), limits_(std::move(limits)) {
    runtime_before_ = InstallStyleRuntime({.is_active = [this] { return is_on_; },
                                           .load_file = [](const std::string&) {},
                                           .apply = [this](Form& form) { Apply(form); },
                                           .identity = [this] { return Identity(); }});
  }
  ~StyleCheck() {
    desktop_.Clear();
    InstallStyleRuntime(runtime_before_);
    SetStyleActive(was_active_);
  }
  StyleCheck(const StyleCheck&) = delete;
  StyleCheck& operator=(const StyleCheck&) = delete;

  std::vector<StyleFault> Run();

 private:
  void LoadStyle();
  void CheckWindow(const std::string& name);
  // Null for a window that closes itself again.
  Ref<Form> Open(const std::string& name);
  void Apply(Form& form);
  [[nodiscard]] StyleIdentity Identity() const { return {style_->designer, style_->sitelink, style_->version}; }
  bool TakeScriptFault(const StyleScriptFault& fault);
  void TakeBox(const std::string& text);
  void AddOnce(StyleFault fault);
  [[nodiscard]] bool IsTimeUp() const {
    return SteadyClock::now() - start_ > std::chrono::milliseconds(limits_.whole_ms);
  }

  std::string file_;
  Bytes content_;
  StyleCheckLimits limits_;
  StyleRuntime runtime_before_;
  bool was_active_ = IsStyleActive();
  SteadyClock::time_point start_ = SteadyClock::now();
  UnseenDesktop desktop_;
  Ref<ClsStyle> style_ = MakeRef<ClsStyle>();
  ChangeLog changes_;
  std::set<const Form*> styled_;
  std::string window_;  // that has the style put on
  bool is_on_ = false;
  bool is_stopped_ = false;
  std::set<std::pair<std::string, std::string>> told_;  // place and text of script errors
  std::vector<StyleFault> faults_;
};

// A script's error comes for each window and each control: once is enough.
void StyleCheck::AddOnce(StyleFault fault) {
  const std::string place = fault.place.entry + "\n" + std::to_string(fault.place.line);
  if (told_.emplace(place, fault.text).second) faults_.push_back(std::move(fault));
}

bool StyleCheck::TakeScriptFault(const StyleScriptFault& fault) {
  const bool is_missing = fault.error.Number == 0;
  is_stopped_ = is_stopped_ || fault.error.Number == kScriptTimedOut;
  AddOnce({is_missing ? StyleFaultKind::kMissingInclude : StyleFaultKind::kScriptError,
           fault.place,
           window_,
           {},
           is_missing ? fault.error.Description
                      : "Script error " + std::to_string(fault.error.Number) + ": " + fault.error.Description + "."});
  return !is_stopped_;
}

void StyleCheck::TakeBox(const std::string& text) {
  const StylePlace place = style_->CallingPlace();
  // In a language of the machine's own engines nobody knows the place.
  if ((!place.entry.empty() || !window_.empty()) && IsComplaint(text)) {
    AddOnce({StyleFaultKind::kScriptError, place, window_, {}, text});
  }
}

void StyleCheck::Apply(Form& form) {
  if (is_stopped_) return;
  styled_.insert(&form);
  window_ = form.Name();
  style_->FormLoad(form);
  window_.clear();
}

void StyleCheck::LoadStyle() {
  desktop_.files().Put(file_, content_);
  SetStyleActive(false);
  std::vector<std::string> boxes;
  desktop_.OnBox([&boxes](const std::string& text) { boxes.push_back(text); });
  style_->script_timeout_ms = limits_.script_ms;
  style_->ScriptFailed = [this](const StyleScriptFault& fault) { return TakeScriptFault(fault); };
  style_->InitStyle(file_);
  for (const std::string& text : boxes) AddOnce({StyleFaultKind::kFile, {}, {}, {}, text});
  if (!IsStyleActive() && boxes.empty())
    AddOnce({StyleFaultKind::kFile, {"assembly.txt", 0}, {}, {}, "The file is empty."});
  desktop_.OnBox([this](const std::string& text) { TakeBox(text); });
  desktop_.windowing().on_change = [this](Control& control, PropertyId property) {
    if (!window_.empty()) changes_.Note(control, property, style_->CallingPlace());
  };
}

// A window that gives up, since on this desktop it finds nothing to work on, is looked at as it is made.
Ref<Form> StyleCheck::Open(const std::string& name) {
  const auto make = [&name] {
    Ref<Form> made(&WindowBeforeLoad(name));
    made->EnsurePeer();
    return made;
  };
  Ref<Form> form = make();
  if (EqualsNoCase(name, kSplash)) return form;
  Attempt([&] {
    form->Show();
    desktop_.clock().Advance(kStyleOnMs);
  });
  return form->form() ? form : make();
}

void StyleCheck::CheckWindow(const std::string& name) {
  const bool is_start = EqualsNoCase(name, kSplash);
  const auto look_at = [&](bool is_on) {
    desktop_.Clear();
    changes_.Clear();
    styled_.clear();
    desktop_.files().Put(file_, content_);
    is_on_ = is_on;
    const Ref<Form> form = Open(name);
    if (is_on && !styled_.contains(form.get())) Apply(*form);
    if (form->form() && !is_start) form->Show();  // a script may have hidden it
    return form->form() ? LookAt(*form, desktop_) : WindowLook{};
  };
  const WindowLook plain = look_at(false);
  const WindowLook styled = look_at(true);
  if (styled.controls.empty()) return;  // a script has closed the window
  const std::vector<StyleFault> found = CompareLooks(
      plain, styled, [this](const Control& control, StyleFaultKind kind) { return changes_.PlaceOf(control, kind); });
  faults_.insert(faults_.end(), found.begin(), found.end());
}

std::vector<StyleFault> StyleCheck::Run() {
  LoadStyle();
  if (!IsStyleActive()) return std::move(faults_);
  for (const std::string& name : limits_.windows.empty() ? RegisteredWindows() : limits_.windows) {
    if (StartsWith(ToLower(name), kEditorWindows)) continue;
    if (is_stopped_ || IsTimeUp()) {
      faults_.push_back({StyleFaultKind::kScriptError,
                         {},
                         name,
                         {},
                         "The check ended here: this window and those behind it were not looked at."});
      break;
    }
    Attempt([&] { CheckWindow(name); });
  }
  return std::move(faults_);
}

}  // namespace

std::vector<StyleFault> CheckStyle(const std::string& file, const StyleCheckLimits& limits) {
  Bytes content = platform().files().ReadAll(file);
  return StyleCheck(file, std::move(content), limits).Run();
}

}  // namespace kestrun
