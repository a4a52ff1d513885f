// Gives a map its preview picture: from a file, the clipboard or the Mapping Center. The link is written when the user
// saves.
#pragma once

#include <string>
#include <vector>

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/status_line.h"

namespace kestrun {

class frmpicture final : public Form {
 public:
  static constexpr const char* kName = window_name::kPreviewManager;
  frmpicture();

  // ---- controls, in tab order ----
  Label& LblMapPath = Add<Label>("LblMapPath");
  // The map by its path, or its address; who opens the window sets it.
  Label& lblmap = Add<Label>("lblmap");
  Label& LblImagePath = Add<Label>("LblImagePath");
  // The picture's path or address. Empty while the picture is in memory only.
  TextBox& txtimage = Add<TextBox>("txtimage");
  Frame& Frame1 = Add<Frame>("Frame1");
  CommandButton& CmdDownload = Add<CommandButton>("CmdDownload");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& CmdPaste = Add<CommandButton>("CmdPaste");
  Frame& Frame2 = Add<Frame>("Frame2");
  OptionButton& OptFullPath = Add<OptionButton>("OptFileName", 0);
  OptionButton& OptNameOnly = Add<OptionButton>("OptFileName", 1);
  CommandButton& Command4 = Add<CommandButton>("Command4");
  Label& LblCurrent = Add<Label>("LblCurrent");
  Image& ImgPrev = Add<Image>("ImgPrev");
  Label& LblNoPicture = Add<Label>("LblNoPicture");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  PictureBox& PctStatus = Add<PictureBox>("PctStatus");
  TextBox& txtstatus = Add<TextBox>("txtstatus");
  ProgressBar& prgfetch = Add<ProgressBar>("prgfetch");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // ---- menus ----
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_setimagepath = Add<MenuItem>("mnu_setimagepath");
  MenuItem& mnu_saveimageas = Add<MenuItem>("mnu_saveimageas");
  MenuItem& mnu_line1 = Add<MenuItem>("mnu_line", 1);
  MenuItem& mnu_exit = Add<MenuItem>("mnu_exit");
  MenuItem& mnu_edit = Add<MenuItem>("mnu_edit");
  MenuItem& mnu_paste = Add<MenuItem>("mnu_paste");
  MenuItem& mnu_copyclip = Add<MenuItem>("mnu_copyclip");
  MenuItem& mnu_copymapname = Add<MenuItem>("mnu_copymapname");

  // Searches the Mapping Center for pictures of the map and lets the user take one.
  void CmdDownload_Click();
  // Saves the link, and before it a picture that is in memory only.
  void Update();
  // Shows the picture that the settings hold for the map.
  void ShowMap();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Shown() override;

 private:
  void LayOut();
  void LayOutChoices();
  void BuildMenus();
  void Connect();

  void SetPicture(const Ref<kestrun::Picture>& picture);
  void TakeFile(const std::string& path);
  void Browse();
  void Paste();
  void EditPicture();
  void SaveImageAs();
  void CopyPicture();
  // False when the user does not want the file to be overwritten, or there is no picture; nothing is saved then.
  [[nodiscard]] bool SaveLink();
  [[nodiscard]] bool SavePictureFile();
  [[nodiscard]] std::string MapName() const;

  StatusLine status_line_{PctStatus, txtstatus, prgfetch};
};

}  // namespace kestrun
