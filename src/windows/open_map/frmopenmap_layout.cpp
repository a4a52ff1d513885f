#include "maps/put/mission_name.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/fit_picture.h"
#include "program/window_kit/place_controls.h"
#include "windows/open_map/frmopenmap.h"

namespace kestrun {
namespace {

// Measures that the whole window shares, in twips. Three columns under the address: what the map becomes, the
// tasks, the picture.
constexpr int kChoiceWidth = 3600;
constexpr int kTasksLeft = kWindowMargin + kChoiceWidth + kWindowMargin;
constexpr int kTasksWidth = 2340;
constexpr int kPreviewLeft = kTasksLeft + kTasksWidth + kWindowMargin;
constexpr int kPreviewWidth = 3360;
constexpr int kClientWidth = kPreviewLeft + kPreviewWidth + kWindowMargin;
constexpr int kColumnsTop = 960;
constexpr int kColumnsBottom = 4560;
constexpr int kBrowseWidth = 1260;
constexpr int kPreviewBorder = 2 * 15;  // of the picture's place, on each side

void PlaceText(TextBox& box, int left, int top, int width, const char* tip) {
  box.Move(left, top, width, 330);
  box.ToolTipText = tip;
  GiveWindowColors(box);
}

}  // namespace

void frmopenmap::LayOut() {
  LayOutFixedWindow(*this, kCaption, StartPosition::kCenterScreen);
  KeyPreview = true;
  SetClientSize(kClientWidth, kColumnsBottom + kWindowMargin + kStatusLineHeight);

  Label1.Caption = "Please enter a &file name or url (http://)";
  Label1.Move(kWindowMargin, 150, kClientWidth - 2 * kWindowMargin, kLabelHeight);
  PlaceText(TxtFile, kWindowMargin, 420, kClientWidth - 3 * kWindowMargin - kBrowseWidth,
            "Enter the file location on your computer or internet here.");
  PlaceButton(CmdBrowse, {kClientWidth - kWindowMargin - kBrowseWidth, 405, kBrowseWidth, 360}, "&Browse",
              "Browse for other file.");

  Frame1.Caption = "Put the map &in as";
  Frame1.Move(kWindowMargin, kColumnsTop, kChoiceWidth, 1980);
  PlaceOption(options0, Frame1, kWindowMargin, 315, kChoiceWidth - 2 * kWindowMargin, "&Deathmatch (Death valley)",
              "Insert as deathmatch");
  PlaceOption(options1, Frame1, kWindowMargin, 705, kChoiceWidth - 2 * kWindowMargin,
              "&Capture the flag (Desert Prison)", "Insert as capture the flag.");
  constexpr int kCountWidth = 660;
  PlaceOption(options3, Frame1, kWindowMargin, 1095, kChoiceWidth - 2 * kWindowMargin - kCountWidth,
              "&Rename:", "Insert using other name.");
  txtrename.SetContainer(Frame1);
  PlaceText(txtrename, 450, 1440, kChoiceWidth - 450 - kWindowMargin,
            "The name under which the map is stored in the game. The archive holds its first 16 characters.");
  txtrename.Change = [this] { lblnamelength.Caption = MissionNameLength(txtrename.Text); };
  txtrename.Change();
  lblnamelength.SetContainer(Frame1);
  lblnamelength.Move(kChoiceWidth - kWindowMargin - kCountWidth, 1125, kCountWidth, kLabelHeight);
  lblnamelength.Alignment = static_cast<int>(TextAlignment::kRight);

  constexpr int kButtonHeight = 450;
  constexpr int kButtonStep = kButtonHeight + 75;
  constexpr int kFirstButton = kColumnsBottom - 2 * kButtonStep - kButtonHeight;
  PlaceButton(cmdputin, {kWindowMargin, kFirstButton, kChoiceWidth, kButtonHeight}, "Put &map in DFLW",
              "Insert map in DFLW");
  PlaceButton(cmdplaying, {kWindowMargin, kFirstButton + kButtonStep, kChoiceWidth, kButtonHeight},
              "I'm already &playing", "Insert map in DFLW while you are playing.");
  PlaceButton(Command1, {kWindowMargin, kFirstButton + 2 * kButtonStep, kChoiceWidth, kButtonHeight}, "&Launch DFLW",
              "Open DFLW.");
  cmdputin.Default = true;

  Label3.Caption = "Pre&view";
  Label3.Move(kPreviewLeft, kColumnsTop, 720, kLabelHeight);
  PctPreview.Move(kPreviewLeft, kColumnsTop + kLabelHeight + 30, kPreviewWidth,
                  kColumnsBottom - kColumnsTop - kLabelHeight - 30);
  PctPreview.BackColor = color::kWindowBackground;
  ImgPreview.SetContainer(PctPreview);
  lblnopreview.SetContainer(PctPreview);
  PlaceLabel(lblnopreview, 0, (PctPreview.Height - kLabelHeight) / 2, kPreviewWidth - 2 * kPreviewBorder, "No preview");
  lblnopreview.Alignment = static_cast<int>(TextAlignment::kCenter);
  lblnopreview.ForeColor = color::kGrayText;
  ImgPreview.ToolTipText = "Map preview";
  ImgPreview.Stretch = true;
  FitPreview();
  status_line_.LayOut("Enter a file name or a web address and choose what to do with the map.");
  status_line_.Place(ScaleWidth(), ScaleHeight());

  SetUpStyleTimer(*this, Timer1, 55, "Apply style ");
}

void frmopenmap::LayOutTasks() {
  PctTasks.Move(kTasksLeft, kColumnsTop, kTasksWidth, kColumnsBottom - kColumnsTop);
  PctTasks.BackColor = color::kWindowBackground;
  Label2.SetContainer(PctTasks);
  Label2.Caption = "&Tasks";
  Label2.Move(kWindowMargin, 150, kTasksWidth - 2 * kWindowMargin, 285);
  Label2.BackStyle = 0;
  Label2.ForeColor = color::kWindowText;
  Label2.Font = {.size_points = 9.75, .bold = true};
  int top = 600;
  for (Label* label : LblTask) {
    label->SetContainer(PctTasks);
    label->Move(kWindowMargin, top, kTasksWidth - 2 * kWindowMargin, 255);
    label->BackStyle = 0;
    label->ForeColor = color::kWindowText;
    top += 450;
  }
  Label3.TabIndex = static_cast<int>(controls().size());  // behind the tasks, as it is read
}

void frmopenmap::FitPreview() {
  const Place inside{0, 0, PctPreview.Width - 2 * kPreviewBorder, PctPreview.Height - 2 * kPreviewBorder};
  lblnopreview.Visible = !ImgPreview.Picture.get();
  MoveTo(ImgPreview, FitPicture(ImgPreview.Picture, inside, SmallPicture::kKeepSize));
}

}  // namespace kestrun
