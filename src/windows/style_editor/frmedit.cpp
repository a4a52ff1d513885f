#include "windows/style_editor/frmedit.h"

#include <algorithm>

#include "forms/keys.h"
#include "forms/member_rows.h"
#include "platform/platform.h"
#include "program/game_paths.h"
#include "program/menu_pictures.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "styles/entry_tag.h"
#include "windows/style_editor/editor_pictures.h"
#include "windows/style_editor/frmeditcheck.h"
#include "windows/style_editor/run_quietly.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmEdit::kName, [] { return MakeRef<FrmEdit>(); });

constexpr Member kRows[]{
    MethodRow<&FrmEdit::LoadMenuIcons>("LoadMenuIcons"),
    MethodRow<&FrmEdit::Get16CharName>("Get16CharName", "Name"),
    MethodRow<&FrmEdit::AddFile>("AddFile", "Filter"),
    MethodRow<&FrmEdit::LoadStyle>("LoadStyle", "File"),
    MethodRow<&FrmEdit::RefreshList>("RefreshList"),
    MethodRow<&FrmEdit::SaveStyle>("SaveStyle", "File"),
    MethodRow<&FrmEdit::SaveStyleScript>("SaveStyleScript"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

constexpr const char* kImageFilter =
    "All image files|*.jpg;*.jpeg;*.bmp;*.dib;*.gif;*.wmf;*.emf;*.cur;*.ico|Bitmaps (*.bmp)|*.bmp|JPEG files "
    "(*.jpg;*.jpeg)|*.jpg;*.jpeg|Gif files (*.gif)|*.gif|Meta files (*.wmf;*.emf)|*.wmf;*.emf|Icons "
    "(*.ico;*.cur)|*.ico;*.cur|All files (*.*)|*.*";
constexpr const char* kSoundFilter = "Sound files (*.wav)|*.wav|All files (*.*)|*.*|";
constexpr const char* kModuleFilter = "Module files (*.vbs, *.js)|*.vbs,*.js|All files (*.*)";
constexpr const char* kAnyFilter = "All files (*.*)|*.*|";

constexpr const char* kIndent = "    ";

std::string ModuleName(const std::string& name) { return ClsPFF::GetFileExt(name).empty() ? name + ".vbs" : name; }
std::string TextName(const std::string& name) { return HasExtension(name, "txt") ? name : name + ".txt"; }

}  // namespace

const MemberTable& FrmEdit::Members() const { return kTable; }

FrmEdit::FrmEdit() : Form(kName) {
  LayOut();
  FillDebugPanel();
  Connect();
  ShowWhatIsPossible();
}

void FrmEdit::Load() {
  LoadMenuIcons();
  FillImageList();
  ChooseCodeFont();
}

// The list of faults opens lines in this window.
void FrmEdit::Unloading() {
  if (Form* faults = LoadedWindow(FrmEditCheck::kName)) faults->Unload();
}

void FrmEdit::Connect() {
  ConnectMenus();
  Resize = [this] { PlacePanes(); };
  KeyDown = [this](int& key_code, int shift_state) { HandleKey(key_code, shift_state); };
  TxtCode.KeyDown = [this](int& key_code, int shift_state) { HandleCodeKey(key_code, shift_state); };
  TxtCode.Change = [this] {
    if (!TxtCode.Tag->empty()) TxtCode.Tag = DirtyTag(TxtCode.Tag);
  };
  TreeView.DblClick = [this] { RunQuietly([this] { OpenNode(); }); };
  LstDebug.DblClick = [this] { RunQuietly([this] { OpenDebugNode(); }); };
  FilesDropped = [this](const std::vector<std::string>& paths) { RunQuietly([&] { TakeDropped(paths); }); };
  QueryUnload = [this](bool& cancel) { AskBeforeClosing(cancel); };
}

void FrmEdit::ConnectMenus() {
  const auto connect = [](MenuItem& item, const std::function<void()>& command) {
    item.Click = [command] { RunQuietly(command); };
  };
  connect(mnu_new, [this] { LoadStyle(""); });
  connect(mnu_open, [this] { OpenProject(); });
  connect(mnu_save, [this] { Save(); });
  connect(mnu_saveas, [this] { SaveAs(); });
  connect(mnu_exit, [this] { Unload(); });
  connect(mnu_refresh, [this] { RefreshList(); });
  connect(mnu_addimage, [this] { AddFile(kImageFilter); });
  connect(mnu_addsound, [this] { AddFile(kSoundFilter); });
  connect(mnu_addmod, [this] { AddFile(kModuleFilter); });
  connect(mnu_addOther, [this] { AddFile(kAnyFilter); });
  connect(mnu_newText, [this] { AddNewEntry("Please enter a name for the textfile.", &TextName); });
  connect(mnu_newMod, [this] { AddNewEntry("Please enter a name for the module.", &ModuleName); });
  connect(mnu_deletefile, [this] { DeleteEntry(); });
  connect(mnu_load, [this] { TryStyle(); });
  connect(mnu_checkstyle, [this] { CheckStyle(); });
  connect(mnu_index, [] { OpenHelpFile(); });
  connect(mnu_showtips, [this] { ToggleTips(); });
}

// An image of the window keeps the picture of a menu item, so that a script can put another in.
void FrmEdit::LoadMenuIcons() {
  struct MenuPicture {
    Image& kept;
    Ref<kestrun::Picture> (*draw)();
    std::initializer_list<MenuItem*> items;
  };
  for (const MenuPicture& picture :
       {MenuPicture{ImgNew, &NewSheetPicture, {&mnu_new}}, MenuPicture{ImgOpen, &FolderPicture, {&mnu_open}},
        MenuPicture{ImgSave, &DiskPicture, {&mnu_save, &mnu_saveas}}, MenuPicture{ImgClose, &DoorPicture, {&mnu_exit}},
        MenuPicture{ImgRefresh, &RefreshPicture, {&mnu_refresh}},
        MenuPicture{ImgImage, &PreviewPicture, {&mnu_addimage}}, MenuPicture{ImgSound, &SoundPicture, {&mnu_addsound}},
        MenuPicture{ImgMod, &ModulePicture, {&mnu_addmod, &mnu_newMod}},
        MenuPicture{ImgTxt, &TextSheetPicture, {&mnu_newText}}, MenuPicture{ImgDel, &CrossPicture, {&mnu_deletefile}},
        MenuPicture{ImgRun, &PlayPicture, {&mnu_load}}, MenuPicture{ImgHelp, &HelpMarkPicture, {&mnu_index}}}) {
    if (!picture.kept.Picture.get()) picture.kept.Picture = DrawnOnce(picture.draw);
    for (MenuItem* item : picture.items) item->Picture = picture.kept.Picture;
  }
}

// What needs a project is there while there is one.
void FrmEdit::ShowWhatIsPossible() {
  const bool has_project = static_cast<bool>(project_.archive());
  for (MenuItem* item : {&mnu_save, &mnu_saveas, &mnu_refresh, &mnu_addimage, &mnu_addsound, &mnu_addmod, &mnu_addOther,
                         &mnu_newText, &mnu_newMod, &mnu_deletefile, &mnu_load, &mnu_checkstyle}) {
    item->Enabled = has_project;
  }
}

void FrmEdit::ToggleTips() {
  const bool shows = !txthelp.Visible;
  LblHelp.Visible = shows;
  txthelp.Visible = shows;
  mnu_showtips.Checked = shows;
  PlacePanes();
}

// ---- keys ----------------------------------------------------------------------------------------------------------

void FrmEdit::HandleKey(int& key_code, int shift_state) {
  if (key_code == key::kF6 && (shift_state & ~shift::kShift) == 0) {
    MovePane(shift_state == shift::kShift ? -1 : 1);
    key_code = 0;
  } else if (key_code == key::kDelete && shift_state == 0 && ActiveControl() == &TreeView) {
    static_cast<void>(mnu_deletefile.Choose());
    key_code = 0;
  }
}

// The code window keeps the tab key, so that another one has to lead out of it.
void FrmEdit::MovePane(int step) {
  std::vector<Control*> panes{&TreeView, &LstDebug, &TxtCode};
  if (txthelp.Visible) panes.push_back(&txthelp);
  const auto at = std::find(panes.begin(), panes.end(), ActiveControl()) - panes.begin();
  const auto count = static_cast<std::ptrdiff_t>(panes.size());
  const auto next = at == count ? 0 : (at + step + count) % count;
  panes[static_cast<size_t>(next)]->SetFocus();
}

void FrmEdit::HandleCodeKey(int& key_code, int shift_state) {
  if (key_code != key::kTab || shift_state != 0) return;
  TxtCode.SetSelText(kIndent);
  key_code = 0;
}

}  // namespace kestrun
