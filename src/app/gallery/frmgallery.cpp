#include "app/gallery/frmgallery.h"

#include "controls/list_box/color_blend.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "forms/window_registry.h"
#include "program/program_pictures.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmgallery::kName, [] { return MakeRef<frmgallery>(); });

constexpr int kMargin = 180;
constexpr int kFirstColumn = 3000;
constexpr int kLinksHeight = 1900;
constexpr int kTreeHeight = 840;
constexpr int kListLeft = kMargin + kFirstColumn + kMargin;
constexpr int kListWidth = 2500;
constexpr int kListHeight = 1710;  // five rows at 100 %

constexpr const char* kMaps[]{"Oasis.bms",        "Harbour at Night.bms",
                              "Two Rivers.bms",   "Canyon run with a name that is much too long for its row.bms",
                              "Airfield.bms",     "Frozen Valley.bms",
                              "The Old Mill.zip", "Border Town.bms",
                              "Last Stand.bms",   "Island.zip"};

void Fill(McListBox& list, int rows) {
  for (int row = 0; row < rows; ++row) list.AddItem(kMaps[row], -1, row % 2, row == 2);
  list.Refresh();
}

}  // namespace

frmgallery::frmgallery() : Form(kName) {
  Caption = "Gallery";
  SetClientSize(kListLeft + 4 * (kListWidth + kMargin), 9300 + kMargin + kTreeHeight);
  icons_.AddNewImage(MapPicture());
  icons_.AddNewImage(ArchivePicture());
  AddPlainControls();
  AddProgressBars();
  AddLinks();
  AddLists();
}

void frmgallery::AddPlainControls() {
  Frame& frame = Add<Frame>("Frame1");
  frame.Caption = "Plain controls";
  frame.Move(kMargin, kMargin, kFirstColumn, 5000);
  int top = 300;
  const auto place = [&](Control& control, int height) {
    control.SetContainer(frame);
    control.Move(150, top, kFirstColumn - 300, height);
    top += height + 90;
  };
  Label& label = Add<Label>("Label1");
  label.Caption = "A label with an &access key";
  place(label, 225);
  TextBox& text = Add<TextBox>("Text1");
  text.Text = "Text";
  place(text, 315);
  TextBox& locked = Add<TextBox>("Text2");
  locked.Text = "Disabled text";
  locked.Enabled = false;
  place(locked, 315);
  TextBox& lines = Add<TextBox>("Text3");
  lines.MultiLine = true;
  lines.ScrollBars = 2;
  lines.Text = "Several\r\nlines\r\nof text\r\nwith a bar";
  place(lines, 700);
  CommandButton& button = Add<CommandButton>("Command1");
  button.Caption = "&Default button";
  button.Default = true;
  place(button, 375);
  CommandButton& disabled = Add<CommandButton>("Command2");
  disabled.Caption = "Disabled button";
  disabled.Enabled = false;
  place(disabled, 375);
  CheckBox& check = Add<CheckBox>("Check1");
  check.Caption = "&Checked";
  check.Value = 1;
  place(check, 255);
  OptionButton& chosen = Add<OptionButton>("Option1");
  chosen.Caption = "Chosen &option";
  chosen.Value = true;
  place(chosen, 255);
  OptionButton& other = Add<OptionButton>("Option2");
  other.Caption = "Other option";
  place(other, 255);
  ListBox& list = Add<ListBox>("List1");
  place(list, 700);
  for (const char* row : {"plain list", "second row", "third row", "fourth row"}) list.AddItem(row);
  list.ListIndex = 1;
}

void frmgallery::AddProgressBars() {
  Frame& frame = Add<Frame>("Frame2");
  frame.Caption = "Progress";
  frame.Move(kMargin, kMargin + 5000 + kMargin, kFirstColumn, 1700);
  int top = 300;
  for (const int value : {0, 50, 100}) {
    ProgressBar& bar = Add<ProgressBar>("ProgressBar" + std::to_string(value));
    bar.SetContainer(frame);
    bar.Move(150, top, kFirstColumn - 300, 360);
    bar.BroderStyle = 1;
    bar.Progresscolor = 0xFF8C1A;
    bar.Value = value;
    top += 450;
  }
}

