// Adds game types to every map of the play list.
#pragma once

#include <vector>

#include "controls/progress_bar/progress_bar.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class FrmGameType final : public Form {
 public:
  static constexpr const char* kName = window_name::kGameTypes;
  FrmGameType();

  Label& Label1 = Add<Label>("Label1");
  Frame& Frame1 = Add<Frame>("Frame1");
  // One for each game type that can be added, its flag in the tag.
  std::vector<CheckBox*> ChGameType = AddBoxes();
  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  std::vector<CheckBox*> AddBoxes();
  void LayOut();
  void Run();
  void StampAll(int rows);
  [[nodiscard]] uint32_t Mask() const;
};

}  // namespace kestrun
