// What a check has found in the style editor's project: a row for each fault. Enter, a double click and "Open" show the
// line of the module that is to blame.
#pragma once

#include <string>
#include <vector>

#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/window_registry.h"
#include "styles/check/style_fault.h"

namespace kestrun {

class FrmEditCheck final : public Form {
 public:
  static constexpr const char* kName = "FrmEditCheck";
  FrmEditCheck();

  Label& LblResult = Add<Label>("LblResult");
  ListBox& LstFaults = Add<ListBox>("LstFaults");
  CommandButton& CmdOpen = Add<CommandButton>("CmdOpen");
  CommandButton& CmdAgain = Add<CommandButton>("CmdAgain");
  CommandButton& CmdClose = Add<CommandButton>("CmdClose");

  // Puts the faults of the project of that name in the place of those that are listed.
  void ShowFaults(const std::string& project, std::vector<StyleFault> faults);

 private:
  void Place();
  void OpenChosen();
  void ShowWhatIsPossible();

  std::vector<StyleFault> faults_;  // by row
};

}  // namespace kestrun
