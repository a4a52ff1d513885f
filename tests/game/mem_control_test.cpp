// The memory control as its window and as scripts and add-ins see it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/form.h"
#include "game/builds.h"
#include "game/memory/mem_control.h"
#include "program/frame_fixture.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class frmwatching final : public Form {
 public:
  frmwatching() : Form("frmwatching") {}
  MemControl& MemControl1 = Add<MemControl>("MemControl1");
};

const HostBuild& kBuild = HostBuildOf(0);

class MemControlTest : public FrameTest {
 protected:
  MemControlTest() { game->AddMemory(static_cast<uint32_t>(kBuild.MemoryAdress), 64); }

  [[nodiscard]] Object& ByName() { return *GetMember(*form, "memcontrol1").object(); }

  std::shared_ptr<HeadlessGame> game = desktop.running_games().Start(std::string(kBuild.window_title));
  Ref<frmwatching> form = MakeRef<frmwatching>();
};

TEST_F(MemControlTest, AllFiveOperationsAreCalledByName) {
  Object& control = ByName();
  EXPECT_FALSE(ToBoolean(CallMember(control, "AttachToWindow", {Variant("Delta Force 2,  V1.06.15")})));
  EXPECT_TRUE(ToBoolean(CallMember(control, "attachtowindow", {Variant(kBuild.window_title)})));
  game->SetByte(static_cast<uint32_t>(kBuild.GameEndAddr), 1);
  game->SetLong(static_cast<uint32_t>(kBuild.GameTimer), 62500);
  const Variant byte = CallMember(control, "ReadByteAt", {Variant(kBuild.GameEndAddr)});
  EXPECT_TRUE(byte.Is(VarType::kByte));
  EXPECT_EQ(ToLong(byte), 1);
  const Variant clock = CallMember(control, "ReadLongAt", {Variant(kBuild.GameTimer)});
  EXPECT_TRUE(clock.Is(VarType::kLong));
  EXPECT_EQ(ToLong(clock), 62500);
  CallMember(control, "PressKey", {Variant(int16_t{192})});
  CallMember(control, "WriteTextAt", {Variant(kBuild.MemoryAdress), Variant("resetgames"), Variant(true)});
  CallMember(control, "PressKey", {Variant(13)});
  EXPECT_EQ(game->TextAt(static_cast<uint32_t>(kBuild.MemoryAdress)), "resetgames");
  EXPECT_THAT(game->keys, ElementsAre(192, 13));
}

TEST_F(MemControlTest, MembersAreListedInTheOrderOfTheInterface) {
  std::vector<std::string> own;
  for (const Member& row : form->MemControl1.Members().own) own.emplace_back(row.name);
  EXPECT_THAT(own, ElementsAre("ReadByteAt", "ReadLongAt", "PressKey", "WriteTextAt", "AttachToWindow"));
  EXPECT_EQ(form->MemControl1.TypeName(), "MemControl");
}

TEST_F(MemControlTest, KeysGoTheWayOfTheSettingAtEachPress) {
  ASSERT_TRUE(form->MemControl1.AttachToWindow(kBuild.window_title));
  form->MemControl1.PressKey(13);
  WriteIni("[launcher]\r\nKEYS=input\r\n");
  form->MemControl1.PressKey(13);
  WriteIni("[launcher]\r\nKEYS=POST\r\n");
  form->MemControl1.PressKey(13);
  WriteIni("[launcher]\r\nKEYS=by pigeon\r\n");
  form->MemControl1.PressKey(13);
  EXPECT_THAT(game->deliveries,
              ElementsAre(KeyDelivery::kAuto, KeyDelivery::kInput, KeyDelivery::kPost, KeyDelivery::kAuto));
}

TEST_F(MemControlTest, ARefusalIsPassedOn) {
  game->refuses_reading = true;
  EXPECT_FALSE(form->MemControl1.AttachToWindow(kBuild.window_title));
  EXPECT_EQ(form->MemControl1.Refusal(), kGameNotReadable);
}

TEST_F(MemControlTest, AnAddInThatKeepsTheControlGetsAnErrorOnceTheWindowHasGone) {
  const Ref<MemControl> kept(&form->MemControl1);
  ASSERT_TRUE(kept->AttachToWindow(kBuild.window_title));
  form->Unload();
  form.Reset();
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(CallMember(*kept, "ReadByteAt", {Variant(0)})); }), 424);
}

TEST(Builds, AVersionWithoutARowOfItsOwnIsTheThirdBuild) {
  EXPECT_EQ(HostBuildOf(0).window_title, "Delta Force Land Warrior, Demo V0.99.49");
  EXPECT_EQ(HostBuildOf(1).window_title, "Delta Force Land Warrior,  V1.00.42");
  for (const int version : {-1, 2, 3, 32767}) {
    EXPECT_EQ(HostBuildOf(version).window_title, "Delta Force Land Warrior,  V1.00.31");
  }
}

TEST(Builds, AddressesOfTheAutoHost) {
  const auto addresses = [](int version) {
    const HostBuild& build = HostBuildOf(version);
    return std::array{build.MemoryAdress, build.GameTimer, build.GameEndAddr};
  };
  EXPECT_THAT(addresses(0), ElementsAre(14571356, 5898848, 5930836));
  EXPECT_THAT(addresses(1), ElementsAre(17819328, 6586656, 6619764));
  EXPECT_THAT(addresses(2), ElementsAre(6040924, 6550688, 6583796));
}

TEST(Builds, RowsOfTheMessenger) {
  std::vector<std::string> rows;
  for (const MessengerBuild& build : kMessengerBuilds) {
    rows.push_back(std::string(build.caption) + "|" + std::string(build.window_title) + "|" +
                   std::to_string(build.MemoryAdress) + "|" + std::to_string(build.GameEndAddress));
  }
  EXPECT_THAT(rows, ElementsAre("dflw, demo V0.99.49|Delta Force Land Warrior, Demo V0.99.49|14571356|5930836",
                                "dflw, full V1.00.42|Delta Force Land Warrior,  V1.00.42|17840348|6619764",
                                "df2, full V1.0.15|Delta Force 2,  V1.06.15|11207772|6819388",
                                "dfbhd, demo|Delta Force, Demo V0.0.7.33|8763092|10197968",
                                "dfbhd, full V1.3.0.37|Delta Force,  V1.3.0.37|8856544|0",
                                "dfbhd, full V1.2.2.4|Delta Force,  V1.2.2.4|8871732|10321292",
                                "dflw V1.0.31|Delta Force Land Warrior,  V1.00.31|6040924|6583796"));
}

}  // namespace
}  // namespace kestrun
