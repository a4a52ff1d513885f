#include "game/editor_files.h"

#include "base/bytes.h"
#include "base/runtime_error.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

struct EditorFile {
  int resource;
  const char* name;
  const char* question;
};

constexpr EditorFile kEditorFiles[]{
    {105, "TEXT.BIN", "The editor needs the 'text.bin' file do you want to extract it now?"},
    {106, "Df3items.bin", "The editor needs the 'Df3items.bin' file do you want to extract it now?"},
    {107, "SUNSETS.DEF", "The editor needs the 'sunsets.def' file do you want to extract it now?"},
};

// A file that broke off would pass for the whole one at every later start.
void WriteWhole(const std::string& path, const Bytes& content) {
  try {
    platform().files().WriteAll(path, content);
  } catch (const std::exception&) {
    Attempt([&] { platform().files().Delete(path); });
    throw;
  }
}

}  // namespace

bool ExtractEditorFiles(const std::string& Folder) {
  const auto extract = [&] {
    for (const EditorFile& file : kEditorFiles) {
      const std::string path = Folder + "\\" + file.name;
      if (FileExists(path) || !AskYesNo(file.question)) continue;
      WriteWhole(path, platform().program().Resource("FILE", file.resource));
    }
  };
  return RunCommand(extract, "Extracting editor files");
}

}  // namespace kestrun
