// The list of the user's own programs: adds, removes and stores them. The menu that starts them is built when the
// program starts.
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

class frmaddprogram final : public Form {
 public:
  static constexpr const char* kName = window_name::kPrograms;
  frmaddprogram();

  // ---- controls, in tab order ----
  Frame& Frame1 = Add<Frame>("Frame1");
  ListBox& Lstprograms = Add<ListBox>("Lstprograms");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommandButton& Command5 = Add<CommandButton>("Command5");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& Command4 = Add<CommandButton>("Command4");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  void LayOut();
  void Connect();
  void LoadPrograms();
  void AddOne();
  void AddProgram(const std::string& name, const std::string& path);
  void TakeDropped(const std::vector<std::string>& paths);
  void RemoveOne();
  void ShowProperties();
  void SaveAll();
  void Restart();

  std::vector<std::string> paths_;  // by number, which is not the row where numbers have gaps
  int highest_ = 0;                 // number that is stored as the last one
};

}  // namespace kestrun
