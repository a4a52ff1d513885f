#include "maps/fetch/frmzip.h"
#include "program/program_pictures.h"

namespace kestrun {

void frmzip::LayOut() {
  Caption = "Zip File Found";
  Icon = ProgramIcon();
  BorderStyle = static_cast<int>(FormBorder::kFixedDialog);
  StartUpPosition = static_cast<int>(StartPosition::kCenterOwner);
  MinButton = false;
  MaxButton = false;
  ShowInTaskbar = false;
  SetClientSize(5280, 3960);

  lblText.Caption = "Kestrun detected a zip file. Click the BMS in the zip file you want to load.";
  lblText.WordWrap = true;
  lblText.Move(180, 180, 4920, 450);
  LstZip.Move(180, 720, 4920, 2505);
  LstZip.BackColor = color::kWindowBackground;
  LstZip.ForeColor = color::kWindowText;
  // Plain colours: a selected row is read as well without the focus.
  LstZip.SelColor = color::kHighlight;
  LstZip.SelForeColor = color::kHighlightText;
  LstZip.SelectionStyle = 0;
  ImageList1.AddNewImage(MapPicture());
  LstZip.SetImageList(Ref<Object>(&ImageList1));
  LstZip.ShowIcon = true;
  LstZip.StrechIcon = true;
  LstZip.FullRowSelect = true;
  LstZip.AutoHideScrollBars = true;

  Command1.Caption = "OK";
  Command1.Default = true;
  Command1.Move(2460, 3405, 1260, 375);
  Command2.Caption = "Cancel";
  Command2.Cancel = true;
  Command2.Move(3840, 3405, 1260, 375);
}

}  // namespace kestrun
