// The run in its window: buttons, clocks, the game, and what shows at a glance.
#include "base/convert.h"
#include "base/text_file.h"
#include "game/builds.h"
#include "game/run/rotation.h"
#include "windows/auto_host/auto_host_fixture.h"

namespace kestrun {
namespace {

class AutoHostRunTest : public AutoHostTest {
 protected:
  AutoHostRunTest() { Host().cmdaddall.Press(); }
  ~AutoHostRunTest() override { Host().Edited = false; }
  void Ticks(int count) { desktop.clock().AdvanceMs(static_cast<uint64_t>(count) * AutoHostRun::kTickMs); }
  std::shared_ptr<HeadlessGame> StartGame() {
    auto game = desktop.running_games().Start(std::string(kHostBuilds[0].window_title));
    game->SetLong(static_cast<uint32_t>(kHostBuilds[0].GameTimer), 0);
    game->SetByte(static_cast<uint32_t>(kHostBuilds[0].GameEndAddr), 1);
    game->AddMemory(static_cast<uint32_t>(kHostBuilds[0].MemoryAdress), 256);
    Host().run.fields.DfVersion = 0;
    return game;
  }
  [[nodiscard]] std::string Loose() {
    return FileIsThere(GamePath("D08M03.BMS")) ? ReadFile(GamePath("D08M03.BMS")) : "";
  }
};

TEST_F(AutoHostRunTest, TheButtonsFollowTheRun) {
  const auto describe = [this] {
    std::string text = Host().Command2.Caption.get();
    for (const Control* control :
         {static_cast<const Control*>(&Host().TmrInsert), static_cast<const Control*>(&Host().Command3),
          static_cast<const Control*>(&Host().Command4), static_cast<const Control*>(&Host().Command5),
          static_cast<const Control*>(&Host().Check1), static_cast<const Control*>(&Host().ChGameTimer),
          static_cast<const Control*>(&Host().mnu_changeDFversion)}) {
      text += control->Enabled ? " on" : " off";
    }
    return text;
  };
  EXPECT_EQ(describe(), "Start off off off off on on on");
  Host().Command2.Press();
  EXPECT_EQ(describe(), "Reset on on on off off off off");
  Host().Command4.Press();
  EXPECT_EQ(describe(), "Reset off on off on off off off");
  Host().Command5.Press();
  EXPECT_EQ(describe(), "Reset on on on off off off off");
  Host().Command2.Press();
  EXPECT_EQ(describe(), "START! off off off off on on on");
  Host().Command2.Press();
  EXPECT_EQ(describe(), "Reset on on on off off off off");
}

TEST_F(AutoHostRunTest, AnInsertPutsTheMapBesideTheArchiveAndMarksItsRow) {
  Host().Command2.Press();
  Ticks(1);
  EXPECT_EQ(Loose(), "map Arena.bms");
  EXPECT_EQ(Host().lstmaps.MarkedRow(), 0);
  EXPECT_EQ(Host().lstmaps.List(0), MapPath("Arena.bms"));
  EXPECT_EQ(Host().lstmaps.MarkMeaning.get(), "Plays now");
  EXPECT_EQ(Host().lstmaps.ItemData(0), 1);
  EXPECT_TRUE(Host().lstmaps.Selected(0));
  EXPECT_FALSE(FileIsThere(GamePath("dflw.pff")));
}

TEST_F(AutoHostRunTest, TheNextMorningTheLogTellsEachMap) {
  AddRows({MapPath("gone.bms")});
  Select({2}, 2);
  Host().Command2.Press();
  Ticks(1);
  Host().Command2.Press();
  const std::string stamp = "2001-01-01 12:00:0";
  EXPECT_EQ(ReadFile(ProgramPath("autohost.log")),
            std::string(kUtf8Mark) + stamp + "0\t\tstarted\t\t\r\n" + stamp + "1\trow 4\tfailed\t" +
                MapPath("gone.bms") + "\tFile not found: " + MapPath("gone.bms") +
                " It is not there any more, or its name is misspelled. Check the name and the folder.\r\n" + stamp +
                "1\trow 1\tinserted\t" + MapPath("Arena.bms") + "\tthe map before it failed\r\n" + stamp +
                "1\t\tstopped\t\t\r\n");
}

TEST_F(AutoHostRunTest, NoLogIsKeptWithoutItsBoxAndTheBoxIsRemembered) {
  EXPECT_EQ(Host().ChLog.Value, 1);
  Host().ChLog.Value = 0;
  Host().Command2.Press();
  Ticks(1);
  EXPECT_FALSE(FileIsThere(ProgramPath("autohost.log")));
  Host().Edited = false;
  Host().Unload();
  EXPECT_EQ(Host().ChLog.Value, 0);
}

TEST_F(AutoHostRunTest, ALogThatCannotBeWrittenIsToldInTheStatusAndTheRunGoesOn) {
  native_files.MakeFolder(ProgramPath("autohost.log"));
  Host().Command2.Press();
  Ticks(1);
  EXPECT_EQ(Loose(), "map Arena.bms");
  EXPECT_TRUE(Host().lblstatus.Caption.get().starts_with("autohost.log: ")) << Host().lblstatus.Caption.get();
}

TEST_F(AutoHostRunTest, ClosingTheWindowInARunIsTakenDownAndNobodyIsToldOfItsMapsAnyMore) {
  const auto game = StartGame();
  Host().Command2.Press();
  Host().Edited = false;
  desktop.clock().Post([this] { Host().Unload(); });
  const Ref<Form> keep(&Host());
  Host().run.fields.PState = false;
  Ticks(1);
  EXPECT_FALSE(keep->IsLoaded());
  EXPECT_EQ(PresentRotation().map + PresentRotation().next, "");
  EXPECT_TRUE(ReadFile(ProgramPath("autohost.log")).ends_with("\t\tstopped\t\tthe window was closed\r\n"));
}

TEST_F(AutoHostRunTest, OthersAreToldWhatPlaysOnlyWhileItRuns) {
  EXPECT_EQ(PresentRotation().next, "");
  Host().Command2.Press();
  Ticks(1);
  EXPECT_EQ(PresentRotation().map, "Arena");
  EXPECT_EQ(PresentRotation().next, "Desert");
  EXPECT_EQ(PresentRotation().left, "15:58");
  Host().Command2.Press();
  EXPECT_EQ(PresentRotation().map + PresentRotation().next + PresentRotation().left, "");
}

TEST_F(AutoHostRunTest, TheMarkMovesWithItsRowAndGoesWithIt) {
  Host().Command2.Press();
  Ticks(1);
  Select({0}, 1);
  Host().lstmaps.ListIndex = 0;
  Host().cmddown.Press();
  EXPECT_EQ(Host().lstmaps.MarkedRow(), 1);
  Host().lstmaps.RemoveItem(0);
  EXPECT_EQ(Host().lstmaps.MarkedRow(), 0);
  Host().lstmaps.RemoveItem(0);
  EXPECT_EQ(Host().lstmaps.MarkedRow(), -1);
}

TEST_F(AutoHostRunTest, WhatPlaysWhatComesNextAndWhenIsShown) {
  EXPECT_EQ(Host().lblplaysnow.Caption.get(), "Nothing: the auto host is not started");
  EXPECT_EQ(Host().lblplaysnext.Caption.get(), "Arena.bms, row 1 of 3");
  EXPECT_EQ(Host().lblchangeswhen.Caption.get(), "When you press Start");
  const auto game = StartGame();
  EXPECT_TRUE(Host().MemControl1.AttachToWindow(game->Title()));
  Host().run.fields.GameEndAddr = kHostBuilds[0].GameEndAddr;
  Host().Command2.Press();
  EXPECT_EQ(Host().lblplaysnow.Caption.get(), "Whatever the server plays: nothing was inserted yet");
  EXPECT_EQ(Host().lblchangeswhen.Caption.get(), "In 15:58, or when the game ends");
  Ticks(57);
  EXPECT_EQ(Host().lblchangeswhen.Caption.get(), "In 15:01, or when the game ends");
  game->SetByte(static_cast<uint32_t>(kHostBuilds[0].GameEndAddr), 0);
  Ticks(1);
  EXPECT_EQ(Host().lblplaysnow.Caption.get(), "Arena.bms");
  EXPECT_EQ(Host().lblplaysnext.Caption.get(), "Desert.bms, row 2 of 3");
  Host().chrandom.Press();
  EXPECT_TRUE(Host().run.fields.Random);
  EXPECT_EQ(Host().lblplaysnext.Caption.get(), "One of the 3 maps, at random");
  Host().Command4.Press();
  EXPECT_EQ(Host().lblchangeswhen.Caption.get(), "Paused: when you press continue, or Insert now");
}

TEST_F(AutoHostRunTest, TheKeyboardGoesFromPauseToContinueAndBack) {
  Host().Command2.Press();
  Host().Command4.SetFocus();
  Host().Command4.Press();
  EXPECT_EQ(Host().ActiveControl(), &Host().Command5);
  Host().Command5.Press();
  EXPECT_EQ(Host().ActiveControl(), &Host().Command4);
  Host().lstmaps.SetFocus();
  Host().Command4.Press();
  EXPECT_EQ(Host().ActiveControl(), &Host().lstmaps);
}

TEST_F(AutoHostRunTest, TheRunningClockKeepsItsLimitsWhateverChangesIt) {
  Host().txtsec.Text = "60";
  EXPECT_EQ(Host().txtsec.Text.get(), "59");
  Host().txtsec.Text = "-3";
  EXPECT_EQ(Host().txtsec.Text.get(), "0");
  Host().txtmin.Text = "241";
  EXPECT_EQ(Host().txtmin.Text.get(), "59");
  Host().txtmin.Text = "240";
  EXPECT_EQ(Host().txtmin.Text.get(), "240");
}

TEST_F(AutoHostRunTest, AFailureShowsTheStripInRedUntilTheRunIsStopped) {
  Host().lstmaps.SetList(0, MapPath("Missing.bms"));
  EXPECT_FALSE(Host().Picture5.Visible);
  Host().Command2.Press();
  Ticks(1);
  EXPECT_TRUE(Host().Picture5.Visible);
  EXPECT_EQ(Host().Label11.ForeColor, 255u);
  EXPECT_EQ(Host().Label11.Caption.get(),
            "WARNING ERROR INSERTING MAP " + MapPath("Missing.bms") + " ACTION TAKEN: NEXT MAP INSERTED.");
  EXPECT_EQ(Loose(), "map Desert.bms");
  Host().Command2.Press();
  EXPECT_FALSE(Host().Picture5.Visible);
}

TEST_F(AutoHostRunTest, TheWholeChangeWithResetCommandAndGameTimer) {
  const auto game = StartGame();
  Host().Check1.Value = 1;
  Host().ChGameTimer.Value = 1;
  game->on_key = [&](int32_t key) {
    if (key == 13) game->SetByte(static_cast<uint32_t>(kHostBuilds[0].GameEndAddr), 0);
  };
  Host().Command2.Press();
  game->SetLong(static_cast<uint32_t>(kHostBuilds[0].GameTimer), 6250);
  Ticks(2);
  EXPECT_EQ(Host().txtmin.Text.get(), "1");
  EXPECT_EQ(Host().txtsec.Text.get(), "40");
  game->SetLong(static_cast<uint32_t>(kHostBuilds[0].GameTimer), 0);
  Ticks(3);
  EXPECT_EQ(Loose(), "map Arena.bms");
  EXPECT_EQ(game->TextAt(static_cast<uint32_t>(kHostBuilds[0].MemoryAdress)), "resetgames");
  EXPECT_EQ(Host().lstmaps.ItemData(0), 1);
  EXPECT_EQ(Host().lstmaps.ItemData(1), 0);
}

TEST_F(AutoHostRunTest, AGameOfAnAdministratorIsExplainedInTheStatusLine) {
  const auto game = StartGame();
  game->refuses_reading = true;
  Host().ChGameTimer.Value = 1;
  desktop.dialogs().ExpectBox("Dflw game is not open!");
  Host().Command2.Press();
  EXPECT_EQ(Host().lblstatus.Caption.get(), kGameNotReadable);
  Host().Command2.Press();
  EXPECT_EQ(Host().lblstatus.Caption.get(), "");
}

TEST_F(AutoHostRunTest, ClosingTheWindowEndsTheRun) {
  Host().Command2.Press();
  Host().Edited = false;
  Host().mnu_close.Choose();
  desktop.clock().AdvanceMs(10000);
  EXPECT_EQ(Loose(), "");
  Host();  // for the fixture's end
}

TEST_F(AutoHostRunTest, ClosingTheWindowInTheMiddleOfAnInsertPutsNothing) {
  const auto game = StartGame();
  EXPECT_TRUE(Host().MemControl1.AttachToWindow(game->Title()));
  Host().run.fields.GameEndAddr = kHostBuilds[0].GameEndAddr;
  Host().Edited = false;
  const TimerId timer = desktop.clock().StartTimer(500, [] {
    if (Form* form = LoadedWindow("frmputlist")) form->Unload();
  });
  Host().Command3_Click();
  desktop.clock().StopTimer(timer);
  EXPECT_EQ(Loose(), "");
  Host();
}

TEST_F(AutoHostRunTest, AddInsReachFieldsOperationsAndControlsByName) {
  Form& form = Host();
  PutMember(form, "DfVersion", int32_t{1});
  PutMember(form, "errors", int32_t{3});
  EXPECT_EQ(ToLong(GetMember(form, "Errors")), 3);
  for (const char* name : {"Random", "Rename", "NextMap", "Errors", "DfVersion", "MemoryAdress", "GameTimer",
                           "GameEndAddr", "PState", "LTime", "Edited"}) {
    EXPECT_NO_THROW(PutMember(form, name, GetMember(form, name))) << name;
  }
  CallMember(form, "StartList");
  EXPECT_TRUE(Host().TmrInsert.Enabled);
  CallMember(form, "Insert_Map_List", {false});
  EXPECT_EQ(Loose(), "map Arena.bms");
  CallMember(form, "StopList");
  EXPECT_FALSE(Host().TmrInsert.Enabled);
  CallMember(form, "Writemessage", {"hello", int32_t{84}, int32_t{0}});
  EXPECT_EQ(ToLong(CallMember(*GetMember(form, "MemControl1").object(), "ReadByteAt", {int32_t{0}})), 0);
}

// ---- the dialogue of the game's version ----------------------------------------------------------------------------

TEST_F(AutoHostRunTest, ChoosingTheThirdVersionForTheResetCommandIsRefusedAndGivesTheFirst) {
  desktop.windowing().ExpectModal("Frmdfversion", [](Form& form) {
    EXPECT_EQ(form.Caption.get(), "Kestrun - Choose Version");
    EXPECT_EQ(ToText(GetMember(*form.FindControl("optdfversion", 2), "Caption")), "Demo V1.0.31");
    EXPECT_TRUE(ToBoolean(GetMember(*form.FindControl("optdfversion", 2), "Value")));
    form.FindControl("Command1")->Click();
  });
  desktop.dialogs().ExpectBox("Wrong DF version!");
  Host().Check1.Press();
  EXPECT_EQ(Host().run.fields.DfVersion, 0);
  EXPECT_EQ(Host().Check1.Value, 1);
}

TEST_F(AutoHostRunTest, TheThirdVersionIsAllowedForTheGameTimer) {
  desktop.windowing().ExpectModal("Frmdfversion", [](Form& form) { form.FindControl("Command1")->Click(); });
  Host().ChGameTimer.Press();
  EXPECT_EQ(Host().run.fields.DfVersion, 2);
  EXPECT_FALSE(Host().TxtTimeMin.Enabled);
  EXPECT_FALSE(Host().TxtTimeSec.Enabled);
  const auto game = desktop.running_games().Start("Delta Force Land Warrior,  V1.00.31");
  Host().Command2.Press();
  EXPECT_EQ(Host().run.fields.GameTimer, 6550688);
}

TEST_F(AutoHostRunTest, ClosingTheVersionDialogueChangesNothing) {
  desktop.windowing().ExpectModal("Frmdfversion", [](Form& form) {
    PutMember(*form.FindControl("optdfversion", 0), "Value", true);
    form.Unload();
  });
  Host().mnu_changeDFversion.Choose();
  EXPECT_EQ(Host().run.fields.DfVersion, -1);
}

TEST_F(AutoHostRunTest, AStoredVersionIsNotAskedForAgain) {
  Host().run.fields.DfVersion = 1;
  Host().ChGameTimer.Press();
  Host().Check1.Press();
  EXPECT_EQ(Host().run.fields.DfVersion, 1);
}

// ---- game types ----------------------------------------------------------------------------------------------------

class GameTypeWindowTest : public AutoHostRunTest {
 protected:
  GameTypeWindowTest() {
    for (const char* name : {"Arena.bms", "Desert.bms", "Oasis.bms"}) WriteFile(MapPath(name), Bytes(200));
  }
  // Opens the window, ticks these boxes, presses Run, and reads the bar.
  void RunWith(const std::vector<int>& boxes) {
    desktop.windowing().ExpectModal("FrmGameType", [this, boxes](Form& form) {
      for (const int box : boxes) PutMember(*form.FindControl("ChGameType", box), "Value", int32_t{1});
      form.FindControl("Command1")->Click();
      bar_ = ToLong(GetMember(*form.FindControl("ProgressBar1"), "Value"));
      form.FindControl("Command2")->Click();
    });
    Host().mnu_addgametype.Choose();
  }
  [[nodiscard]] uint32_t WordOf(const std::string& name) { return LoadU32(native_files.ReadAll(MapPath(name)), 122); }
  int bar_ = -1;
};

TEST_F(GameTypeWindowTest, EveryMapOfTheListGetsTheTickedTypes) {
  RunWith({0, 8});
  for (const char* name : {"Arena.bms", "Desert.bms", "Oasis.bms"}) EXPECT_EQ(WordOf(name), 256u | 2048u) << name;
  EXPECT_EQ(bar_, 3);
  RunWith({0, 8});
  EXPECT_EQ(WordOf("Oasis.bms"), 256u | 2048u);
}

TEST_F(GameTypeWindowTest, AnEmptyListIsToldAndNoFileTouched) {
  Host().lstmaps.Clear();
  desktop.dialogs().ExpectBox("No maps in the list!");
  RunWith({0});
  EXPECT_EQ(WordOf("Arena.bms"), 0u);
}

TEST_F(GameTypeWindowTest, AFailingRowNamesItselfAndEndsTheRun) {
  Host().lstmaps.SetList(1, MapPath("Missing.bms"));
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", MapPath("Missing.bms"));
  RunWith({1});
  EXPECT_EQ(WordOf("Arena.bms"), 512u);
  EXPECT_EQ(WordOf("Oasis.bms"), 0u);
  EXPECT_EQ(bar_, 1);
}

}  // namespace
}  // namespace kestrun
