#include "program/commands.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "forms/window_registry.h"
#include "platform/command_result.h"
#include "platform/platform.h"
#include "program/check_list_hook.h"
#include "program/originals_hook.h"
#include "program/pack_command.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/style_guard.h"
#include "program/style_hook.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

// How a row is told from the command text.
enum class Match {
  kNone,   // a line of the help alone
  kWord,   // the whole text, in any case
  kStart,  // the text begins so, in this case
};

struct Command {
  Match match;
  std::string_view word;
  // Gives ProcessCommand's result. `text` is the whole command text.
  int (*run)(const Command& command, const std::string& text);
  std::string_view window = {};     // that the word opens
  std::string_view help = {};       // its line, empty for none
  int page = 1;                     // of the help
  std::string_view procedure = {};  // called on the window by name in place of opening it
  std::string_view warning = {};    // what the user is asked about where a link says it; empty: it only opens a window
  bool is_unseen = false;           // carried out in place of the start, with nothing shown and nobody asked
};

int ShowHelp(const Command&, const std::string&) {
  ShowCommandHelp();
  return kCommandCarriedOut;
}

// The window behind a word opens from the day it is registered; until then the word only keeps the main window away.
int OpenWordsWindow(const Command& command, const std::string&) {
  static_cast<void>(ShowWindow(command.window));
  return kCommandCarriedOut;
}

int CallProcedure(const Command& command, const std::string&) {
  if (IsWindowRegistered(command.window)) CallMember(WindowByName(command.window), command.procedure);
  return kCommandCarriedOut;
}

int Pack(const Command&, const std::string& text) {
  PackCommand(text);
  return kCommandCarriedOut;
}

int Restore(const Command&, const std::string& text) {
  RestoreCommand(text);
  return kCommandCarriedOut;
}

int CheckList(const Command&, const std::string& text) {
  CheckListCommand(text);
  return kCommandCarriedOut;
}

// The file stands behind the blank that follows the word.
int ShowMission(const Command& command, const std::string& text) {
  const size_t at = command.word.size() + 1;
  OpenMapInfo(text.size() > at ? text.substr(at) : std::string());
  return kCommandCarriedOut;
}

std::string TrimmedRest(const Command& command, const std::string& text) {
  return std::string(TrimBlanks(std::string_view(text).substr(command.word.size())));
}

int LoadStyle(const Command& command, const std::string& text) {
  const std::string path = TrimmedRest(command, text);
  const std::string present = ReadSetting(setting::kStyle);
  if (present != path &&
      MsgBox("Do you want to set this style file as default style?", BoxButtons::kYesNo) == BoxAnswer::kYes) {
    WriteSetting(setting::kStyle, path);
  }
  if (MayStartWithStyle()) LoadStyleFile(path);
  return kCommandStyleLoaded;
}

int EditStyle(const Command& command, const std::string& text) {
  const std::string file = TrimmedRest(command, text);
  if (!FileExists(file)) return kCommandIsFileName;
  OpenStyleEditor(file);
  return kCommandCarriedOut;
}

// A line for each fault on standard output; the exit code says whether there were any.
int CheckStyleCommand(const Command& command, const std::string& text) {
  const std::string file = ReplaceAll(TrimmedRest(command, text), "\"", "");
  std::vector<std::string> lines;
  Attempt([&] { lines = CheckStyleFile(file); },
          [&](const RuntimeError& failure) { lines = {file + ": " + failure.description() + "."}; });
  for (const std::string& line : lines) WriteCommandLine(line);
  SetExitCode(lines.empty() ? 0 : 1);
  return kCommandCarriedOut;
}

constexpr int kSecondPage = 2;
constexpr std::string_view kOpensFile = "It would open a file.";
constexpr std::string_view kLoadsStyle = "It would load a style file, whose scripts then run.";

