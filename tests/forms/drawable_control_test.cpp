// What scripts draw on forms and picture boxes, and the numbers by which the system knows them.
#include "forms/drawable_control.h"
#include "base/convert.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/picture_box.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr uint32_t kRedPixel = 0xFF0000;
constexpr uint32_t kGreenPixel = 0x00FF00;

class frmdrawn final : public Form {
 public:
  frmdrawn() : Form("frmdrawn") {
    SetClientSize(3000, 1500);  // 200 by 100 pixels
    BackColor = color::kWhite;
    Picture1.Move(0, 0, 960, 960);
  }
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  Label& Label1 = Add<Label>("Label1");
  std::function<void()> on_load;

 protected:
  void Load() override {
    if (on_load) on_load();
  }
};

class DrawableControlTest : public HeadlessTest {
 protected:
  ~DrawableControlTest() override { form->Unload(); }
  // 0x00RRGGBB of the kept bitmap.
  uint32_t PixelAt(DrawableControl& drawn, int x, int y) {
    return desktop.windowing().CanvasOfContext(drawn.DrawingContext())->At(x, y);
  }
  Ref<frmdrawn> form = MakeRef<frmdrawn>();
};

TEST_F(DrawableControlTest, WhatIsDrawnStaysUntilItIsCleared) {
  EXPECT_EQ(form->KeptDrawing(), nullptr);
  CallMember(*form, "Line", {150, 150, 1500, 150, 0x0000FF});
  EXPECT_EQ(PixelAt(*form, 50, 10), kRedPixel);
  EXPECT_EQ(PixelAt(*form, 50, 11), 0xFFFFFFU);
  form->Show();
  EXPECT_EQ(PixelAt(*form, 50, 10), kRedPixel);
  CallMember(*form, "Cls");
  EXPECT_EQ(PixelAt(*form, 50, 10), 0xFFFFFFU);
}

TEST_F(DrawableControlTest, BoxesAreOutlinedOrFilled) {
  CallMember(*form, "Line", {150, 150, 600, 600, 0x0000FF, "B"});
  EXPECT_EQ(PixelAt(*form, 10, 20), kRedPixel);
  EXPECT_EQ(PixelAt(*form, 20, 20), 0xFFFFFFU);
  CallMember(*form, "Line", {150, 150, 600, 600, 0x00FF00, "bf"});
  EXPECT_EQ(PixelAt(*form, 20, 20), kGreenPixel);
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(*form, "Line", {0, 0, 1, 1, 0, "Z"}); }), 5);
}

TEST_F(DrawableControlTest, PointsAndLinesTakeTheForeColourWhenNoneIsGiven) {
  form->ForeColor = 0x00FF00;
  CallMember(*form, "PSet", {300, 300});
  EXPECT_EQ(PixelAt(*form, 20, 20), kGreenPixel);
  EXPECT_EQ(form->CurrentX, 300);
  EXPECT_EQ(form->CurrentY, 300);
}

TEST_F(DrawableControlTest, PrintWritesAtTheCurrentPlaceAndGoesToTheNextLine) {
  form->CurrentX = 300;
  form->CurrentY = 300;
  form->ForeColor = 0x0000FF;
  CallMember(*form, "Print", {"MMM"});
  bool is_written = false;
  for (int x = 20; x < 40; ++x) is_written = is_written || PixelAt(*form, x, 26) == kRedPixel;
  EXPECT_TRUE(is_written);
  EXPECT_EQ(form->CurrentX, 0);
  EXPECT_GT(form->CurrentY, 300);
}

TEST_F(DrawableControlTest, APictureIsPaintedAtItsOwnSizeOrAnother) {
  const Ref<Picture> green = MakeRef<Picture>(2, 2, std::vector<uint32_t>(4, 0xFF00FF00));
  CallMember(*form, "PaintPicture", {Variant(green), 150, 150});
  EXPECT_EQ(PixelAt(*form, 11, 11), kGreenPixel);
  EXPECT_EQ(PixelAt(*form, 12, 12), 0xFFFFFFU);
  CallMember(*form, "PaintPicture", {Variant(green), 150, 150, 300, 300});
  EXPECT_EQ(PixelAt(*form, 29, 29), kGreenPixel);
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(*form, "PaintPicture", {Variant::Nothing(), 0, 0}); }), 481);
}

TEST_F(DrawableControlTest, APartOfAPictureIsPaintedAndNothingBesideIt) {
  // Red and green above, blue and black below.
  const Ref<Picture> four =
      MakeRef<Picture>(2, 2, std::vector<uint32_t>{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF000000});
  CallMember(*form, "PaintPicture", {Variant(four), 150, 150, 300, 300, 15, 0, 15, 15});
  EXPECT_EQ(PixelAt(*form, 10, 10), kGreenPixel);
  EXPECT_EQ(PixelAt(*form, 29, 29), kGreenPixel);
  EXPECT_EQ(PixelAt(*form, 9, 20), 0xFFFFFFU);
  EXPECT_EQ(PixelAt(*form, 20, 30), 0xFFFFFFU);
}

TEST_F(DrawableControlTest, WithoutASizeThePartReachesToThePicturesEndAtItsOwnSize) {
  const Ref<Picture> four =
      MakeRef<Picture>(2, 2, std::vector<uint32_t>{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF000000});
  const Variant missing = Variant::Missing();
  CallMember(*form, "PaintPicture", {Variant(four), 150, 150, missing, missing, 15});
  EXPECT_EQ(PixelAt(*form, 10, 10), kGreenPixel);
  EXPECT_EQ(PixelAt(*form, 10, 11), 0U);
  EXPECT_EQ(PixelAt(*form, 11, 10), 0xFFFFFFU);
}

