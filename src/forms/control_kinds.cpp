#include "forms/control_kinds.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/file_list_box.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/image_list.h"
#include "forms/label.h"
#include "forms/line_control.h"
#include "forms/list_box.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/shape_control.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"

namespace kestrun {
namespace {

struct ControlKind {
  std::string_view name;
  Control& (*add)(Form& form, std::string name);
  int width;
  int height;
};

template <class T>
Control& AddKind(Form& form, std::string name) {
  return form.Add<T>(std::move(name));
}

constexpr std::array kKinds{
    ControlKind{"VB.CheckBox", &AddKind<CheckBox>, 1215, 495},
    ControlKind{"VB.ComboBox", &AddKind<ComboBox>, 1215, 315},
    ControlKind{"VB.CommandButton", &AddKind<CommandButton>, 1215, 495},
    ControlKind{"ComctlLib.ImageList", &AddKind<ImageList>, 0, 0},
    ControlKind{"ComctlLib.TreeView", &AddKind<TreeView>, 1215, 840},
    ControlKind{"MSComDlg.CommonDialog", &AddKind<CommonDialog>, 0, 0},
    ControlKind{"VB.FileListBox", &AddKind<FileListBox>, 1215, 870},
    ControlKind{"VB.Frame", &AddKind<Frame>, 1215, 495},
    ControlKind{"VB.Image", &AddKind<Image>, 1215, 495},
    ControlKind{"VB.Label", &AddKind<Label>, 1215, 495},
    ControlKind{"VB.Line", &AddKind<LineControl>, 0, 0},
    ControlKind{"VB.ListBox", &AddKind<ListBox>, 1215, 840},
    ControlKind{"VB.Menu", &AddKind<MenuItem>, 0, 0},
    ControlKind{"VB.OptionButton", &AddKind<OptionButton>, 1215, 495},
    ControlKind{"VB.PictureBox", &AddKind<PictureBox>, 1215, 495},
    ControlKind{"VB.Shape", &AddKind<ShapeControl>, 1215, 495},
    ControlKind{"VB.TextBox", &AddKind<TextBox>, 1215, 495},
    ControlKind{"VB.Timer", &AddKind<Timer>, 0, 0},
};

}  // namespace

Control& AddControlOfKind(Form& form, std::string_view kind, std::string name, Control* container) {
  const auto* row = std::find_if(kKinds.begin(), kKinds.end(),
                                 [kind](const ControlKind& candidate) { return EqualsNoCase(candidate.name, kind); });
  if (row == kKinds.end()) Raise(error::kCannotCreateObject);
  Control& made = row->add(form, std::move(name));
  made.MarkMadeByScript();
  if (made.HasBody()) made.Visible = false;
  if (row->width > 0) made.Move(0, 0, row->width, row->height);
  if (container) made.SetContainer(*container);
  return made;
}

std::vector<std::string> ControlKindNames() {
  std::vector<std::string> names;
  for (const ControlKind& kind : kKinds) names.emplace_back(kind.name);
  return names;
}

}  // namespace kestrun