// One row a word, in the order of the help. No text matches two of them.
// clang-format off
constexpr std::array kCommands{
    Command{Match::kWord, "?", ShowHelp, {}, "? or /? -?: Shows this message."},
    Command{Match::kWord, "/?", ShowHelp},
    Command{Match::kWord, "-?", ShowHelp},
    Command{Match::kNone, {}, nullptr, {}, "filename :filename can be a .bms map, .lst auto host list or a .stl style file. Kestrun will load the file in it's default editor."},
    Command{Match::kWord, "-open", OpenWordsWindow, "frmopenmap", "-open: shows the load map from screen."},
    Command{Match::kWord, "-autohost", OpenWordsWindow, "frmputlist", "-autohost: loads the autohost."},
    Command{Match::kWord, "-nameeditor", OpenWordsWindow, "frmname", "-nameeditor: loads the name editor."},
    Command{Match::kWord, "-url", OpenWordsWindow, "frmopenmap", "-url: shows the load map from URL screen."},
    Command{Match::kWord, "-messenger", OpenWordsWindow, "frmchat", "-messenger: shows the auto messenger screen."},
    Command{Match::kWord, "-ihelp", OpenWordsWindow, "frmdwnlhelp", "-ihelp: downloads the new help form internet."},
    Command{Match::kWord, "-about", OpenWordsWindow, "frmhelp", "-about: shows the about screen."},
    Command{Match::kWord, "-mapupdate", OpenWordsWindow, "frmmapupd", "-mapupdate: shows the map updater."},
    Command{Match::kNone, {}, nullptr, {}, "-moreplayers: shows the make room for more players screen."},
    Command{Match::kWord, "-update", CallProcedure, "frmain", "-update: connects to internet and downloads the new update.", 1, "mnu_checkforupdate_Click"},
    Command{Match::kNone, {}, nullptr, {}, "C:\\map.bms: loads map c:\\map.bms"},
    Command{Match::kWord, "-options", OpenWordsWindow, "frmoptions", "-options: shows the options screen."},
    Command{Match::kStart, "-mapinfo", ShowMission, {}, "-mapinfo filename: shows the map info of filename", 1, {}, kOpensFile},
    // Start-up looks for this word itself, before it does anything else.
    Command{Match::kNone, {}, nullptr, {}, "-safe: use safe mode (don't load too much things at startup) use this if kestrun has errors at startup"},
    Command{Match::kStart, "-style", LoadStyle, {}, "-style filename: use a style file", 1, {}, kLoadsStyle},
    Command{Match::kNone, {}, nullptr, {}, "-<FORMNAME>: loads a window with name=<FORMNAME>", kSecondPage},
    Command{Match::kWord, "-frmaddinmngr", OpenWordsWindow, "FrmAddinMngr"},
    Command{Match::kWord, "-frmaddmessage", OpenWordsWindow, "frmaddmessage"},
    Command{Match::kWord, "-frmaddprogram", OpenWordsWindow, "frmaddprogram"},
    Command{Match::kWord, "-frmain", OpenWordsWindow, "frmain"},
    Command{Match::kWord, "-frmchat", OpenWordsWindow, "frmchat"},
    Command{Match::kWord, "-frmdfversion", OpenWordsWindow, "Frmdfversion"},
    Command{Match::kWord, "-frmhelp", OpenWordsWindow, "frmhelp"},
    Command{Match::kWord, "-frmlargeprev", OpenWordsWindow, "frmLargeprev"},
    Command{Match::kWord, "-frmmapinfo", OpenWordsWindow, "frmmapinfo"},
    Command{Match::kWord, "-frmmapupd", OpenWordsWindow, "frmmapupd"},
    Command{Match::kWord, "-frmname", OpenWordsWindow, "frmname"},
    Command{Match::kWord, "-frmopenmap", OpenWordsWindow, "frmopenmap"},
    Command{Match::kWord, "-frmoptions", OpenWordsWindow, "frmoptions"},
    Command{Match::kWord, "-frmoverwrite", OpenWordsWindow, "FrmOverWrite"},
    Command{Match::kWord, "-frmpicture", OpenWordsWindow, "frmpicture"},
    Command{Match::kWord, "-frmputlist", OpenWordsWindow, "frmputlist"},
    Command{Match::kWord, "-frmrestore", OpenWordsWindow, "frmrestore"},
    Command{Match::kWord, "-frmsplash", OpenWordsWindow, "frmsplash"},
    Command{Match::kWord, "-frmupdate", OpenWordsWindow, "FrmUpdate"},
    Command{Match::kWord, "-frmzip", OpenWordsWindow, "frmzip"},
    Command{Match::kWord, "-frmcenter", OpenWordsWindow, "FrmCenter"},
    Command{Match::kWord, "-frmpictureselect", OpenWordsWindow, "FrmpictureSelect"},
    Command{Match::kStart, "-pack ", Pack, {}, "-pack \"pfffile\" \"rename\" \"filepath or url\" /z: packs a file into the pfffile with 'rename' as filename downloads urls, use /z to for zipped file extraction.", kSecondPage, {}, "It would put a file into an archive."},
    Command{Match::kStart, "-edit ", EditStyle, {}, {}, kSecondPage, {}, "It would open a file in the style editor."},
    Command{Match::kStart, "-checkstyle ", CheckStyleCommand, {}, {}, kSecondPage, {}, "It would run the scripts of a style file.", true},
    Command{Match::kStart, "-restore ", Restore, {}, {}, kSecondPage, {}, "It would bring back files of the game."},
    Command{Match::kStart, "-checklist ", CheckList, {}, {}, kSecondPage, {}, "It would read a list of maps and ask the web addresses in it.", true},
};
// clang-format on

