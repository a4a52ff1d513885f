// The auto messenger on real windows beside the game as a process of its own: what the game gets to hear, by its log.
#include <gmock/gmock.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/window_fixture.h"
#include "game/messages/message_list.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {
namespace {

constexpr int32_t kPublic = 84;
constexpr int32_t kTeam = 89;
constexpr int32_t kCommand = 192;
// The build whose byte for a running game nobody knows: nothing is sent to it.
constexpr size_t kBuildWithoutByte = 4;

class MessengerProcessTest : public RealWindowTest {
 protected:
  ~MessengerProcessTest() override { Chat().Changed = false; }

  static frmchat& Chat() { return Window<frmchat>(); }
  // Shows the window with nothing but these messages, for a game of that build.
  static void Open(size_t build, std::initializer_list<Message> messages, const char* seconds) {
    Chat().Show();
    Chat().lstmsg.Clear();
    for (const Message& message : messages) Chat().TakeMessage(-1, message.text, message.type);
    Chat().CmbVersion.ListIndex = static_cast<int>(build);
    Chat().Text1.Text = seconds;
  }
  [[nodiscard]] bool Hears(const GameProcess& game, std::string_view line) {
    return WaitFor([&] {
      Pump();
      return game.Log().find(line) != std::string::npos;
    });
  }
};

class MessengerBuildProcessTest : public MessengerProcessTest, public testing::WithParamInterface<size_t> {};

TEST_P(MessengerBuildProcessTest, AMessageArrives) {
  const GameProcess game(GetParam(), "-round 900");
  ASSERT_TRUE(game.IsThere());
  ASSERT_TRUE(game.Logs("map D08M03.BMS"));
  Open(GetParam(), {{"welcome", kPublic}}, "0");
  Chat().Command3.Press();
  EXPECT_TRUE(Hears(game, "public chat welcome")) << game.Log();
}

INSTANTIATE_TEST_SUITE_P(AllBuilds, MessengerBuildProcessTest, testing::Values(0, 1, 2, 3, 5, 6));

TEST_F(MessengerProcessTest, MessagesArriveOnceInOrderOnTheirLines) {
  const GameProcess game(0, "-round 900");
  ASSERT_TRUE(game.IsThere());
  ASSERT_TRUE(game.Logs("map D08M03.BMS"));
  Open(0, {{"zero", kPublic}, {"one \xC3\xA9", kTeam}, {"resetgames", kCommand}}, "3");
  Chat().Command3.Press();
  ASSERT_TRUE(Hears(game, "public chat zero")) << game.Log();
  const std::string log = game.Log();
  const size_t team = log.find("team chat one");
  const size_t console = log.find("console resetgames");
  ASSERT_NE(team, std::string::npos) << log;
  ASSERT_NE(console, std::string::npos) << log;
  EXPECT_LT(team, console);
  EXPECT_LT(console, log.find("public chat zero"));
  EXPECT_EQ(log.find("team chat one", team + 1), std::string::npos) << log;
}

TEST_F(MessengerProcessTest, TheBuildWithoutAByteHearsNothing) {
  const GameProcess game(kBuildWithoutByte, "-round 900");
  ASSERT_TRUE(game.IsThere());
  Open(kBuildWithoutByte, {{"welcome", kPublic}}, "0");
  Chat().Command3.Press();
  // Two ticks, and the time that a message would take.
  const ULONGLONG end = GetTickCount64() + 3'500;
  while (GetTickCount64() < end) {
    Pump();
    ::Sleep(10);
  }
  EXPECT_THAT(game.Log(), testing::Not(testing::HasSubstr("chat")));
}

}  // namespace
}  // namespace kestrun
