#include "program/program_pictures.h"

#include "forms/picture_colors.h"
#include "forms/picture_drawing.h"

namespace kestrun {
namespace {

constexpr int kSize = 64;

}  // namespace

namespace {

Ref<Picture> DrawProgramIcon() {
  PictureDrawing drawing(kSize);
  drawing.Disc(0x14202B, {32, 32}, 31);
  drawing.Disc(picture_color::kBlue, {32, 32}, 28);
  drawing.Polygon(0xF2E9D8,
                  {{6, 24}, {26, 27}, {32, 20}, {38, 27}, {58, 24}, {41, 38}, {37, 37}, {32, 52}, {27, 37}, {23, 38}});
  drawing.Polygon(0xC98A3C, {{29, 21}, {32, 14}, {35, 21}, {32, 26}});
  drawing.Polygon(0x8A5A22, {{27, 37}, {37, 37}, {32, 52}});
  return drawing.Finish();
}

Ref<Picture> DrawArchivePicture() {
  PictureDrawing drawing(kSize);
  drawing.Polygon(0x6B4A1F, {{6, 22}, {58, 22}, {58, 58}, {6, 58}});
  drawing.Polygon(0xD9A441, {{8, 24}, {56, 24}, {56, 56}, {8, 56}});
  drawing.Polygon(0x6B4A1F, {{2, 8}, {62, 8}, {62, 24}, {2, 24}});
  drawing.Polygon(0xF0C465, {{4, 10}, {60, 10}, {60, 22}, {4, 22}});
  drawing.Polygon(0x6B4A1F, {{24, 30}, {40, 30}, {40, 38}, {24, 38}});
  drawing.Polygon(0xFFF3D6, {{26, 32}, {38, 32}, {38, 36}, {26, 36}});
  return drawing.Finish();
}

Ref<Picture> DrawMapPicture() {
  PictureDrawing drawing(kSize);
  drawing.Polygon(0x2F4A33, {{4, 12}, {23, 6}, {41, 12}, {60, 6}, {60, 52}, {41, 58}, {23, 52}, {4, 58}});
  drawing.Polygon(0xCFE3B4, {{6, 14}, {22, 9}, {22, 50}, {6, 55}});
  drawing.Polygon(0xAFCB8E, {{24, 9}, {40, 14}, {40, 55}, {24, 50}});
  drawing.Polygon(0xCFE3B4, {{42, 14}, {58, 9}, {58, 50}, {42, 55}});
  drawing.Polygon(0xC0392B, {{44, 22}, {54, 32}, {51, 35}, {41, 25}});
  drawing.Polygon(0xC0392B, {{51, 22}, {54, 25}, {44, 35}, {41, 32}});
  return drawing.Finish();
}

}  // namespace

// Drawn once: a picture never changes, and each window has the icon.
Ref<Picture> ProgramIcon() {
  static const Ref<Picture> drawn = DrawProgramIcon();
  return drawn;
}

Ref<Picture> ArchivePicture() {
  static const Ref<Picture> drawn = DrawArchivePicture();
  return drawn;
}

Ref<Picture> MapPicture() {
  static const Ref<Picture> drawn = DrawMapPicture();
  return drawn;
}

}  // namespace kestrun
