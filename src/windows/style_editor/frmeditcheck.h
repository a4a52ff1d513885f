// The check of the style editor's project, step by step, and what it has found: a row for each fault. Enter, a double
// click and "Open" show the line of the module that is to blame; Esc ends a check that runs.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "styles/check/style_check.h"

namespace kestrun {

class FrmEditCheck final : public Form {
 public:
  static constexpr const char* kName = "FrmEditCheck";
  FrmEditCheck();

  Label& LblResult = Add<Label>("LblResult");
  ListBox& LstFaults = Add<ListBox>("LstFaults");
  ProgressBar& prgcheck = Add<ProgressBar>("prgcheck");
  CommandButton& CmdOpen = Add<CommandButton>("CmdOpen");
  CommandButton& CmdAgain = Add<CommandButton>("CmdAgain");
  CommandButton& CmdClose = Add<CommandButton>("CmdClose");
  Timer& TmrCheck = Add<Timer>("TmrCheck");

  // Checks the project of that name; its faults take the place of those that are listed. The window shows how far it
  // is.
  void Check(const std::string& project, std::unique_ptr<StyleCheck> check);

 private:
  void Place();
  void OpenChosen();
  void CloseOrLeave();
  [[nodiscard]] bool IsChecking() const { return check_ && !check_->IsOver(); }
  void Step();
  void Leave();
  void ListNewFaults();
  void ShowState();
  void ShowWhatIsPossible();
  [[nodiscard]] const StyleFault* Chosen() const;

  std::string project_;
  std::unique_ptr<StyleCheck> check_;  // its faults are the rows
};

}  // namespace kestrun