TEST_F(DrawableControlTest, APictureIsOnlyCopiedAndAPartBesideItPaintsNothing) {
  const Ref<Picture> green = MakeRef<Picture>(2, 2, std::vector<uint32_t>(4, 0xFF00FF00));
  EXPECT_EQ(ErrorNumberOf([&] {
              CallMember(*form, "PaintPicture", {Variant(green), 0, 0, 30, 30, 0, 0, 30, 30, 0x660046});
            }),
            5);
  CallMember(*form, "PaintPicture", {Variant(green), 0, 0, 30, 30, 0, 0, 30, 30, 0xCC0020});
  EXPECT_EQ(PixelAt(*form, 0, 0), kGreenPixel);
  CallMember(*form, "PaintPicture", {Variant(green), 150, 150, 300, 300, 60, 0});
  EXPECT_EQ(PixelAt(*form, 10, 10), 0xFFFFFFU);
}

TEST_F(DrawableControlTest, APictureBoxIsDrawnOnInsideOfItsBorder) {
  EXPECT_EQ(form->Picture1.ScaleWidth(), 900);
  CallMember(form->Picture1, "PSet", {885, 885, 0x0000FF});
  EXPECT_EQ(PixelAt(form->Picture1, 59, 59), kRedPixel);
}

TEST_F(DrawableControlTest, ANewBackgroundTakesTheDrawingAway) {
  CallMember(*form, "PSet", {300, 300, 0x0000FF});
  form->BackColor = 0x00FF00;
  EXPECT_EQ(PixelAt(*form, 20, 20), kGreenPixel);
}

TEST_F(DrawableControlTest, AFormThatGrowsKeepsItsDrawingAndItsNumber) {
  CallMember(*form, "PSet", {300, 300, 0x0000FF});
  const int number = form->DrawingContext();
  form->SetClientSize(6000, 3000);
  EXPECT_EQ(form->DrawingContext(), number);
  EXPECT_EQ(PixelAt(*form, 20, 20), kRedPixel);
  EXPECT_EQ(PixelAt(*form, 390, 190), 0xFFFFFFU);
}

TEST_F(DrawableControlTest, PlacesAreReadAndWrittenInTheUnitsOfTheScaleMode) {
  EXPECT_EQ(ToLong(GetMember(*form, "ScaleWidth")), 3000);
  form->Command1.Move(150, 300, 1500, 600);
  PutMember(*form, "ScaleMode", static_cast<int>(ScaleUnit::kPixels));
  EXPECT_EQ(ToDouble(GetMember(*form, "ScaleWidth")), 200);
  EXPECT_EQ(ToDouble(GetMember(*form, "ScaleHeight")), 100);
  EXPECT_EQ(ToDouble(GetMember(form->Command1, "Left")), 10);
  PutMember(form->Command1, "Width", 50);
  EXPECT_EQ(form->Command1.Width, 750);
  CallMember(form->Command1, "Move", {1, 2, 3, 4});
  EXPECT_EQ(form->Command1.Left, 15);
  EXPECT_EQ(form->Command1.Height, 60);
  CallMember(*form, "PSet", {150, 60, 0x0000FF});
  EXPECT_EQ(PixelAt(*form, 150, 60), kRedPixel);
}

TEST_F(DrawableControlTest, AnAssignedScaleWidthMakesUnitsOfItsOwn) {
  PutMember(*form, "ScaleWidth", 10);
  EXPECT_EQ(form->ScaleMode, static_cast<int>(ScaleUnit::kUser));
  EXPECT_EQ(ToDouble(GetMember(*form, "ScaleWidth")), 10);
  CallMember(*form, "PSet", {5, 300, 0x0000FF});
  EXPECT_EQ(PixelAt(*form, 100, 20), kRedPixel);
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*form, "ScaleWidth", 0); }), 380);
}

TEST_F(DrawableControlTest, WindowNumbersLeadBackToTheirControls) {
  const int form_number = ToLong(GetMember(*form, "hWnd"));
  const int button_number = ToLong(GetMember(form->Command1, "hwnd"));
  EXPECT_NE(form_number, 0);
  EXPECT_NE(form_number, button_number);
  EXPECT_EQ(desktop.windowing().ControlOfWindow(form_number), form.get());
  EXPECT_EQ(desktop.windowing().ControlOfWindow(button_number), &form->Command1);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(form->Label1, "hWnd"); }), error::kMemberNotFound);
  form->Unload();
}

TEST_F(DrawableControlTest, ALoadHandlerThatReadsTheNumberMakesTheWindowHidden) {
  int number = 0;
  form->on_load = [&] {
    number = form->WindowNumber();
    EXPECT_FALSE(form->IsShown());
    EXPECT_TRUE(desktop.windowing().shown_forms.empty());
  };
  form->Show();
  EXPECT_EQ(form->WindowNumber(), number);
  EXPECT_EQ(desktop.windowing().shown_forms.size(), 1U);
  form->Unload();
  EXPECT_EQ(desktop.windowing().ControlOfWindow(number), nullptr);
}

}  // namespace
}  // namespace kestrun
