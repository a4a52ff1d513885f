#include "desktop/win32/system/file_holders.h"

#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/wide_text.h"
// Behind windows.h, which it needs.
#include <restartmanager.h>

#define RESTART_CALL(function) KESTRUN_LATE(L"rstrtmgr.dll", function)

namespace kestrun {
namespace {

class RestartSession {
 public:
  RestartSession() {
    wchar_t key[CCH_RM_SESSION_KEY + 1] = {};
    is_open_ = RESTART_CALL(RmStartSession)(&session_, 0, key) == ERROR_SUCCESS;
  }
  ~RestartSession() {
    if (is_open_) RESTART_CALL(RmEndSession)(session_);
  }
  RestartSession(const RestartSession&) = delete;
  RestartSession& operator=(const RestartSession&) = delete;

  [[nodiscard]] bool Watch(const std::wstring& path) const {
    const wchar_t* file = path.c_str();
    return is_open_ && RESTART_CALL(RmRegisterResources)(session_, 1, &file, 0, nullptr, 0, nullptr) == ERROR_SUCCESS;
  }

  [[nodiscard]] std::vector<RM_PROCESS_INFO> Holders() const {
    constexpr UINT kMostHolders = 16;
    std::vector<RM_PROCESS_INFO> holders(kMostHolders);
    UINT needed = 0;
    UINT count = kMostHolders;
    DWORD reasons = 0;
    const DWORD result = RESTART_CALL(RmGetList)(session_, &needed, &count, holders.data(), &reasons);
    holders.resize(result == ERROR_SUCCESS && count <= kMostHolders ? count : 0);
    return holders;
  }

 private:
  DWORD session_ = 0;
  bool is_open_ = false;
};

}  // namespace

std::vector<std::string> FileHolders(std::string_view path) {
  std::vector<std::string> names;
  const RestartSession session;
  if (!session.Watch(ToWide(path))) return names;
  for (const RM_PROCESS_INFO& holder : session.Holders()) {
    if (holder.Process.dwProcessId != GetCurrentProcessId()) names.push_back(FromWide(holder.strAppName));
  }
  return names;
}

}  // namespace kestrun
