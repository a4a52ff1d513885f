#include "styles/check/window_look.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>

#include "forms/drawable_control.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "styles/check/contrast.h"
#include "styles/check/text_ground.h"
#include "styles/check/text_room.h"

namespace kestrun {
namespace {

constexpr int kPlainDpi = 96;
constexpr int kLargeDpi = 144;
constexpr int kPixelTwips = 15;  // what rounding to pixels may move

bool IsSeen(const Control& control, const Control& form) {
  for (const Control* one = &control; one && one != &form; one = one->Container()) {
    if (!one->Visible) return false;
  }
  return control.HasBody();
}

bool IsMenuReached(const MenuItem& item) {
  for (const MenuItem* one = &item; one; one = one->Parent()) {
    if (!one->Visible || !one->Enabled) return false;
  }
  return true;
}

// Lines and shapes are only looked at, and so is an image that has no picture.
bool IsContent(const Control& control) {
  const auto* image = dynamic_cast<const Image*>(&control);
  if (image) return static_cast<bool>(image->Picture.get());
  return control.TakesFocus() || !ShownText(control).empty();
}

void LookAtRoom(ControlLook& look, const Control& container, const Control& form) {
  const auto* drawable = dynamic_cast<const DrawableControl*>(&container);
  look.container = &container;
  look.room_width = drawable ? drawable->ScaleWidth() : container.Width.get();
  look.room_height = drawable ? drawable->ScaleHeight() : container.Height.get();
  if (&container != &form) look.room = NameOf(container);
}

ControlLook LookAtControl(const Control& control, const Control& form, UnseenDesktop& desktop) {
  ControlLook look;
  look.control = &control;
  look.name = NameOf(control);
  LookAtRoom(look, control.Container() ? *control.Container() : form, form);
  look.left = control.Left;
  look.top = control.Top;
  look.width = control.Width;
  look.height = control.Height;
  look.is_drawn = control.FindMember("hWnd") == kNoMember;
  look.is_seen = IsSeen(control, form);
  look.is_content = IsContent(control);
  look.is_hidden = !control.Visible;
  look.is_enabled = control.Enabled;
  if (look.is_seen) look.contrast = LeastContrast(control, desktop);
  look.is_clipped = look.is_seen && IsTextClipped(control, kPlainDpi);
  look.is_clipped_large = look.is_seen && IsTextClipped(control, kLargeDpi);
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) look.is_reached = IsMenuReached(*item);
  return look;
}

// ---- what is wrong -------------------------------------------------------------------------------------------------

class Faults {
 public:
  Faults(const WindowLook& look, PlaceOfChange place_of) : look_(look), place_of_(std::move(place_of)) {}

  [[nodiscard]] std::vector<StyleFault> TakeAdded() { return std::move(faults_); }
  [[nodiscard]] std::vector<StyleFault> Take() {
    for (const ControlLook& one : look_.controls) {
      AddContrast(one);
      AddClipped(one);
      AddOutside(one);
    }
    AddCovers();
    return TakeAdded();
  }

  void Add(StyleFaultKind kind, const ControlLook& one, std::string text) {
    const StylePlace place = place_of_ && one.control ? place_of_(*one.control, kind) : StylePlace{};
    faults_.push_back({kind, place, look_.window, one.name, std::move(text)});
  }

 private:
  void AddContrast(const ControlLook& one) {
    if (one.contrast >= kReadableContrast) return;
    std::array<char, 96> text{};
    // Cut, not rounded: 4.49 is not enough, and must not be told as 4.5.
    std::snprintf(text.data(), text.size(), "The contrast of the text to its ground is %.1f : 1; it needs 4.5 : 1.",
                  std::floor(one.contrast * 10) / 10);
    Add(StyleFaultKind::kContrast, one, text.data());
  }
  void AddClipped(const ControlLook& one) {
    if (!one.is_clipped && !one.is_clipped_large) return;
    const std::string scale = !one.is_clipped_large ? "100 %" : !one.is_clipped ? "150 %" : "100 % and 150 %";
    Add(StyleFaultKind::kClipped, one, "The text is clipped at " + scale + ".");
  }
  void AddOutside(const ControlLook& one) {
    if (!one.is_seen || !one.is_content) return;
    const bool is_gone = one.left >= one.room_width || one.top >= one.room_height || one.left + one.width <= 0 ||
                         one.top + one.height <= 0 || one.width <= 0 || one.height <= 0;
    const bool is_cut = one.left < -kPixelTwips || one.top < -kPixelTwips ||
                        one.left + one.width > one.room_width + kPixelTwips ||
                        one.top + one.height > one.room_height + kPixelTwips;
    if (!is_gone && !is_cut) return;
    const std::string what = is_gone ? "The control has left " : "The control reaches out of ";
    Add(StyleFaultKind::kOutside, one, what + one.room + ".");
  }

