#include "styles/check/style_check.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/pff/cls_pff.h"
#include "program/style_hook.h"
#include "styles/check/unseen_desktop.h"
#include "styles/check/window_look.h"
#include "styles/style_active.h"

namespace kestrun {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Longer than the longest timer that puts a style on.
constexpr uint32_t kStyleOnMs = 900;

constexpr const char* kManifest = "assembly.txt";

// The failure by which an engine that knows the places of failures only is asked for the place of a change.
constexpr int kAskedForPlace = 32123;
constexpr const char* kAskedForPlaceText = "The check of the style asks for this place.";
constexpr int kMostSearches = 50;  // for one window

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

// What a script did: it changed a property of that control, or raised a box of that text.
struct Deed {
  std::string subject;
  PropertyId property = PropertyId::kNone;  // none for a box
  friend bool operator==(const Deed&, const Deed&) = default;
};

// A place that is to be searched for: no entry, and in the place of the line the number of what a script did there.
StylePlace UnknownPlace(int number) { return {{}, number}; }
bool IsUnknown(const StylePlace& place) { return place.entry.empty() && place.line > 0; }

// Which line of the scripts changed a property last. Everything that a script does to a window has a number.
class ChangeLog {
 public:
  void Note(const Control& control, int number, StylePlace place, Deed deed) {
    Change& change = lines_[{&control, deed.property}];
    change = {number, std::move(place), std::move(deed)};
  }
  void Clear() { lines_.clear(); }
  // The control's own last change of that kind; where it has none, its container's.
  [[nodiscard]] StylePlace PlaceOf(const Control& control, StyleFaultKind kind) const {
    for (const Control* one = &control; one; one = one->Container()) {
      const Change* last = nullptr;
      for (const PropertyId property : CausesOf(kind)) {
        const auto found = lines_.find({one, property});
        if (found != lines_.end() && (!last || last->number < found->second.number)) last = &found->second;
      }
      if (last) return last->place;
    }
    return {};
  }
  // What was done at an unknown place; null for what is no change.
  [[nodiscard]] const Deed* DeedAt(const StylePlace& unknown) const {
    for (const auto& [key, change] : lines_) {
      if (change.place == unknown) return &change.deed;
    }
    return nullptr;
  }

 private:
  struct Change {
    int number = 0;
    StylePlace place;
    Deed deed;
  };
  std::map<std::pair<const Control*, PropertyId>, Change> lines_;
};

// The first line that ends in another way than CR LF, as a text box counts them; 0 for none.
int LineWithoutCrLf(const std::string& text) {
  int line = 1;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\r' && text[at] != '\n') continue;
    if (text.compare(at, kCrLf.size(), kCrLf) != 0) return line;
    ++at;
    ++line;
  }
  return 0;
}

std::vector<std::string> WindowsToCheck(const StyleCheckLimits& limits) {
  std::vector<std::string> windows = limits.windows.empty() ? RegisteredWindows() : limits.windows;
  std::erase_if(windows, [](const std::string& name) { return StartsWith(ToLower(name), kEditorWindows); });
  return windows;
}

}  // namespace

class StyleCheck::Work {
 public:
  Work(std::string file, Bytes content, const StyleCheckLimits& limits)
      : file_(std::move(file)), content_(std::move(content)), limits_(limits), windows_(WindowsToCheck(limits)) {}

  void Step();
  [[nodiscard]] bool IsOver() const { return end_ != End::kNone || (is_loaded_ && done_ == windows_.size()); }
  void Leave();
  [[nodiscard]] const std::vector<std::string>& windows() const { return windows_; }
  [[nodiscard]] size_t done() const { return done_; }
  [[nodiscard]] const std::vector<StyleFault>& faults() const { return faults_; }
  [[nodiscard]] std::string Rest() const;

 private:
  // Why the check ended before its last window.
  enum class End { kNone, kNoStyle, kTimeIsUp, kScriptStopped, kLeft };
  // While it lives, the unseen desktop and the style under check are in the place of the program's own.
  class Stage;

