#include "maps/fetch/frmzip.h"
#include "program/program_pictures.h"
#include "program/window_kit/list_focus.h"
#include "program/window_kit/place_controls.h"

namespace kestrun {

void frmzip::LayOut() {
  LayOutDialog(*this, "Zip File Found");
  SetClientSize(5280, 3960);

  lblText.Caption = "Kestrun detected a zip file. Click the BMS in the zip file you want to load.";
  lblText.WordWrap = true;
  lblText.Move(180, 180, 4920, 450);
  LstZip.Move(180, 720, 4920, 2505);
  GiveWindowColors(LstZip);
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
  ShowFocusOnlyWhileFocused(LstZip);

  PlaceOkAndCancel(Command1, Command2, 5100, 3405);
}

}  // namespace kestrun
