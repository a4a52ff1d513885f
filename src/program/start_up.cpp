#include "program/start_up.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/window_registry.h"
#include "platform/platform.h"
#include "program/commands.h"
#include "program/default_copy.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/link_guard.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/shell_integration.h"
#include "program/start_mode.h"
#include "program/style_guard.h"
#include "program/style_hook.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/run_command.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

std::string WithoutProtocol(std::string text) {
  const size_t at = FindNoCase(text, kLinkPrefix);
  if (at != std::string::npos) text.erase(at, kLinkPrefix.size());
  return text;
}

void ShowVersion(Label& label) {
  const Version version = platform().program().ProgramVersion();
  label.Caption = "V" + std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
                  std::to_string(version.revision);
}

void LoadDefaultStyle() {
  const std::string path = ReadSetting(setting::kStyle);
  if (FileExists(path) && MayStartWithStyle()) LoadStyleFile(path);
}

void ApplyStyle(Form& splash) { ApplyStyleAtOnce(splash, "ApplyStyle()"); }

void ShowSplash(Form& splash) {
  splash.Show();
  RunPendingEvents();
  RunPendingEvents();
}

// Asks for the game folder once in the life of an installation whose game cannot be found. Each statement stands for
// itself: whatever becomes of the question, it is not put again. Gives whether the user was asked and named none.
bool FindGame() {
  if (!TextToBoolean(ReadSetting(setting::kCheckGamePath))) return false;
  std::string folder;
  Attempt([&] { folder = GameFolder(); });
  if (!folder.empty()) return false;
  MsgBox("Kestrun was unable to find your dflw game folder!");
  MsgBox("Please select it yourself.");
  const bool is_picked = Attempt([] {
    PickGameFolder(
        "Select the folder where you installed your game. By default this is C:\\program files\\novalogic\\delta force "
        "land warrior demo",
        folder::kMyComputer, "");
  });
  WriteSetting(setting::kCheckGamePath, "False");
  return !is_picked;
}

// A command that points at another copy of the program is left alone.
void RegisterProtocolOnce() {
  const ShellIntegration& shell = shell_integration();
  if (!shell.is_protocol_registered || !shell.register_protocol) return;
  std::string current;
  if (!shell.is_protocol_registered(current) && current.empty()) shell.register_protocol();
}

// A dead entry is repaired, a live other copy respected.
void RepairAppPath() {
  const ShellIntegration& shell = shell_integration();
  if (!shell.is_app_path_registered || !shell.register_app_path) return;
  std::string current;
  if (shell.is_app_path_registered(current)) return;
  if (current.empty() || !FileExists(current)) shell.register_app_path();
}

// Earlier versions put the question too, and could do nothing about a Yes: where one of them has run, it is put once
// more.
void AskFirstRun(bool has_run_before) {
  const bool was_asked_in_vain = has_run_before && !HasAskedForMaps() && shell_integration().is_bms_associated &&
                                 !shell_integration().is_bms_associated();
  Attempt([] {
    if (!HasAskedForMaps()) NoteAskedForMaps();
  });
  if (!TextToBoolean(ReadSetting(setting::kFirstRun)) && !was_asked_in_vain) return;
  const BoxAnswer answer = MsgBox(
      "Kestrun can set itself as default editor for *.bms files (maps). Do you want to set Kestrun as default "
      "editor?" +
          std::string(kCrLf) +
          "If you click 'YES' Kestrun will start when you open dflw maps (double click the map in Windows "
          "Explorer).CLICK 'YES'!",
      BoxButtons::kYesNo);
  if (answer == BoxAnswer::kYes && shell_integration().associate_bms) shell_integration().associate_bms();
}

// A step whose failure is told; start-up then goes on with its next one.
template <class Step>
void RunStep(Step&& step) {
  RunCommand(std::forward<Step>(step), "", BoxIcon::kCritical);
}

