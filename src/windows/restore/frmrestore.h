// What of the game differs from its originals, and the way back.
#pragma once

#include <string>
#include <vector>

#include "controls/list_box/mc_list_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "game/originals/differences.h"

namespace kestrun {

class frmrestore final : public Form {
 public:
  static constexpr const char* kName = "frmrestore";
  frmrestore();

  // ---- controls, in tab order ----
  Label& LblFolders = Add<Label>("LblFolders");
  // The game folders that are known, the one that is set first.
  ListBox& LstFolders = Add<ListBox>("LstFolders");
  CommandButton& CmdBrowse = Add<CommandButton>("CmdBrowse");
  Label& LblMissions = Add<Label>("LblMissions");
  McListBox& LstMissions = Add<McListBox>("LstMissions");
  Label& LblState = Add<Label>("LblState");
  Frame& FrmDetails = Add<Frame>("FrmDetails");
  Label& LblWhere = Add<Label>("LblWhere");
  TextBox& TxtWhere = Add<TextBox>("TxtWhere");
  Label& LblNow = Add<Label>("LblNow");
  TextBox& TxtNow = Add<TextBox>("TxtNow");
  Label& LblSince = Add<Label>("LblSince");
  TextBox& TxtSince = Add<TextBox>("TxtSince");
  Label& LblSize = Add<Label>("LblSize");
  TextBox& TxtSize = Add<TextBox>("TxtSize");
  Label& LblVersion = Add<Label>("LblVersion");
  // What CmdRestore puts back in the current row: the original, or a further version.
  ComboBox& CboVersion = Add<ComboBox>("CboVersion");
  CommandButton& CmdRestore = Add<CommandButton>("CmdRestore");
  CommandButton& CmdRestoreAll = Add<CommandButton>("CmdRestoreAll");
  CommandButton& CmdMapInfo = Add<CommandButton>("CmdMapInfo");
  CommandButton& CmdRefresh = Add<CommandButton>("CmdRefresh");
  CommandButton& CmdClose = Add<CommandButton>("CmdClose");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // Reads the folders and what differs in the current one again.
  void RefreshAll();

 protected:
  void Load() override;

 private:
  using Difference = originals::Difference;
  using Differences = std::vector<Difference>;

  void LayOut();
  void LayOutLists();
  void LayOutDetails();
  void LayOutButtons();
  void Connect();
  void HandleKey(int& key_code, int shift_state);

  void AddFolder(const std::string& folder);
  void BrowseFolder();
  void FillMissions();
  void ShowDetails();
  void ShowVersions(const Difference* difference);
  [[nodiscard]] std::string CurrentFolder() const { return LstFolders.Text(); }
  [[nodiscard]] const Difference* CurrentDifference() const;
  // A difference, and what is to take its place.
  struct Wanted {
    Difference difference;
    originals::KeptVersion version;
    // Nothing is to be done where the version is there already.
    [[nodiscard]] bool IsThere() const { return difference.IsThere(version); }
  };
  [[nodiscard]] std::vector<Wanted> SelectedRows() const;
  [[nodiscard]] std::vector<Wanted> AllOriginals() const;

  void RestoreSelected();
  void Restore(std::vector<Wanted> wanted);
  void ShowMapInfo();

  Differences differences_;  // one for each row of LstMissions
  std::vector<int> chosen_;  // for each row, the row of CboVersion
};

}  // namespace kestrun
