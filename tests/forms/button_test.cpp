#include "forms/button.h"

#include <gtest/gtest.h>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

Ref<Picture> Plain(uint32_t pixel) { return MakeRef<Picture>(1, 1, std::vector<uint32_t>{pixel}); }

class ButtonTest : public HeadlessTest {
 protected:
  Ref<Form> form = MakeRef<Form>("frmbuttons");
  CommandButton& button = form->Add<CommandButton>("Command1");
};

TEST_F(ButtonTest, EachStateShowsItsOwnPicture) {
  button.Picture = Plain(0xFF0000FF);
  EXPECT_EQ(button.ShownPicture(true), button.Picture.get());
  button.DownPicture = Plain(0xFF00FF00);
  button.DisabledPicture = Plain(0xFFFF0000);
  EXPECT_EQ(button.ShownPicture(false), button.Picture.get());
  EXPECT_EQ(button.ShownPicture(true), button.DownPicture.get());
  button.Enabled = false;
  EXPECT_EQ(button.ShownPicture(true), button.DisabledPicture.get());
}

TEST_F(ButtonTest, PixelsOfTheMaskColourAreSeeThroughWhenItIsUsed) {
  button.Picture = MakeRef<Picture>(2, 1, std::vector<uint32_t>{0xFF102030, 0xFF405060});
  button.MaskColor = Rgb(0x10, 0x20, 0x30);
  EXPECT_EQ(button.ShownPicture(false), button.Picture.get());
  button.UseMaskColor = true;
  const std::vector<uint32_t> expected{0, 0xFF405060};
  EXPECT_EQ(button.ShownPicture(false)->pixels(), expected);
}

TEST_F(ButtonTest, ACheckBoxStaysDownWhileItIsTicked) {
  CheckBox& box = form->Add<CheckBox>("Check1");
  EXPECT_FALSE(box.StaysDown());
  box.Value = 1;
  EXPECT_TRUE(box.StaysDown());
}

}  // namespace
}  // namespace kestrun
