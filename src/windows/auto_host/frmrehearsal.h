// The night of the play list, played in advance: what would be inserted when, what would fail, and what would be said.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "game/run/rehearsal.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmrehearsal final : public Form {
 public:
  static constexpr const char* kName = window_name::kRehearsal;
  frmrehearsal();
  ~frmrehearsal() override;

  // ---- controls, in tab order ----
  Label& LblRound = Add<Label>("LblRound");
  TextBox& TxtRound = Add<TextBox>("TxtRound");
  Label& LblRoundUnit = Add<Label>("LblRoundUnit");
  Label& LblHours = Add<Label>("LblHours");
  TextBox& TxtHours = Add<TextBox>("TxtHours");
  Label& LblHoursUnit = Add<Label>("LblHoursUnit");
  CheckBox& ChMessages = Add<CheckBox>("ChMessages");
  CommandButton& CmdPlay = Add<CommandButton>("CmdPlay");
  Label& LblSummary = Add<Label>("LblSummary");
  ListBox& LstLines = Add<ListBox>("LstLines");
  CommandButton& CmdSave = Add<CommandButton>("CmdSave");
  CommandButton& CmdClose = Add<CommandButton>("CmdClose");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  void LayOut();
  void LayOutQuestions();
  // Reads what the night needs in the background, then shows it.
  void Play();
  struct Reading;
  // Does nothing more once the reading was ended.
  void Read(std::function<void(FileSystem& files)> work, std::function<void()> done);
  void ReadGameFolder();
  void GoOn();
  void ReadNextMap();
  void WantRowBehind(const std::string& path);
  void LeaveReading();
  void EndOrClose();
  void ShowNight(Rehearsal night);
  // Error 13 and a sentence for a text that is no number from 1 on.
  [[nodiscard]] static uint32_t NumberIn(const TextBox& box, const char* what, uint32_t most);
  [[nodiscard]] RehearsalPlan MakePlan();
  void SaveReport();

  std::shared_ptr<Reading> reading_;  // null while nothing is read
  RehearsalPlan plan_;
  RehearsedMaps maps_;
  std::vector<std::string> wanted_;  // maps that are still to be read, the next one last
  Rehearsal rehearsal_;              // the night that is shown
  uint32_t hours_ = 0;
};

}  // namespace kestrun
