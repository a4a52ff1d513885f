// How a project is changed, saved and closed.
#include "base/code_page.h"
#include "base/flag_scope.h"
#include "forms/drop_target.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/style_hook.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/file_dialog.h"
#include "program/window_kit/run_command.h"
#include "styles/entry_tag.h"
#include "styles/project_entries.h"
#include "windows/style_editor/frmedit.h"
#include "windows/style_editor/frmeditselectfile.h"
#include "windows/style_editor/run_quietly.h"

namespace kestrun {
namespace {

constexpr const char* kStyleFilter = "Kestrun Style files (*.stl)|*.stl|All files (*.*)|*.*|";
constexpr size_t kPresetName = 12;  // characters of a name that is too long that are offered again

std::string AskText(std::string_view prompt, std::string_view title, std::string_view preset) {
  return platform().dialogs().AskText(prompt, title, preset).value_or("");
}

std::string FirstCharacters(const std::string& text, size_t count) {
  return ToUtf8(std::u16string_view(ToUtf16(text)).substr(0, count));
}

}  // namespace

// ---- writing into the working copy ---------------------------------------------------------------------------------

void FrmEdit::SaveStyleScript() { Flush(); }

bool FrmEdit::Flush() {
  const Ref<ClsPFF> archive = project_.RequireArchive();
  if (is_writing_) return false;
  const Ref<Form> keep(this);
  const FlagScope writing(is_writing_);
  bool is_stored = true;
  const auto flush = [&] {
    // What was typed while events ran is stored as well.
    do is_stored = WriteAll(*archive);
    while (is_stored && IsDirtyTag(TxtCode.Tag));
  };
  return RunCommand(flush, "Auto backup style script " + archive->OpenFileName()) && is_stored;
}

// What is staged already goes out first: the text then finds its entry as it is in the file. Only behind the second
// save the text counts as stored.
bool FrmEdit::WriteAll(ClsPFF& archive) {
  bool is_stored = true;
  archive.SavePffFile();
  const std::string tag = TxtCode.Tag;
  const std::optional<std::string> staged = StageCode(archive, is_stored);
  archive.SavePffFile();
  if (staged && TxtCode.Text.get() == *staged && TxtCode.Tag.get() == tag) TxtCode.Tag = CleanTag(tag);
  return is_stored;
}

std::optional<std::string> FrmEdit::StageCode(ClsPFF& archive, bool& is_stored) {
  if (!IsDirtyTag(TxtCode.Tag)) return std::nullopt;
  const std::string name = TxtCode.Tag;
  if (const auto lost = FirstUnencodable(TxtCode.Text.get())) {
    is_stored = false;
    MsgBox("The text of '" + name + "' was not stored: a style has no character for '" + *lost +
               "'. Take it out and save again. The style still holds the text that was there before.",
           BoxButtons::kOk, BoxIcon::kWarning);
    return std::nullopt;
  }
  // An entry without a byte cannot be read again.
  if (TxtCode.Text->empty()) TxtCode.Text = " ";
  std::string text = TxtCode.Text;
  const std::string bytes = EncodeText(code_.StoredFor(text));
  archive.PackFile(AsBytes(bytes), name);
  return text;
}

// ---- saving the project --------------------------------------------------------------------------------------------

void FrmEdit::SaveStyle(const std::string& file) { SaveTo(file); }

bool FrmEdit::SaveTo(const std::string& file) {
  if (!Flush()) return false;
  const auto save = [&] {
    project_.CopyTo(file);
    MsgBox("Saved");
  };
  return RunCommand(save, "Saving style file ");
}

bool FrmEdit::Save() {
  project_.RequireArchive();
  if (!project_.File().empty()) return SaveTo(project_.File());
  SetUpFileDialog(CommonDialog, "Select file.", kStyleFilter, "stl");
  CommonDialog.ShowSave();
  const std::string file = CommonDialog.FileName;
  if (FileExists(file) && !AskYesNo("This file already exists do you want to overwrite?")) return false;
  return SaveTo(file);
}

void FrmEdit::SaveAs() {
  project_.RequireArchive();
  project_.ForgetFile();
  Save();
}

bool FrmEdit::AskToSave() {
  if (project_.File().empty() || !AskYesNo("Do you want to save the changes to '" + project_.File() + "'?"))
    return true;
  return Save();
}

void FrmEdit::OpenProject() {
  if (!AskToSave()) return;
  SetUpFileDialog(CommonDialog, "Select file", kStyleFilter);
  CommonDialog.ShowOpen();
  LoadStyle(CommonDialog.FileName);
}

// What was not saved after all is not thrown away: the window stays then.
void FrmEdit::AskBeforeClosing(bool& cancel) {
  if (!project_.File().empty()) {
    const BoxAnswer answer =
        MsgBox("Do you want to save the changes to '" + project_.File() + "'", BoxButtons::kYesNoCancel);
    bool is_saved = true;
    if (answer == BoxAnswer::kYes) Attempt([&] { is_saved = Save(); }, [&](const RuntimeError&) { is_saved = false; });
    cancel = answer == BoxAnswer::kCancel || !is_saved;
    if (cancel) return;
  }
  RunQuietly([this] { project_.RemoveWorkingCopy(); });
}

void FrmEdit::TryStyle() {
  if (Flush()) LoadStyleFile(project_.WorkingFile());
}

// ---- entries -------------------------------------------------------------------------------------------------------

std::string FrmEdit::Get16CharName(const std::string& name) {
  if (ToUtf16(name).size() <= kMostEntryName) return name;
  std::string answer = AskText("This file name is too long please enter a new one (max 16 characters)",
                               "Enter file name", FirstCharacters(name, kPresetName) + "." + ClsPFF::GetFileExt(name));
  if (!answer.empty() && ToUtf16(answer).size() <= kMostEntryName) return answer;
  MsgBox("Error filename too long: canceled");
  return {};
}

void FrmEdit::AddFile(const std::string& filter) {
  RunQuietly([&] {
    project_.RequireArchive();
    SetUpFileDialog(CommonDialog, "Select file", filter);
    CommonDialog.ShowOpen();
    AddFromDisk(CommonDialog.FileName);
  });
}

void FrmEdit::AddFromDisk(const std::string& path) {
  if (!FileExists(path) || platform().files().IsFolder(path)) return;
  const std::string name = Get16CharName(GetFileName(path, true));
  if (name.empty()) return;
  const Bytes bytes = platform().files().ReadAll(path);
  // An entry without a byte cannot be read again.
  if (bytes.empty()) RaiseEmptyFile(path);
  AddEntry(bytes, name);
}

void FrmEdit::AddNewEntry(const std::string& prompt, std::string (*with_extension)(const std::string& name)) {
  project_.RequireArchive();
  const std::string name = Get16CharName(with_extension(AskText(prompt, "", "")));
  if (!name.empty()) AddEntry(AsBytes(" "), name);
}

void FrmEdit::AddEntry(ByteView bytes, const std::string& name) {
  const Ref<ClsPFF> archive = project_.RequireArchive();
  try {
    const FlagScope writing(is_writing_);
    archive->PackFile(bytes, name);
  } catch (const RuntimeError& failure) {
    // A name with a character that the archive does not have.
    if (!FirstUnencodable(name)) throw;
    MsgBox(failure.description());
    return;
  }
  SaveStyleScript();
  RefreshList();
}

void FrmEdit::DeleteEntry() {
  project_.RequireArchive();
  auto& dialog = Window<FrmEditSelectFile>();
  const TreeNode* node = TreeView.SelectedItem();
  if (node) dialog.Choose(node->Text());
  dialog.ShowModal();
}

void FrmEdit::DeleteNumber(int number) { project_.RequireArchive()->SetFileDeleted(number, true); }

// On the tree files are added to the project; elsewhere a style is opened.
void FrmEdit::TakeDropped(const std::vector<std::string>& paths) {
  const bool is_style = paths.size() == 1 && HasExtension(paths.front(), "stl");
  if (is_style && DropTarget() != &TreeView) {
    if (AskToSave()) LoadStyle(paths.front());
    return;
  }
  project_.RequireArchive();
  for (const std::string& path : paths) RunQuietly([&] { AddFromDisk(path); });
}

}  // namespace kestrun
