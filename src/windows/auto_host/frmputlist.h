// The auto host: the play list of a server that runs on this machine, the run that changes its maps, and its add-ins.
#pragma once

#include <string>
#include <vector>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "game/memory/mem_control.h"
#include "game/run/auto_host_run.h"
#include "maps/health/health_watch.h"
#include "maps/health/map_health.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmputlist final : public Form, private RunWindow {
 public:
  static constexpr const char* kName = window_name::kMapList;
  frmputlist();

  // ---- controls, in tab order ----
  Label& lblfolder = Add<Label>("lblfolder");
  TextBox& txtfolder = Add<TextBox>("txtfolder");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  Label& lblfilelist = Add<Label>("lblfilelist");
  Label& lblfilemaps = Add<Label>("lblfilemaps");
  FileListBox& FileMaps = Add<FileListBox>("FileMaps");
  CommandButton& cmdadd = Add<CommandButton>("cmdadd");
  CommandButton& cmdaddall = Add<CommandButton>("cmdaddall");
  CommandButton& cmdremove = Add<CommandButton>("cmdremove");
  CommandButton& cmdremoveall = Add<CommandButton>("cmdremoveall");
  CommandButton& Command6 = Add<CommandButton>("Command6");
  CommandButton& cmdup = Add<CommandButton>("cmdup");
  CommandButton& cmddown = Add<CommandButton>("cmddown");
  Label& lblplaylist = Add<Label>("lblplaylist");
  Label& lbllistmaps = Add<Label>("lbllistmaps");
  // The play list itself: each row's text is a path or a web address, its ItemData how often it was inserted.
  ListBox& lstmaps = Add<ListBox>("lstmaps");
  Label& lblselected = Add<Label>("lblselected");
  Label& lblpath = Add<Label>("lblpath");
  Label& lblinsertcount = Add<Label>("lblinsertcount");
  Label& lblinserts = Add<Label>("lblinserts");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& Options0 = Add<OptionButton>("Options", 0);
  OptionButton& Options1 = Add<OptionButton>("Options", 1);
  OptionButton& Options2 = Add<OptionButton>("Options", 2);
  TextBox& txtrename = Add<TextBox>("txtrename");
  Frame& Frame2 = Add<Frame>("Frame2");
  Label& lblclock = Add<Label>("lblclock");
  TextBox& txtmin = Add<TextBox>("txtmin");
  Label& lblmin = Add<Label>("lblmin");
  TextBox& txtsec = Add<TextBox>("txtsec");
  Label& lblsec = Add<Label>("lblsec");
  Label& lbllongest = Add<Label>("lbllongest");
  TextBox& TxtTimeMin = Add<TextBox>("TxtTimeMin");
  Label& lbllongestmin = Add<Label>("lbllongestmin");
  TextBox& TxtTimeSec = Add<TextBox>("TxtTimeSec");
  Label& lbllongestsec = Add<Label>("lbllongestsec");
  CheckBox& ChGameTimer = Add<CheckBox>("ChGameTimer");
  CheckBox& chrandom = Add<CheckBox>("chrandom");
  CheckBox& Check1 = Add<CheckBox>("Check1");
  CheckBox& ChLog = Add<CheckBox>("ChLog");
  Frame& Frame3 = Add<Frame>("Frame3");
  Label& lblnopreview = Add<Label>("lblnopreview");
  Image& ImgPreview = Add<Image>("ImgPreview");
  CommandButton& Command7 = Add<CommandButton>("Command7");
  // What plays, what comes next, and when.
  Frame& Frame4 = Add<Frame>("Frame4");
  Label& lblnow = Add<Label>("lblnow");
  Label& lblplaysnow = Add<Label>("lblplaysnow");
  Label& lblnext = Add<Label>("lblnext");
  Label& lblplaysnext = Add<Label>("lblplaysnext");
  Label& lblwhen = Add<Label>("lblwhen");
  Label& lblchangeswhen = Add<Label>("lblchangeswhen");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  CommandButton& Command3 = Add<CommandButton>("Command3");
  CommandButton& Command4 = Add<CommandButton>("Command4");
  CommandButton& Command5 = Add<CommandButton>("Command5");
  // The error strip, and the line for what needs no answer.
  PictureBox& Picture5 = Add<PictureBox>("Picture5");
  Label& lblwarning = Add<Label>("lblwarning");
  Label& Label11 = Add<Label>("Label11");
  Label& lblstatus = Add<Label>("lblstatus");

  Timer& TmrInsert = Add<Timer>("TmrInsert");
  MemControl& MemControl1 = Add<MemControl>("MemControl1");
  CommonDialog& CommonDialog1 = Add<CommonDialog>("CommonDialog1");
  // The pictures of the menu items.
  Image& ImgOpen = Add<Image>("ImgOpen");
  Image& ImgSave = Add<Image>("ImgSave");
  Image& ImgMap = Add<Image>("ImgMap");
  Image& ImgClose = Add<Image>("ImgClose");
  Image& ImgRefresh = Add<Image>("ImgRefresh");
  Image& ImgDel = Add<Image>("ImgDel");
  Image& ImgSearch = Add<Image>("ImgSearch");
  Image& ImgReplace = Add<Image>("ImgReplace");
  Image& ImgHelp = Add<Image>("ImgHelp");
  // The badges of the maps' health.
  Image& ImgGood = Add<Image>("ImgGood");
  Image& ImgDoubtful = Add<Image>("ImgDoubtful");
  Image& ImgBad = Add<Image>("ImgBad");

  // ---- menus ----
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_loadlist = Add<MenuItem>("mnu_loadlist");
  MenuItem& mnu_savelist = Add<MenuItem>("mnu_savelist");
  MenuItem& mnu_saveas = Add<MenuItem>("mnu_saveas");
  MenuItem& mnu_line1 = Add<MenuItem>("mnu_line", 1);
  MenuItem& mnu_addmap = Add<MenuItem>("mnu_addmap");
  MenuItem& mnu_line2 = Add<MenuItem>("mnu_line", 2);
  MenuItem& mnu_back = Add<MenuItem>("mnu_back");
  MenuItem& mnu_close = Add<MenuItem>("mnu_close");
  MenuItem& mnu_list = Add<MenuItem>("mnu_list");
  MenuItem& mnu_refreshlist = Add<MenuItem>("mnu_refreshlist");
  MenuItem& mnu_clearlist = Add<MenuItem>("mnu_clearlist");
  MenuItem& mnu_MixMaps = Add<MenuItem>("mnu_MixMaps");
  MenuItem& mnu_line3 = Add<MenuItem>("mnu_line", 3);
  MenuItem& mnu_SearchMap = Add<MenuItem>("mnu_SearchMap");
  MenuItem& mnu_replacestring = Add<MenuItem>("mnu_replacestring");
  MenuItem& mnu_line4 = Add<MenuItem>("mnu_line", 4);
  MenuItem& mnu_selectallmaps = Add<MenuItem>("mnu_selectallmaps");
  MenuItem& mnu_deselectmaps = Add<MenuItem>("mnu_deselectmaps");
  MenuItem& mnu_selectallfiles = Add<MenuItem>("mnu_selectallfiles");
  MenuItem& mnu_deselectfiles = Add<MenuItem>("mnu_deselectfiles");
  MenuItem& mnu_actions = Add<MenuItem>("mnu_actions");
  MenuItem& mnu_checklist = Add<MenuItem>("mnu_checklist");
  MenuItem& mnu_rehearse = Add<MenuItem>("mnu_rehearse");
  MenuItem& mnu_tools = Add<MenuItem>("mnu_tools");
  MenuItem& mnu_addgametype = Add<MenuItem>("mnu_addgametype");
  MenuItem& mnu_changeDFversion = Add<MenuItem>("mnu_changeDFversion");
  MenuItem& mnu_addins = Add<MenuItem>("mnu_addins");
  // Element 0 opens the manager; add-in i is element i.
  MenuItem& mnu_addin = Add<MenuItem>("mnu_addin", 0);
  MenuItem& mnu_help = Add<MenuItem>("mnu_help");
  MenuItem& mnu_quickhelp = Add<MenuItem>("mnu_quickhelp");
  MenuItem& mnu_helpAbout = Add<MenuItem>("mnu_helpAbout");

  AutoHostRun run{*this, MakeSurroundings()};
  // The list differs from its file.
  bool Edited = false;

  // ---- public operations: the contract with add-ins and other windows ----
  void LoadList(const std::string& File);
  void MixTheMaps();
  void mnu_loadlist_Click();
  void mnu_refreshlist_Click();
  void mnu_back_Click();
  void Cmddown_Click();
  void cmdup_Click();
  void Cmdremove_Click();
  void Cmdremoveall_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click() { run.Pause(); }
  void Command5_Click() { run.Continue(); }
  void Command7_Click();
  void StartList() { run.StartList(); }
  void StopList() { run.StopList(); }
  void Insert_Map_List(bool random);
  void Writemessage(const std::string& Message, int32_t KeyAscii, int32_t MemoryAdress);
  void ResetTime() { run.ResetTime(); }
  // The texts of the play list.
  [[nodiscard]] std::vector<std::string> PlayList() const;
  void LoadMenuIcons();
  // Makes the menu of add-ins anew; all add-ins are off afterwards.
  void LoadAddins();
  // The add-in of a menu item, Nothing while it is off; error 9 for an index that none has.
  [[nodiscard]] Variant GetAddin(int Index) const;
  // The open windows by their place among them, and the place of one by its name, -1 for none.
  [[nodiscard]] Variant GetForm(int Index);
  [[nodiscard]] int GetFormIndex(const std::string& Name);

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;

 private:
  // ---- layout ----
  void LayOut();
  void LayOutLists();
  void LayOutChoices();
  void LayOutClock();
  void LayOutState();
  void Arrange();
  void PlaceLists();
  void PlaceChoices();
  void PlaceClock();
  void PlacePreview();
  void PlaceState();
  void BuildMenus();
  struct MenuPicture;
  [[nodiscard]] std::vector<MenuPicture> MenuPictures();

  // ---- loading and closing ----
  void Connect();
  void ConnectLists();
  void ConnectListMenus();
  void ConnectRun();
  void EnableWhatIsThere();
  void ReadStoredSettings();
  void WriteStoredSettings();
  void AskBeforeUnload(bool& cancel);

  // ---- the play list ----
  void ShowRowOfList();
  void ShowListCount();
  void ShowFileCount();
  void FitPlayList();
  void AddFiles(bool only_selected);
  void AddUrl();
  void RemoveSelected();
  void SwapRows(int one, int other);
  // Up by -1, down by 1.
  void MoveSelected(int step);
  void ClearList();
  void AskToMix();
  void SearchMap();
  void ReplaceString();
  void SelectMaps(bool selected);
  void SelectFiles(bool selected);
  void HandleListKey(int& key_code, int shift_state);
  void ShowPreview(const Ref<kestrun::Picture>& picture);
  void OpenPreview();

  // ---- health ----
  void ConnectHealth();
  [[nodiscard]] MapUse UseOfRows() const;
  // Not known at first: it is read in the background, and the list is painted anew then.
  [[nodiscard]] MapHealth HealthOfRow(int row);
  void TellHealthOfRow();
  void SelectRows(const std::vector<int>& rows);
  void CheckList();

  // ---- files ----
  void FolderChanged();
  void BrowseFolder();
  void AddMapFile();
  // Empty when the user gives up.
  [[nodiscard]] std::string MapFromArchive(const std::string& chosen);
  void AskAndLoadList();
  void SaveList();
  [[nodiscard]] std::string ChosenListFile();
  void TakeDropped(const std::vector<std::string>& paths);
  void TakeDroppedPath(const std::string& path);

  // ---- add-ins ----
  [[nodiscard]] MenuItem* AddinItem(int number) const;
  void ClickAddin(int number);
  void ReleaseAddins();

  // ---- the run ----
  [[nodiscard]] RunSurroundings MakeSurroundings();
  void ClickResetGames();
  void ClickGameTimer();
  [[nodiscard]] bool HasCommandBuild() const { return run.fields.DfVersion == 0 || run.fields.DfVersion == 1; }
  void RestoreUnlessNumber(TimeField field);
  // Takes down what has happened in autohost.log, while that is wished for.
  void Note(const RunEvent& event);
  void ShowGlance();
  void PublishRotation();
  // The list holds a row.
  [[nodiscard]] int NextRowInOrder() const { return (lstmaps.ListIndex + 1) % lstmaps.ListCount(); }
  [[nodiscard]] std::string NextText();
  [[nodiscard]] std::string WhenText();

  int RowCount() override { return lstmaps.ListCount(); }
  std::string RowText(int row) override { return lstmaps.List(row); }
  int CurrentRow() override { return lstmaps.ListIndex; }
  void SetCurrentRow(int row) override { lstmaps.ListIndex = row; }
  void SelectRow(int row, bool selected) override { lstmaps.SetSelected(row, selected); }
  int32_t InsertCount(int row) override { return lstmaps.ItemData(row); }
  void SetInsertCount(int row, int32_t count) override { lstmaps.SetItemData(row, count); }
  void ShowDrawnMap(const std::string& map) override { lblpath.Caption = map; }
  void TakeRename() override;
  bool UsesGameTimer() override { return ChGameTimer.Value == 1; }
  bool SendsResetGames() override { return Check1.Value == 1; }
  std::string LongestTime(TimeField field) override;
  void RestoreLongestTime(TimeField field) override;
  void FocusLongestTime(TimeField field) override;
  std::string ShownTime(TimeField field) override;
  void ShowTime(TimeField field, const std::string& text) override;
  void Follow(RunStep step) override;
  // Enables the one of two buttons and disables the other, which the keyboard leaves for it.
  void SwitchButtons(CommandButton& from, CommandButton& to);
  void ShowPut(int row) override;
  void ShowFailure(const std::string& text) override;
  void HideFailure() override;
  void ShowRefusal(const std::string& sentence) override;
  bool IsOpen() override { return IsLoaded(); }

  [[nodiscard]] TextBox& LongestBox(TimeField field) { return field == TimeField::kMinutes ? TxtTimeMin : TxtTimeSec; }
  [[nodiscard]] TextBox& ClockBox(TimeField field) { return field == TimeField::kMinutes ? txtmin : txtsec; }

  // The file of the list as it was last loaded or saved, empty for none.
  std::string list_file_;
  // What was put last, as the list named it; empty before that.
  std::string plays_now_;
  HealthWatch health_{[this] { lstmaps.Refresh(); }};
  std::vector<int> same_rows_;  // for the rows of that revision of the list
  uint32_t same_rows_revision_ = 0;
  std::string told_health_;  // in the status line
  // By the number of the menu item less one; empty while an add-in is off.
  std::vector<Ref<Object>> addins_;
};

}  // namespace kestrun
