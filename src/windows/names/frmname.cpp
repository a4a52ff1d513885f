#include "windows/names/frmname.h"

#include "base/code_page.h"
#include "base/text.h"
#include "forms/keys.h"
#include "forms/member_rows.h"
#include "game/players/name_history.h"
#include "platform/platform.h"
#include "program/character_map.h"
#include "program/folders.h"
#include "program/menu_pictures.h"
#include "program/originals_hook.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmname::kName, [] { return MakeRef<frmname>(); });

constexpr Member kRows[]{
    MethodRow<&frmname::SaveNames>("SaveNames"),
    MethodRow<&frmname::LoadMenuIcons>("LoadMenuIcons"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

constexpr char16_t kFirstHighSurrogate = 0xD800;
constexpr char16_t kLastHighSurrogate = 0xDBFF;

// True when the text of the box was too long: it is cut then, with the cursor behind it.
template <class Box>
bool CutToName(Box& box) {
  std::u16string text = ToUtf16(box.Text.get());
  if (text.size() <= kPlayerNameLength) return false;
  text.resize(kPlayerNameLength);
  if (text.back() >= kFirstHighSurrogate && text.back() <= kLastHighSurrogate) text.pop_back();
  box.Text = ToUtf8(text);
  box.SelStart = static_cast<int>(text.size());
  box.SelLength = 0;
  return true;
}

}  // namespace

const MemberTable& frmname::Members() const { return kTable; }

frmname::frmname() : Form(kName) {
  LayOut();
  Connect();
}

void frmname::Connect() {
  Text1.Change = [this] { folder_ = Text1.Text; };
  Text1.KeyDown = [this](int& key_code, int) {
    if (key_code != key::kEnter) return;
    key_code = 0;  // the key belongs to the folder: it saves nothing
    RunCommand([this] { ReadPlayerFile(); });
  };
  SetCommand({&Command2.Click}, [this] { BrowseFolder(); });
  SetCommand({&mnu_loadnames.Click}, [this] { ReadPlayerFile(); });
  mnu_savenames.Click = [this] { SaveNames(); };
  cmdSave.Click = [this] {
    if (Save()) Unload();
  };
  SetCommand({&Command1.Click, &mnu_exit.Click}, [this] { Unload(); });
  SetCommand({&cmdCharMap.Click}, [] { StartCharacterMap(); });
  FilesDropped = [this](const std::vector<std::string>& paths) { RunCommand([&] { TakeDropped(paths); }); };
  for (const Player& player : players) ConnectPlayer(player);
}

void frmname::ConnectPlayer(const Player& player) {
  player.name.Change = [this, &player] {
    if (CutToName(player.name)) platform().windowing().Beep();
    ShowNote();
  };
  player.name.Click = [this] { ShowNote(); };
  player.in_file.Change = [&player] { RunCommand([&] { CutToName(player.in_file); }); };
}

void frmname::Load() {
  RunCommand([this] {
    folder_ = ReadSetting(setting::kNameEditorFolder);
    if (folder_.empty()) folder_ = platform().program().Folder();
    ReadPlayerFile();
    LoadMenuIcons();
    Text1.Text = folder_;
  });
  ApplyStyleAtOnce(*this, "applystyle ");
}

void frmname::Unloading() { WriteSetting(setting::kNameEditorFolder, folder_); }

// An image of the window keeps the picture of a menu item, so that a style can put another in.
void frmname::LoadMenuIcons() {
  struct MenuPicture {
    Image& kept;
    MenuItem& item;
    Ref<kestrun::Picture> (*draw)();
  };
  for (const MenuPicture& picture :
       {MenuPicture{ImgOpen, mnu_loadnames, &FolderPicture}, MenuPicture{ImgSave, mnu_savenames, &DiskPicture},
        MenuPicture{ImgClose, mnu_exit, &DoorPicture}}) {
    if (!picture.kept.Picture.get()) picture.kept.Picture = picture.draw();
    picture.item.Picture = picture.kept.Picture;
  }
}

// ---- reading -------------------------------------------------------------------------------------------------------

void frmname::ReadPlayerFile() {
  for (const Player& player : players) {
    player.name.Clear();
    player.name.Text = "";
  }
  if (!FileExists(PlayerFile())) {
    MsgBox("Couldn't find the dflwplyr.sav file!" + std::string(kCrLf) + "Please select your game folder!");
    return;
  }
  const PlayerNames names = kestrun::ReadPlayerFile(PlayerFile());
  for (size_t player = 0; player < kPlayerCount; ++player) players[player].in_file.Text = names[player];
  OfferHistory();
}

void frmname::OfferHistory() {
  const NameHistory history = ReadNameHistory();
  for (size_t player = 0; player < kPlayerCount; ++player) {
    ComboBox& box = players[player].name;
    const std::string& in_file = players[player].in_file.Text;
    int current = -1;
    for (const std::string& name : history[player]) {
      box.AddItem(name);
      if (name == in_file) current = box.NewIndex();
    }
    if (current < 0) {
      box.AddItem(in_file, 0);
      current = 0;
    }
    box.ListIndex = current;
  }
  ShowNote();
}

// ---- saving --------------------------------------------------------------------------------------------------------

void frmname::SaveNames() { Save(); }

bool frmname::Save() {
  bool is_saved = false;
  RunCommand([&] {
    PlayerNames names;
    for (size_t player = 0; player < kPlayerCount; ++player) {
      players[player].in_file.Text = players[player].name.Text;
      names[player] = players[player].in_file.Text;
    }
    if (!KeepOriginal(names)) return;
    WritePlayerFile(PlayerFile(), names);
    WriteSetting(setting::kNameEditorFolder, folder_);
    SaveHistory();
    MsgBox("Saved!");
    is_saved = true;
  });
  return is_saved;
}

// What the game's file holds goes into the ledger of originals before it is changed.
bool frmname::KeepOriginal(const PlayerNames& names) {
  Bytes present;
  if (FileExists(PlayerFile())) present = platform().files().ReadAll(PlayerFile());
  const auto keep = [&] {
    const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
    keeper->KeepFile(PlayerFile(), WithPlayerNames(present, names), "Name editor");
    keeper->Finish();
  };
  return Attempt(keep) || AskToGoOnWithoutOriginal(kPlayerFileName);
}

void frmname::SaveHistory() {
  NameHistory history;
  for (size_t player = 0; player < kPlayerCount; ++player) {
    const ComboBox& box = players[player].name;
    for (int row = 0; row < box.ListCount(); ++row) history[player].push_back(box.List(row));
  }
  WriteNameHistory(history);
}

// ---- the folder ----------------------------------------------------------------------------------------------------

void frmname::BrowseFolder() {
  const std::string picked = BrowseForFolder("Please select the DFLW folder:", folder::kGivenPath, folder_);
  if (picked.empty()) return;
  folder_ = WithoutLastBackslash(picked);
  ReadPlayerFile();
  Text1.Text = folder_;
}

// A folder, or a file in it.
void frmname::TakeDropped(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  const std::string& path = paths.front();
  Text1.Text = platform().files().IsFolder(path) ? path : ParentFolder(path);
  ReadPlayerFile();
}

// ---- what the game cannot hold -------------------------------------------------------------------------------------

void frmname::ShowNote() {
  std::string note;
  for (size_t player = players.size(); player-- > 0;) {
    const auto lost = FirstUnencodable(players[player].name.Text.get());
    if (lost)
      note = "Player " + std::to_string(player + 1) + ": the game cannot store " + *lost + " and gets ? for it.";
  }
  LblNote.Caption = note;
}

}  // namespace kestrun
