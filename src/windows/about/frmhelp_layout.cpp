#include "platform/platform.h"
#include "program/program_pictures.h"
#include "program/window_kit/place_controls.h"
#include "web/site.h"
#include "windows/about/frmhelp.h"

namespace kestrun {
namespace {

// Edges that the whole window shares, in twips.
constexpr int kClientWidth = 5820;
constexpr int kMargin = 240;
constexpr int kTextLeft = 1200;
constexpr int kTextWidth = kClientWidth - kTextLeft - kMargin;
constexpr int kLine = 255;

// Below the text: the lines about a style, or the button at once.
constexpr int kStyleTop = 3180;
constexpr int kStyleHeight = 4 * kLine;

void PlaceLine(Label& label, int top, const std::string& caption) {
  PlaceLabel(label, kTextLeft, top, kTextWidth, caption);
  label.Height = kLine;
}

// Links are as wide as their text, so that only the text answers the mouse.
void PlaceLink(Label& label, int top, const std::string& caption, const char* tip) {
  PlaceLine(label, top, caption);
  label.Width = platform().windowing().TextWidth(caption, label.Font) + 2 * 15;
  label.ToolTipText = tip;
  label.Font = {.underline = true};
}

}  // namespace

void frmhelp::LayOut() {
  LayOutDialog(*this, "About Kestrun", InTaskbar::kYes);

  imgLogo.Move(kMargin, kMargin, 720, 720);
  imgLogo.Stretch = true;
  imgLogo.Picture = ProgramIcon();

  PlaceLine(Label1, kMargin, "Kestrun");
  Label1.Height = 420;
  Label1.Font = {.name = "Tahoma", .size_points = 15, .bold = true};
  PlaceLine(Label2, 690, "A companion for Delta Force Land Warrior");
  PlaceLink(Label3, 690 + kLine, std::string(kSite), "Open the home page of Kestrun");

  PlaceLine(Label4, 1380, "");
  Label4.WordWrap = true;
  Label4.Height = 1740;

  PlaceLine(Label7, kStyleTop, "Kestrun skin information:");
  PlaceLink(Label5, kStyleTop + kLine, "Style file designer info", "Who made this style");
  PlaceLink(Label6, kStyleTop + 2 * kLine, "Style file designer site", "Open the site of the style's designer");
  for (Label* label : {&Label7, &Label5, &Label6}) label->Visible = false;

  Command1.Caption = "OK";
  Command1.Default = true;
  Command1.Cancel = true;
  Command1.TabIndex = 0;
  PlaceButtonAt(kStyleTop);
}

void frmhelp::PlaceButtonAt(int top) {
  Command1.Move(kClientWidth - kMargin - kDialogButtonWidth, top, kDialogButtonWidth, kDialogButtonHeight);
  SetClientSize(kClientWidth, top + kDialogButtonHeight + kMargin);
}

void frmhelp::ShowStyleLines() {
  for (Label* label : {&Label7, &Label5, &Label6}) label->Visible = true;
  PlaceButtonAt(kStyleTop + kStyleHeight);
}

}  // namespace kestrun
