// The main window: the maps of one folder, the choice of the mission, and the commands that put a map into the game.
#pragma once

#include "forms/command_button.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"

namespace kestrun {

class frmain final : public Form {
 public:
  static constexpr const char* kName = "frmain";
  frmain();

  Label& lblfolder = Add<Label>("lblfolder");
  TextBox& Text1 = Add<TextBox>("Text1");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  Label& lblmaps = Add<Label>("lblmaps");
  // The one list of the folder's maps: its path, index and names are what the commands use.
  FileListBox& FileMaps = Add<FileListBox>("FileMaps");
  CommandButton& Command6 = Add<CommandButton>("Command6");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& opcapflag = Add<OptionButton>("opcapflag");
  OptionButton& opdeath = Add<OptionButton>("opdeath");
  OptionButton& oprename = Add<OptionButton>("oprename");
  TextBox& txtoutput = Add<TextBox>("txtoutput");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommandButton& Command7 = Add<CommandButton>("Command7");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  PictureBox& Picture2 = Add<PictureBox>("Picture2");
  TextBox& txtstatusbar = Add<TextBox>("txtstatusbar");

 protected:
  void Load() override;
  void Unloading() override;

 private:
  void LayOut();
  void Connect();
  void ShowTipsInStatusLine();
  void FolderTextChanged();
  void BrowseFolder();
  void RefreshList();
  // The stock mission or the rename text, as the option buttons say; a stock name is shown in txtoutput.
  [[nodiscard]] std::string ChosenName();
  void PutSelectedMap(int32_t mode);
};

}  // namespace kestrun