const Command* FindCommand(const std::string& text) {
  const std::string word = ToLower(text);
  const auto* found = std::find_if(kCommands.begin(), kCommands.end(), [&](const Command& row) {
    return (row.match == Match::kWord && row.word == word) ||
           (row.match == Match::kStart && StartsWith(text, row.word));
  });
  return found == kCommands.end() ? nullptr : found;
}

std::string HelpLines(int page) {
  std::string lines;
  for (const Command& row : kCommands) {
    if (row.page == page && !row.help.empty()) lines.append(row.help).append(kCrLf);
  }
  return lines;
}

std::string PageEnd(int page) {
  const std::string line_end(kCrLf);
  return line_end + "     Page " + std::to_string(page) + " of 2" + line_end;
}

}  // namespace

std::string_view LinkWarning(const std::string& command) {
  const Command* const row = FindCommand(command);
  if (row) return row->warning;
  if (ToLower(command).ends_with(".stl")) return kLoadsStyle;
  // A word that nobody knows stands in the window that loads maps, and opens nothing: it is no path.
  const bool is_word = command.starts_with('-') && command.find_first_of("./\\:") == std::string::npos;
  return is_word ? std::string_view() : kOpensFile;
}

bool RunsUnseen(const std::string& command) {
  const Command* const row = FindCommand(command);
  return row && row->is_unseen;
}

int ProcessCommand(const std::string& command) {
  int result = kCommandIsFileName;
  RunCommand([&] {
    if (const Command* row = FindCommand(command)) result = row->run(*row, command);
  });
  return result;
}

std::vector<std::string> CommandWords() {
  std::vector<std::string> words;
  for (const Command& row : kCommands) {
    if (row.match != Match::kNone) words.emplace_back(TrimBlanks(row.word));
  }
  return words;
}

void ShowCommandHelp() {
  const std::string line_end(kCrLf);
  MsgBox("Kestrun Command Line Parameters:" + line_end + line_end + HelpLines(1) + PageEnd(1));
  MsgBox(HelpLines(kSecondPage) +
         "All command line parameters can be used with the kestrun:// protocol in Internet Explorer." + line_end +
         PageEnd(kSecondPage));
}

}  // namespace kestrun
