// The game beside the program as tests lay it down.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kTitle = "Delta Force Land Warrior, Demo V0.99.49";
constexpr int32_t kLine = 0x1000;

class HeadlessGameTest : public HeadlessTest {
 protected:
  HeadlessGameTest() { game->AddMemory(kLine, 32); }

  std::shared_ptr<HeadlessGame> game = desktop.running_games().Start(std::string(kTitle));
  std::unique_ptr<GameMemory> memory = desktop.running_games().MakeMemory({});
};

TEST_F(HeadlessGameTest, NothingIsReadWrittenOrPressedBeforeItIsAttached) {
  game->SetByte(7, 9);
  EXPECT_EQ(memory->ReadByteAt(7), 0);
  EXPECT_EQ(memory->ReadLongAt(kLine), 0);
  memory->WriteTextAt(kLine, "resetgames");
  memory->PressKey(192);
  EXPECT_EQ(game->TextAt(kLine), "");
  EXPECT_THAT(game->keys, IsEmpty());
  EXPECT_EQ(memory->Refusal(), "");
}

TEST_F(HeadlessGameTest, AnAttachedGameIsReadWrittenAndGetsKeys) {
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  game->SetByte(7, 255);
  game->SetLong(0x2000, -2);
  EXPECT_EQ(memory->ReadByteAt(7), 255);
  EXPECT_EQ(memory->ReadLongAt(0x2000), -2);
  memory->WriteTextAt(kLine, "resetgames");
  EXPECT_EQ(game->TextAt(kLine), "resetgames");
  memory->PressKey(192);
  memory->PressKey(13);
  EXPECT_THAT(game->keys, ElementsAre(192, 13));
}

TEST_F(HeadlessGameTest, ATextIsWrittenInTheCodePageWithAZeroBehindIt) {
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  memory->WriteTextAt(kLine, "a longer one");
  memory->WriteTextAt(kLine, "\xC3\xA9 地");
  EXPECT_EQ(game->TextAt(kLine), "\xE9 ?");
}

TEST_F(HeadlessGameTest, ATextThatDoesNotFitIsNotWrittenInPart) {
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  memory->WriteTextAt(kLine + 28, "four");
  EXPECT_EQ(game->TextAt(kLine + 28), "");
  memory->WriteTextAt(kLine + 28, "tre");
  EXPECT_EQ(game->TextAt(kLine + 28), "tre");
}

TEST_F(HeadlessGameTest, AnAddressWithoutMemoryReadsZero) {
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  game->SetLong(kLine + 28, -1);
  EXPECT_EQ(memory->ReadByteAt(0), 0);
  EXPECT_EQ(memory->ReadLongAt(kLine + 29), 0);
  EXPECT_EQ(memory->ReadByteAt(kLine + 31), 255);
}

TEST_F(HeadlessGameTest, AddressesAboveTwoGigabytesAreUnsigned) {
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  game->SetByte(0xFFFFFFF0U, 3);
  EXPECT_EQ(memory->ReadByteAt(-16), 3);
}

TEST_F(HeadlessGameTest, TheTitleHasToBeExact) {
  EXPECT_FALSE(memory->AttachToWindow("Delta Force Land Warrior, demo V0.99.49"));
  EXPECT_FALSE(memory->AttachToWindow("Delta Force Land Warrior"));
  EXPECT_EQ(memory->Refusal(), "");
}

TEST_F(HeadlessGameTest, AGameThatEndedReadsZeroAndStaysGoneWhenAnotherStarts) {
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  game->SetByte(7, 1);
  game->ended = true;
  EXPECT_EQ(memory->ReadByteAt(7), 0);
  const std::shared_ptr<HeadlessGame> second = desktop.running_games().Start(std::string(kTitle));
  second->SetByte(7, 1);
  EXPECT_EQ(memory->ReadByteAt(7), 0);
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  EXPECT_EQ(memory->ReadByteAt(7), 1);
}

TEST_F(HeadlessGameTest, AGameThatMayNotBeReadIsNotAttachedAndSaysWhy) {
  game->refuses_reading = true;
  EXPECT_FALSE(memory->AttachToWindow(kTitle));
  EXPECT_EQ(memory->Refusal(),
            "Windows keeps Kestrun out of the game, most likely because the game runs as administrator: "
            "start the game without that, or start Kestrun as administrator too.");
  game->refuses_reading = false;
  EXPECT_TRUE(memory->AttachToWindow(kTitle));
  EXPECT_EQ(memory->Refusal(), "");
}

TEST_F(HeadlessGameTest, AGameThatMayNotBeWrittenToIsReadAndSaysWhyOnceItIsTried) {
  game->refuses_writing = true;
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  EXPECT_EQ(memory->Refusal(), "");
  memory->WriteTextAt(kLine, "resetgames");
  EXPECT_EQ(game->TextAt(kLine), "");
  EXPECT_EQ(memory->Refusal(),
            "Windows lets Kestrun watch the game but not write to it, so that no command or message gets there: "
            "start Kestrun as administrator.");
}

TEST_F(HeadlessGameTest, TheWayOfKeysIsAskedAtEachPress) {
  KeyDelivery delivery = KeyDelivery::kPost;
  memory = desktop.running_games().MakeMemory([&] { return delivery; });
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  memory->PressKey(84);
  delivery = KeyDelivery::kInput;
  memory->PressKey(13);
  EXPECT_THAT(game->deliveries, ElementsAre(KeyDelivery::kPost, KeyDelivery::kInput));
}

TEST_F(HeadlessGameTest, TwoLinksHaveAGameEach) {
  const auto other = desktop.running_games().Start("Delta Force 2,  V1.06.15");
  const auto second = desktop.running_games().MakeMemory({});
  ASSERT_TRUE(memory->AttachToWindow(kTitle));
  ASSERT_TRUE(second->AttachToWindow("Delta Force 2,  V1.06.15"));
  game->SetByte(7, 1);
  other->SetByte(7, 2);
  EXPECT_EQ(memory->ReadByteAt(7), 1);
  EXPECT_EQ(second->ReadByteAt(7), 2);
}

}  // namespace
}  // namespace kestrun
