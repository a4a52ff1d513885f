#include "program/commands.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

#include "base/text.h"
#include "forms/window_registry.h"
#include "platform/platform.h"
#include "program/open_window.h"
#include "program/originals_hook.h"
#include "program/pack_command.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/show_error.h"
#include "program/style_hook.h"

namespace kestrun {
namespace {

struct CommandWord {
  std::string_view word;
  std::string_view window;     // shown without waiting
  std::string_view procedure;  // or: called on that window by name, the window itself is not shown
};

// Whole-word commands, compared without regard to case. The window behind a word opens from the day it is registered;
// until then the word only keeps the main window away.
constexpr std::array kCommandWords{
    CommandWord{"-open", "frmopenmap", {}},
    CommandWord{"-autohost", "frmputlist", {}},
    CommandWord{"-nameeditor", "frmname", {}},
    CommandWord{"-url", "frmopenmap", {}},
    CommandWord{"-messenger", "frmchat", {}},
    CommandWord{"-ihelp", "frmdwnlhelp", {}},
    CommandWord{"-about", "frmhelp", {}},
    CommandWord{"-mapupdate", "frmmapupd", {}},
    CommandWord{"-update", "frmain", "mnu_checkforupdate_Click"},
    CommandWord{"-options", "frmoptions", {}},
    CommandWord{"-frmaddinmngr", "FrmAddinMngr", {}},
    CommandWord{"-frmaddmessage", "frmaddmessage", {}},
    CommandWord{"-frmaddprogram", "frmaddprogram", {}},
    CommandWord{"-frmain", "frmain", {}},
    CommandWord{"-frmchat", "frmchat", {}},
    CommandWord{"-frmdfversion", "Frmdfversion", {}},
    CommandWord{"-frmhelp", "frmhelp", {}},
    CommandWord{"-frmlargeprev", "frmLargeprev", {}},
    CommandWord{"-frmmapinfo", "frmmapinfo", {}},
    CommandWord{"-frmmapupd", "frmmapupd", {}},
    CommandWord{"-frmname", "frmname", {}},
    CommandWord{"-frmopenmap", "frmopenmap", {}},
    CommandWord{"-frmoptions", "frmoptions", {}},
    CommandWord{"-frmoverwrite", "FrmOverWrite", {}},
    CommandWord{"-frmpicture", "frmpicture", {}},
    CommandWord{"-frmputlist", "frmputlist", {}},
    CommandWord{"-frmrestore", "frmrestore", {}},
    CommandWord{"-frmsplash", "frmsplash", {}},
    CommandWord{"-frmupdate", "FrmUpdate", {}},
    CommandWord{"-frmzip", "frmzip", {}},
    CommandWord{"-frmcenter", "FrmCenter", {}},
    CommandWord{"-frmpictureselect", "FrmpictureSelect", {}},
};

constexpr std::array<std::string_view, 3> kHelpWords{"?", "/?", "-?"};

void RunCommandWord(const CommandWord& command) {
  if (command.procedure.empty()) {
    ShowWindow(command.window);
  } else if (IsWindowRegistered(command.window)) {
    CallMember(WindowByName(command.window), command.procedure);
  }
}

void LoadStyleOption(const std::string& path) {
  const std::string present = ReadSetting(setting::kStyle);
  if (present != path &&
      MsgBox("Do you want to set this style file as default style?", BoxButtons::kYesNo) == BoxAnswer::kYes) {
    WriteSetting(setting::kStyle, path);
  }
  LoadStyleFile(path);
}

// The rows that look at the raw text, in their order.
int RunRawCommand(const std::string& command) {
  if (StartsWith(command, "-pack ")) {
    PackCommand(command);
    return kCommandCarriedOut;
  }
  if (StartsWith(command, "-restore ")) {
    RestoreCommand(command);
    return kCommandCarriedOut;
  }
  if (StartsWith(command, "-mapinfo")) {
    OpenMapInfo(command.size() > 9 ? command.substr(9) : std::string());
    return kCommandCarriedOut;
  }
  if (StartsWith(command, "-style")) {
    LoadStyleOption(std::string(TrimBlanks(std::string_view(command).substr(6))));
    return kCommandStyleLoaded;
  }
  if (StartsWith(command, "-edit ")) {
    const std::string file(TrimBlanks(std::string_view(command).substr(6)));
    if (!FileExists(file)) return kCommandIsFileName;
    OpenStyleEditor(file);
    return kCommandCarriedOut;
  }
  return kCommandIsFileName;
}

}  // namespace

int ProcessCommand(const std::string& command) {
  int result = kCommandIsFileName;
  try {
    const std::string word = ToLower(command);
    const auto* row = std::find_if(kCommandWords.begin(), kCommandWords.end(),
                                   [&](const CommandWord& candidate) { return candidate.word == word; });
    if (std::find(kHelpWords.begin(), kHelpWords.end(), word) != kHelpWords.end()) {
      ShowCommandHelp();
      result = kCommandCarriedOut;
    } else if (row != kCommandWords.end()) {
      RunCommandWord(*row);
      result = kCommandCarriedOut;
    } else {
      result = RunRawCommand(command);
    }
  } catch (const std::exception&) {
    ShowError("");
  }
  return result;
}

}  // namespace kestrun
