// The options window: the program's paths, and its place in the shell. It shows what is stored, and stores all of it
// when the user saves; only the shortcut in the Send To menu is made at once.
#pragma once

#include <string>
#include <vector>

#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmoptions final : public Form {
 public:
  static constexpr const char* kName = window_name::kOptions;
  // What the style's box shows when there is none.
  static constexpr const char* kNoStyle = "{none}";
  frmoptions();

  // ---- controls, in tab order ----
  Image& Image1 = Add<Image>("Image1");
  Frame& Frame1 = Add<Frame>("Frame1");
  Label& LblGameFolder = Add<Label>("LblGameFolder");
  TextBox& TxtGameFolder = Add<TextBox>("TxtGameFolder");
  CommandButton& CmdGameFolder = Add<CommandButton>("CmdGameFolder");
  Label& LblGame = Add<Label>("LblGame");
  TextBox& TxtGame = Add<TextBox>("TxtGame");
  CommandButton& CmdGame = Add<CommandButton>("CmdGame");
  Label& LblDFLWParameters = Add<Label>("LblDFLWParameters");
  TextBox& TxtDFLWParameters = Add<TextBox>("TxtDFLWParameters");
  Label& LblEditor = Add<Label>("LblEditor");
  TextBox& TxtEditor = Add<TextBox>("TxtEditor");
  CommandButton& CmdEditor = Add<CommandButton>("CmdEditor");
  Label& LblMapFolder = Add<Label>("LblMapFolder");
  TextBox& TxtMapFolder = Add<TextBox>("TxtMapFolder");
  CommandButton& CmdMapFolder = Add<CommandButton>("CmdMapFolder");
  Frame& Frame2 = Add<Frame>("Frame2");
  CheckBox& ChPack = Add<CheckBox>("ChPack");
  TextBox& txtPack = Add<TextBox>("txtPack");
  CommandButton& CmdPack = Add<CommandButton>("CmdPack");
  CheckBox& ChPlaying = Add<CheckBox>("ChPlaying");
  TextBox& TxtPlaying = Add<TextBox>("TxtPlaying");
  CommandButton& CmdBrowsePlaying = Add<CommandButton>("CmdBrowsePlaying");
  Label& LblBms = Add<Label>("LblBms");
  TextBox& txtbms = Add<TextBox>("txtbms");
  CommandButton& cmdbms = Add<CommandButton>("cmdbms");
  Label& LblColor = Add<Label>("LblColor");
  TextBox& txtcolor = Add<TextBox>("txtcolor");
  CommandButton& Command6 = Add<CommandButton>("Command6");
  Frame& Frame3 = Add<Frame>("Frame3");
  Label& LblStyles = Add<Label>("LblStyles");
  // No style, and the style files that lie beside the program. A choice goes into txtStyleFile.
  ComboBox& CboStyles = Add<ComboBox>("CboStyles");
  Label& LblStyleFile = Add<Label>("LblStyleFile");
  TextBox& txtStyleFile = Add<TextBox>("txtStyleFile");
  CommandButton& Command10 = Add<CommandButton>("Command10");
  Frame& Frame4 = Add<Frame>("Frame4");
  CheckBox& Check1 = Add<CheckBox>("Check1");
  CheckBox& Check2 = Add<CheckBox>("Check2");
  CheckBox& Check3 = Add<CheckBox>("Check3");
  CheckBox& ChProtocol = Add<CheckBox>("ChProtocol");
  CheckBox& ChDefault = Add<CheckBox>("ChDefault");
  CheckBox& chshortcut = Add<CheckBox>("chshortcut");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  // What stands in a box, and so when its mark shows.
  enum class PathKind { kFolder, kFile, kGameFile, kStyle };
  struct PathBox {
    TextBox* box;
    PathKind kind;
    CheckBox* only_when = nullptr;  // ticked, the file is wanted
    Label* mark = nullptr;
  };

  void LayOut();
  void LayOutGame();
  void LayOutPrograms();
  void LayOutStyle();
  void LayOutShell();
  void PlaceRow(Frame& frame, int row, Label& label, const std::string& caption, TextBox& box, const std::string& tip,
                CommandButton* browse);
  void PlaceProgramRow(int row, CheckBox& check, const std::string& caption, TextBox& box, const std::string& tip,
                       CommandButton& browse);
  void AddMarks();

  void ConnectButtons();
  void ConnectBoxes();
  void LoadPaths();
  void LoadShell();
  void OfferStyles();

  [[nodiscard]] bool PickFile(const std::string& title, const std::string& filter);
  void Browse(TextBox& target, const std::string& title);
  void BrowseFolder(TextBox& target, const std::string& prompt);
  void TakeEditor(const std::string& path);
  void TakeGame(const std::string& path);
  [[nodiscard]] bool IsOutsideGameFolder(const std::string& path);
  void TakeDropped(const std::vector<std::string>& paths);
  void MarkMissing();
  void Mark(const PathBox& row);
  [[nodiscard]] bool IsMissing(const PathBox& row);
  void ChangeShortcut();

  void Save();
  void CheckEditor();
  void SavePaths();
  void SaveStyle();
  void SaveAssociations();
  void SaveProtocol();
  void SaveDefaultCopy();

  std::vector<PathBox> path_boxes_;
  std::vector<std::string> offered_styles_;  // by row of CboStyles; empty for none
  bool is_filling_ = false;
};

}  // namespace kestrun
