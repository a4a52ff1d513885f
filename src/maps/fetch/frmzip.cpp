#include "maps/fetch/frmzip.h"

#include "base/convert.h"
#include "forms/keys.h"
#include "platform/platform.h"
#include "program/window_kit/apply_style.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmzip::kName, [] { return MakeRef<frmzip>(); });

constexpr int kMapIcon = 0;  // of ImageList1
int32_t chosen_member = kNoZipMember;

}  // namespace

int32_t ChosenZipMember() { return chosen_member; }

void SetChosenZipMember(int32_t member) { chosen_member = member; }

frmzip::frmzip() : Form(kName) {
  LayOut();
  // Without a mouse: the current row is the one with the focus, and a key selects it.
  LstZip.KeyDown = [this](int& key_code, int) {
    const bool chooses = key_code == key::kEnter || key_code == key::kSpace;
    if (chooses && LstZip.SelCount() == 0 && LstZip.ListCount() > 0) LstZip.SetListIndex(LstZip.ListIndex());
  };
  LstZip.DbClick = [this] { Choose(); };
  Command1.Click = [this] { Choose(); };
  Command2.Click = [this] {
    SetChosenZipMember(kNoZipMember);
    Unload();
  };
}

void frmzip::AddMap(const std::string& name, int32_t member) { LstZip.AddItem(name, -1, kMapIcon, false, member); }

void frmzip::Load() {
  SetChosenZipMember(kNoZipMember);
  ApplyStyleAtOnce(*this, "applystyle ");
}

void frmzip::Choose() {
  // The list always has a current row; a map is selected only when the user has done so.
  if (LstZip.SelCount() == 0) {
    MsgBox("Select map!");
    return;
  }
  SetChosenZipMember(ToLong(LstZip.ItemData(LstZip.SelItem(0))));
  Unload();
}

}  // namespace kestrun
