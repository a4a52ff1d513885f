#include "maps/put/mission_name.h"

#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class ChoiceWindow final : public Form {
 public:
  ChoiceWindow() : Form("frmchoice") { typed_name.Text = std::string("MINE.BMS"); }
  OptionButton& capture_the_flag = Add<OptionButton>("capture_the_flag");
  OptionButton& deathmatch = Add<OptionButton>("deathmatch");
  OptionButton& rename = Add<OptionButton>("rename");
  TextBox& typed_name = Add<TextBox>("typed_name");

  std::string Chosen() { return ChosenMission({capture_the_flag, deathmatch, rename, typed_name}); }
};

class MissionNameTest : public HeadlessTest {
 protected:
  const Ref<ChoiceWindow> window = MakeRef<ChoiceWindow>();
};

TEST_F(MissionNameTest, AStockMissionIsChosenAndShownInTheNameBox) {
  window->capture_the_flag.Value = true;
  EXPECT_EQ(window->Chosen(), "D08M03.BMS");
  EXPECT_EQ(window->typed_name.Text.get(), "D08M03.BMS");
}

TEST_F(MissionNameTest, TheTypedNameIsChosenAsItIs) {
  window->rename.Value = true;
  EXPECT_EQ(window->Chosen(), "MINE.BMS");
}

TEST_F(MissionNameTest, WithNoOptionOnTheNameIsEmpty) { EXPECT_EQ(window->Chosen(), ""); }

TEST_F(MissionNameTest, TheLengthIsCountedInTheBytesThatTheArchiveHolds) {
  EXPECT_EQ(MissionNameLength(""), "0 / 16");
  EXPECT_EQ(MissionNameLength("H\xC3\xB6hle.BMS"), "9 / 16");
}

}  // namespace
}  // namespace kestrun
