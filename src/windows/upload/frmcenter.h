// Sends the maps of a folder to the Mapping Center: for each zip its picture and its comments, one map after the other.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "controls/progress_bar/progress_bar.h"
#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"
#include "maps/upload/map_comments.h"
#include "maps/upload/upload_check.h"
#include "maps/upload/upload_post.h"
#include "platform/files.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/status_line.h"

namespace kestrun {

class FrmCenter final : public Form {
 public:
  static constexpr const char* kName = window_name::kUploader;
  FrmCenter();

  // ---- controls, in tab order ----
  Label& LblDir = Add<Label>("LblDir");
  TextBox& TxtDir = Add<TextBox>("TxtDir");
  CommandButton& CmdBrowse = Add<CommandButton>("CmdBrowse");
  Frame& Frame1 = Add<Frame>("Frame1");
  // Beside each zip stands what there is of its files (maps/upload/upload_check.h).
  FileListBox& FileMaps = Add<FileListBox>("FileMaps");
  Frame& Frame2 = Add<Frame>("Frame2");
  Label& LblUsername = Add<Label>("LblUsername");
  TextBox& TxtUsername = Add<TextBox>("TxtUsername");
  Label& LblPassword = Add<Label>("LblPassword");
  TextBox& TxtPassword = Add<TextBox>("TxtPassword");
  CheckBox& ChPassword = Add<CheckBox>("ChPassword");
  Label& LblGame = Add<Label>("LblGame");
  ComboBox& CmbGames = Add<ComboBox>("CmbGames");
  Frame& Frame3 = Add<Frame>("Frame3");
  CheckBox& ChSelected = Add<CheckBox>("ChSelected");
  CheckBox& Chcomments = Add<CheckBox>("Chcomments");
  CheckBox& ChAutoRename = Add<CheckBox>("ChAutoRename");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& CmdCancel = Add<CommandButton>("CmdCancel");
  ProgressBar& Pgb = Add<ProgressBar>("Pgb");
  Frame& Frame4 = Add<Frame>("Frame4");
  TextBox& txtLog = Add<TextBox>("txtLog");
  PictureBox& PctStatus = Add<PictureBox>("PctStatus");
  TextBox& txtstatus = Add<TextBox>("txtstatus");
  ProgressBar& prgfetch = Add<ProgressBar>("prgfetch");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");

  // ---- menus ----
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_savelog = Add<MenuItem>("mnu_savelog");
  MenuItem& mnu_line1 = Add<MenuItem>("mnu_line", 1);
  MenuItem& mnu_exit = Add<MenuItem>("mnu_exit");
  MenuItem& mnu_view = Add<MenuItem>("mnu_view");
  MenuItem& mnu_refresh = Add<MenuItem>("mnu_refresh");
  MenuItem& mnu_help = Add<MenuItem>("mnu_help");
  MenuItem& mnu_index = Add<MenuItem>("mnu_index");
  MenuItem& mnu_about = Add<MenuItem>("mnu_about");

  // ---- public operations ----
  // Checks the maps of the list and sends them. A second call while one is at work does nothing.
  void UploadAll();
  // Sends one map by the path of its zip, which is unpacked into the folder. True when the site has taken it; whatever
  // goes wrong is logged.
  bool UploadFile(const std::string& path, const std::string& temp_folder);
  // The mission's name as the site takes it. The user is asked for one when the file's name has not the mission's in
  // it, or there is none.
  std::string GetValidMapName(const std::string& file_name, const std::string& mission_name);
  // A file's content, each byte a character of the code page. Failures here and below are shown.
  std::string LoadFile(const std::string& path);
  // False when files are missing that an upload needs. Each is logged.
  bool CheckFiles();
  // Name, designer and game type of the first mission in the zip that can be read.
  bool GetInfo(const std::string& zip, const std::string& temp_folder, UploadInfo& info);
  bool GetBMSInfo(const std::string& path, UploadInfo& info);
  // A file that is not there gives empty texts.
  bool LoadCommentsFile(const std::string& path, MapComments& words);
  // One line for the log box, and for upload.log while a run has it open.
  void AddMessage(const std::string& text);
  void LoadMenuIcons();
  // Finds the Mapping Center and asks it for its games.
  void Connect();
  void ApplyStyle();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Unloading() override;

 private:
  void LayOut();
  void LayOutMaps();
  void LayOutLogin();
  void LayOutOptions();
  void LayOutRun();
  void LayOutMenus();
  void ConnectControls();
  void ConnectList();
  void LoadSettings();
  void StoreSettings();

  // The folder and its maps.
  void TakeFolder();
  void SayNoFolder();
  void BrowseFolder();
  void TakeDropped(const std::vector<std::string>& paths);
  void RefreshList();
  void SelectAll();
  void ShowOverview();
  void LoadSelectedMap();
  void SaveLog();

  // The run.
  void UploadListed();
  // The maps that a run is about, as they are listed when it begins.
  struct Chosen {
    std::string folder;
    std::vector<std::string> maps;
  };
  [[nodiscard]] Chosen ChosenMaps() const;
  bool Check(const Chosen& chosen);
  void SendMaps(const Chosen& chosen);
  // False once the user has left the run, or the window.
  [[nodiscard]] bool GoesOn() const { return IsLoaded() && !leaves_post_; }
  bool SendMap(const std::string& path, const std::string& temp_folder);
  bool FetchPicture(const std::string& base, Bytes& picture);
  [[nodiscard]] std::string Post(const MapUpload& upload);
  [[nodiscard]] std::string AskForName(const std::string& file_name, const std::string& mission_name);
  [[nodiscard]] bool AskForGames();
  void OpenLogFile();
  void WriteToLogFile(const std::string& text);
  void CancelRun();
  void StopAtOnce();
  void ShowRunning(bool is_running);

  StatusLine status_line_{PctStatus, txtstatus, prgfetch};
  std::unique_ptr<UploadOverview> overview_;
  std::string service_;  // the Mapping Center's address, empty until it is known
  std::unique_ptr<File> log_file_;
  uint64_t log_bytes_ = 0;
  std::string progress_;  // what the status line says between two fetches
  bool has_settings_ = false;
  bool is_running_ = false;
  bool cancels_ = false;      // behind the map that is being sent
  bool leaves_post_ = false;  // and not even that one is waited for
};

}  // namespace kestrun