void frmgallery::AddLinks() {
  QuickLink& links = Add<QuickLink>("QuickLinks");
  const int links_top = kMargin + 5000 + kMargin + 1700 + kMargin;
  links.Move(kMargin, links_top, kFirstColumn, kLinksHeight);
  links.BorderStyle = 1;
  links.AddLink("one", "Play a new map");
  links.AddLink("two", "Change map when hosting");
  links.AddLink("three", "Download a map");

  TreeView& tree = Add<TreeView>("Tree1");
  tree.Move(kMargin, links_top + kLinksHeight + kMargin, kFirstColumn, kTreeHeight);
  auto& pictures = Add<ImageList>("TreePictures");
  pictures.AddImage("map", MapPicture());
  pictures.AddImage("archive", ArchivePicture());
  tree.SetImages(Ref<ImageList>(&pictures));
  TreeNode& branch = tree.AddChild(nullptr, "", "A branch", "archive");
  tree.AddChild(&branch, "", "A leaf", "map");
  tree.Select(&tree.AddChild(&branch, "", "The chosen leaf", "map"));
}

McListBox& frmgallery::AddList(const char* caption, int column, int row) {
  const int left = kListLeft + column * (kListWidth + kMargin);
  const int top = kMargin + row * (kListHeight + 2 * kMargin + 225);
  const std::string number = std::to_string(row * 4 + column);
  Label& label = Add<Label>("LblList" + number);
  label.Caption = caption;
  label.Move(left, top, kListWidth, 225);
  McListBox& list = Add<McListBox>("List" + number);
  list.Move(left, top + 255, kListWidth, kListHeight);
  list.SetImageList(Ref<Object>(&icons_));
  return list;
}

void frmgallery::AddLists() {
  AddList("Empty", 0, 0);

  McListBox& few = AddList("Few rows", 1, 0);
  Fill(few, 3);
  few.SetListIndex(1);

  McListBox& icons = AddList("Icons, stretched", 2, 0);
  icons.ShowIcon = true;
  icons.StrechIcon = true;
  Fill(icons, 10);
  icons.SetListIndex(1);

  McListBox& own_size = AddList("Icons, full rows", 3, 0);
  own_size.ShowIcon = true;
  own_size.FullRowSelect = true;
  own_size.RowHeight = 30;
  Fill(own_size, 10);
  own_size.SetListIndex(0);

  McListBox& several = AddList("Several selected", 0, 1);
  several.MultiSelect = true;
  Fill(several, 10);
  several.SelectAll();

  McListBox& flat = AddList("Flat, grid lines", 1, 1);
  flat.SelectionStyle = 0;
  flat.GridLines = true;
  flat.Appearance = int16_t{0};
  flat.FlatScrollBar = true;
  Fill(flat, 10);
  flat.SetListIndex(2);

  McListBox& hidden_bar = AddList("Bar hidden, centred", 2, 1);
  hidden_bar.AutoHideScrollBars = true;
  hidden_bar.TextAlignment = 1;
  Fill(hidden_bar, 3);
  hidden_bar.SetListIndex(0);

  McListBox& right = AddList("Right, sorted", 3, 1);
  right.TextAlignment = 2;
  right.SortOrder = -1;
  Fill(right, 10);
  right.SetListIndex(0);

  struct Sweep {
    const char* caption;
    int kind;
  };
  int column = 0;
  for (const Sweep& sweep : {Sweep{"Across", gradient::kAcross}, Sweep{"Across, mirrored", gradient::kAcrossMirrored},
                             Sweep{"Down", gradient::kDown}, Sweep{"Down, mirrored", gradient::kDownMirrored}}) {
    McListBox& list = AddList(sweep.caption, column, 2);
    list.BackGradient = sweep.kind;
    list.SelGradient = sweep.kind;
    list.SelGradientCol = 0x804000;
    Fill(list, 10);
    list.SetListIndex(1);
    ++column;
  }

  McListBox& diagonal = AddList("Diagonal", 0, 3);
  diagonal.BackGradient = gradient::kDiagonal;
  diagonal.BackGradientCol = 0xE0B080;
  diagonal.SelGradient = gradient::kDiagonal;
  Fill(diagonal, 10);
  diagonal.SetListIndex(1);

  McListBox& picture = AddList("Picture behind, no border", 1, 3);
  picture.BorderStyle = int16_t{0};
  picture.Picture = ProgramIcon();
  Fill(picture, 3);

  McListBox& large = AddList("Large bold font", 2, 3);
  FontDescription font = large.Font;
  font.size_points = 14;
  font.bold = true;
  large.Font = font;
  Fill(large, 10);
  large.SetListIndex(1);

  McListBox& dark = AddList("Dark colours, disabled", 3, 3);
  dark.BackColor = 0x302020;
  dark.ForeColor = 0xE0E0E0;
  dark.SelColor = 0x206020;
  dark.Enabled = false;
  Fill(dark, 10);
  dark.SetListIndex(1);
}

}  // namespace kestrun
