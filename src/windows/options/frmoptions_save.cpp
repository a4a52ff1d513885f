// Saving the options: one step after the other, each whatever became of those before it.
#include <functional>
#include <initializer_list>

#include "base/convert.h"
#include "base/text.h"
#include "platform/platform.h"
#include "program/default_copy.h"
#include "program/originals_hook.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/shell_integration.h"
#include "program/style_hook.h"
#include "program/window_kit/ask.h"
#include "windows/options/frmoptions.h"

namespace kestrun {

void frmoptions::Save() {
  const std::initializer_list<std::function<void()>> steps{
      [this] {
        const std::string folder = TxtGameFolder.Text;
        if (folder.ends_with('\\')) TxtGameFolder.Text = WithoutLastBackslash(folder);
      },
      [this] { CheckEditor(); },
      [this] { SavePaths(); },
      [this] { SaveStyle(); },
      [this] { SaveAssociations(); },
      [this] { SaveProtocol(); },
      [this] { SaveDefaultCopy(); },
      [] { CheckGameArchive(); },
  };
  for (const auto& step : steps) Attempt(step);
  Unload();
}

// The editor is looked for, and the game's name is told: people know the message so.
void frmoptions::CheckEditor() {
  const std::string folder = TxtGameFolder.Text.get() + "\\";
  if (FileExists(folder + TxtEditor.Text.get())) return;
  MsgBox("Warning: the game.exe file '" + TxtGame.Text.get() + "' was not found in your game folder!");
  const std::string editor = TxtEditor.Text;
  if (!FileExists(editor) || !AskYesNo("Do you want to copy it to the game folder?")) return;
  platform().files().Copy(editor, folder + GetFileName(editor));
  TxtEditor.Text = GetFileName(editor);
}

// PACK.EXE is written twice, and the second value stays.
void frmoptions::SavePaths() {
  struct Row {
    const Setting& setting;
    std::string value;
  };
  for (const Row& row : std::initializer_list<Row>{{setting::kEditorCopy, TxtEditor.Text},
                                                   {setting::kColorPicker, txtcolor.Text},
                                                   {setting::kPackProgramCopy, txtPack.Text},
                                                   {setting::kConverter, txtbms.Text},
                                                   {setting::kGameFolder, TxtGameFolder.Text},
                                                   {setting::kPlayingProgram, txtPack.Text},
                                                   {setting::kGameProgram, TxtGame.Text},
                                                   {setting::kEditorProgram, TxtEditor.Text},
                                                   {setting::kRunAfterPack, BooleanToText(ChPack.Value != 0)},
                                                   {setting::kRunAfterPlaying, BooleanToText(ChPlaying.Value != 0)},
                                                   {setting::kPackProgram, txtPack.Text},
                                                   {setting::kPlayingProgram, TxtPlaying.Text},
                                                   {setting::kGameParameters, TxtDFLWParameters.Text},
                                                   {setting::kMapFolder, TxtMapFolder.Text}}) {
    Attempt([&] { WriteSetting(row.setting, row.value); });
  }
}

// The word for none is no file, so that the next start loads no style.
void frmoptions::SaveStyle() {
  if (txtStyleFile.Text.get() == ReadSetting(setting::kStyle)) return;
  if (txtStyleFile.Text.get().empty()) txtStyleFile.Text = kNoStyle;
  WriteSetting(setting::kStyle, txtStyleFile.Text);
  if (FileExists(txtStyleFile.Text)) LoadStyleFile(txtStyleFile.Text);
}

void frmoptions::SaveAssociations() {
  const ShellIntegration& shell = shell_integration();
  struct Row {
    const CheckBox& box;
    const std::function<bool()>& is_associated;
    const std::function<bool()>& associate;
    const std::function<bool()>& remove;
    const char* not_associated;
    const char* not_removed;
  };
  for (const Row& row : {Row{Check1, shell.is_bms_associated, shell.associate_bms, shell.remove_bms,
                             "Failed to associate *.bms files to this program.",
                             "Failed to remove *.bms files association with this program."},
                         Row{Check2, shell.is_lst_associated, shell.associate_lst, shell.remove_lst,
                             "Failed to associate *.lst files to this program.",
                             "Failed to remove *.lst files association with this program."},
                         Row{Check3, shell.is_stl_associated, shell.associate_stl, shell.remove_stl,
                             "Failed to associate  *.stl files to this program.",
                             "Failed to remove *.stl files association with this program."}}) {
    if (!row.box.Enabled) continue;
    const bool wanted = row.box.Value != 0;
    if (wanted == row.is_associated()) continue;
    bool done = false;
    Attempt([&] { done = wanted ? row.associate() : row.remove(); });
    if (!done) MsgBox(wanted ? row.not_associated : row.not_removed);
  }
}

void frmoptions::SaveProtocol() {
  if (!ChProtocol.Enabled) return;
  const ShellIntegration& shell = shell_integration();
  std::string current;
  const bool is_registered = shell.is_protocol_registered(current);
  if (ChProtocol.Value != 0 && !is_registered) shell.register_protocol();
  if (ChProtocol.Value == 0 && is_registered) shell.clear_protocol();
}

void frmoptions::SaveDefaultCopy() {
  if (ChDefault.Value != 0) {
    MakeDefaultCopy();
  } else if (IsDefaultCopy()) {
    ForgetDefaultCopy();
  }
}

}  // namespace kestrun
