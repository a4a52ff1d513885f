#include "maps/frmzip.h"

#include "frame/show_error.h"
#include "frame/style_hook.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmzip::kName, [] { return MakeRef<frmzip>(); });

constexpr int32_t kNoChoice = -1;
int32_t chosen_member = kNoChoice;

}  // namespace

int32_t ChosenZipMember() { return chosen_member; }

void SetChosenZipMember(int32_t member) { chosen_member = member; }

frmzip::frmzip() : Form(kName) {
  LayOut();
  LstZip.DblClick = [this] { Choose(); };
  Command1.Click = [this] { Choose(); };
  Command2.Click = [this] {
    SetChosenZipMember(kNoChoice);
    Unload();
  };
}

void frmzip::AddMap(const std::string& name, int32_t member) {
  LstZip.AddItem(name);
  LstZip.SetItemData(LstZip.NewIndex(), member);
}

void frmzip::Load() {
  SetChosenZipMember(kNoChoice);
  if (!StyleActive()) return;
  try {
    FormLoadStyle(*this);
  } catch (const std::exception&) {
    ShowError("applystyle ");
  }
}

void frmzip::Choose() {
  if (LstZip.ListIndex < 0) {
    MsgBox("Select map!");
    return;
  }
  SetChosenZipMember(LstZip.ItemData(LstZip.ListIndex));
  Unload();
}

}  // namespace kestrun
