// The map updater: copies the maps of a shared folder that are missing or different here.
#pragma once

#include <cstdint>
#include <string>

#include "controls/progress_bar/progress_bar.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "maps/update/map_comparison.h"
#include "program/setting_table.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmmapupd final : public Form {
 public:
  static constexpr const char* kName = window_name::kMapUpdater;
  frmmapupd();

  // ---- controls, in tab order ----
  Frame& Frame1 = Add<Frame>("Frame1");
  Label& LblPC = Add<Label>("LblPC");
  TextBox& TxtPC = Add<TextBox>("TxtPC");
  CommandButton& CmdloadPC = Add<CommandButton>("CmdloadPC");
  FileListBox& lstmapsPC = Add<FileListBox>("lstmapsPC");
  Frame& Frame2 = Add<Frame>("Frame2");
  Label& LblRem = Add<Label>("LblRem");
  TextBox& TxtRem = Add<TextBox>("TxtRem");
  CommandButton& CmdloadRem = Add<CommandButton>("CmdloadRem");
  FileListBox& LstmapsRem = Add<FileListBox>("LstmapsRem");
  OptionButton& Option1 = Add<OptionButton>("Option1");
  OptionButton& Option2 = Add<OptionButton>("Option2");
  CheckBox& Check1 = Add<CheckBox>("Check1");
  CheckBox& ChCRC = Add<CheckBox>("ChCRC");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& CmdStop = Add<CommandButton>("CmdStop");
  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
  Frame& Frame3 = Add<Frame>("Frame3");
  TextBox& txtlog = Add<TextBox>("txtlog");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_savelog = Add<MenuItem>("mnu_savelog");
  MenuItem& mnu_fileexit = Add<MenuItem>("mnu_fileexit");
  MenuItem& mnu_actions = Add<MenuItem>("mnu_actions");
  MenuItem& mnu_startupdating = Add<MenuItem>("mnu_startupdating");
  MenuItem& mnu_help = Add<MenuItem>("mnu_help");
  MenuItem& mnu_whatsthis = Add<MenuItem>("mnu_whatsthis");
  MenuItem& mnu_internethelp = Add<MenuItem>("mnu_internethelp");
  // Pop up over the two lists.
  MenuItem& mnu_PCMAP = Add<MenuItem>("mnu_PCMAP");
  MenuItem& mnu_pcdelete = Add<MenuItem>("mnu_pcdelete");
  MenuItem& mnu_PCcopyto = Add<MenuItem>("mnu_PCcopyto");
  MenuItem& mnu_PCrename = Add<MenuItem>("mnu_PCrename");
  MenuItem& mnu_REMMAP = Add<MenuItem>("mnu_REMMAP");
  MenuItem& mnu_delRem = Add<MenuItem>("mnu_delRem");
  MenuItem& mnu_CopRem = Add<MenuItem>("mnu_CopRem");
  MenuItem& mnu_renameRem = Add<MenuItem>("mnu_renameRem");

  // Compares all maps of the remote list with the local folder's and copies them here.
  void RunMapUpdate();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Unloading() override;

 private:
  static constexpr const char* kLocalPathIsWrong = "Local path is wrong!";

  void LayOut();
  void LayOutFolder(Frame& frame, int left, Label& label, const std::string& caption, TextBox& box,
                    CommandButton& browse, FileListBox& list);
  void LayOutChoices();
  void LayOutMenus();
  void Connect();
  void ConnectPopUps();
  void ConnectList(FileListBox& list, MenuItem& menu, MenuItem& remove, MenuItem& rename);
  void LoadSettings();
  void BrowseFolder(TextBox& box, const Setting& setting, const std::string& prompt);

  // The run.
  [[nodiscard]] bool CanRun();
  void UpdateAll();
  void UpdateOne(int row);
  void CopyOver(const std::string& local, const std::string& remote, const MapPair& measured);
  [[nodiscard]] bool AskToOverwrite(const std::string& local, const std::string& remote, const MapPair& measured);
  void EndRun();
  void ReportFailure();
  void ShowProgress(int done, int count);

  // The log: what was added shows from time to time, so that a long log does not slow the run down.
  void Log(const std::string& text);
  void ShowLog();
  void SaveLog();

  // The commands of the two lists.
  void DeleteMap(const std::string& folder, FileListBox& list);
  void CopyMap(const std::string& folder_and_separator, FileListBox& list);
  void RenameMap(TextBox& folder, FileListBox& list);
  [[nodiscard]] bool HasLocalRow();

  MapComparison comparison_;
  std::string log_;
  uint64_t log_shown_ms_ = 0;
  bool is_running_ = false;
  bool stops_ = false;
};

}  // namespace kestrun