  static bool Overlap(const ControlLook& one, const ControlLook& other) {
    return std::min(one.left + one.width, other.left + other.width) - std::max(one.left, other.left) > kPixelTwips &&
           std::min(one.top + one.height, other.top + other.height) - std::max(one.top, other.top) > kPixelTwips;
  }
  void AddCovers() {
    for (size_t back = 0; back < look_.controls.size(); ++back) {
      for (size_t front = back + 1; front < look_.controls.size(); ++front) {
        AddCover(look_.controls[back], look_.controls[front]);
      }
    }
  }
  // What its container draws lies behind all that have windows of their own.
  void AddCover(const ControlLook& back, const ControlLook& front) {
    if (back.is_drawn != front.is_drawn && front.is_drawn) return AddCoverBy(front, back);
    AddCoverBy(back, front);
  }
  void AddCoverBy(const ControlLook& back, const ControlLook& front) {
    const bool are_siblings = back.container == front.container && back.is_seen && front.is_seen;
    const bool covers = !front.is_drawn || front.is_content;
    if (!are_siblings || !covers || !back.is_content || !Overlap(back, front)) return;
    Add(StyleFaultKind::kCovered, front, "The control covers " + back.name + ".");
  }

  const WindowLook& look_;
  PlaceOfChange place_of_;
  std::vector<StyleFault> faults_;
};

std::string WhyUnreached(const ControlLook& now) {
  if (now.is_hidden) return "it is hidden";
  if (!now.is_enabled) return "it is disabled";
  if (!now.is_seen) return "what it stands in is hidden or disabled";
  return "it is no tab stop any more";
}

bool IsSameFault(const StyleFault& one, const StyleFault& other) {
  return one.kind == other.kind && one.control == other.control && one.text == other.text;
}

}  // namespace

// The parts of a composite control are looked at for their texts only.
std::string NameOf(const Control& control) {
  return control.Name() + (control.Index() < 0 ? "" : "[" + std::to_string(control.Index()) + "]");
}

WindowLook LookAt(Form& form, UnseenDesktop& desktop) {
  WindowLook look{form.Name(), {}};
  for (Control* control : form.StackingOrder()) {
    look.controls.push_back(LookAtControl(*control, form, desktop));
    const Control* whole = control->Container();
    if (!whole || whole->Constituents().empty()) continue;
    look.controls.back().name = NameOf(*whole) + "." + look.controls.back().name;
  }
  const std::vector<Control*> reached = form.TabOrder();
  for (ControlLook& one : look.controls) {
    if (std::find(reached.begin(), reached.end(), one.control) != reached.end()) one.is_reached = true;
  }
  return look;
}

std::vector<StyleFault> CompareLooks(const WindowLook& plain, const WindowLook& styled, const PlaceOfChange& place_of) {
  const std::vector<StyleFault> own = Faults(plain, {}).Take();
  Faults all(styled, place_of);
  std::vector<StyleFault> faults = all.Take();
  std::erase_if(faults, [&own](const StyleFault& fault) {
    return std::any_of(own.begin(), own.end(), [&](const StyleFault& one) { return IsSameFault(one, fault); });
  });
  std::map<std::string, const ControlLook*> before;
  for (const ControlLook& one : plain.controls) before[one.name] = &one;
  Faults unreached(styled, place_of);
  for (const ControlLook& now : styled.controls) {
    const auto found = before.find(now.name);
    if (found == before.end() || !found->second->is_reached || now.is_reached) continue;
    unreached.Add(StyleFaultKind::kUnreachable, now, "No key reaches the control: " + WhyUnreached(now) + ".");
  }
  for (StyleFault& fault : unreached.TakeAdded()) faults.push_back(std::move(fault));
  return faults;
}

}  // namespace kestrun
