// The debug panel: the program's windows, to look at a style on them, and the names of their controls.
#include <algorithm>
#include <array>
#include <string_view>

#include "windows/style_editor/frmedit.h"

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

}  // namespace kestrun