  void LoadStyle();
  void CheckLineEnds();
  void LookAtNextWindow();
  void CheckWindow(const std::string& name);
  WindowLook LookAtWindow(const std::string& name, bool is_on);
  // Null for a window that closes itself again.
  Ref<Form> Open(const std::string& name);
  void Apply(Form& form);
  [[nodiscard]] StyleIdentity Identity() const { return {style_->designer, style_->sitelink, style_->version}; }
  bool TakeScriptFault(const StyleScriptFault& fault);
  void TakeBox(const std::string& text);
  void TakeChange(Control& control, PropertyId property);
  // The place of what a script does at this moment, which is counted.
  StylePlace PlaceOfDeed(const Deed& deed);
  void NotePlacesToFind();
  void FindNextPlace();
  void FindPlace(const std::string& name, int number, const Deed& deed);
  void TellFaults();
  void EndWindow();
  void AddOnce(StyleFault fault);
  [[nodiscard]] bool IsPast(SteadyClock::time_point start, int64_t milliseconds) const {
    return limits_.now() - start > std::chrono::milliseconds(milliseconds);
  }
  [[nodiscard]] bool IsTimeUp() const { return IsPast(start_, limits_.whole_ms); }
  // Each of the many calls for one window may be quick enough, and all of them together not.
  [[nodiscard]] bool GoesOn() {
    is_late_ = is_late_ || IsTimeUp() || IsPast(window_start_, limits_.script_ms);
    return !is_late_;
  }

  std::string file_;
  Bytes content_;
  StyleCheckLimits limits_;
  std::vector<std::string> windows_;
  size_t done_ = 0;
  End end_ = End::kNone;
  bool is_loaded_ = false;
  bool is_late_ = false;  // in the middle of a window
  SteadyClock::time_point start_ = limits_.now();
  SteadyClock::time_point window_start_ = start_;
  UnseenDesktop* desktop_ = nullptr;  // of the stage
  Ref<ClsStyle> style_ = MakeRef<ClsStyle>();
  ChangeLog changes_;
  std::set<const Form*> styled_;
  std::string window_;  // that has the style put on
  bool is_on_ = false;
  bool is_stopped_ = false;
  int changes_seen_ = 0;
  int deeds_ = 0;          // of the scripts, on the window that was opened last
  int wanted_number_ = 0;  // of the deed whose place is asked for; 0 for none
  Deed wanted_deed_;
  StylePlace found_place_;
  std::map<int, Deed> places_to_find_;                  // by their numbers, on the window that is being looked at
  std::set<std::pair<std::string, std::string>> told_;  // place and text of script errors
  std::vector<StyleFault> new_faults_;                  // of the style's file, or of the window that is being looked at
  std::vector<StyleFault> faults_;
  std::string failures_;  // sentences about windows that could not be looked at
};

class StyleCheck::Work::Stage {
 public:
  explicit Stage(Work& work) : work_(work) {
    work_.desktop_ = &desktop_;
    runtime_before_ = InstallStyleRuntime({.is_active = [&work] { return work.is_on_; },
                                           .load_file = [](const std::string&) {},
                                           .apply = [&work](Form& form) { work.Apply(form); },
                                           .identity = [&work] { return work.Identity(); }});
    desktop_.OnBox([&work](const std::string& text) { work.TakeBox(text); });
    desktop_.windowing().on_change = [&work](Control& control, PropertyId property) {
      work.TakeChange(control, property);
    };
    SetStyleActive(work.is_loaded_);
  }
  ~Stage() {
    work_.wanted_number_ = 0;
    desktop_.Clear();
    InstallStyleRuntime(std::move(runtime_before_));
    SetStyleActive(was_active_);
    work_.desktop_ = nullptr;
  }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

 private:
  Work& work_;
  bool was_active_ = IsStyleActive();
  UnseenDesktop desktop_;
  StyleRuntime runtime_before_;
};

// ---- what the scripts do -------------------------------------------------------------------------------------------

// A script's error comes for each window and each control: once is enough.
void StyleCheck::Work::AddOnce(StyleFault fault) {
  const std::string line = IsUnknown(fault.place) ? std::string() : std::to_string(fault.place.line);
  if (told_.emplace(fault.place.entry + "\n" + line, fault.text).second) new_faults_.push_back(std::move(fault));
}

