// What the layouts of all windows share.
#include <gtest/gtest.h>

#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/place_controls.h"

namespace kestrun {
namespace {

// ---- pictures ------------------------------------------------------------------------------------------------------

Ref<Picture> PictureOf(int width, int height) {
  return MakeRef<Picture>(width, height,
                          std::vector<uint32_t>(static_cast<size_t>(width) * static_cast<size_t>(height), 0xFF112233));
}

std::string Fitted(const Ref<Picture>& picture, SmallPicture small) {
  const Place place = FitPicture(picture, {100, 200, 3000, 1500}, small);
  return std::to_string(place.left) + " " + std::to_string(place.top) + " " + std::to_string(place.width) + " " +
         std::to_string(place.height);
}

TEST(FitPictureTest, APictureFillsItsPlaceInOneDirectionAndStandsInTheMiddleOfTheOther) {
  EXPECT_EQ(Fitted(PictureOf(400, 100), SmallPicture::kEnlarge), "100 575 3000 750");
  EXPECT_EQ(Fitted(PictureOf(100, 100), SmallPicture::kEnlarge), "850 200 1500 1500");
  EXPECT_EQ(Fitted(PictureOf(4000, 1000), SmallPicture::kKeepSize), "100 575 3000 750");
}

TEST(FitPictureTest, ASmallPictureKeepsItsSizeWhereThatIsWanted) {
  EXPECT_EQ(Fitted(PictureOf(20, 10), SmallPicture::kKeepSize), "1450 875 300 150");
}

TEST(FitPictureTest, WithoutAPictureThePlaceStaysWhole) {
  EXPECT_EQ(Fitted({}, SmallPicture::kEnlarge), "100 200 3000 1500");
  EXPECT_EQ(Fitted({}, SmallPicture::kKeepSize), "100 200 3000 1500");
}

TEST(FitPictureTest, AnExtremePictureStaysVisible) {
  EXPECT_EQ(Fitted(PictureOf(1, 60000), SmallPicture::kEnlarge), "1599 200 1 1500");
}

// ---- dialogues -----------------------------------------------------------------------------------------------------

class SampleDialog final : public Form {
 public:
  SampleDialog() : Form("frmsample") {
    LayOutDialog(*this, "Sample");
    PlaceOkAndCancel(ok, cancel, 5000, 900);
    SetUpStyleTimer(*this, Timer1, 50, "sample ");
  }
  CommandButton& ok = Add<CommandButton>("ok");
  CommandButton& cancel = Add<CommandButton>("cancel");
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override { StartStyleTimer(Timer1); }
};

class WindowKitTest : public FrameTest {
 protected:
  ~WindowKitTest() override { InstallStyleRuntime({}); }

  const Ref<SampleDialog> dialog = MakeRef<SampleDialog>();
};

TEST_F(WindowKitTest, ADialogueEndsWithOkAndCancelSideBySide) {
  EXPECT_EQ(dialog->ok.Caption.get(), "OK");
  EXPECT_EQ(dialog->cancel.Caption.get(), "Cancel");
  EXPECT_TRUE(dialog->ok.Default);
  EXPECT_TRUE(dialog->cancel.Cancel);
  EXPECT_EQ(dialog->cancel.Left + dialog->cancel.Width, 5000);
  EXPECT_LT(dialog->ok.Left + dialog->ok.Width, dialog->cancel.Left.get());
  EXPECT_EQ(dialog->ok.Top.get(), dialog->cancel.Top.get());
}

TEST_F(WindowKitTest, WithoutAStyleTheTimerStandsStill) {
  dialog->Show();
  EXPECT_FALSE(dialog->Timer1.Enabled);
}

TEST_F(WindowKitTest, TheTimerAppliesAnActiveStyleOnce) {
  int applied = 0;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [&](Form&) { ++applied; }});
  dialog->Show();
  Sleep(49);
  EXPECT_EQ(applied, 0);
  Sleep(1000);
  EXPECT_EQ(applied, 1);
  EXPECT_FALSE(dialog->Timer1.Enabled);
}

TEST_F(WindowKitTest, AStyleThatFailsIsReportedUnderTheWindowsWord) {
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [](Form&) { Raise(error::kTypeMismatch); }});
  desktop.dialogs().ExpectBox("Error: sample 13\r\nType mismatch");
  dialog->Show();
  Sleep(1000);
}

}  // namespace
}  // namespace kestrun
