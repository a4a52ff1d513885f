#include "desktop/win32/system/shell_link.h"

#include <array>

#include "base/text.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/ole_start.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr size_t kLongestAddress = 2084;  // INTERNET_MAX_URL_LENGTH

// The shortcut's way through the shell's folders keeps all characters of the path; the text beside it may not.
std::string TargetPath(IShellLinkW& link) {
  wchar_t path[MAX_PATH] = {};
  LPITEMIDLIST items = nullptr;
  if (link.GetIDList(&items) == S_OK && items) {
    const bool is_path = KESTRUN_LATE(L"shell32.dll", SHGetPathFromIDListW)(items, path);
    KESTRUN_LATE(L"ole32.dll", CoTaskMemFree)(items);
    if (is_path && path[0]) return FromWide(path);
  }
  return link.GetPath(path, MAX_PATH, nullptr, 0) == S_OK ? FromWide(path) : std::string();
}

ComOwner<IShellLinkW> MakeShellLink() {
  StartOle();
  ComOwner<IShellLinkW> link;
  static_cast<void>(KESTRUN_LATE(L"ole32.dll", CoCreateInstance)(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                                                 __uuidof(IShellLinkW), link.ReceiveAny()));
  return link;
}

std::string TargetOfShortcut(const std::string& path) {
  ComOwner<IShellLinkW> link = MakeShellLink();
  ComOwner<IPersistFile> file;
  const bool is_read = link && SUCCEEDED(link->QueryInterface(__uuidof(IPersistFile), file.ReceiveAny())) &&
                       SUCCEEDED(file->Load(ToWidePath(path).c_str(), STGM_READ));
  return is_read ? TargetPath(*link.get()) : std::string();
}

std::string AddressOfShortcut(const std::string& path) {
  std::array<wchar_t, kLongestAddress> address{};
  GetPrivateProfileStringW(L"InternetShortcut", L"URL", L"", address.data(), static_cast<DWORD>(address.size()),
                           ToWidePath(path).c_str());
  return FromWide(address.data());
}

}  // namespace

std::string FollowLink(const std::string& path) {
  const std::string name = ToLower(path);
  std::string target;
  if (name.ends_with(".lnk")) target = TargetOfShortcut(path);
  if (name.ends_with(".url")) target = AddressOfShortcut(path);
  return target.empty() ? path : target;
}

bool WriteShellLink(const std::string& path, const Shortcut& shortcut) {
  ComOwner<IShellLinkW> link = MakeShellLink();
  ComOwner<IPersistFile> file;
  if (!link || FAILED(link->QueryInterface(__uuidof(IPersistFile), file.ReceiveAny()))) return false;
  HRESULT result = link->SetPath(ToWidePath(shortcut.target).c_str());
  const auto set = [&result](const std::string& text, auto&& put) {
    if (SUCCEEDED(result) && !text.empty()) result = put(ToWide(text).c_str());
  };
  set(shortcut.work_folder, [&](const wchar_t* text) { return link->SetWorkingDirectory(text); });
  set(shortcut.arguments, [&](const wchar_t* text) { return link->SetArguments(text); });
  set(shortcut.icon_file, [&](const wchar_t* text) { return link->SetIconLocation(text, shortcut.icon_index); });
  set(shortcut.description, [&](const wchar_t* text) { return link->SetDescription(text); });
  return SUCCEEDED(result) && SUCCEEDED(link->SetHotkey(static_cast<WORD>(shortcut.hot_key))) &&
         SUCCEEDED(link->SetShowCmd(shortcut.show_command)) && SUCCEEDED(file->Save(ToWidePath(path).c_str(), TRUE));
}

}  // namespace kestrun
