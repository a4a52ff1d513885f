// The project as a tree, and what a double click on one of its nodes opens.
#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "forms/picture_loading.h"
#include "platform/window_effects.h"
#include "program/path_text.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"
#include "styles/entry_tag.h"
#include "styles/project_entries.h"
#include "styles/wave_file.h"
#include "windows/style_editor/frmedit.h"

namespace kestrun {
namespace {

constexpr const char* kRootKey = "PFF";
constexpr int kRootImage = 1;
constexpr int kFolderImage = 4;
constexpr const char* kModuleImage = "mod";
constexpr const char* kCodeCaption = "Code Window";
constexpr uint32_t kLongestSoundMs = 10 * 60 * 1000;

std::string Text(std::string_view text) { return std::string(text); }

// The system's text box ends at the first zero, so that the next change would lose what stands behind it. An entry of
// nothing else, such as a new project's manifest, loses nothing.
bool IsWholeInABox(const std::string& text) {
  const size_t zero = text.find('\0');
  return zero == std::string::npos || text.find_first_not_of('\0', zero) == std::string::npos;
}

}  // namespace

// ---- the tree ------------------------------------------------------------------------------------------------------

TreeNode& FrmEdit::ShowFolders(const std::string& root_text) {
  TreeView.Clear();
  TreeNode& root = TreeView.AddChild(nullptr, kRootKey, root_text, kRootImage);
  for (const EntryFolder& folder : kEntryFolders) {
    TreeView.AddChild(&root, Text(folder.key), Text(folder.text), kFolderImage);
  }
  return root;
}

void FrmEdit::ShowEntry(const std::string& name, int number, const std::string& key) {
  const EntryFolder& folder = FolderOfEntry(name);
  const Variant image = folder.image > 0 ? Variant(folder.image) : Variant(kModuleImage);
  TreeView.AddChild(TreeView.FindNode(Text(folder.key)),
                    key.empty() ? std::to_string(number) + Text(folder.node_suffix) : key, name, image);
}

void FrmEdit::LoadStyle(const std::string& file) {
  if (is_writing_) return;
  // What was typed into another project goes into that one's working copy.
  if (project_.archive() && IsDirtyTag(TxtCode.Tag) && !Flush()) return;
  CloseCode();
  ShowFolders(file.empty() ? "New project.stl" : GetFileName(file, true));
  StyleProject::Opened opened = StyleProject::Opened::kMissing;
  OnFailure(
      [&] {
        opened = project_.Open(file, [&file] {
          return AskYesNo("It looks like the project " + file +
                          " is already open or not closed correctly last time do you want to try loading the last "
                          "version?");
        });
      },
      [this](const RuntimeError&) {
        TreeView.Clear();
        ShowWhatIsPossible();
      });
  ShowWhatIsPossible();
  switch (opened) {
    case StyleProject::Opened::kUnreadable: TreeView.Clear(); return;
    case StyleProject::Opened::kNew:
    case StyleProject::Opened::kMissing: ShowEntry("assembly.txt", 0, "TEXT0"); break;
    case StyleProject::Opened::kLoaded:
      for (const ProjectEntry& entry : project_.Entries()) ShowEntry(entry.name, entry.number, "");
      break;
  }
  // The questions above let events run, which may have shown another tree.
  if (TreeNode* root = TreeView.FindNode(kRootKey)) root->SetExpanded(true);
}

void FrmEdit::RefreshList() {
  const Ref<ClsPFF> archive = project_.RequireArchive();
  const auto refresh = [&] {
    const TreeNode* before = TreeView.FindNode(kRootKey);
    const std::string root_text = before ? before->Text() : GetFileName(archive->OpenFileName(), true);
    const bool was_open = !before || before->Expanded();
    std::array<bool, kEntryFolders.size()> open{};
    for (size_t at = 0; at < open.size(); ++at) {
      const TreeNode* folder = TreeView.FindNode(Text(kEntryFolders[at].key));
      open[at] = folder && folder->Expanded();
    }
    const std::string selected = TreeView.SelectedItem() ? TreeView.SelectedItem()->Text() : std::string();
    TreeNode& root = ShowFolders(root_text);
    for (const ProjectEntry& entry : project_.Entries()) ShowEntry(entry.name, entry.number, "");
    root.SetExpanded(was_open);
    for (size_t at = 0; at < open.size(); ++at) {
      TreeView.FindNode(Text(kEntryFolders[at].key))->SetExpanded(open[at]);
    }
    const auto& nodes = TreeView.nodes();
    const auto again = std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) {
      return node->Text() == selected && (!node->Parent() || node->Parent()->Expanded());
    });
    if (again != nodes.end()) TreeView.Select(again->get());
  };
  RunCommand(refresh, "Refreshlist ");
}

// ---- what a node opens ---------------------------------------------------------------------------------------------

void FrmEdit::OpenNode() {
  const TreeNode* node = TreeView.SelectedItem();
  if (!node) return;
  const std::string name = node->Text();
  switch (FolderOfEntry(name).kind) {
    case EntryKind::kText:
    case EntryKind::kModule: OpenText(name); break;
    case EntryKind::kImage: ShowPicture(name); break;
    case EntryKind::kSound: PlayEntry(name); break;
    case EntryKind::kOther: break;
  }
}

// The tag first: where the text is another than before, the change of the box marks it as changed. What cannot be
// edited has no tag: nothing is written back.
void FrmEdit::OpenText(const std::string& name) {
  if (!Flush()) return;
  const std::string text = DecodeText(AsChars(project_.Read(name)));
  const bool is_whole = IsWholeInABox(text);
  Label3.Caption = kCodeCaption + std::string(" ") + name + (is_whole ? "" : " (no text: shown only)");
  TxtCode.Locked = !is_whole;
  TxtCode.Tag = is_whole ? CleanTag(name) : std::string();
  code_ = is_whole ? EntryText(text) : EntryText();
  if (EqualsNoCase(name, "assembly.txt")) code_.EndLinesInCrLf();  // whoever reads it knows no other end of a line
  TxtCode.Text = is_whole ? code_.Shown() : text;
  TxtCode.SelStart = 0;
  TxtCode.SelLength = 0;
  Attempt([this] { TxtCode.SetFocus(); });
}

void FrmEdit::CloseCode() {
  TxtCode.Tag = "";
  code_ = {};
  TxtCode.Text = "";
  TxtCode.Locked = true;  // what were typed now would belong to no entry
  Label3.Caption = kCodeCaption;
}

void FrmEdit::ShowPicture(const std::string& name) {
  const Bytes bytes = project_.Read(name);
  Ref<kestrun::Picture> picture;
  Attempt([&] { picture = PictureFromBits(bytes); });
  ShowLargePicture(picture, WithoutPicture::kEmptyWindow);
}

void FrmEdit::PlayEntry(const std::string& name) {
  window_effects().StartSound(PlayableWave(project_.Read(name), kLongestSoundMs));
}

}  // namespace kestrun
