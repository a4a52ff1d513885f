#include "program/menu_pictures.h"

#include "forms/picture_colors.h"
#include "forms/picture_drawing.h"

namespace kestrun {
namespace {

using namespace picture_color;

constexpr int kMenuSize = 32;

}  // namespace

Ref<Picture> ArrowPicture() {
  PictureDrawing drawing(24);
  drawing.Polygon(0x7A1D14, {{20, 2}, {44, 2}, {44, 30}, {61, 30}, {32, 63}, {3, 30}, {20, 30}});
  drawing.Polygon(0xE74C3C, {{23, 5}, {41, 5}, {41, 33}, {54, 33}, {32, 58}, {10, 33}, {23, 33}});
  return drawing.Finish();
}

Ref<Picture> PutInPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBrown, {{4, 34}, {12, 34}, {12, 52}, {52, 52}, {52, 34}, {60, 34}, {60, 60}, {4, 60}});
  drawing.Polygon(kGreen, {{25, 4}, {39, 4}, {39, 22}, {52, 22}, {32, 44}, {12, 22}, {25, 22}});
  return drawing.Finish();
}

Ref<Picture> SwapPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBlue, {{6, 16}, {40, 16}, {40, 4}, {60, 21}, {40, 38}, {40, 26}, {6, 26}});
  drawing.Polygon(kGreen, {{58, 38}, {24, 38}, {24, 26}, {4, 43}, {24, 60}, {24, 48}, {58, 48}});
  return drawing.Finish();
}

Ref<Picture> InfoPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Disc(kBlue, {32, 32}, 29);
  drawing.Disc(kWhite, {32, 18}, 5);
  drawing.Rectangle(kWhite, 27, 27, 37, 50);
  return drawing.Finish();
}

Ref<Picture> PreviewPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Rectangle(kGrey, 2, 8, 62, 56);
  drawing.Rectangle(kPaleBlue, 8, 14, 56, 50);
  drawing.Disc(kAmber, {44, 24}, 6);
  drawing.Polygon(kGreen, {{8, 50}, {8, 42}, {24, 24}, {38, 40}, {46, 34}, {56, 44}, {56, 50}});
  return drawing.Finish();
}

Ref<Picture> SearchPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Line(kBrown, {40, 40}, {56, 56}, 11);
  drawing.Disc(kPaleBlue, {26, 26}, 19);
  drawing.Arc(kGrey, {26, 26}, 19, 7, 0, 360);
  return drawing.Finish();
}

Ref<Picture> CopyPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Rectangle(kGrey, 6, 4, 42, 46);
  drawing.Rectangle(kWhite, 11, 9, 37, 41);
  drawing.Rectangle(kGrey, 22, 18, 58, 60);
  drawing.Rectangle(kWhite, 27, 23, 53, 55);
  drawing.Rectangle(kBlue, 32, 30, 48, 34);
  drawing.Rectangle(kBlue, 32, 40, 48, 44);
  return drawing.Finish();
}

Ref<Picture> PencilPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBrown, {{6, 58}, {12, 40}, {24, 52}});
  drawing.Polygon(kAmber, {{12, 40}, {44, 8}, {56, 20}, {24, 52}});
  drawing.Polygon(kRed, {{44, 8}, {49, 3}, {61, 15}, {56, 20}});
  return drawing.Finish();
}

Ref<Picture> CrossPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Line(kRed, {14, 14}, {50, 50}, 13);
  drawing.Line(kRed, {50, 14}, {14, 50}, 13);
  return drawing.Finish();
}

Ref<Picture> FolderPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBrown, {{3, 10}, {26, 10}, {32, 18}, {58, 18}, {58, 56}, {3, 56}});
  drawing.Polygon(kAmber, {{8, 15}, {24, 15}, {30, 23}, {53, 23}, {53, 51}, {8, 51}});
  drawing.Polygon(0xF0C465, {{8, 51}, {16, 30}, {61, 30}, {53, 51}});
  return drawing.Finish();
}

Ref<Picture> RefreshPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Arc(kGreen, {32, 33}, 21, 9, 0, 290);
  drawing.Polygon(kGreen, {{36, 0}, {60, 14}, {36, 28}});
  return drawing.Finish();
}

Ref<Picture> OptionsPicture() {
  PictureDrawing drawing(kMenuSize);
  for (const auto& [y, x] : {DrawingPoint{14, 44}, DrawingPoint{32, 20}, DrawingPoint{50, 38}}) {
    drawing.Rectangle(kGrey, 4, y - 3, 60, y + 3);
    drawing.Disc(kBlue, {x, y}, 8);
  }
  return drawing.Finish();
}

