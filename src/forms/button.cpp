#include "forms/button.h"

#include <algorithm>

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&Button::Caption>("Caption"),         PropertyRow<&Button::Style>("Style"),
    PropertyRow<&Button::Appearance>("Appearance"),   PropertyRow<&Button::Picture>("Picture"),
    PropertyRow<&Button::DownPicture>("DownPicture"), PropertyRow<&Button::DisabledPicture>("DisabledPicture"),
    PropertyRow<&Button::MaskColor>("MaskColor"),     PropertyRow<&Button::UseMaskColor>("UseMaskColor"),
};

// A picture whose pixels of that colour (0x00BBGGRR) are see-through.
Ref<Picture> Masked(const Picture& picture, Color mask) {
  const uint32_t rgb = (mask & 0xFF) << 16 | (mask & 0xFF00) | ((mask >> 16) & 0xFF);
  std::vector<uint32_t> pixels = picture.pixels();
  std::replace_if(
      pixels.begin(), pixels.end(), [rgb](uint32_t pixel) { return (pixel & 0xFFFFFF) == rgb; }, 0U);
  return MakeRef<Picture>(picture.width_pixels(), picture.height_pixels(), std::move(pixels));
}

}  // namespace

const MemberTable Button::kButtonMembers{&Control::kWindowedMembers, kRows};

Ref<Picture> Button::ShownPicture(bool is_down) const {
  Ref<kestrun::Picture> chosen = Picture;
  if (!Enabled && DisabledPicture.get()) {
    chosen = DisabledPicture;
  } else if (is_down && DownPicture.get()) {
    chosen = DownPicture;
  }
  const std::optional<Color> mask = PlainColor(MaskColor);
  if (!chosen || !UseMaskColor || !mask) return chosen;
  if (mask_source_ != chosen || mask_color_ != *mask) {
    masked_ = Masked(*chosen, *mask);
    mask_source_ = chosen;
    mask_color_ = *mask;
  }
  return masked_;
}

}  // namespace kestrun
