// The messenger's list, its settings, and the window that a message is entered in.
#include "windows/messenger/frmchat.h"

#include "program/style_hook.h"
#include "windows/messenger/messenger_fixture.h"

namespace kestrun {
namespace {

class MessengerListTest : public MessengerTest {
 protected:
  ~MessengerListTest() override { InstallStyleRuntime({}); }
  [[nodiscard]] std::string Rows() {
    std::string rows;
    for (int row = 0; row < Chat().lstmsg.ListCount(); ++row) {
      rows += Chat().lstmsg.List(row) + " " + std::to_string(Chat().lstmsg.ItemData(row)) + "|";
    }
    return rows;
  }
  // What the user does in the window that opens for a message.
  void InMessageWindow(std::function<void(frmaddmessage&)> action) {
    desktop.windowing().ExpectModal("frmaddmessage", [action](Form& form) {
      action(static_cast<frmaddmessage&>(form));
      form.Unload();
    });
  }
};

TEST_F(MessengerListTest, AFreshInstallationShowsAnEmptyListAndTheDefaults) {
  frmchat& chat = Open();
  EXPECT_EQ(chat.Caption.get(), "Auto messenger");
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(chat.CmbVersion.Text.get(), "dflw, demo V0.99.49");
  EXPECT_EQ(chat.Text1.Text.get(), "60");
  EXPECT_EQ(chat.lbltime.Caption.get(), "60");
  EXPECT_EQ(chat.Check1.Value, 0);
  EXPECT_EQ(chat.Timer.Interval, 1000);
  EXPECT_FALSE(chat.Timer.Enabled);
  EXPECT_FALSE(chat.Changed);
}

TEST_F(MessengerListTest, TheVersionsStandInTheirOrder) {
  std::string versions;
  for (int row = 0; row < Open().CmbVersion.ListCount(); ++row) versions += Chat().CmbVersion.List(row) + "|";
  EXPECT_EQ(versions,
            "dflw, demo V0.99.49|dflw, full V1.00.42|df2, full V1.0.15|dfbhd, demo|dfbhd, full V1.3.0.37|"
            "dfbhd, full V1.2.2.4|dflw V1.0.31|");
}

TEST_F(MessengerListTest, SavedMessagesAndSettingsComeBack) {
  Fill({{"Hello all", 84}, {"café", 0}, {"resetgames", 192}});
  Open().CmbVersion.ListIndex = 6;
  Chat().Text1.Text = "90";
  Chat().Check1.Value = 1;
  desktop.dialogs().ExpectBox("Saved!");
  Chat().Command5.Press();
  EXPECT_EQ(Ini("Chat", "TOTMSG"), "3");
  EXPECT_EQ(Ini("Chat", "MSG2"), "café");
  EXPECT_EQ(Ini("Chat", "MSGKEY3"), "192");
  Chat().Unload();
  EXPECT_EQ(Open().CmbVersion.ListIndex, 6);
  EXPECT_EQ(Rows(), "Hello all 84|café 0|resetgames 192|");
  EXPECT_EQ(Chat().Text1.Text.get() + Chat().lbltime.Caption.get(), "9090");
  EXPECT_EQ(Chat().Check1.Value, 1);
}

TEST_F(MessengerListTest, AMissingMessageOrTypeHasItsDefault) {
  WriteIni("[Chat]\r\nTOTMSG=2\r\nMSG2=second\r\nMSGKEY2=89\r\n");
  Open();
  EXPECT_EQ(Rows(), "Typ your message here 84|second 89|");
}

TEST_F(MessengerListTest, AnAbsurdCountDoesNotHoldTheWindow) {
  WriteIni("[Chat]\r\nTOTMSG=2000000000\r\n");
  Open();
  EXPECT_EQ(Chat().lstmsg.ListCount(), kMostMessages);
}

TEST_F(MessengerListTest, ATypeThatIsNoNumberIsTold) {
  WriteIni("[Chat]\r\nTOTMSG=1\r\nMSGKEY1=T\r\n");
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  Open();
}

TEST_F(MessengerListTest, TheMessagesBeforeATypeThatIsNoNumberAreThere) {
  WriteIni("[Chat]\r\nTOTMSG=3\r\nMSG1=a\r\nMSG2=b\r\nMSGKEY2=T\r\n");
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  Open();
  EXPECT_EQ(Rows(), "a 84|");
}

TEST_F(MessengerListTest, AShorterListLeavesTheKeysOfALongerOneUnread) {
  WriteIni("[Chat]\r\nTOTMSG=2\r\nMSG1=a\r\nMSG2=b\r\n");
  Open().lstmsg.ListIndex = 1;
  Chat().Command2.Press();
  desktop.dialogs().ExpectBox("Saved!");
  Chat().Command5.Press();
  EXPECT_EQ(Ini("Chat", "TOTMSG"), "1");
  EXPECT_EQ(Ini("Chat", "MSG2"), "b");
}

TEST_F(MessengerListTest, AMessageIsEnteredWithItsType) {
  Open();
  InMessageWindow([](frmaddmessage& window) {
    EXPECT_EQ(window.Caption.get(), "Add message");
    EXPECT_EQ(window.Combo1.ListIndex, 0);
    window.Text1.Text = "Welcome";
    window.Combo1.ListIndex = 3;
    window.Command1.Press();
  });
  Chat().Command1.Press();
  EXPECT_EQ(Rows(), "Welcome 0|");
  EXPECT_TRUE(Chat().Changed);
  Chat().Changed = false;
}

TEST_F(MessengerListTest, TheTypesStandInTheirOrderWithTheirNumbers) {
  Open();
  InMessageWindow([](frmaddmessage& window) {
    std::string types;
    for (int row = 0; row < window.Combo1.ListCount(); ++row) {
      types += window.Combo1.List(row) + " " + std::to_string(window.Combo1.ItemData(row)) + "|";
    }
    EXPECT_EQ(types,
              "Public message (T) 84|Team message (Y) 89|Command (ù or ~) 192|Game start public (T) 0|"
              "Game start team (Y) 1|Game start command (~ or ù) 2|");
  });
  Chat().Command1.Press();
}

TEST_F(MessengerListTest, TheTextThatAsksForOneGoesWhenTheBoxGetsTheFocus) {
  EXPECT_EQ(Window<frmaddmessage>().Text1.Text.get(), "Enter your message here");
  Window<frmaddmessage>().Text1.GotFocus();
  EXPECT_EQ(Window<frmaddmessage>().Text1.Text.get(), "");
  Window<frmaddmessage>().Text1.Text = "mine";
  Window<frmaddmessage>().Text1.GotFocus();
  EXPECT_EQ(Window<frmaddmessage>().Text1.Text.get(), "mine");
}

TEST_F(MessengerListTest, PropertiesShowAndChangeTheSelectedMessage) {
  Fill({{"one", 84}, {"two", 89}});
  Open().lstmsg.ListIndex = 1;
  InMessageWindow([](frmaddmessage& window) {
    EXPECT_EQ(window.EditMsg(), 2);
    EXPECT_EQ(window.Text1.Text.get() + "/" + window.Combo1.Text.get(), "two/Team message (Y)");
    window.Text1.Text = "changed";
    window.Combo1.ListIndex = 2;
    window.Command1.Press();
  });
  Chat().Command6.Press();
  EXPECT_EQ(Rows(), "one 84|changed 192|");
  EXPECT_TRUE(Chat().Changed);
  Chat().Changed = false;
}

TEST_F(MessengerListTest, PropertiesWithoutASelectedMessageSaySo) {
  Fill({{"one", 84}});
  desktop.dialogs().ExpectBox("Select message!");
  Open().Command6.Press();
}

TEST_F(MessengerListTest, AMessageWithoutATypeIsNotTaken) {
  Fill({{"odd", 77}});
  Open().lstmsg.ListIndex = 0;
  desktop.dialogs().ExpectBox("Please select a message type");
  InMessageWindow([](frmaddmessage& window) {
    EXPECT_EQ(window.Combo1.ListIndex, -1);
    window.Command1.Press();
    EXPECT_TRUE(window.IsLoaded());
  });
  Chat().Command6.Press();
  EXPECT_FALSE(Chat().Changed);
}

TEST_F(MessengerListTest, ACharacterThatTheGameCannotShowIsNamedAndTheMessageIsNotLost) {
  Open();
  const auto question = [this](BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox(
            "The game cannot show the character \"П\": players will see ? in its place.\r\n"
            "Keep the message as it is?",
            answer)
        .WithButtons(BoxButtons::kYesNo);
  };
  question(BoxAnswer::kNo);
  question(BoxAnswer::kYes);
  InMessageWindow([](frmaddmessage& window) {
    window.Text1.Text = "Hi Привет";
    window.Command1.Press();
    EXPECT_TRUE(window.IsLoaded());
    EXPECT_EQ(window.Text1.Text.get(), "Hi Привет");
    window.Command1.Press();
  });
  Chat().Command1.Press();
  EXPECT_EQ(Rows(), "Hi Привет 84|");
  desktop.dialogs().ExpectBox("Saved!");
  Chat().Command5.Press();
  Chat().Unload();
  Open();
  EXPECT_EQ(Rows(), "Hi Привет 84|");
}

TEST_F(MessengerListTest, CancelTakesNothing) {
  Open();
  InMessageWindow([](frmaddmessage& window) {
    window.Text1.Text = "no";
    window.Command2.Press();
  });
  Chat().Command1.Press();
  EXPECT_EQ(Rows(), "");
  EXPECT_FALSE(Chat().Changed);
}

TEST_F(MessengerListTest, AMessageEnteredWithoutTheMessengerOpensIt) {
  auto& window = Window<frmaddmessage>();
  window.Show();
  window.Text1.Text = "alone";
  window.Command1.Press();
  EXPECT_TRUE(Chat().IsShown());
  EXPECT_EQ(Rows(), "alone 84|");
  Chat().Changed = false;
}

TEST_F(MessengerListTest, TheCharacterMapIsStarted) {
  Window<frmaddmessage>().Show();
  Window<frmaddmessage>().Command3.Press();
  EXPECT_EQ(desktop.shell().openings, (std::vector<ShellOpening>{{"open", "charmap.exe", "", "", 1}}));
}

TEST_F(MessengerListTest, RemovingTakesTheCurrentRowAndSelectsTheNext) {
  Fill({{"a", 84}, {"b", 84}, {"c", 84}});
  Open().lstmsg.ListIndex = 1;
  Chat().Command2.Press();
  EXPECT_EQ(Rows(), "a 84|c 84|");
  EXPECT_EQ(Chat().lstmsg.ListIndex, 1);
  EXPECT_TRUE(Chat().Changed);
  Chat().Changed = false;
}

TEST_F(MessengerListTest, AnIntervalThatIsNoNumberBecomesSixty) {
  desktop.dialogs().ExpectBox("Please enter a number!");
  Open().Text1.Text = "5x";
  EXPECT_EQ(Chat().Text1.Text.get(), "60");
  Chat().Text1.Text = "";
  EXPECT_EQ(Chat().Text1.Text.get(), "");
}

TEST_F(MessengerListTest, ChangesAreAskedForWhenTheWindowCloses) {
  const auto ask = [this](BoxAnswer answer) {
    desktop.dialogs().ExpectBox("Save changes to the message list?", answer).WithButtons(BoxButtons::kYesNoCancel);
  };
  Open().TakeMessage(-1, "new", 84);
  ask(BoxAnswer::kCancel);
  EXPECT_FALSE(Chat().Unload());
  ask(BoxAnswer::kNo);
  EXPECT_TRUE(Chat().Unload());
  EXPECT_EQ(Ini("Chat", "TOTMSG"), "(none)");
  Open().TakeMessage(-1, "new", 84);
  ask(BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Saved!");
  EXPECT_TRUE(Chat().Unload());
  EXPECT_EQ(Ini("Chat", "MSG1"), "new");
}

TEST_F(MessengerListTest, AListThatCannotBeStoredKeepsTheWindowOpen) {
  Open().TakeMessage(-1, "new", 84);
  native_files.MakeFolder(ProgramPath("packit.ini"));
  desktop.dialogs().ExpectBox("Save changes to the message list?", BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", ProgramPath("packit.ini"));
  EXPECT_FALSE(Chat().Unload());
  EXPECT_TRUE(Chat().Changed);
  Chat().Changed = false;
}

TEST_F(MessengerListTest, FillingInIsOffAtFirstAndNoSettingTellsOfItUntilItWasUsed) {
  Fill({{"Now %map%", 84}});
  Open();
  EXPECT_EQ(Chat().ChFillIn.Value, 0);
  EXPECT_EQ(Chat().ChFillIn.Caption.get(), "Fill in %map%, %next%, %left% and %time%");
  desktop.dialogs().ExpectBox("Saved!");
  Chat().Command5.Press();
  EXPECT_EQ(ReadFile(ProgramPath("packit.ini")).find("FILLIN"), std::string::npos);
  Chat().ChFillIn.Value = 1;
  desktop.dialogs().ExpectBox("Saved!");
  Chat().Command5.Press();
  Chat().Unload();
  EXPECT_EQ(Open().ChFillIn.Value, 1);
}

TEST_F(MessengerListTest, TheKeyboardReachesEverythingInReadingOrder) {
  Fill({{"a", 84}});
  std::string order;
  for (const Control* control : Open().TabOrder()) order += control->Name() + "|";
  EXPECT_EQ(order, "CmbVersion|lstmsg|Command1|Command2|Command6|Check1|ChFillIn|Text1|Command3|Command5|");
  Chat().lstmsg.ListIndex = 0;
  int key = 46;  // Del
  Chat().lstmsg.KeyDown(key, 0);
  EXPECT_EQ(Rows(), "");
  Chat().Changed = false;
}

TEST_F(MessengerListTest, CaptionsAndTipsAreTheProgramsOwn) {
  frmchat& chat = Open();
  EXPECT_EQ(chat.Frame1.Caption.get() + chat.Frame2.Caption.get(), "Delta Force Version:Messages:");
  EXPECT_EQ(chat.lstmsg.ToolTipText.get(), "This list shows all the messages");
  EXPECT_EQ(chat.Command1.Caption.get() + chat.Command1.ToolTipText.get(), "+Add a message");
  EXPECT_EQ(chat.Command2.Caption.get() + chat.Command2.ToolTipText.get(), "-Remove message");
  EXPECT_EQ(chat.Command6.Caption.get(), "Properties");
  EXPECT_EQ(chat.Check1.Caption.get() + "|" + chat.Check1.ToolTipText.get(),
            "Random select messages|Select a message at random and send it.");
  EXPECT_EQ(chat.LblEvery.Caption.get() + chat.LblSeconds.Caption.get() + chat.Text1.ToolTipText.get(),
            "Send a message every:Sec.Time in sec");
  EXPECT_EQ(chat.Command3.Caption.get() + chat.Command4.Caption.get(), "EnableDisable");
  EXPECT_EQ(chat.Command5.Caption.get() + "|" + chat.Command5.ToolTipText.get(), "Save|Save the messages & settings");
  auto& window = Window<frmaddmessage>();
  EXPECT_EQ(window.LblMessage.Caption.get() + window.LblType.Caption.get(), "Enter message:Message Type:");
  EXPECT_EQ(window.Command1.Caption.get() + window.Command2.Caption.get() + window.Command3.Caption.get(),
            "OKCancelRun Char Map");
}

TEST_F(MessengerListTest, AFailureOfTheStyleIsToldUnderItsName) {
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [](Form&) { Raise(error::kDeviceIo); }});
  desktop.dialogs().ExpectBox("Error: ApplyStyle57\r\nDevice I/O error");
  Open();
}

}  // namespace
}  // namespace kestrun
