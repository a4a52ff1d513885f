// The check of the play list: how far it is, then its report, which can be saved, and the offer to select the bad rows.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "maps/health/list_check.h"

namespace kestrun {

class FrmCheckList final : public Form {
 public:
  static constexpr const char* kName = "FrmCheckList";
  FrmCheckList();

  // What the check does, then what it has found.
  Label& LblTask = Add<Label>("LblTask");
  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
  TextBox& TxtReport = Add<TextBox>("TxtReport");
  CommandButton& CmdSelect = Add<CommandButton>("CmdSelect");
  CommandButton& CmdSave = Add<CommandButton>("CmdSave");
  // Ends the check first, the window then.
  CommandButton& CmdCancel = Add<CommandButton>("CmdCancel");
  // Goes on with the check while the window stays usable.
  Timer& TmrCheck = Add<Timer>("TmrCheck");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // Begins to check these rows; showing the window is left to the caller.
  void Check(const std::string& list, std::vector<std::string> rows, MapUse use);

  // Once the window is closed: whether the user wants the bad rows selected, which they are, and what was found behind
  // the web addresses that were asked.
  [[nodiscard]] bool IsSelectionWanted() const { return is_selection_wanted_; }
  [[nodiscard]] std::vector<int> BadRows() const;
  [[nodiscard]] std::unordered_map<std::string, MapFacts> Addresses() const;

 protected:
  void Load() override;

 private:
  void LayOut();
  void GoOn();
  void Finish();
  void CancelOrClose();
  void SelectAndClose();
  void Save();

  std::unique_ptr<ListCheck> check_;
  ListReport report_;
  bool is_selection_wanted_ = false;
};

}  // namespace kestrun
