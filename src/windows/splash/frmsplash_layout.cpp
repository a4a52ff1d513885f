#include "program/program_pictures.h"
#include "windows/splash/frmsplash.h"

namespace kestrun {

void frmsplash::LayOut() {
  Caption = "Kestrun is starting";
  BorderStyle = static_cast<int>(FormBorder::kNone);
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  ShowInTaskbar = false;
  BackColor = Rgb(0x1E, 0x2A, 0x36);
  Width = 5700;
  Height = 2700;
  Icon = ProgramIcon();

  imgLogo.Move(300, 360, 960, 960);
  imgLogo.Stretch = true;
  imgLogo.Picture = ProgramIcon();

  Label1.Caption = "Kestrun";
  Label1.Move(1500, 360, 3900, 660);
  Label1.Font = {.name = "Tahoma", .size_points = 24, .bold = true};
  Label1.ForeColor = color::kWhite;

  lblversion.Move(1530, 1020, 2400, 300);
  lblversion.ForeColor = Rgb(0xB8, 0xC7, 0xD4);

  lblstatus.Caption = "Your maps in Delta Force Land Warrior";
  lblstatus.Move(300, 1740, 5100, 300);
  lblstatus.ForeColor = Rgb(0xB8, 0xC7, 0xD4);

  Label2.Caption = "Exit";
  Label2.ToolTipText = "End Kestrun at once";
  Label2.Alignment = static_cast<int>(TextAlignment::kRight);
  Label2.Move(4500, 2280, 900, 270);
  Label2.ForeColor = color::kWhite;
  Label2.TabStop = false;  // a key pressed too long at the start must not end it
  Label2.Font = {.underline = true};

  for (Label* label : {&Label1, &lblversion, &lblstatus, &Label2}) label->BackStyle = 0;
}

}  // namespace kestrun
