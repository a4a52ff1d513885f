#include <algorithm>

#include "program/program_pictures.h"
#include "windows/open_map/frmopenmap.h"

namespace kestrun {
namespace {

// Edges and gaps that the whole window shares, in twips. Three columns under the address: what the map becomes, the
// tasks, the picture.
constexpr int kMargin = 180;
constexpr int kLabelHeight = 240;
constexpr int kChoiceWidth = 3600;
constexpr int kTasksLeft = kMargin + kChoiceWidth + kMargin;
constexpr int kTasksWidth = 2340;
constexpr int kPreviewLeft = kTasksLeft + kTasksWidth + kMargin;
constexpr int kPreviewWidth = 3360;
constexpr int kClientWidth = kPreviewLeft + kPreviewWidth + kMargin;
constexpr int kColumnsTop = 960;
constexpr int kColumnsBottom = 4560;
constexpr int kBrowseWidth = 1260;

void PlaceButton(CommandButton& button, int left, int top, int width, int height, const char* caption,
                 const char* tip) {
  button.Move(left, top, width, height);
  button.Caption = caption;
  button.ToolTipText = tip;
}

void PlaceOption(OptionButton& option, Frame& frame, int top, const char* caption, const char* tip) {
  option.SetContainer(frame);
  option.Move(kMargin, top, kChoiceWidth - 2 * kMargin, 285);
  option.Caption = caption;
  option.ToolTipText = tip;
}

void PlaceText(TextBox& box, int left, int top, int width, const char* tip) {
  box.Move(left, top, width, 330);
  box.ToolTipText = tip;
  box.BackColor = color::kWindowBackground;
  box.ForeColor = color::kWindowText;
}

}  // namespace

void frmopenmap::LayOut() {
  Caption = kCaption;
  Icon = ProgramIcon();
  BorderStyle = static_cast<int>(FormBorder::kFixedSingle);
  StartUpPosition = static_cast<int>(StartPosition::kCenterScreen);
  MaxButton = false;
  KeyPreview = true;
  SetClientSize(kClientWidth, kColumnsBottom + kMargin);

  Label1.Caption = "Please enter a file name or url (http://)";
  Label1.Move(kMargin, 150, kClientWidth - 2 * kMargin, kLabelHeight);
  PlaceText(TxtFile, kMargin, 420, kClientWidth - 3 * kMargin - kBrowseWidth,
            "Enter the file location on your computer or internet here.");
  PlaceButton(CmdBrowse, kClientWidth - kMargin - kBrowseWidth, 405, kBrowseWidth, 360, "&Browse",
              "Browse for other file.");

  Frame1.Caption = "Put the map in as";
  Frame1.Move(kMargin, kColumnsTop, kChoiceWidth, 1980);
  PlaceOption(options0, Frame1, 315, "Deathmatch (Death valley)", "Insert as deathmatch");
  PlaceOption(options1, Frame1, 705, "Capture the flag (Desert Prison)", "Insert as capture the flag.");
  PlaceOption(options3, Frame1, 1095, "Rename:", "Insert using other name.");
  txtrename.SetContainer(Frame1);
  PlaceText(txtrename, 450, 1440, kChoiceWidth - 450 - kMargin, "");

  constexpr int kButtonHeight = 450;
  constexpr int kButtonStep = kButtonHeight + 75;
  constexpr int kFirstButton = kColumnsBottom - 2 * kButtonStep - kButtonHeight;
  PlaceButton(cmdputin, kMargin, kFirstButton, kChoiceWidth, kButtonHeight, "Put map in DFLW", "Insert map in DFLW");
  PlaceButton(cmdplaying, kMargin, kFirstButton + kButtonStep, kChoiceWidth, kButtonHeight, "I'm already playing",
              "Insert map in DFLW while you are playing.");
  PlaceButton(Command1, kMargin, kFirstButton + 2 * kButtonStep, kChoiceWidth, kButtonHeight, "Launch DFLW",
              "Open DFLW.");
  cmdputin.Default = true;

  Label3.Caption = "Preview";
  Label3.Move(kPreviewLeft, kColumnsTop, 720, kLabelHeight);
  PctPreview.Move(kPreviewLeft, kColumnsTop + kLabelHeight + 30, kPreviewWidth,
                  kColumnsBottom - kColumnsTop - kLabelHeight - 30);
  PctPreview.BackColor = color::kButtonShadow;
  ImgPreview.SetContainer(PctPreview);
  ImgPreview.ToolTipText = "Map preview";
  ImgPreview.Stretch = true;
  FitPreview();

  Timer1.Enabled = false;
  Timer1.Interval = 55;
}

void frmopenmap::LayOutTasks() {
  constexpr std::array<const char*, kTaskCount> kTasks{"View map info",     "Add to auto host list", "Play this map",
                                                       "Download this map", "Upload this map",       "Open Kestrun"};
  PctTasks.Move(kTasksLeft, kColumnsTop, kTasksWidth, kColumnsBottom - kColumnsTop);
  PctTasks.BackColor = color::kWindowBackground;
  Label2.SetContainer(PctTasks);
  Label2.Caption = "Tasks";
  Label2.Move(kMargin, 150, kTasksWidth - 2 * kMargin, 285);
  Label2.BackStyle = 0;
  Label2.ForeColor = color::kWindowText;
  Label2.Font = {.size_points = 9.75, .bold = true};
  for (size_t task = 0; task < kTasks.size(); ++task) {
    Label& label = *LblTask[task];
    label.SetContainer(PctTasks);
    label.Caption = kTasks[task];
    label.Move(kMargin, 600 + 450 * static_cast<int>(task), kTasksWidth - 2 * kMargin, 255);
    label.BackStyle = 0;
    label.ForeColor = color::kWindowText;
  }
  Label3.TabIndex = static_cast<int>(controls().size());  // behind the tasks, as it is read
}

void frmopenmap::FitPreview() {
  constexpr int kTwipsPerPixel = 15;
  // Inside the border of its place.
  const int64_t width = PctPreview.Width - 4 * kTwipsPerPixel;
  const int64_t height = PctPreview.Height - 4 * kTwipsPerPixel;
  int64_t shown_width = width;
  int64_t shown_height = height;
  if (const auto* picture = ImgPreview.Picture.get().get()) {
    const int64_t own_width = int64_t{picture->width_pixels()} * kTwipsPerPixel;
    const int64_t own_height = int64_t{picture->height_pixels()} * kTwipsPerPixel;
    shown_width = std::min({width, own_width, height * own_width / std::max<int64_t>(own_height, 1)});
    shown_height = std::min({height, own_height, width * own_height / std::max<int64_t>(own_width, 1)});
  }
  ImgPreview.Move(static_cast<int>((width - shown_width) / 2), static_cast<int>((height - shown_height) / 2),
                  static_cast<int>(shown_width), static_cast<int>(shown_height));
}

}  // namespace kestrun
