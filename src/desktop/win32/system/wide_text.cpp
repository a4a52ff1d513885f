#include "desktop/win32/system/wide_text.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun {
namespace {

constexpr size_t kLongPath = 240;  // some calls add a short file name to a folder's path

}  // namespace

std::wstring ToWide(std::string_view utf8) {
  const std::u16string text = ToUtf16(utf8);
  return {text.begin(), text.end()};
}

std::string FromWide(std::wstring_view wide) { return ToUtf8(std::u16string(wide.begin(), wide.end())); }

std::wstring ToWidePath(std::string_view path) {
  std::wstring wide = ToWide(path);
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  if (wide.size() < kLongPath || wide.starts_with(L"\\\\?\\")) return wide;
  if (wide.starts_with(L"\\\\")) return L"\\\\?\\UNC" + wide.substr(1);
  return wide.size() > 2 && wide[1] == L':' ? L"\\\\?\\" + wide : wide;
}

std::wstring ToWideLines(std::string_view text) {
  std::wstring lines;
  const std::wstring wide = ToWide(text);
  for (size_t at = 0; at < wide.size(); ++at) {
    if (wide[at] != L'\r' && wide[at] != L'\n') {
      lines += wide[at];
      continue;
    }
    if (wide[at] == L'\r' && at + 1 < wide.size() && wide[at + 1] == L'\n') ++at;
    lines += L"\r\n";
  }
  return lines;
}

}  // namespace kestrun
