#include "windows/restore/frmrestore.h"

#include <algorithm>

#include "base/text.h"
#include "formats/zip/member_path.h"
#include "forms/keys.h"
#include "game/originals/archive_health.h"
#include "game/originals/present_content.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/style_hook.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/run_command.h"
#include "windows/restore/difference_texts.h"

namespace kestrun {
namespace {

using originals::Difference;
using originals::Present;

const WindowRegistration registration(frmrestore::kName, [] { return MakeRef<frmrestore>(); });

constexpr int kA = 'A';

// Puts back one version; a failure is shown, and the next one gets its turn.
bool RestoreOne(const Difference& difference, const originals::KeptVersion& version, bool keep_present) {
  bool restored = false;
  RunCommand([&] {
    originals::RestoreVersion(difference, version, keep_present);
    restored = true;
  });
  return restored;
}

bool IsForeign(const Difference& difference) { return difference.present == Present::kForeign; }

// Whether what another program put there is kept as well. Cancel ends the command.
BoxAnswer AskToKeep(const std::vector<Difference>& foreign) {
  const bool is_one = foreign.size() == 1;
  return MsgBox(QuotedNames(foreign) + (is_one ? " holds" : " hold") +
                    " something that Kestrun did not put there. Keep that too?",
                BoxButtons::kYesNoCancel, BoxIcon::kQuestion);
}

bool AskToRemove(const std::vector<Difference>& additions) {
  const bool is_one = additions.size() == 1;
  return AskYesNo(AdditionsText(additions) + (is_one ? " was" : " were") + " not in the game before. Remove " +
                      (is_one ? "it?" : "them?"),
                  BoxIcon::kQuestion);
}

}  // namespace

frmrestore::frmrestore() : Form(kName) {
  LayOut();
  Connect();
}

void frmrestore::Connect() {
  KeyDown = [this](int& key_code, int shift_state) { HandleKey(key_code, shift_state); };
  SetCommand({&LstFolders.Click}, [this] { FillMissions(); });
  SetCommand({&LstMissions.SelChange}, [this] { ShowDetails(); });
  SetCommand({&LstMissions.DbClick, &CmdMapInfo.Click}, [this] { ShowMapInfo(); });
  SetCommand({&CmdBrowse.Click}, [this] { BrowseFolder(); });
  SetCommand({&CboVersion.Click}, [this] {
    const int row = LstMissions.ListIndex();
    if (CurrentDifference() && CboVersion.ListIndex >= 0) chosen_[static_cast<size_t>(row)] = CboVersion.ListIndex;
  });
  SetCommand({&CmdRestore.Click}, [this] { RestoreSelected(); });
  SetCommand({&CmdRestoreAll.Click}, [this] { Restore(AllOriginals()); });
  SetCommand({&CmdRefresh.Click}, [this] { RefreshAll(); });
  SetCommand({&CmdClose.Click}, [this] { Unload(); });
  Timer1.Tick = [this] {
    Timer1.Enabled = false;
    RunCommand([this] { FormLoadStyle(*this); }, "applystyle ");
  };
}

void frmrestore::Load() {
  if (StyleActive()) Timer1.Enabled = true;
  RunCommand([this] { RefreshAll(); });
}

void frmrestore::HandleKey(int& key_code, int shift_state) {
  if (key_code == key::kF5) {
    key_code = 0;
    CmdRefresh.Press();
  } else if (key_code == kA && shift_state == shift::kCtrl && ActiveControl() == &LstMissions) {
    key_code = 0;
    LstMissions.SelectAll();
  }
}

// ---- folders -------------------------------------------------------------------------------------------------------

void frmrestore::AddFolder(const std::string& folder) {
  for (int row = 0; row < LstFolders.ListCount(); ++row) {
    if (EqualsNoCase(LstFolders.List(row), folder)) return;
  }
  LstFolders.AddItem(folder);
}

void frmrestore::RefreshAll() {
  const std::string before = CurrentFolder();
  LstFolders.Clear();
  const std::string game = originals::KnownGameFolder();
  if (!game.empty()) AddFolder(originals::PlaceOf(game + "\\.file").folder);
  for (const std::string& folder : originals::LedgerFolders()) AddFolder(folder);
  if (!before.empty()) AddFolder(before);
  int wanted = 0;
  for (int row = 0; row < LstFolders.ListCount(); ++row) {
    if (LstFolders.List(row) == before) wanted = row;
  }
  if (LstFolders.ListCount() > 0) {
    LstFolders.ListIndex = wanted;
  } else {
    FillMissions();
  }
}

void frmrestore::BrowseFolder() {
  const std::string picked =
      BrowseForFolder("Select the folder of the game whose missions you want to restore.", folder::kMyComputer, "");
  if (picked.empty()) return;
  const std::string folder = originals::PlaceOf(picked + "\\.file").folder;
  AddFolder(folder);
  for (int row = 0; row < LstFolders.ListCount(); ++row) {
    if (EqualsNoCase(LstFolders.List(row), folder)) LstFolders.ListIndex = row;
  }
}

// ---- what differs --------------------------------------------------------------------------------------------------

void frmrestore::FillMissions() {
  LstMissions.Clear();
  differences_.clear();
  const std::string folder = CurrentFolder();
  std::string state = "Kestrun has not replaced anything yet.";
  if (!folder.empty()) {
    differences_ = originals::FindRestorable(folder);
    chosen_.assign(differences_.size(), 0);
    for (const Difference& difference : differences_) LstMissions.AddItem(RowText(difference));
    state = CountText(differences_);
    if (!FileExists(folder)) state = "This folder is not there any more. Browse for the place that it was moved to.";
    const auto fault = originals::FindArchiveFault(folder + "\\" + ReadSetting(setting::kArchiveName));
    if (fault) state = *fault;
  }
  LblState.Caption = state;
  for (CommandButton* button : {&CmdRestore, &CmdMapInfo}) button->Enabled = !differences_.empty();
  CmdRestoreAll.Enabled = !AllOriginals().empty();
  LstMissions.Refresh();
  if (!differences_.empty()) LstMissions.SetListIndex(0);
  ShowDetails();
}

const Difference* frmrestore::CurrentDifference() const {
  const int row = LstMissions.ListIndex();
  return row < 0 || static_cast<size_t>(row) >= differences_.size() ? nullptr : &differences_[static_cast<size_t>(row)];
}

void frmrestore::ShowDetails() {
  const Difference* difference = CurrentDifference();
  TxtWhere.Text = difference ? PlaceText(*difference) : "";
  TxtNow.Text = difference ? PresentText(*difference) : "";
  TxtSince.Text = difference ? SinceText(*difference) : "";
  TxtSize.Text = difference ? SizeText(*difference) : "";
  ShowVersions(difference);
}

void frmrestore::ShowVersions(const Difference* difference) {
  CboVersion.Clear();
  CboVersion.Enabled = difference && !difference->further.empty();
  if (!difference) return;
  const int chosen = chosen_[static_cast<size_t>(LstMissions.ListIndex())];
  CboVersion.AddItem(OriginalText(*difference));
  for (const originals::KeptVersion& version : difference->further) CboVersion.AddItem(FurtherText(version));
  CboVersion.ListIndex = chosen;
}

std::vector<frmrestore::Wanted> frmrestore::SelectedRows() const {
  std::vector<Wanted> selected;
  for (int item = 0; item < LstMissions.SelCount(); ++item) {
    const auto row = static_cast<size_t>(LstMissions.SelItem(item));
    if (row >= differences_.size()) continue;
    const Difference& difference = differences_[row];
    const auto chosen = static_cast<size_t>(chosen_[row]);
    selected.push_back({difference, chosen == 0 ? difference.original : difference.further[chosen - 1]});
  }
  return selected;
}

std::vector<frmrestore::Wanted> frmrestore::AllOriginals() const {
  std::vector<Wanted> all;
  for (const Difference& difference : differences_) {
    if (difference.present != Present::kOriginal) all.push_back({difference, difference.original});
  }
  return all;
}

// ---- commands ------------------------------------------------------------------------------------------------------

void frmrestore::RestoreSelected() {
  std::vector<Wanted> wanted = SelectedRows();
  const bool is_none = wanted.empty();
  std::erase_if(wanted, [](const Wanted& each) { return each.IsThere(); });
  if (!wanted.empty()) {
    Restore(std::move(wanted));
  } else if (!is_none) {
    MsgBox("That is there already. Choose a further version to put back another one.");
  } else if (!differences_.empty()) {
    MsgBox("Select what to restore!");
  }
}

void frmrestore::Restore(std::vector<Wanted> wanted) {
  const auto is_removal = [](const Wanted& each) { return each.version.IsAbsence(); };
  Differences foreign;
  Differences additions;
  for (const Wanted& each : wanted) {
    if (IsForeign(each.difference)) foreign.push_back(each.difference);
    if (is_removal(each)) additions.push_back(each.difference);
  }
  bool keep_foreign = false;
  if (!foreign.empty()) {
    const BoxAnswer answer = AskToKeep(foreign);
    if (answer == BoxAnswer::kCancel) return;
    keep_foreign = answer == BoxAnswer::kYes;
  }
  if (!additions.empty() && !AskToRemove(additions)) std::erase_if(wanted, is_removal);
  Restored restored;
  for (const auto& [difference, version] : wanted) {
    if (RestoreOne(difference, version, keep_foreign && IsForeign(difference))) ++restored.Of(difference, version);
  }
  RefreshAll();
  if (const std::string text = RestoredText(restored); !text.empty()) MsgBox(text);
}

void frmrestore::ShowMapInfo() {
  const Difference* difference = CurrentDifference();
  if (!difference) return;
  if (difference->present_sha256.empty() && difference->present != Present::kUnknown) {
    MsgBox("Nothing is there now.");
    return;
  }
  std::string path = difference->place.Path();
  if (!difference->place.entry.empty()) {
    const std::string& name = difference->place.entry;
    path = SpecialFolder(folder::kTemporary) + (zip::StaysInside(name) ? GetFileName(name, true) : "tempmap.bms");
    const std::optional<originals::Content> present = originals::ReadPlace(difference->place);
    platform().files().WriteAll(path, present ? present->bytes : Bytes());
  }
  OpenMapInfo(path, ShowWay::kShowModal);
}

}  // namespace kestrun
