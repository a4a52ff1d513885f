// Boxes and common dialogues of Windows. Their owner is the form window that is active.
#pragma once

#include "platform/dialogs.h"

namespace kestrun {

class Win32Dialogs final : public Dialogs {
 public:
  [[nodiscard]] BoxAnswer ShowMessage(const MessageBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                                   std::string_view preset) override;
  [[nodiscard]] std::optional<std::string> PickFile(const FileDialogRequest& request) override;
  [[nodiscard]] std::optional<std::string> PickFolder(std::string_view prompt, int root_csidl,
                                                      std::string_view start_folder) override;
  [[nodiscard]] std::optional<uint32_t> PickColor(uint32_t preset) override;
};

}  // namespace kestrun
