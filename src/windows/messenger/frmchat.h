// The auto messenger: types messages into the running game, one after the other by the clock, and others after the
// start of each game.
#pragma once

#include <cstdint>
#include <string>

#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "game/memory/mem_control.h"
#include "game/messages/messenger_run.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmchat final : public Form, private MessengerWindow {
 public:
  static constexpr const char* kName = window_name::kMessenger;
  frmchat();

  // ---- controls, in tab order ----
  Frame& Frame1 = Add<Frame>("Frame1");
  ComboBox& CmbVersion = Add<ComboBox>("CmbVersion");
  Frame& Frame2 = Add<Frame>("Frame2");
  ListBox& lstmsg = Add<ListBox>("lstmsg");  // the type of a message is its row's number
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommandButton& Command6 = Add<CommandButton>("Command6");
  CheckBox& Check1 = Add<CheckBox>("Check1");
  CheckBox& ChFillIn = Add<CheckBox>("ChFillIn");
  Label& LblEvery = Add<Label>("LblEvery");
  TextBox& Text1 = Add<TextBox>("Text1");
  Label& LblSeconds = Add<Label>("LblSeconds");
  Label& LblNext = Add<Label>("LblNext");
  Label& lbltime = Add<Label>("lbltime");
  Label& LblState = Add<Label>("LblState");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& Command4 = Add<CommandButton>("Command4");
  CommandButton& Command5 = Add<CommandButton>("Command5");
  kestrun::Timer& Timer = Add<kestrun::Timer>("Timer");
  kestrun::Timer& TmrGameStart = Add<kestrun::Timer>("TmrGameStart");
  MemControl& MemControl1 = Add<MemControl>("MemControl1");

  // ---- what the window knows ----
  MessengerRun run{*this, MakeSurroundings()};
  bool Changed = false;  // the list differs from the settings

  void SendNextMessage();
  void SendGameStartMessages();
  // Types nothing unless a game runs.
  void Writemessage(const std::string& Message, int32_t KeyAscii, int32_t MemoryAdress);

  // Gives a row its text and type, or appends one for a row of -1.
  void TakeMessage(int row, const std::string& text, int32_t type);

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;

 private:
  void LayOut();
  void LayOutMessages();
  void Connect();

  void LoadSettings();
  // False when they could not be stored.
  bool Save();
  void RemoveMessage();
  void OpenMessage(int edit);
  void ShowProperties();
  void CheckSeconds();
  void AskToSave(bool& cancel);

  // ---- the run ----
  [[nodiscard]] MessengerSurroundings MakeSurroundings();
  void Enable();
  void Disable();
  void Tick();
  void ShowState();

  int MessageCount() override { return lstmsg.ListCount(); }
  std::string MessageText(int row) override { return lstmsg.List(row); }
  int32_t MessageType(int row) override { return lstmsg.ItemData(row); }
  int CurrentMessage() override { return lstmsg.ListIndex; }
  void SetCurrentMessage(int row) override { lstmsg.ListIndex = row; }
  bool SendsAtRandom() override { return Check1.Value == 1; }
  bool FillsIn() override { return ChFillIn.Value == 1; }
  std::string Interval() override { return Text1.Text; }
  void SetInterval(const std::string& seconds) override { Text1.Text = seconds; }
  std::string Countdown() override { return lbltime.Caption; }
  void ShowCountdown(const std::string& seconds) override { lbltime.Caption = seconds; }
  bool IsEnabled() override { return Timer.Enabled; }
  void WaitForGameStart(bool waits) override;
  bool WaitsForGameStart() override { return TmrGameStart.Enabled; }
  bool IsOpen() override { return IsLoaded(); }
};

}  // namespace kestrun
