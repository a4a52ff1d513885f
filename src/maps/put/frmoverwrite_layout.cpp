#include "maps/put/frmoverwrite.h"
#include "program/program_pictures.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/place_controls.h"

namespace kestrun {

void FrmOverWrite::LayOut() {
  LayOutDialog(*this, "File Exists");
  SetClientSize(6000, 3000);

  // Before they get their pictures, whose sizes they would take.
  for (Image* image : {&imgPFF, &imgBMS}) image->Stretch = true;
  imgPFF.Move(240, 240, 480, 480);
  imgPFF.Picture = ArchivePicture();
  LblPFF.Caption = "PFF";
  LblPFF.Move(840, 360, 2040, 240);

  imgBMS.Move(3000, 240, 480, 480);
  imgBMS.Picture = MapPicture();
  LblBMS.Caption = "BMS";
  LblBMS.Move(3600, 360, 2160, 240);

  lblWarn.Caption =
      "Warning the file \"%1\" already exists in the \"%2\" file. Do you want to overwrite the file? If you overwrite "
      "the file you'll lose the default reg prison map!";
  lblWarn.WordWrap = true;
  lblWarn.Move(240, 900, 5520, 900);

  ChShow.Caption = "Don't show this message again.";
  ChShow.Move(240, 1920, 5520, 270);

  PlaceOkAndCancel(CmdOK, CmdCancel, 5760, 2430);

  SetUpStyleTimer(*this, Timer1, 50, "Applystyle");
  for (Label* label : {&LblPFF, &LblBMS, &lblWarn}) label->UseMnemonic = false;  // they name files
}

}  // namespace kestrun
