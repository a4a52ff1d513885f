// The name editor: the five player names in the game's save file, and the names that were used earlier.
#pragma once

#include <string>
#include <vector>

#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"
#include "game/players/player_file.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmname final : public Form {
 public:
  static constexpr const char* kName = window_name::kNameEditor;
  frmname();

  // ---- controls, in tab order ----
  Label& LblFolder = Add<Label>("LblFolder");
  TextBox& Text1 = Add<TextBox>("Text1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  Frame& Frame1 = Add<Frame>("Frame1");
  struct Player {
    Label& label;
    ComboBox& name;    // CmbName: what the user works with
    TextBox& in_file;  // txtPlayer: the name as it was found in the file, not seen
  };
  const std::vector<Player> players = AddPlayers();
  // Which character of a name the game cannot hold.
  Label& LblNote = Add<Label>("LblNote");
  CommandButton& cmdCharMap = Add<CommandButton>("cmdCharMap");
  CommandButton& cmdSave = Add<CommandButton>("cmdSave");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  // The pictures of the menu items.
  Image& ImgOpen = Add<Image>("ImgOpen");
  Image& ImgSave = Add<Image>("ImgSave");
  Image& ImgClose = Add<Image>("ImgClose");

  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_loadnames = Add<MenuItem>("mnu_loadnames");
  MenuItem& mnu_savenames = Add<MenuItem>("mnu_savenames");
  MenuItem& mnu_exit = Add<MenuItem>("mnu_exit");

  // Writes the names into the file of the folder, and the lists into the history.
  void SaveNames();
  void LoadMenuIcons();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Unloading() override;

 private:
  std::vector<Player> AddPlayers();
  void LayOut();
  void LayOutPlayers();
  void Connect();
  void ConnectPlayer(const Player& player);

  [[nodiscard]] std::string PlayerFile() const { return folder_ + "\\" + kPlayerFileName; }
  void ReadPlayerFile();
  void OfferHistory();
  // False when it ended before "Saved!".
  bool Save();
  [[nodiscard]] bool KeepOriginal(const PlayerNames& names);
  void SaveHistory();
  void BrowseFolder();
  void TakeDropped(const std::vector<std::string>& paths);
  void ShowNote();

  std::string folder_;  // the text of Text1
};

}  // namespace kestrun