bool StyleCheck::Work::TakeScriptFault(const StyleScriptFault& fault) {
  if (wanted_number_ > 0) {
    const bool is_answer = fault.error.Number == kAskedForPlace && fault.error.Description == kAskedForPlaceText;
    if (is_answer) found_place_ = fault.place;
    return !is_answer;
  }
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

// Engines of the machine know the place of a failure only: what they do is numbered, so that it can be made to fail. A
// script that keeps state may do another thing at that number when it runs again: its line is not to blame.
StylePlace StyleCheck::Work::PlaceOfDeed(const Deed& deed) {
  StylePlace place = style_->CallingPlace();
  if (!place.entry.empty() || style_->KnowsCallingPlace()) return place;
  ++deeds_;
  if (deeds_ == wanted_number_ && deed == wanted_deed_) Raise(kAskedForPlace, kAskedForPlaceText);
  return UnknownPlace(deeds_);
}

void StyleCheck::Work::TakeBox(const std::string& text) {
  if (!is_loaded_ || !IsComplaint(text)) return;
  StylePlace place = window_.empty() ? style_->CallingPlace() : PlaceOfDeed({text});
  if (wanted_number_ == 0 && (!place.entry.empty() || !window_.empty())) {
    AddOnce({StyleFaultKind::kScriptError, std::move(place), window_, {}, text});
  }
}

void StyleCheck::Work::TakeChange(Control& control, PropertyId property) {
  if (window_.empty()) return;
  Deed deed{NameOf(control), property};
  StylePlace place = PlaceOfDeed(deed);
  if (!place.entry.empty() || IsUnknown(place)) {
    changes_.Note(control, ++changes_seen_, std::move(place), std::move(deed));
  }
}

void StyleCheck::Work::Apply(Form& form) {
  if (is_stopped_) return;
  styled_.insert(&form);
  window_ = form.Name();
  style_->FormLoad(form);
  window_.clear();
}

// ---- the style's file ----------------------------------------------------------------------------------------------

void StyleCheck::Work::LoadStyle() {
  const Stage stage(*this);
  desktop_->files().Put(file_, content_);
  std::vector<std::string> boxes;
  desktop_->OnBox([&boxes](const std::string& text) { boxes.push_back(text); });
  style_->script_timeout_ms = limits_.script_ms;
  style_->GoesOn = [this] { return GoesOn(); };
  style_->ScriptFailed = [this](const StyleScriptFault& fault) { return TakeScriptFault(fault); };
  style_->InitStyle(file_);
  for (const std::string& text : boxes) AddOnce({StyleFaultKind::kFile, {}, {}, {}, text});
  if (!IsStyleActive() && boxes.empty()) AddOnce({StyleFaultKind::kFile, {kManifest, 0}, {}, {}, "The file is empty."});
  CheckLineEnds();
  TellFaults();
  if (!IsStyleActive()) end_ = End::kNoStyle;
  is_loaded_ = true;
}

void StyleCheck::Work::CheckLineEnds() {
  ClsPFF archive;
  int32_t number = -1;
  Bytes bytes;
  const bool is_read = Attempt([&] {
    if (archive.LoadPff(file_) && archive.PFFFileExists(kManifest, number)) archive.ExtractFile(number, bytes, "");
  });
  const int line = is_read ? LineWithoutCrLf(DecodeText(AsChars(bytes))) : 0;
  if (line == 0) return;
  AddOnce({StyleFaultKind::kFile,
           {kManifest, line},
           {},
           {},
           "The line does not end in carriage return and line feed: what stands behind it is read as a part of it."});
}

// ---- the windows ---------------------------------------------------------------------------------------------------

// A window that gives up, since on this desktop it finds nothing to work on, is looked at as it is made.
Ref<Form> StyleCheck::Work::Open(const std::string& name) {
  const auto make = [&name] {
    Ref<Form> made(&WindowBeforeLoad(name));
    made->EnsurePeer();
    return made;
  };
  Ref<Form> form = make();
  if (EqualsNoCase(name, kSplash)) return form;
  Attempt([&] {
    form->Show();
    desktop_->clock().Advance(kStyleOnMs);
  });
  return form->form() ? form : make();
}

WindowLook StyleCheck::Work::LookAtWindow(const std::string& name, bool is_on) {
  desktop_->Clear();
  changes_.Clear();
  styled_.clear();
  deeds_ = 0;
  desktop_->files().Put(file_, content_);
  is_on_ = is_on;
  const Ref<Form> form = Open(name);
  if (is_on && !styled_.contains(form.get())) Apply(*form);
  if (form->form() && !EqualsNoCase(name, kSplash)) form->Show();  // a script may have hidden it
  return form->form() ? LookAt(*form, *desktop_) : WindowLook{};
}

void StyleCheck::Work::CheckWindow(const std::string& name) {
  const Stage stage(*this);
  window_start_ = limits_.now();
  const WindowLook plain = LookAtWindow(name, false);
  const WindowLook styled = LookAtWindow(name, true);
  if (!styled.controls.empty() && !is_late_) {  // no script has closed the window
    const std::vector<StyleFault> found = CompareLooks(
        plain, styled, [this](const Control& control, StyleFaultKind kind) { return changes_.PlaceOf(control, kind); });
    new_faults_.insert(new_faults_.end(), found.begin(), found.end());
  }
  NotePlacesToFind();
}

// While the log of the changes is there.
void StyleCheck::Work::NotePlacesToFind() {
  if (is_stopped_ || is_late_) return;
  for (const StyleFault& fault : new_faults_) {
    if (!IsUnknown(fault.place) || places_to_find_.size() >= kMostSearches) continue;
    const Deed* change = changes_.DeedAt(fault.place);
    places_to_find_.emplace(fault.place.line, change ? *change : Deed{fault.text});
  }
}

// One search in a step: each opens the window once more and may take as long as that.
void StyleCheck::Work::FindNextPlace() {
  if (IsTimeUp()) return EndWindow();
  const auto wanted = places_to_find_.extract(places_to_find_.begin());
  found_place_ = {};
  Attempt([&] { FindPlace(windows_[done_], wanted.key(), wanted.mapped()); });
  is_late_ = false;  // the window has been looked at
  for (StyleFault& fault : new_faults_) {
    if (fault.place == UnknownPlace(wanted.key())) fault.place = found_place_;
  }
  if (places_to_find_.empty()) EndWindow();
}

// Puts the style on once more; what the script does at that number fails, and the engine tells where.
void StyleCheck::Work::FindPlace(const std::string& name, int number, const Deed& deed) {
  const Stage stage(*this);
  wanted_number_ = number;
  wanted_deed_ = deed;
  window_start_ = limits_.now();
  static_cast<void>(LookAtWindow(name, true));
}

// Where no place was found, as when a script catches failures itself, there is none.
void StyleCheck::Work::TellFaults() {
  for (StyleFault& fault : new_faults_) {
    if (IsUnknown(fault.place)) fault.place = {};
    faults_.push_back(std::move(fault));
  }
  new_faults_.clear();
}

void StyleCheck::Work::EndWindow() {
  places_to_find_.clear();
  TellFaults();
  ++done_;
}

void StyleCheck::Work::LookAtNextWindow() {
  const std::string name = windows_[done_];
  Attempt([&] { CheckWindow(name); },
          [&](const RuntimeError& failure) {
            failures_ +=
                (failures_.empty() ? "" : " ") + name + " could not be looked at: " + failure.description() + ".";
          });
  if (is_late_) {
    TellFaults();
    end_ = End::kTimeIsUp;
  } else if (places_to_find_.empty()) {
    EndWindow();
  }
}

void StyleCheck::Work::Step() {
  if (IsOver()) return;
  if (!is_loaded_) {
    LoadStyle();
  } else if (!places_to_find_.empty()) {
    FindNextPlace();
  } else if (is_stopped_ || IsTimeUp()) {
    end_ = is_stopped_ ? End::kScriptStopped : End::kTimeIsUp;
  } else {
    LookAtNextWindow();
  }
}

void StyleCheck::Work::Leave() {
  if (IsOver()) return;
  end_ = End::kLeft;
  if (!places_to_find_.empty()) EndWindow();  // it has been looked at
}

std::string StyleCheck::Work::Rest() const {
  const size_t left = end_ == End::kNone || end_ == End::kNoStyle ? 0 : windows_.size() - done_;
  if (left == 0) return failures_;
  const std::string why = end_ == End::kTimeIsUp        ? "The check ended early, because its time was up: "
                          : end_ == End::kScriptStopped ? "The check ended early, because a script had to be stopped: "
                                                        : "The check was cancelled: ";
  const std::string behind = left == 1   ? " was"
                             : left == 2 ? " and the window behind it were"
                                         : " and the " + std::to_string(left - 1) + " windows behind it were";
  return failures_ + (failures_.empty() ? "" : " ") + why + windows_[done_] + behind + " not looked at.";
}

// ---- the check as its users see it ---------------------------------------------------------------------------------

StyleCheck::StyleCheck(const std::string& file, const StyleCheckLimits& limits)
    : work_(std::make_unique<Work>(file, platform().files().ReadAll(file), limits)) {}
StyleCheck::~StyleCheck() = default;

void StyleCheck::Step() { work_->Step(); }
bool StyleCheck::IsOver() const { return work_->IsOver(); }
void StyleCheck::Leave() { work_->Leave(); }
const std::vector<std::string>& StyleCheck::windows() const { return work_->windows(); }
size_t StyleCheck::done() const { return work_->done(); }
const std::vector<StyleFault>& StyleCheck::faults() const { return work_->faults(); }
std::string StyleCheck::Rest() const { return work_->Rest(); }

StyleCheckResult CheckStyle(const std::string& file, const StyleCheckLimits& limits) {
  StyleCheck check(file, limits);
  while (!check.IsOver()) check.Step();
  return {check.faults(), check.Rest()};
}

}  // namespace kestrun
