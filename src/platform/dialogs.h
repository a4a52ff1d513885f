// Boxes and common dialogues. Each call waits for the user; headless, each takes the next laid-down answer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrun {

enum class BoxButtons { kOk, kOkCancel, kAbortRetryIgnore, kYesNoCancel, kYesNo, kRetryCancel };
enum class BoxIcon { kNone, kCritical, kQuestion, kWarning, kInformation };
// The values are those that a script gets back.
enum class BoxAnswer { kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

struct MessageBoxRequest {
  std::string text;
  std::string title;  // empty: the program's name
  BoxButtons buttons = BoxButtons::kOk;
  BoxIcon icon = BoxIcon::kNone;
  int default_button = 1;  // counted from 1
};

struct FileDialogRequest {
  bool save = false;
  std::string title;
  std::string filter;  // "Maps (*.bms)|*.bms|All files|*.*"
  int filter_index = 1;
  std::string folder;
  std::string file_name;
  std::string default_extension;
  uint32_t flags = 0;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  [[nodiscard]] virtual BoxAnswer ShowMessage(const MessageBoxRequest& request) = 0;
  // Nothing on Cancel.
  [[nodiscard]] virtual std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                                           std::string_view preset) = 0;
  [[nodiscard]] virtual std::optional<std::string> PickFile(const FileDialogRequest& request) = 0;
  // Root: a shell folder number. start_folder empty: the dialogue opens at the root. Nothing on Cancel; no trailing
  // separator is promised.
  [[nodiscard]] virtual std::optional<std::string> PickFolder(std::string_view prompt, int root_csidl,
                                                              std::string_view start_folder) = 0;
  // 0x00BBGGRR; nothing on Cancel.
  [[nodiscard]] virtual std::optional<uint32_t> PickColor(uint32_t preset) = 0;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  [[nodiscard]] virtual std::string Text() = 0;
  virtual void SetText(std::string_view text) = 0;
};

}  // namespace kestrun
