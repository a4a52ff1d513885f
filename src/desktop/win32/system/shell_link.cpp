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

std::string TargetOfShortcut(const std::string& path) {
  StartOle();
  ComOwner<IShellLinkW> link;
  ComOwner<IPersistFile> file;
  const bool is_read = SUCCEEDED(KESTRUN_LATE(L"ole32.dll", CoCreateInstance)(
                           CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IShellLinkW), link.ReceiveAny())) &&
                       SUCCEEDED(link->QueryInterface(__uuidof(IPersistFile), file.ReceiveAny())) &&
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

}  // namespace kestrun
