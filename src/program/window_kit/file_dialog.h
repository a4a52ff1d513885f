// What a file dialogue asks for.
#pragma once

#include <string>

#include "forms/common_dialog.h"
#include "program/path_text.h"
#include "program/window_kit/ask.h"

namespace kestrun {

// One dialogue serves several commands of a window: nothing of the last one stays in it.
inline void SetUpFileDialog(CommonDialog& dialog, const std::string& title, const std::string& filter,
                            const std::string& default_extension = "") {
  dialog.DialogTitle = title;
  dialog.Filter = filter;
  dialog.DefaultExt = default_extension;
  dialog.FileName = "";
}

// The path that the user chooses to save at. Empty when the dialogue is given up, or the question whether a file that
// is there may be replaced is not answered with yes.
[[nodiscard]] inline std::string AskWhereToSave(
    CommonDialog& dialog, const std::string& question = "This file already exists do you want to overwrite it?") {
  if (!dialog.ShowSave()) return {};
  const std::string path = dialog.FileName;
  return !FileExists(path) || AskYesNo(question) ? path : std::string();
}

}  // namespace kestrun
