// A map's health as a picture and a word beside its row.
#pragma once

#include "forms/image.h"
#include "forms/row_badge.h"
#include "maps/health/map_health.h"

namespace kestrun {

// The hidden images of a window that keep the pictures, so that a style can put others in.
struct HealthPictures {
  Image& good;
  Image& doubtful;
  Image& bad;
};
// Hides the images and draws the program's own pictures where there is none.
void LoadHealthPictures(const HealthPictures& pictures);

// Null for a health that is not known.
[[nodiscard]] Ref<Picture> PictureOfHealth(Health health, const HealthPictures& pictures);
// No badge for a health that is not known.
[[nodiscard]] RowBadge BadgeOfHealth(const MapHealth& health, const HealthPictures& pictures);

}  // namespace kestrun
