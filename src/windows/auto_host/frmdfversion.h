// Asks which build of the game is on this machine.
#pragma once

#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/option_button.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class Frmdfversion final : public Form {
 public:
  static constexpr const char* kName = window_name::kGameVersion;
  Frmdfversion();

  Label& Label1 = Add<Label>("Label1");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& optdfversion0 = Add<OptionButton>("optdfversion", 0);
  OptionButton& optdfversion1 = Add<OptionButton>("optdfversion", 1);
  OptionButton& optdfversion2 = Add<OptionButton>("optdfversion", 2);
  CommandButton& Command1 = Add<CommandButton>("Command1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  void LayOut();
  void TakeChoice();
};

}  // namespace kestrun
