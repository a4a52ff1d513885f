// The debug panel: the program's windows, to look at a style on them, and the names of their controls.
#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "styles/check/style_check.h"
#include "windows/style_editor/frmedit.h"
#include "windows/style_editor/frmeditcheck.h"

namespace kestrun {
namespace {

constexpr int kProgramImage = 7;
constexpr int kFolderImage = 4;
constexpr int kFormImage = 6;

struct DebugWindow {
  std::string_view text;
  std::string_view key;
};

constexpr std::array kWindows{
    DebugWindow{"frmAddinMngr", "FrmAddinMngr"},
    DebugWindow{"frmaddmessage", "frmaddmessage"},
    DebugWindow{"frmaddprogram", "frmaddprogram"},
    DebugWindow{"frmchat", "frmchat"},
    DebugWindow{"frmain", "frmain"},
    DebugWindow{"frmdfversion", "Frmdfversion"},
    DebugWindow{"frmhelp", "frmhelp"},
    DebugWindow{"frmlargeprev", "frmlargeprev"},
    DebugWindow{"frmmapinfo", "frmmapinfo"},
    DebugWindow{"frmmapupd", "frmmapupd"},
    DebugWindow{"frmname", "frmname"},
    DebugWindow{"frmopenmap", "frmopenmap"},
    DebugWindow{"frmoptions", "frmoptions"},
    DebugWindow{"FrmOverWrite", "FrmOverWrite"},
    DebugWindow{"frmpicture", "frmpicture"},
    DebugWindow{"frmputlist", "frmputlist"},
    DebugWindow{"frmsplash", "frmsplash"},
    DebugWindow{"frmUpdate", "FrmUpdate"},
    DebugWindow{"frmzip", "frmzip"},
    DebugWindow{"frmCenter", "frmcenter"},
    DebugWindow{"frmpictureSelect", "frmpictureselect"},
    DebugWindow{"FrmGameType", "FrmGameType"},
};

std::string LabelOf(const Control& control) {
  const std::string index = control.Index() < 0 ? "" : "[" + std::to_string(control.Index()) + "]";
  return control.Name() + index;
}

}  // namespace

void FrmEdit::FillDebugPanel() {
  TreeNode& root = LstDebug.AddChild(nullptr, "KESTRUN", "Kestrun", kProgramImage);
  TreeNode& forms = LstDebug.AddChild(&root, "FORMSFOLDER", "Forms", kFolderImage);
  for (const DebugWindow& window : kWindows) {
    LstDebug.AddChild(&forms, std::string(window.key), std::string(window.text), kFormImage);
  }
  root.SetExpanded(true);
  forms.SetExpanded(true);
}

// Controls that are listed already have their keys taken: that ends the command.
void FrmEdit::OpenDebugNode() {
  const Ref<TreeNode> node(LstDebug.SelectedItem());
  if (!node) return;
  const auto* found = std::find_if(kWindows.begin(), kWindows.end(),
                                   [&node](const DebugWindow& window) { return window.text == node->Text(); });
  if (found == kWindows.end() || !IsWindowRegistered(found->text)) return;
  const Ref<Form> window(&WindowByName(found->text));
  window->Show();
  for (const Ref<Control>& control : window->controls()) {
    const std::string text = LabelOf(*control);
    LstDebug.AddChild(node.get(), std::string(found->key) + "." + text, text, kFolderImage);
  }
}

// ---- the check -----------------------------------------------------------------------------------------------------

namespace {

constexpr int kTaskBar = 900;  // twips that the system keeps at the foot of the screen

// Where a line begins and how long it is, in characters as a text box counts them; the end of the text for a line that
// it does not have.
struct LinePlace {
  int start = 0;
  int length = 0;
};

LinePlace FindLine(const std::string& text, int line) {
  const std::u16string units = ToUtf16(text);
  size_t start = 0;
  for (; line > 1 && start < units.size(); --line) {
    const size_t end = units.find_first_of(u"\r\n", start);
    if (end == std::u16string::npos) return {static_cast<int>(units.size()), 0};
    start = end + (units.compare(end, 2, u"\r\n") == 0 ? 2 : 1);
  }
  const size_t end = std::min(units.find_first_of(u"\r\n", start), units.size());
  return {static_cast<int>(start), static_cast<int>(end - start)};
}

// Over the lower half of the code, so that the line that is shown stands above it.
void PlaceBelow(const Form& editor, Form& list) {
  const ScreenSize screen = platform().windowing().Screen();
  const int left = editor.Left + editor.Width - list.Width - kControlGap;
  const int top = editor.Top + editor.Height - list.Height / 2;
  list.StartUpPosition = static_cast<int>(StartPosition::kManual);
  list.Left = std::clamp(left, 0, std::max(0, screen.width_twips - list.Width.get()));
  list.Top = std::clamp(top, 0, std::max(0, screen.height_twips - list.Height.get() - kTaskBar));
}

}  // namespace

void FrmEdit::CheckStyle() {
  if (!Flush()) return;
  std::unique_ptr<StyleCheck> check;
  if (!RunCommand([&] { check = std::make_unique<StyleCheck>(project_.WorkingFile()); }, "Check style ")) return;
  const TreeNode* root = TreeView.nodes().empty() ? nullptr : TreeView.nodes().front().get();
  auto& list = Window<FrmEditCheck>();
  list.Check(root ? root->Text() : GetFileName(project_.WorkingFile(), true), std::move(check));
  if (!list.IsPlaced()) PlaceBelow(*this, list);
  list.Show();
}

void FrmEdit::ShowLine(const std::string& entry, int line) {
  int32_t number = -1;
  if (!project_.RequireArchive()->PFFFileExists(entry, number)) return;
  const std::string name = project_.archive()->FileName(number);
  if (!EqualsNoCase(TrimBlanks(TxtCode.Tag.get()), name)) OpenText(name);
  const LinePlace place = FindLine(TxtCode.Text, line);
  TxtCode.SelStart = place.start;
  TxtCode.SelLength = place.length;
  // Behind the key or the click that asked for it, which gives its own window the focus.
  platform().clock().Post([this, keep = Ref<Form>(this)] {
    if (!form()) return;
    Show();
    TxtCode.SetFocus();
  });
}

}  // namespace kestrun
