// The list of the auto host's add-ins: adds, removes and registers them.
#pragma once

#include <string>
#include <vector>

#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/list_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class FrmAddinMngr final : public Form {
 public:
  static constexpr const char* kName = window_name::kAddInManager;
  FrmAddinMngr();

  Frame& Frame1 = Add<Frame>("Frame1");
  ListBox& LstAddins = Add<ListBox>("LstAddins");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommandButton& Command6 = Add<CommandButton>("Command6");
  CommandButton& Command4 = Add<CommandButton>("Command4");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& Command5 = Add<CommandButton>("Command5");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  void LayOut();
  void AddOne();
  void RemoveOne();
  void ShowProperties();
  void SaveAll();
  void RegisterFile();

  // By row of the list.
  std::vector<std::string> ids_;
};

}  // namespace kestrun
