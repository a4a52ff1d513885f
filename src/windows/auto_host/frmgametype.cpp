#include "windows/auto_host/frmgametype.h"

#include "base/convert.h"
#include "game/game_types/add_game_types.h"
#include "platform/platform.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmGameType::kName, [] { return MakeRef<FrmGameType>(); });

constexpr Color kGreen = 65280;
constexpr int kStyleTimerMs = 500;
// How often the window is painted anew while it works.
constexpr int kRowsBetweenPaints = 20;

constexpr int kWidth = 5100;
constexpr int kLabelLines = 5 * 210;
constexpr int kFrameTop = kWindowMargin + kLabelLines + 90;
constexpr int kFirstBox = 285;
constexpr int kBoxStep = 315;
constexpr int kRowsOfBoxes = 5;
constexpr int kFrameInside = kFirstBox + kRowsOfBoxes * kBoxStep + 90;
constexpr int kBarTop = kFrameTop + kFrameInside + 150;
constexpr int kBarHeight = 315;
constexpr int kButtonTop = kBarTop + kBarHeight + kWindowMargin;

}  // namespace

FrmGameType::FrmGameType() : Form(kName) {
  LayOut();
  SetCommand({&Command1.Click}, [this] { Run(); });
  SetCommand({&Command2.Click}, [this] { Unload(); });
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

std::vector<CheckBox*> FrmGameType::AddBoxes() {
  std::vector<CheckBox*> boxes;
  for (const AddableGameType& type : kAddableGameTypes) {
    auto& box = Add<CheckBox>("ChGameType", static_cast<int>(boxes.size()));
    box.Caption = std::string(type.caption);
    box.Tag = std::to_string(type.flag);
    boxes.push_back(&box);
  }
  return boxes;
}

void FrmGameType::LayOut() {
  LayOutDialog(*this, "Kestrun - Add new gametype");
  SetClientSize(kWidth + 2 * kWindowMargin, kButtonTop + kDialogButtonHeight + kWindowMargin);
  Label1.Caption =
      "This tool will help you to change the gametype of all the maps in the play list to a new gametype. For Ex: you "
      "can add TDM gametype to all maps. Check the checkboxes of the gametypes that should be added:";
  Label1.WordWrap = true;
  Label1.BackStyle = 0;
  Label1.Move(kWindowMargin, kWindowMargin, kWidth, kLabelLines);
  Frame1.Caption = "Gametypes";
  Frame1.Move(kWindowMargin, kFrameTop, kWidth, kFrameInside);
  for (size_t at = 0; at < ChGameType.size(); ++at) {
    const auto column = static_cast<int>(at) / kRowsOfBoxes;
    const auto row = static_cast<int>(at) % kRowsOfBoxes;
    ChGameType[at]->SetContainer(Frame1);
    ChGameType[at]->Move(kWindowMargin + column * (kWidth / 2), kFirstBox + row * kBoxStep,
                         kWidth / 2 - kWindowMargin - 60, kOptionHeight);
  }
  ProgressBar1.Move(kWindowMargin, kBarTop, kWidth, kBarHeight);
  ProgressBar1.BroderStyle = 1;
  ProgressBar1.ToolTipText = "How many of the maps are done";
  PlaceEndButtons({Command1, "Run"}, {Command2, "Cancel"}, kWindowMargin + kWidth, kButtonTop);
  Command1.Default = true;
}

void FrmGameType::Load() { StartStyleTimer(Timer1); }

uint32_t FrmGameType::Mask() const {
  uint32_t mask = 0;
  for (const CheckBox* box : ChGameType) {
    if (box->Value == 1) mask |= static_cast<uint32_t>(TextToLong(box->Tag.get()));
  }
  return mask;
}

void FrmGameType::Run() {
  const auto* host = static_cast<const frmputlist*>(LoadedWindow(frmputlist::kName));
  const int rows = host ? host->lstmaps.ListCount() : 0;
  ProgressBar1.Progresscolor = kGreen;
  ProgressBar1.Max = rows;
  ProgressBar1.Value = 0;
  if (rows == 0) {
    MsgBox("No maps in the list!");
    return;
  }
  Command1.Enabled = false;  // it lets the window be painted, and must not start over meanwhile
  try {
    StampAll(rows);
  } catch (const std::exception&) {
    Command1.Enabled = true;
    throw;
  }
  Command1.Enabled = true;
}

void FrmGameType::StampAll(int rows) {
  const uint32_t mask = Mask();
  const Ref<frmputlist> owner(&Window<frmputlist>());
  for (int row = 0; row < rows && IsLoaded(); ++row) {
    AddGameTypes(owner->lstmaps.List(row), mask);
    ProgressBar1.Value = row + 1;
    if ((row + 1) % kRowsBetweenPaints == 0) RunPendingEvents();
  }
}

}  // namespace kestrun
