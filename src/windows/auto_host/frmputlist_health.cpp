// The health of the play list: badges in front of the rows, and the check of the whole list.
#include "maps/health/health_badges.h"
#include "maps/health/list_check.h"
#include "platform/platform.h"
#include "program/window_kit/run_command.h"
#include "web/web_paths.h"
#include "windows/auto_host/frmchecklist.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {

void frmputlist::ConnectHealth() {
  LoadHealthPictures({ImgGood, ImgDoubtful, ImgBad});
  lstmaps.Badges = {[this](int row) {
                      return BadgeOfHealth(HealthOfRow(row), {ImgGood, ImgDoubtful, ImgBad});
                    },
                    std::string(kWidestHealthWord)};
  SetCommand({&mnu_checklist.Click}, [this] { CheckList(); });
}

MapUse frmputlist::UseOfRows() const { return {MapPlace::kPlayList, run.fields.Rename, Options2.Value}; }

MapHealth frmputlist::HealthOfRow(int row) {
  if (same_rows_revision_ != lstmaps.Revision() || same_rows_.empty()) {
    same_rows_ = SameRows(PlayList());
    same_rows_revision_ = lstmaps.Revision();
  }
  const std::string map = lstmaps.List(row);
  // What is on another computer is asked for by the check alone: showing a list must not send anything there.
  const bool is_elsewhere = IsUrl(map) || map.starts_with("\\\\");
  const MapFacts* const facts = is_elsewhere ? health_.Kept(map) : health_.Look(map);
  return JudgeMap({map, facts, same_rows_[static_cast<size_t>(row)]}, UseOfRows());
}

// The reasons of the current row as words, in the line below; they go with the next row that has none.
void frmputlist::TellHealthOfRow() {
  const int row = lstmaps.ListIndex;
  const MapHealth health = row < 0 ? MapHealth() : HealthOfRow(row);
  std::string words;
  if (health.health != Health::kGood && !health.reasons.empty())
    words = "Row " + std::to_string(row + 1) + " is " + DescribeHealth(health);
  if (words.empty() && lblstatus.Caption.get() != told_health_) return;
  lblstatus.Caption = words;
  told_health_ = words;
}

void frmputlist::SelectRows(const std::vector<int>& rows) {
  SelectMaps(false);
  for (const int row : rows) lstmaps.SetSelected(row, true);
  if (!rows.empty()) lstmaps.ListIndex = rows.front();
  for (const int row : rows) lstmaps.SetSelected(row, true);
}

void frmputlist::CheckList() {
  if (lstmaps.ListCount() == 0) {
    MsgBox("No maps?");
    return;
  }
  const Ref<Form> keep(this);
  const Ref<FrmCheckList> window(&Window<FrmCheckList>());
  window->Check(list_file_.empty() ? "the play list" : list_file_, PlayList(), UseOfRows());
  window->ShowModal();
  for (const auto& [address, facts] : window->Addresses()) health_.Keep(address, facts);
  health_.LookAgain();
  lstmaps.Refresh();
  if (window->IsSelectionWanted()) SelectRows(window->BadRows());
}

}  // namespace kestrun
