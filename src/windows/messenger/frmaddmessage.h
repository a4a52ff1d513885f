// Where a message of the auto messenger is entered or changed.
#pragma once

#include <cstdint>

#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"

namespace kestrun {

class frmaddmessage final : public Form {
 public:
  static constexpr const char* kName = "frmaddmessage";
  static constexpr int kNewMessage = -1;
  frmaddmessage();

  // ---- controls, in tab order ----
  Label& LblMessage = Add<Label>("LblMessage");
  TextBox& Text1 = Add<TextBox>("Text1");
  Label& LblType = Add<Label>("LblType");
  ComboBox& Combo1 = Add<ComboBox>("Combo1");  // each row's number is its type of message
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // The row of the messenger's list that is changed, counted from 1; kNewMessage for a new one.
  [[nodiscard]] int32_t EditMsg() const { return edit_msg_; }
  // Shows the message of that row.
  void SetEditMsg(int32_t row);

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;

 private:
  void LayOut();
  void ShowMessage();
  void TakeMessage();
  [[nodiscard]] bool CanBeSent();

  int32_t edit_msg_ = kNewMessage;
};

}  // namespace kestrun
