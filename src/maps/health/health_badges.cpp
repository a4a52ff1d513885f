#include "maps/health/health_badges.h"

#include "forms/picture_drawing.h"

namespace kestrun {
namespace {

constexpr int kSize = 32;
constexpr uint32_t kGreen = 0x2E7D32;
constexpr uint32_t kAmber = 0xF2A900;
constexpr uint32_t kRed = 0xC62828;
constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kDark = 0x3A2A00;

// The three differ in shape, not only in colour: a disc with a tick, a triangle, an octagon with a cross.
Ref<Picture> GoodPicture() {
  PictureDrawing drawing(kSize);
  drawing.Disc(kGreen, {32, 32}, 29);
  drawing.Line(kWhite, {17, 33}, {28, 44}, 8);
  drawing.Line(kWhite, {28, 44}, {47, 21}, 8);
  return drawing.Finish();
}

Ref<Picture> DoubtfulPicture() {
  PictureDrawing drawing(kSize);
  drawing.Polygon(kAmber, {{32, 3}, {62, 60}, {2, 60}});
  drawing.Rectangle(kDark, 28, 22, 36, 42);
  drawing.Disc(kDark, {32, 51}, 5);
  return drawing.Finish();
}

Ref<Picture> BadPicture() {
  PictureDrawing drawing(kSize);
  drawing.Polygon(kRed, {{20, 3}, {44, 3}, {61, 20}, {61, 44}, {44, 61}, {20, 61}, {3, 44}, {3, 20}});
  drawing.Line(kWhite, {21, 21}, {43, 43}, 8);
  drawing.Line(kWhite, {43, 21}, {21, 43}, 8);
  return drawing.Finish();
}

void Load(Image& image, Ref<Picture> (*draw)()) {
  image.Visible = false;
  if (!image.Picture.get()) image.Picture = draw();
}

}  // namespace

void LoadHealthPictures(const HealthPictures& pictures) {
  Load(pictures.good, &GoodPicture);
  Load(pictures.doubtful, &DoubtfulPicture);
  Load(pictures.bad, &BadPicture);
}

Ref<Picture> PictureOfHealth(Health health, const HealthPictures& pictures) {
  switch (health) {
    case Health::kGood: return pictures.good.Picture;
    case Health::kDoubtful: return pictures.doubtful.Picture;
    case Health::kBad: return pictures.bad.Picture;
    case Health::kUnknown: break;
  }
  return {};
}

RowBadge BadgeOfHealth(const MapHealth& health, const HealthPictures& pictures) {
  if (health.health == Health::kUnknown) return {};
  RowBadge badge{PictureOfHealth(health.health, pictures), std::string(HealthWord(health.health)), {}};
  for (const std::string& reason : health.reasons) badge.note += (badge.note.empty() ? "" : " ") + reason;
  return badge;
}

}  // namespace kestrun
