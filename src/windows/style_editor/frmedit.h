// The style editor: a project's entries as a tree, the text of one of them, and the program's windows to look at the
// style on. The editor itself takes no style: a broken one could not be mended with it otherwise.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"
#include "styles/entry_text.h"
#include "styles/style_project.h"

namespace kestrun {

class FrmEdit final : public Form {
 public:
  static constexpr const char* kName = window_name::kStyleEditor;
  FrmEdit();

  // ---- controls, in tab order ----
  Label& Label1 = Add<Label>("Label1");
  kestrun::TreeView& TreeView = Add<kestrun::TreeView>("TreeView");
  Label& Label2 = Add<Label>("Label2");
  kestrun::TreeView& LstDebug = Add<kestrun::TreeView>("LstDebug");
  Label& Label3 = Add<Label>("Label3");
  // Its Tag says whose text it holds (styles/entry_tag.h).
  TextBox& TxtCode = Add<TextBox>("TxtCode");
  Label& LblHelp = Add<Label>("LblHelp");
  TextBox& txthelp = Add<TextBox>("txthelp");
  kestrun::CommonDialog& CommonDialog = Add<kestrun::CommonDialog>("CommonDialog");
  kestrun::ImageList& ImageList = Add<kestrun::ImageList>("ImageList");
  // The pictures of the menu items.
  Image& ImgNew = Add<Image>("ImgNew");
  Image& ImgOpen = Add<Image>("ImgOpen");
  Image& ImgSave = Add<Image>("ImgSave");
  Image& ImgClose = Add<Image>("ImgClose");
  Image& ImgRefresh = Add<Image>("ImgRefresh");
  Image& ImgImage = Add<Image>("ImgImage");
  Image& ImgSound = Add<Image>("ImgSound");
  Image& ImgMod = Add<Image>("ImgMod");
  Image& ImgTxt = Add<Image>("ImgTxt");
  Image& ImgDel = Add<Image>("ImgDel");
  Image& ImgRun = Add<Image>("ImgRun");
  Image& ImgHelp = Add<Image>("ImgHelp");

  // ---- menus ----
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_new = Add<MenuItem>("mnu_new");
  MenuItem& mnu_open = Add<MenuItem>("mnu_open");
  MenuItem& mnu_save = Add<MenuItem>("mnu_save");
  MenuItem& mnu_saveas = Add<MenuItem>("mnu_saveas");
  MenuItem& mnu_line = Add<MenuItem>("mnu_line");
  MenuItem& mnu_exit = Add<MenuItem>("mnu_exit");
  MenuItem& mnu_view = Add<MenuItem>("mnu_view");
  MenuItem& mnu_refresh = Add<MenuItem>("mnu_refresh");
  MenuItem& mnu_add = Add<MenuItem>("mnu_add");
  MenuItem& mnu_addimage = Add<MenuItem>("mnu_addimage");
  MenuItem& mnu_addsound = Add<MenuItem>("mnu_addsound");
  MenuItem& mnu_addmod = Add<MenuItem>("mnu_addmod");
  MenuItem& mnu_addOther = Add<MenuItem>("mnu_addOther");
  MenuItem& mnu_addnew = Add<MenuItem>("mnu_addnew");
  MenuItem& mnu_newText = Add<MenuItem>("mnu_newText");
  MenuItem& mnu_newMod = Add<MenuItem>("mnu_newMod");
  MenuItem& mnu_delete = Add<MenuItem>("mnu_delete");
  MenuItem& mnu_deletefile = Add<MenuItem>("mnu_deletefile");
  MenuItem& mnu_debug = Add<MenuItem>("mnu_debug");
  MenuItem& mnu_load = Add<MenuItem>("mnu_load");
  MenuItem& mnu_checkstyle = Add<MenuItem>("mnu_checkstyle");
  MenuItem& mnu_help = Add<MenuItem>("mnu_help");
  MenuItem& mnu_index = Add<MenuItem>("mnu_index");
  MenuItem& mnu_showtips = Add<MenuItem>("mnu_showtips");

  void LoadMenuIcons();
  // The name to use for an entry: of one that is too long the user is asked for another. Empty when there is none.
  [[nodiscard]] std::string Get16CharName(const std::string& name);
  // Asks for a file and adds it to the project.
  void AddFile(const std::string& filter);
  // Opens a project, for an empty name a new one. A failure reaches the caller.
  void LoadStyle(const std::string& file);
  void RefreshList();
  // Puts what there is into the file.
  void SaveStyle(const std::string& file);
  // Writes all changes into the working copy.
  void SaveStyleScript();
  // Marks an entry as deleted, by its number in the archive; the next flush writes it.
  void DeleteNumber(int number);

  // Writes all changes into the working copy and lists what is wrong with the style.
  void CheckStyle();
  // Opens a text of the project and selects one of its lines, counted from 1.
  void ShowLine(const std::string& entry, int line);

  [[nodiscard]] const StyleProject& project() const { return project_; }
  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Unloading() override;

 private:
  void LayOut();
  void LayOutMenus();
  void PlacePanes();
  void FillImageList();
  void ChooseCodeFont();

  void Connect();
  void ConnectMenus();
  void HandleKey(int& key_code, int shift_state);
  void HandleCodeKey(int& key_code, int shift_state);
  void MovePane(int step);
  void ShowWhatIsPossible();
  void ToggleTips();

  // The tree of the project.
  void ShowProject(const std::string& root_text);
  TreeNode& ShowFolders(const std::string& root_text);
  void ShowEntry(const std::string& name, int number, const std::string& key);
  void OpenNode();
  void OpenText(const std::string& name);
  void ShowPicture(const std::string& name);
  void PlayEntry(const std::string& name);
  void CloseCode();

  // The files of the project.
  // False when something is not stored; the user has been told.
  bool Flush();
  bool WriteAll(ClsPFF& archive);
  // Gives the text that is staged now; nothing when the box holds none that is to be stored, or the user has been told.
  std::optional<std::string> StageCode(ClsPFF& archive, bool& is_stored);
  bool SaveTo(const std::string& file);
  bool Save();
  void SaveAs();
  // Before another project takes this one's place; false when it is not saved after all.
  bool AskToSave();
  void OpenProject();
  void TryStyle();
  void AddNewEntry(const std::string& prompt, std::string (*with_extension)(const std::string& name));
  void AddFromDisk(const std::string& path);
  void AddEntry(ByteView bytes, const std::string& name);
  void DeleteEntry();
  void TakeDropped(const std::vector<std::string>& paths);
  void AskBeforeClosing(bool& cancel);

  // The program's windows.
  void FillDebugPanel();
  void OpenDebugNode();

  StyleProject project_;
  EntryText code_;  // of the entry in the code window
  // While entries are written events run: no other project comes in between.
  bool is_writing_ = false;
};

}  // namespace kestrun
