#include "desktop/win32/system/command_output.h"

#include <string>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {
namespace {

HANDLE StandardOutput() {
  const HANDLE given = GetStdHandle(STD_OUTPUT_HANDLE);
  if (given && given != INVALID_HANDLE_VALUE) return given;
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return nullptr;
  return GetStdHandle(STD_OUTPUT_HANDLE);
}

}  // namespace

void WriteToStandardOutput(std::string_view line) {
  static const HANDLE output = StandardOutput();
  if (output && output != INVALID_HANDLE_VALUE) WriteLineTo(output, line);
}

void WriteLineTo(HANDLE output, std::string_view line) {
  const std::string text = std::string(line) + "\r\n";
  DWORD written = 0;
  DWORD mode = 0;
  if (GetConsoleMode(output, &mode)) {
    const std::wstring characters = ToWide(text);
    WriteConsoleW(output, characters.data(), static_cast<DWORD>(characters.size()), &written, nullptr);
  } else {
    WriteFile(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  }
}

}  // namespace kestrun
