#include "windows/style_editor/frmeditselectfile.h"

#include "program/window_kit/place_controls.h"
#include "windows/style_editor/frmedit.h"
#include "windows/style_editor/run_quietly.h"

namespace kestrun {
namespace {

const WindowRegistration registration(FrmEditSelectFile::kName, [] { return MakeRef<FrmEditSelectFile>(); });

constexpr int kListWidth = 3600;
constexpr int kListHeight = 3600;

FrmEdit& Editor() { return Window<FrmEdit>(); }

}  // namespace

FrmEditSelectFile::FrmEditSelectFile() : Form(kName) {
  LayOutDialog(*this, "Select File");
  LstFiles.Move(kWindowMargin, kWindowMargin, kListWidth, kListHeight);
  LstFiles.ToolTipText = "The file to delete from the style.";
  const int buttons_top = kWindowMargin + kListHeight + kWindowMargin;
  PlaceOkAndCancel(Command1, Command2, kWindowMargin + kListWidth, buttons_top);
  SetClientSize(kWindowMargin + kListWidth + kWindowMargin, buttons_top + kDialogButtonHeight + kWindowMargin);
  Command1.Click = [this] { RunQuietly([this] { DeleteChosen(); }); };
  LstFiles.DblClick = [this] { static_cast<void>(Command1.Press()); };
  Command2.Click = [this] { Unload(); };
}

void FrmEditSelectFile::Load() {
  RunQuietly([this] {
    for (const ProjectEntry& entry : Editor().project().Entries()) {
      LstFiles.AddItem(entry.name);
      LstFiles.SetItemData(LstFiles.NewIndex(), entry.number);
    }
  });
}

void FrmEditSelectFile::Choose(const std::string& name) {
  for (int row = 0; row < LstFiles.ListCount(); ++row) {
    if (LstFiles.List(row) != name) continue;
    LstFiles.ListIndex = row;
    return;
  }
}

void FrmEditSelectFile::DeleteChosen() {
  const int row = LstFiles.ListIndex;
  RunQuietly([&] {
    if (row >= 0) Editor().DeleteNumber(LstFiles.ItemData(row));
  });
  RunQuietly([] { Editor().RefreshList(); });
  Unload();
}

}  // namespace kestrun
