#include "app/gallery/frmlooks.h"

#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/line_control.h"
#include "forms/list_box.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/shape_control.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "forms/window_registry.h"
#include "program/program_pictures.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmlooks::kName, [] { return MakeRef<frmlooks>(); });

constexpr int kMargin = 180;
constexpr int kColumnWidth = 2700;
constexpr int kGap = 105;
constexpr Color kBack = Rgb(0x23, 0x27, 0x2E);
constexpr Color kField = Rgb(0x31, 0x37, 0x41);
constexpr Color kText = Rgb(0xDC, 0xE3, 0xEC);
constexpr Color kAccent = Rgb(0x4F, 0xB3, 0xA5);

}  // namespace

frmlooks::frmlooks() : Form(kName) {
  Caption = "Looks";
  BackColor = kBack;
  ForeColor = kText;
  std::fill(std::begin(tops_), std::end(tops_), kMargin);
  SetClientSize(kMargin + 3 * (kColumnWidth + kMargin), 6000);
  AddMenus();
  AddButtons();
  AddTexts();
  AddShapes();
}

void frmlooks::AddMenus() {
  MenuItem& file = Add<MenuItem>("mnu_file");
  file.Caption = "&File";
  MenuItem& view = Add<MenuItem>("mnu_view");
  view.Caption = "&View";
  MenuItem& help = Add<MenuItem>("mnu_help");
  help.Caption = "&Help";
  help.Enabled = false;
  const auto add = [this](const char* name, const char* caption, MenuItem& parent) -> MenuItem& {
    MenuItem& item = Add<MenuItem>(name);
    item.Caption = caption;
    item.SetParent(parent);
    return item;
  };
  MenuItem& open = add("mnu_open", "&Open ...", file);
  open.Picture = MapPicture();
  open.Shortcut = "Ctrl+O";
  add("mnu_save", "&Save", file).Enabled = false;
  add("mnu_line", "-", file);
  MenuItem& more = add("mnu_more", "&More", file);
  add("mnu_one", "One", more);
  add("mnu_two", "Two", more);
  add("mnu_bar", "&Tool bar", view).Checked = true;
  add("mnu_status", "&Status", view);
}

void frmlooks::Place(Control& control, int column, int height) {
  int& top = tops_[column];
  control.Move(kMargin + column * (kColumnWidth + kMargin), top, kColumnWidth, height);
  control.BackColor = kBack;
  control.ForeColor = kText;
  top += height + kGap;
}

void frmlooks::AddButtons() {
  const auto caption = [](Button& button, const char* text) -> Button& {
    button.Caption = text;
    return button;
  };
  Place(caption(Add<CommandButton>("Command1"), "&Push button"), 0, 375);
  Button& disabled = caption(Add<CommandButton>("Command2"), "Disabled");
  disabled.Enabled = false;
  Place(disabled, 0, 375);
  Button& graphical = caption(Add<CommandButton>("Command3"), "Graphical");
  graphical.Style = 1;
  graphical.Picture = ArchivePicture();
  Place(graphical, 0, 735);
  auto& down = Add<CheckBox>("Check1");
  down.Style = 1;
  down.Value = 1;
  Place(caption(down, "Stays down"), 0, 375);
  auto& check = Add<CheckBox>("Check2");
  check.Value = 1;
  Place(caption(check, "&Checked"), 0, 255);
  auto& grey = Add<CheckBox>("Check3");
  grey.Value = 2;
  Place(caption(grey, "Neither"), 0, 255);
  auto& option = Add<OptionButton>("Option1");
  option.Value = true;
  Place(caption(option, "Chosen &option"), 0, 255);
  Button& off = caption(Add<OptionButton>("Option2"), "Disabled option");
  off.Enabled = false;
  Place(off, 0, 255);
  auto& frame = Add<Frame>("Frame1");
  frame.Caption = "A frame";
  Place(frame, 0, 900);
}

void frmlooks::AddTexts() {
  const auto field = [this](Control& control, int height) {
    Place(control, 1, height);
    control.BackColor = kField;
  };
  auto& label = Add<Label>("Label1");
  label.Caption = "A &label";
  Place(label, 1, 225);
  auto& text = Add<TextBox>("Text1");
  text.Text = "Text";
  field(text, 315);
  auto& disabled = Add<TextBox>("Text2");
  disabled.Text = "Disabled text";
  disabled.Enabled = false;
  field(disabled, 315);
  auto& lines = Add<TextBox>("Text3");
  lines.MultiLine = true;
  lines.Text = "Several\r\nlines";
  field(lines, 600);
  auto& list = Add<ListBox>("List1");
  field(list, 800);
  for (const char* row : {"first row", "second row", "third row"}) list.AddItem(row);
  list.ListIndex = 1;
  for (const ComboStyle style : {ComboStyle::kDropDown, ComboStyle::kList, ComboStyle::kSimple}) {
    auto& combo = Add<ComboBox>("Combo" + std::to_string(static_cast<int>(style)));
    combo.Style = static_cast<int>(style);
    field(combo, style == ComboStyle::kSimple ? 900 : 315);
    for (const char* row : {"Desert prison", "Death Valley"}) combo.AddItem(row);
    combo.ListIndex = 0;
  }
}

void frmlooks::AddShapes() {
  for (const bool bold : {false, true}) {
    auto& label = Add<Label>(bold ? "LblBold" : "LblRegular");
    label.Caption = bold ? "Bold" : "Regular";
    label.Font = {.name = "Tahoma", .size_points = 9.75, .bold = bold};
    Place(label, 2, 255);
  }
  for (const ShapeKind kind : {ShapeKind::kRectangle, ShapeKind::kOval, ShapeKind::kRoundedRectangle}) {
    auto& shape = Add<ShapeControl>("Shape" + std::to_string(static_cast<int>(kind)));
    shape.Shape = static_cast<int>(kind);
    Place(shape, 2, 500);
    shape.BorderColor = kAccent;
    shape.BorderWidth = 2;
  }
  auto& line = Add<LineControl>("Line1");
  const int left = kMargin + 2 * (kColumnWidth + kMargin);
  line.X1 = left;
  line.Y1 = tops_[2];
  line.X2 = left + kColumnWidth;
  line.Y2 = tops_[2] + 300;
  line.BorderColor = kAccent;
  line.BorderWidth = 2;
  tops_[2] += 300 + kGap;
  auto& box = Add<PictureBox>("Picture1");
  Place(box, 2, 900);
  box.BackColor = kField;
  auto& tree = Add<TreeView>("Tree1");
  Place(tree, 2, 1500);
  tree.BackColor = kField;
  TreeNode& open = tree.AddChild(nullptr, "", "An open branch");
  open.SetExpanded(true);
  tree.AddChild(&open, "", "A leaf");
  tree.Select(&tree.AddChild(&open, "", "The chosen leaf"));
  tree.AddChild(&tree.AddChild(nullptr, "", "A closed branch"), "", "A leaf");
}

}  // namespace kestrun
