#include "forms/user_control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/form.h"
#include "forms/text_box.h"
#include "support/headless_fixture.h"
#include "support/sample_user_control.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class frmcanvas final : public Form {
 public:
  frmcanvas() : Form("frmcanvas") {
    Left = 300;
    Top = 600;
    Text1.Move(0, 0, 1500, 300);
    sample.Move(1500, 150, 3000, 1500);
  }
  TextBox& Text1 = Add<TextBox>("Text1");
  SampleControl& sample = Add<SampleControl>("sample");
};

// Keeps the texts that are painted.
class TextCanvas final : public Canvas {
 public:
  explicit TextCanvas(PixelSize size) : size_(size) {}
  [[nodiscard]] PixelSize Size() const override { return size_; }
  [[nodiscard]] int Dpi() const override { return 96; }
  [[nodiscard]] Color Translate(Color color) const override { return color; }
  void Fill(const PixelRect&, Color) override {}
  void Frame(const PixelRect&, Color) override {}
  void HorizontalLine(int, int, int, Color) override {}
  void Line(PixelPoint, PixelPoint, Color, int) override {}
  void FocusRectangle(const PixelRect&) override {}
  void Text(std::string_view text, const PixelRect&, const FontDescription&, Color, TextPlacement) override {
    texts.emplace_back(text);
  }
  [[nodiscard]] PixelSize MeasureText(std::string_view, const FontDescription&) override { return {}; }
  void DrawPicture(const Picture&, const PixelRect&) override {}
  void DrawPixels(std::span<const uint32_t>, PixelSize, const PixelRect&) override {}
  void PushClip(const PixelRect&) override {}
  void PopClip() override {}

  std::vector<std::string> texts;

 private:
  PixelSize size_;
};

class UserControlTest : public HeadlessTest {
 protected:
  ~UserControlTest() override { form.Reset(); }
  HeadlessWindowing& windowing() { return desktop.windowing(); }
  SampleControl& sample() { return form->sample; }

  Ref<frmcanvas> form = MakeRef<frmcanvas>();
};

TEST_F(UserControlTest, IsToldItsSizeBeforeItIsShownAndWheneverItChanges) {
  form->Show();
  EXPECT_EQ(sample().client(), (PixelSize{200, 100}));
  EXPECT_EQ(sample().dpi(), 96);
  EXPECT_EQ(sample().resizes, 1);
  sample().Width = 4500;
  EXPECT_EQ(sample().client(), (PixelSize{300, 100}));
  sample().Left = 0;
  sample().BackColor = color::kBlack;
  EXPECT_EQ(sample().resizes, 2);
}

TEST_F(UserControlTest, AFrameAndAScrollBarTakeTheirRoom) {
  sample().frame = 2;
  sample().bar = {true, false, 0, 10, 5};
  form->Show();
  EXPECT_EQ(sample().client(), (PixelSize{200 - 4 - 17, 100 - 4}));
  sample().bar.visible = false;
  sample().Invalidate();
  EXPECT_EQ(sample().client(), (PixelSize{196, 96}));
  sample().frame = 0;
  sample().Invalidate();
  EXPECT_EQ(sample().client(), (PixelSize{200, 100}));
}

TEST_F(UserControlTest, OnAFinerScreenItHasMorePixels) {
  windowing().screen.twips_per_pixel = 10;
  form->Show();
  EXPECT_EQ(sample().client(), (PixelSize{300, 150}));
  EXPECT_EQ(sample().dpi(), 144);
  EXPECT_EQ(sample().MeasureText("Жж", {"Tahoma", 8}), (PixelSize{16, 19}));
}

TEST_F(UserControlTest, TextIsMeasuredAlsoWithoutAWindow) {
  EXPECT_EQ(sample().MeasureText("", {"Tahoma", 9}), (PixelSize{0, 14}));
  EXPECT_EQ(sample().MeasureText("four", {"Tahoma", 9}), (PixelSize{24, 14}));
}

