#include "maps/put/frmoverwrite.h"
#include "program/program_pictures.h"

namespace kestrun {

void FrmOverWrite::LayOut() {
  Caption = "File Exists";
  Icon = ProgramIcon();
  BorderStyle = static_cast<int>(FormBorder::kFixedDialog);
  StartUpPosition = static_cast<int>(StartPosition::kCenterOwner);
  MinButton = false;
  MaxButton = false;
  ShowInTaskbar = false;
  SetClientSize(6000, 3000);

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
      "the "
      "file you'll lose the default reg prison map!";
  lblWarn.WordWrap = true;
  lblWarn.Move(240, 900, 5520, 900);

  ChShow.Caption = "Don't show this message again.";
  ChShow.Move(240, 1920, 5520, 270);

  CmdOK.Caption = "OK";
  CmdOK.Default = true;
  CmdOK.Move(3120, 2430, 1260, 375);
  CmdCancel.Caption = "Cancel";
  CmdCancel.Cancel = true;
  CmdCancel.Move(4500, 2430, 1260, 375);

  Timer1.Enabled = false;
  Timer1.Interval = 1;
  for (Label* label : {&LblPFF, &LblBMS, &lblWarn}) label->UseMnemonic = false;  // they name files
}

}  // namespace kestrun
