#include "controls/quick_link/help_picture.h"

#include "forms/picture_colors.h"
#include "forms/picture_drawing.h"

namespace kestrun {
namespace {

constexpr int kSizePixels = 64;
constexpr uint32_t kDisc = picture_color::kBlue;
constexpr uint32_t kMark = picture_color::kWhite;
constexpr double kStroke = 7;

}  // namespace

Ref<Picture> HelpPicture() {
  PictureDrawing drawing(kSizePixels);
  drawing.Disc(kDisc, {32, 32}, 31);
  // A bow that leaves its lower left quarter open, a stem under it, and the dot.
  drawing.Arc(kMark, {32, 24}, 10, kStroke, 180, 450);
  drawing.Disc(kMark, {22, 24}, kStroke / 2);
  drawing.Line(kMark, {32, 34}, {32, 41}, kStroke);
  drawing.Disc(kMark, {32, 51.5}, 4);
  return drawing.Finish();
}

}  // namespace kestrun
