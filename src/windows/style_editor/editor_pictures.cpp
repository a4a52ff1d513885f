#include "windows/style_editor/editor_pictures.h"

#include <map>

#include "forms/picture_colors.h"
#include "forms/picture_drawing.h"

namespace kestrun {
namespace {

using namespace picture_color;

constexpr int kSize = 32;

PictureDrawing Sheet() {
  PictureDrawing drawing(kSize);
  drawing.Polygon(kGrey, {{10, 2}, {40, 2}, {56, 18}, {56, 62}, {10, 62}});
  drawing.Polygon(kWhite, {{14, 6}, {38, 6}, {38, 20}, {52, 20}, {52, 58}, {14, 58}});
  drawing.Polygon(kPaleBlue, {{41, 8}, {50, 17}, {41, 17}});
  return drawing;
}

}  // namespace

Ref<Picture> NewSheetPicture() { return Sheet().Finish(); }

Ref<Picture> TextSheetPicture() {
  PictureDrawing drawing = Sheet();
  for (const double y : {26.0, 36.0, 46.0}) drawing.Rectangle(kBlue, 20, y, 46, y + 4);
  return drawing.Finish();
}

Ref<Picture> ModulePicture() {
  PictureDrawing drawing = Sheet();
  drawing.Line(kGreen, {29, 27}, {21, 39}, 5);
  drawing.Line(kGreen, {21, 39}, {29, 51}, 5);
  drawing.Line(kGreen, {37, 27}, {45, 39}, 5);
  drawing.Line(kGreen, {45, 39}, {37, 51}, 5);
  return drawing.Finish();
}

Ref<Picture> SoundPicture() {
  PictureDrawing drawing(kSize);
  drawing.Polygon(kGrey, {{4, 23}, {16, 23}, {32, 9}, {32, 55}, {16, 41}, {4, 41}});
  drawing.Arc(kBlue, {32, 32}, 14, 5, -45, 45);
  drawing.Arc(kBlue, {32, 32}, 25, 5, -45, 45);
  return drawing.Finish();
}

Ref<Picture> FormPicture() {
  PictureDrawing drawing(kSize);
  drawing.Rectangle(kGrey, 3, 8, 61, 56);
  drawing.Rectangle(kBlue, 7, 12, 57, 22);
  drawing.Rectangle(kWhite, 7, 25, 57, 52);
  return drawing.Finish();
}

Ref<Picture> DrawnOnce(Ref<Picture> (*draw)()) {
  static std::map<Ref<Picture> (*)(), Ref<Picture>> drawn;
  Ref<Picture>& picture = drawn[draw];
  if (!picture) picture = draw();
  return picture;
}

}  // namespace kestrun
