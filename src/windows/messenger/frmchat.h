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
#include "game/messages/message_list.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmchat final : public Form {
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
  int32_t MemoryAdress = 0;    // of the game's text line
  int32_t GameEndAddress = 0;  // of the byte that is above 0 while a game runs
  bool Changed = false;        // the list differs from the settings

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

  void Enable();
  void Disable();
  void Tick();
  void WatchGame();
  void CountDown();
  [[nodiscard]] int32_t ShownSeconds() const;
  [[nodiscard]] int NextRow() const;
  void StartWaitingForGameStart();
  void ShowState();

  bool game_runs_ = false;
  bool game_ran_ = false;  // at the last tick
  bool start_messages_wait_ = false;
};

}  // namespace kestrun
