// The platform without a desktop: for tests, which lay down what the user and the machine do, and for the command line,
// which has nobody to ask.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "desktop/headless/headless_dialogs.h"
#include "desktop/headless/headless_game.h"
#include "desktop/headless/headless_pictures.h"
#include "desktop/headless/headless_settings.h"
#include "desktop/headless/headless_shell.h"
#include "desktop/headless/headless_windowing.h"
#include "platform/located_files.h"
#include "platform/platform.h"
#include "platform/virtual_clock.h"

namespace kestrun {

class HeadlessProgram final : public Program {
 public:
  [[nodiscard]] std::string Folder() override { return folder; }
  [[nodiscard]] std::string ExeName() override { return exe_name; }
  [[nodiscard]] std::string CommandLine() override { return command_line; }
  [[nodiscard]] Version ProgramVersion() override { return version; }
  [[nodiscard]] Bytes Resource(std::string_view type, int number) override;

  std::string folder;
  std::string exe_name = "kestrun";
  std::string command_line;
  Version version{1, 0, 0};
  std::map<std::pair<std::string, int>, Bytes> resources;
};

class HeadlessClipboard final : public Clipboard {
 public:
  [[nodiscard]] std::string Text() override { return text; }
  void SetText(std::string_view new_text) override { text = new_text; }

  std::string text;
};

class HeadlessPlatform final : public Platform {
 public:
  // The file system must outlive this object.
  explicit HeadlessPlatform(FileSystem& files);
  ~HeadlessPlatform() override;

  // Puts another file system in the place of the first, such as one that fails.
  void UseFiles(FileSystem& files) { files_.Use(files); }
  // One handler for boxes, dialogues and modal windows alike.
  void OnUnexpected(const UnexpectedHandler& handler);

  [[nodiscard]] FileSystem& files() override { return files_; }
  [[nodiscard]] HeadlessProgram& program() override { return program_; }
  [[nodiscard]] HeadlessUserSettings& user_settings() override { return user_settings_; }
  [[nodiscard]] HeadlessRegistry& registry() override { return registry_; }
  [[nodiscard]] HeadlessShell& shell() override { return shell_; }
  [[nodiscard]] HeadlessProcesses& processes() override { return processes_; }
  [[nodiscard]] HeadlessInternet& internet() override { return internet_; }
  [[nodiscard]] HeadlessDialogs& dialogs() override { return dialogs_; }
  [[nodiscard]] HeadlessClipboard& clipboard() override { return clipboard_; }
  [[nodiscard]] HeadlessPictures& pictures() override { return pictures_; }
  [[nodiscard]] VirtualClock& clock() override { return clock_; }
  [[nodiscard]] HeadlessWindowing& windowing() override { return windowing_; }
  [[nodiscard]] HeadlessGames& running_games() override { return running_games_; }

 private:
  LocatedFiles files_;
  HeadlessProgram program_;
  HeadlessUserSettings user_settings_;
  HeadlessRegistry registry_;
  HeadlessShell shell_;
  HeadlessProcesses processes_;
  HeadlessInternet internet_{[this]() -> FileSystem& { return files_; }};
  HeadlessDialogs dialogs_;
  HeadlessClipboard clipboard_;
  HeadlessPictures pictures_;
  VirtualClock clock_;
  HeadlessWindowing windowing_{clock_};
  HeadlessGames running_games_;
};

}  // namespace kestrun
