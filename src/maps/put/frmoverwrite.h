// The question before an entry of the game's archive is replaced.
#pragma once

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/timer.h"
#include "forms/window_registry.h"

namespace kestrun {

class FrmOverWrite final : public Form {
 public:
  static constexpr const char* kName = "FrmOverWrite";
  FrmOverWrite();

  Image& imgPFF = Add<Image>("imgPFF");
  Label& LblPFF = Add<Label>("LblPFF");
  Image& imgBMS = Add<Image>("imgBMS");
  Label& LblBMS = Add<Label>("LblBMS");
  Label& lblWarn = Add<Label>("lblWarn");
  CheckBox& ChShow = Add<CheckBox>("ChShow");
  CommandButton& CmdOK = Add<CommandButton>("CmdOK");
  CommandButton& CmdCancel = Add<CommandButton>("CmdCancel");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // Applies the style a moment later, by the timer.
  void ApplyStyle();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Shown() override;

 private:
  void LayOut();
};

// The answer of the window's buttons, shared by all its instances: cleared before it opens, set when it closes.
[[nodiscard]] bool OverwriteAnswer();
void SetOverwriteAnswer(bool answer);

}  // namespace kestrun
