#include "maps/fetch/frmzip.h"

#include <gtest/gtest.h>

#include "program/frame_fixture.h"
#include "program/style_hook.h"

namespace kestrun {
namespace {

class ZipWindowTest : public FrameTest {
 protected:
  ~ZipWindowTest() override { InstallStyleRuntime({}); }

  frmzip& Shown() {
    auto& window = Window<frmzip>();
    window.AddMap("Desert.bms", 3);
    window.AddMap("Oasis.bms", 7);
    window.LstZip.Refresh();
    window.Show();
    return window;
  }
};

TEST_F(ZipWindowTest, TheTextsOfTheWindow) {
  const frmzip& window = Shown();
  EXPECT_EQ(window.Caption.get(), "Zip File Found");
  EXPECT_EQ(window.lblText.Caption.get(),
            "Kestrun detected a zip file. Click the BMS in the zip file you want to load.");
  EXPECT_EQ(window.Command2.Caption.get(), "Cancel");
  EXPECT_TRUE(window.Command1.Default);
  EXPECT_TRUE(window.Command2.Cancel);
}

TEST_F(ZipWindowTest, LoadingForgetsTheChoiceBefore) {
  SetChosenZipMember(9);
  Shown();
  EXPECT_EQ(ChosenZipMember(), -1);
}

TEST_F(ZipWindowTest, OkWithoutARowSaysSoAndStays) {
  frmzip& window = Shown();
  desktop.dialogs().ExpectBox("Select map!");
  window.Command1.Press();
  EXPECT_TRUE(window.IsShown());
  desktop.dialogs().ExpectBox("Select map!");
  window.LstZip.DbClick();
  EXPECT_TRUE(window.IsShown());
}

TEST_F(ZipWindowTest, EachRowHasTheIconOfAMap) {
  const frmzip& window = Shown();
  EXPECT_TRUE(window.LstZip.ShowIcon);
  EXPECT_EQ(window.LstZip.ListIcon(0), 0);
  EXPECT_EQ(window.LstZip.ListIcon(1), 0);
  EXPECT_EQ(window.ImageList1.ImageCount(), 1);
}

TEST_F(ZipWindowTest, OkTakesTheSelectedMember) {
  frmzip& window = Shown();
  window.LstZip.SetListIndex(1);
  window.Command1.Press();
  EXPECT_EQ(ChosenZipMember(), 7);
  EXPECT_EQ(LoadedWindow("frmzip"), nullptr);
}

TEST_F(ZipWindowTest, ADoubleClickTakesTheSelectedMember) {
  frmzip& window = Shown();
  window.LstZip.SetListIndex(0);
  window.LstZip.DbClick();
  EXPECT_EQ(ChosenZipMember(), 3);
  EXPECT_EQ(LoadedWindow("frmzip"), nullptr);
}

TEST_F(ZipWindowTest, EnterTakesTheRowThatHasTheFocus) {
  frmzip& window = Shown();
  int key_code = 13;
  window.LstZip.KeyDown(key_code, 0);
  EXPECT_TRUE(window.LstZip.OnKeyDown(key_code, 0));
  EXPECT_EQ(ChosenZipMember(), 3);
  EXPECT_EQ(LoadedWindow("frmzip"), nullptr);
}

TEST_F(ZipWindowTest, CancelTakesNone) {
  frmzip& window = Shown();
  window.LstZip.SetListIndex(1);
  window.Command2.Press();
  EXPECT_EQ(ChosenZipMember(), -1);
  EXPECT_EQ(LoadedWindow("frmzip"), nullptr);
}

TEST_F(ZipWindowTest, ClosingTheWindowTakesNone) {
  frmzip& window = Shown();
  window.LstZip.SetListIndex(1);
  EXPECT_TRUE(window.Unload());
  EXPECT_EQ(ChosenZipMember(), -1);
}

TEST_F(ZipWindowTest, AnActiveStyleIsAppliedAtOnce) {
  std::string styled;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [&](Form& form) { styled = form.Name(); }});
  Shown();
  EXPECT_EQ(styled, "frmzip");
}

TEST_F(ZipWindowTest, AStyleThatFailsIsReportedAndTheWindowOpens) {
  InstallStyleRuntime(
      {[] { return true; }, [](const std::string&) {}, [](Form&) { Raise(error::kSubscriptOutOfRange); }});
  desktop.dialogs().ExpectBox("Error: applystyle 9\r\nSubscript out of range");
  EXPECT_TRUE(Shown().IsShown());
}

}  // namespace
}  // namespace kestrun
