#include "styles/check/text_ground.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "controls/list_box/mc_list_box.h"
#include "forms/composite_control.h"
#include "forms/drawable_control.h"
#include "forms/label.h"
#include "styles/check/contrast.h"
#include "styles/check/text_room.h"

namespace kestrun {
namespace {

constexpr double kMostContrast = 21;
constexpr int kPixelTwips = 15;

// Kinds that show texts of their users' or of the program's, whatever stands in them now.
constexpr std::array<std::string_view, 6> kTextKinds{"TextBox",  "ListBox",   "FileListBox",
                                                     "ComboBox", "McListBox", "TreeView"};

bool HasText(const Control& control) {
  const std::string kind = control.TypeName();
  return std::find(kTextKinds.begin(), kTextKinds.end(), kind) != kTextKinds.end() || !ShownText(control).empty();
}

// A control's place inside the container whose ground is asked for.
struct Area {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// A transparent pixel counts as the colour that the picture lies on.
class MeanColor {
 public:
  void Add(uint32_t pixel, Color below) {
    const bool is_clear = pixel >> 24 < 128;
    sums_[0] += is_clear ? below & 0xFF : pixel >> 16 & 0xFF;
    sums_[1] += is_clear ? below >> 8 & 0xFF : pixel >> 8 & 0xFF;
    sums_[2] += is_clear ? below >> 16 & 0xFF : pixel & 0xFF;
    ++count_;
  }
  [[nodiscard]] bool IsEmpty() const { return count_ == 0; }
  [[nodiscard]] Color Value() const {
    const auto mean = [this](uint64_t sum) { return static_cast<uint8_t>(sum / count_); };
    return Rgb(mean(sums_[0]), mean(sums_[1]), mean(sums_[2]));
  }

 private:
  std::array<uint64_t, 3> sums_{};
  uint64_t count_ = 0;
};

// A picture stands at the top left of its container at its own size.
std::vector<Color> GroundsOfPicture(const Picture& picture, const Area& area, Color below) {
  MeanColor mean;
  const int right = std::min(area.right / kPixelTwips, picture.width_pixels());
  const int bottom = std::min(area.bottom / kPixelTwips, picture.height_pixels());
  for (int y = std::max(0, area.top / kPixelTwips); y < bottom; ++y) {
    for (int x = std::max(0, area.left / kPixelTwips); x < right; ++x) {
      mean.Add(
          picture
              .pixels()[static_cast<size_t>(y) * static_cast<size_t>(picture.width_pixels()) + static_cast<size_t>(x)],
          below);
    }
  }
  if (mean.IsEmpty()) return {below};
  return {mean.Value()};
}

Color ColorAt(const DrawnGradient& gradient, int row) {
  const double part = std::clamp(static_cast<double>(row) / std::max(1, gradient.bottom), 0.0, 1.0);
  const auto channel = [&](int shift) {
    const double first = gradient.first >> shift & 0xFF;
    const double last = gradient.last >> shift & 0xFF;
    return static_cast<uint8_t>(first + (last - first) * part);
  };
  return Rgb(channel(0), channel(8), channel(16));
}

const DrawnGradient* GradientOf(const DrawableControl& container, UnseenDesktop& desktop) {
  auto& drawn = const_cast<DrawableControl&>(container);  // looking at the drawing makes it fit the container's size
  const DrawingSurface* surface = drawn.KeptDrawing();
  return surface ? desktop.GradientOn(surface->ContextNumber()) : nullptr;
}

std::vector<Color> GroundsIn(const Control& container, const Area& area, UnseenDesktop& desktop) {
  const auto* drawable = dynamic_cast<const DrawableControl*>(&container);
  const Color below = PlainColor(container.BackColor).value_or(color::kWhite);
  if (!drawable) return {below};
  if (const DrawnGradient* gradient = GradientOf(*drawable, desktop)) {
    const int pixel = platform().windowing().Screen().twips_per_pixel;
    return {ColorAt(*gradient, area.top / pixel), ColorAt(*gradient, area.bottom / pixel)};
  }
  if (const Ref<Picture> picture = drawable->Picture) return GroundsOfPicture(*picture, area, below);
  return {below};
}

bool IsSeeThrough(const Control& control) {
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->BackStyle == 0;
  const auto* composite = dynamic_cast<const CompositeControl*>(&control);
  return composite && composite->BackStyle == 0;
}

std::vector<Color> GroundsOf(const Control& control, UnseenDesktop& desktop) {
  Area area{control.Left, control.Top, control.Left + control.Width, control.Top + control.Height};
  const Control* ground = &control;
  if (!IsSeeThrough(control)) return {control.BackColor};
  for (ground = control.Container(); ground && IsSeeThrough(*ground); ground = ground->Container()) {
    area = {area.left + ground->Left, area.top + ground->Top, area.right + ground->Left, area.bottom + ground->Top};
  }
  return ground ? GroundsIn(*ground, area, desktop) : std::vector<Color>{control.BackColor};
}

}  // namespace

double LeastContrast(const Control& control, UnseenDesktop& desktop) {
  if (!HasText(control)) return kMostContrast;
  double least = kMostContrast;
  for (const Color ground : GroundsOf(control, desktop)) least = std::min(least, ContrastOf(control.ForeColor, ground));
  if (const auto* list = dynamic_cast<const McListBox*>(&control)) {
    least = std::min(least, ContrastOf(list->SelForeColor, list->SelColor));
  }
  return least;
}

}  // namespace kestrun