Ref<Picture> PlayPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Disc(kGreen, {32, 32}, 29);
  drawing.Polygon(kWhite, {{25, 16}, {49, 32}, {25, 48}});
  return drawing.Finish();
}

Ref<Picture> ListPicture() {
  PictureDrawing drawing(kMenuSize);
  for (const double y : {14.0, 32.0, 50.0}) {
    drawing.Rectangle(kBlue, 4, y - 5, 14, y + 5);
    drawing.Rectangle(kGrey, 22, y - 3, 60, y + 3);
  }
  return drawing.Finish();
}

Ref<Picture> SpeechPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBlue, {{4, 8}, {60, 8}, {60, 44}, {30, 44}, {16, 60}, {16, 44}, {4, 44}});
  for (const double y : {18.0, 28.0}) drawing.Rectangle(kWhite, 14, y, 50, y + 5);
  return drawing.Finish();
}

Ref<Picture> GlobePicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Disc(kBlue, {32, 32}, 29);
  drawing.Polygon(0x9CCB86, {{12, 20}, {28, 10}, {38, 16}, {30, 28}, {22, 30}, {20, 40}, {10, 34}});
  drawing.Polygon(0x9CCB86, {{38, 32}, {54, 28}, {54, 42}, {42, 54}, {36, 44}});
  return drawing.Finish();
}

Ref<Picture> DownPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBlue, {{25, 4}, {39, 4}, {39, 24}, {54, 24}, {32, 48}, {10, 24}, {25, 24}});
  drawing.Rectangle(kGrey, 8, 53, 56, 60);
  return drawing.Finish();
}

Ref<Picture> UpPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBlue, {{25, 48}, {39, 48}, {39, 28}, {54, 28}, {32, 4}, {10, 28}, {25, 28}});
  drawing.Rectangle(kGrey, 8, 53, 56, 60);
  return drawing.Finish();
}

Ref<Picture> DiskPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Polygon(kBlue, {{4, 4}, {52, 4}, {60, 12}, {60, 60}, {4, 60}});
  drawing.Rectangle(kPaleBlue, 16, 4, 46, 24);
  drawing.Rectangle(kGrey, 34, 7, 42, 21);
  drawing.Rectangle(kWhite, 14, 34, 50, 60);
  return drawing.Finish();
}

Ref<Picture> ReplacePicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Rectangle(kGrey, 4, 6, 26, 28);
  drawing.Rectangle(kBlue, 38, 36, 60, 58);
  drawing.Polygon(kGreen, {{30, 14}, {46, 14}, {46, 6}, {60, 19}, {46, 32}, {46, 24}, {30, 24}});
  drawing.Polygon(kGreen, {{34, 40}, {18, 40}, {18, 32}, {4, 45}, {18, 58}, {18, 50}, {34, 50}});
  return drawing.Finish();
}

Ref<Picture> DoorPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Rectangle(kBrown, 8, 4, 40, 60);
  drawing.Rectangle(kAmber, 12, 8, 36, 60);
  drawing.Disc(kBrown, {31, 34}, 3);
  drawing.Polygon(kGreen, {{42, 26}, {50, 26}, {50, 18}, {63, 32}, {50, 46}, {50, 38}, {42, 38}});
  return drawing.Finish();
}

Ref<Picture> HelpMarkPicture() {
  PictureDrawing drawing(kMenuSize);
  drawing.Disc(kBlue, {32, 32}, 29);
  drawing.Arc(kWhite, {32, 24}, 9, 7, 180, 450);
  drawing.Rectangle(kWhite, 28.5, 31, 35.5, 42);
  drawing.Disc(kWhite, {32, 50}, 4.5);
  return drawing.Finish();
}

Ref<Picture> ZipPicture() {
  PictureDrawing drawing(64);
  drawing.Polygon(kBrown, {{4, 12}, {28, 12}, {34, 20}, {60, 20}, {60, 56}, {4, 56}});
  drawing.Polygon(kAmber, {{7, 15}, {26, 15}, {32, 23}, {57, 23}, {57, 53}, {7, 53}});
  for (const double y : {20.0, 28.0, 36.0}) {
    drawing.Rectangle(kBrown, 30, y, 36, y + 4);
    drawing.Rectangle(kWhite, 36, y + 4, 42, y + 8);
  }
  drawing.Rectangle(kGrey, 31, 43, 41, 52);
  return drawing.Finish();
}

}  // namespace kestrun