TEST_F(UserControlTest, GainsAndLosesTheFocus) {
  form->Show();
  EXPECT_EQ(form->ActiveControl(), &form->Text1);
  bool gained = false;
  sample().GotFocus = [&] { gained = true; };
  sample().SetFocus();
  form->Text1.SetFocus();
  EXPECT_TRUE(gained);
  EXPECT_THAT(sample().log, ElementsAre("focus 1", "focus 0"));
}

TEST_F(UserControlTest, TheSurfaceShowsWhereAndWhatItWasAskedTo) {
  form->Show();
  EXPECT_EQ(windowing().PopupOf(sample()), nullptr);
  sample().ShowPopup({10, 20, 110, 40}, [](Canvas& canvas) {
    canvas.Text("a long row", {0, 0, 100, 20}, {}, color::kInfoText, TextPlacement::kLeft);
  });
  const HeadlessPopup* popup = windowing().PopupOf(sample());
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->area, (PixelRect{10, 20, 110, 40}));
  TextCanvas canvas({100, 20});
  popup->paint(canvas);
  EXPECT_THAT(canvas.texts, ElementsAre("a long row"));
  sample().ShowPopup({10, 40, 110, 60}, [](Canvas&) {});
  ASSERT_NE(windowing().PopupOf(sample()), nullptr);
  EXPECT_EQ(windowing().PopupOf(sample())->area, (PixelRect{10, 40, 110, 60}));
  sample().HidePopup();
  EXPECT_EQ(windowing().PopupOf(sample()), nullptr);
}

TEST_F(UserControlTest, TheSurfaceGoesWithTheControl) {
  form->Show();
  const auto show = [this] { sample().ShowPopup({0, 0, 10, 10}, [](Canvas&) {}); };
  show();
  sample().Visible = false;
  EXPECT_EQ(windowing().PopupOf(sample()), nullptr);
  sample().Visible = true;
  show();
  form->Unload();
  EXPECT_EQ(windowing().PopupOf(sample()), nullptr);
}

TEST_F(UserControlTest, TheSurfaceGoesWithARemovedControl) {
  form->Show();
  const Ref<SampleControl> removed(&sample());
  removed->ShowPopup({0, 0, 10, 10}, [](Canvas&) {});
  form->Remove(*removed);
  EXPECT_EQ(windowing().PopupOf(*removed), nullptr);
  removed->ShowPopup({0, 0, 10, 10}, [](Canvas&) {});
  EXPECT_EQ(windowing().PopupOf(*removed), nullptr);
}

TEST_F(UserControlTest, KnowsItsPlaceOnTheDesktop) {
  EXPECT_EQ(sample().ScreenPosition(), (PixelPoint{}));
  sample().frame = 1;
  form->Show();
  EXPECT_EQ(sample().ScreenPosition(), (PixelPoint{(300 + 1500) / 15 + 1, (600 + 150) / 15 + 1}));
  EXPECT_EQ(sample().ScreenArea(), (PixelRect{0, 0, 1024, 768}));
  EXPECT_EQ(sample().ScreenSize(), (PixelSize{1024, 768}));
}

TEST_F(UserControlTest, WhatScreenReadersAreToldIsKept) {
  form->Show();
  windowing().record_calls = true;
  sample().TellAccessibility(AccessibleEvent::kFocus, 2);
  sample().TellAccessibility(AccessibleEvent::kName);
  EXPECT_THAT(windowing().accessibility_calls, ElementsAre(AccessibilityCall{AccessibleEvent::kFocus, "sample", 2},
                                                           AccessibilityCall{AccessibleEvent::kName, "sample", -1}));
}

TEST_F(UserControlTest, PaintsOnAnyCanvas) {
  sample().text = "Жук";
  TextCanvas canvas({200, 100});
  sample().Paint(canvas);
  EXPECT_THAT(canvas.texts, ElementsAre("Жук"));
}

}  // namespace
}  // namespace kestrun
