// The messenger and the auto host on one game: both type into its one text line.
#include "windows/auto_host/frmputlist.h"
#include "windows/messenger/messenger_fixture.h"

namespace kestrun {
namespace {

class BesideAutoHostTest : public MessengerTest {
 protected:
  BesideAutoHostTest() {
    PutMission();
    for (const char* name : {"Arena.bms", "Desert.bms", "Oasis.bms"})
      WriteFile(MapPath(name), std::string("map ") + name);
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nRESETGAMES=0\r\nDFVERSION=0\r\nTIMEMIN=1\r\nTIMESEC=30\r\nPATHLIST=" +
             Path("maps") + "\r\n");
  }
  frmputlist& Host() { return Window<frmputlist>(); }
};

TEST_F(BesideAutoHostTest, AnHourOfBothLosesNoMessageAndNoCommand) {
  GameOptions options = Server(0);
  options.round_seconds = 600;
  GameInMemory game(desktop, options);
  for (const char* name : {"Arena.bms", "Desert.bms", "Oasis.bms"}) Host().lstmaps.AddItem(MapPath(name));
  Host().Show();
  Host().Check1.Value = 1;
  Host().Command2.Press();
  Fill({{"m0", 84}, {"m1", 89}, {"m2", 84}, {"m3", 89}, {"m4", 84}, {"m5", 89}, {"m6", 84}});
  Open().Text1.Text = "7";
  Chat().Command3.Press();
  Seconds(3600);

  int resets = 0;
  int next = 1;
  for (const std::string& line : game.log) {
    const std::string text = line.substr(11);
    if (text == "console resetgames") ++resets;
    if (!text.starts_with("public chat ") && !text.starts_with("team chat ")) continue;
    EXPECT_EQ(text.substr(text.rfind(' ') + 1), "m" + std::to_string(next)) << line;
    EXPECT_EQ(text.starts_with("team"), next % 2 == 1) << line;
    next = (next + 1) % 7;
  }
  EXPECT_GT(resets, 20);
  EXPECT_EQ(game.LogOf("console").size(), static_cast<size_t>(resets)) << "nothing but commands went to the console";
  int inserts = 0;
  for (int row = 0; row < 3; ++row) inserts += Host().lstmaps.ItemData(row);
  EXPECT_EQ(resets, inserts);
  EXPECT_GT(game.LogOf("public").size() + game.LogOf("team").size(), 300U);
  Host().Edited = false;
}

}  // namespace
}  // namespace kestrun