std::string WithoutQuotes(const std::string& text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// An address that could not be handed over does not keep the window away.
void OpenAddressFrom(Form& splash, const std::string& address) {
  RunStep([&] { SetOpenMapAddress(address); });
  RunStep([&] { ShowWindow(window_name::kOpenMap); });
  splash.Unload();
}

void OpenListFrom(Form& splash, const std::string& path) {
  RunStep([&] { LoadMapList(path); });
  splash.Unload();
}

void OpenMapFrom(Form& splash, const std::string& path) {
  Attempt([&] { OpenAddress(path); });
  splash.Unload();
}

// A text that was no option: an address, a list, a style or a map. Gives true when start-up ends here.
bool OpenFile(Form& splash, const std::string& command) {
  const std::string text = WithoutQuotes(command);
  bool is_url = false;
  RunStep([&] { is_url = IsUrl(text); });
  const std::string ending = text.size() < 4 ? std::string() : ToLower(std::string_view(text).substr(text.size() - 4));
  if (is_url) {
    OpenAddressFrom(splash, text);
    return true;
  }
  if (ending == ".lst") {
    OpenListFrom(splash, text);
    return true;
  }
  if (ending == ".stl") {
    RunStep([&] {
      if (ProcessCommand("-style " + text) == kCommandStyleLoaded) ApplyStyle(splash);
    });
    return false;
  }
  OpenMapFrom(splash, text);
  return true;
}

// Gives true when start-up ends with the command.
bool CarryOut(Form& splash, const std::string& command) {
  if (command.empty()) return false;
  switch (ProcessCommand(command)) {
    case kCommandCarriedOut: splash.Unload(); return true;
    case kCommandStyleLoaded: Attempt([&] { ApplyStyle(splash); }); return false;
    default: return OpenFile(splash, command);
  }
}

void OpenMainWindow(Form& splash) {
  Form* main_window = nullptr;
  RunStep([&] { main_window = &WindowByName(window_name::kMain); });
  RunPendingEvents();
  RunStep([&] {
    if (main_window) main_window->Show();
  });
  RunPendingEvents();
  splash.Unload();
}

// A command may have loaded a window and then failed, or had nothing to show in it. The process lives as long as a
// window does, so one that nobody can see and close must not keep it.
void CloseWhatNobodySees() {
  const std::vector<Form*> windows = LoadedWindows();
  if (std::any_of(windows.begin(), windows.end(), [](const Form* window) { return window->IsShown(); })) return;
  CloseAllWindows();
}

}  // namespace

void RunStartUp(Form& splash, Label& version, const std::string& raw_command_line) {
  const std::string command = WithoutProtocol(raw_command_line);
  if (raw_command_line == "-safe") {
    SetSafeMode(true);
    RunStep([&] { ShowWindow(window_name::kMain); });
    splash.Unload();
    CloseWhatNobodySees();
    return;
  }
  if (RunsUnseen(raw_command_line)) {
    ProcessCommand(raw_command_line);
    splash.Unload();
    return;
  }
  Attempt([&] { ShowVersion(version); });
  Attempt([&] { LoadDefaultStyle(); });
  Attempt([&] { ApplyStyle(splash); });
  Attempt([&] { ShowSplash(splash); });
  std::optional<GameFolderUnasked> unasked;
  Attempt([&] {
    if (FindGame()) unasked.emplace();
  });
  Attempt([&] { RegisterProtocolOnce(); });
  Attempt([&] { RepairAppPath(); });
  bool has_run_before = false;
  Attempt([&] { has_run_before = HasNotedCopy(); });
  Attempt([&] { NoteDefaultCopy(); });
  Attempt([&] { AskFirstRun(has_run_before); });
  Attempt([&] { WriteSetting(setting::kFirstRun, "False"); });
  if (IsLink(raw_command_line) && !MayFollowLink(command)) {
    splash.Unload();
  } else if (!CarryOut(splash, command)) {
    OpenMainWindow(splash);
  }
  NoteStartWithStyle();
  CloseWhatNobodySees();
  EndWithLastShownWindow();
}

}  // namespace kestrun
