#include "desktop/win32/com/active_script_site.h"

#include "base/runtime_error.h"
#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/com/bridge_failures.h"
#include "desktop/win32/com/object_bridge.h"

namespace kestrun {
namespace {

// Run-time errors come as result codes of one facility, with their number in the low half.
int32_t NumberOf(HRESULT code) {
  constexpr uint32_t kRunTimeErrors = 0x800A0000;
  const auto bits = static_cast<uint32_t>(code);
  return (bits & 0xFFFF0000U) == kRunTimeErrors ? static_cast<int32_t>(bits & 0xFFFFU) : code;
}

}  // namespace

ForeignScriptFault FaultOf(HRESULT result, EXCEPINFO& told) {
  ToldTexts texts;
  if (result == DISP_E_EXCEPTION) texts = TakeToldTexts(told);
  const HRESULT code = result != DISP_E_EXCEPTION ? result : told.scode ? told.scode : told.wCode;
  ForeignScriptFault fault;
  // Some engines hand on the code with which an object says that it has no such member.
  if (code == DISP_E_UNKNOWNNAME || code == DISP_E_MEMBERNOTFOUND) {
    fault.number = error::kMemberNotFound;
    fault.description = RuntimeError(error::kMemberNotFound).description();
    return fault;
  }
  fault.number = NumberOf(code);
  fault.description = std::move(texts.description);
  fault.source = std::move(texts.source);
  if (fault.description.empty()) fault.description = TextOfResult(code);
  return fault;
}

HRESULT ActiveScriptSite::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (id == __uuidof(IUnknown) || id == __uuidof(IActiveScriptSite)) {
    *found = static_cast<IActiveScriptSite*>(this);
  } else if (id == __uuidof(IActiveScriptSiteInterruptPoll)) {
    *found = static_cast<IActiveScriptSiteInterruptPoll*>(this);
  } else if (id == __uuidof(IServiceProvider)) {
    *found = static_cast<IServiceProvider*>(this);
  } else if (id == __uuidof(IInternetHostSecurityManager)) {
    *found = static_cast<IInternetHostSecurityManager*>(this);
  } else {
    return E_NOINTERFACE;
  }
  Retain();
  return S_OK;
}

// Numbers and dates are read and written the same on every machine.
HRESULT ActiveScriptSite::GetLCID(LCID* locale) {
  if (!locale) return E_POINTER;
  *locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
  return S_OK;
}

HRESULT ActiveScriptSite::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type) {
  if ((mask & SCRIPTINFO_IUNKNOWN) != 0 && item) *item = nullptr;
  if ((mask & SCRIPTINFO_ITYPEINFO) != 0 && type) *type = nullptr;
  const auto found = objects_.find(name);
  if (found == objects_.end() || (mask & SCRIPTINFO_ITYPEINFO) != 0) return TYPE_E_ELEMENTNOTFOUND;
  if (!item) return E_POINTER;
  return AnswerCall(nullptr, [&] {
    *item = DispatchOf(*found->second).Detach();
    return S_OK;
  });
}

HRESULT ActiveScriptSite::OnScriptError(IActiveScriptError* told) {
  if (!told) return E_POINTER;
  return AnswerCall(nullptr, [&] {
    EXCEPINFO exception{};
    static_cast<void>(told->GetExceptionInfo(&exception));
    ForeignScriptFault fault = FaultOf(DISP_E_EXCEPTION, exception);
    DWORD module = 0;
    ULONG line = 0;
    LONG column = 0;
    if (SUCCEEDED(told->GetSourcePosition(&module, &line, &column))) {
      fault.module = static_cast<int>(module);
      fault.line = static_cast<int>(line) + 1;
      fault.column = static_cast<int>(column) + 1;
    }
    if (!fault_) fault_ = std::move(fault);
    return S_OK;
  });
}

HRESULT ActiveScriptSite::QueryService(REFGUID service, REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  return service == __uuidof(IInternetHostSecurityManager) ? QueryInterface(id, found) : E_NOINTERFACE;
}

// Whatever a script wants to make or to run, it may not.
HRESULT ActiveScriptSite::ProcessUrlAction(DWORD, BYTE* policy, DWORD policy_bytes, BYTE*, DWORD, DWORD, DWORD) {
  constexpr DWORD kDisallow = URLPOLICY_DISALLOW;
  if (policy && policy_bytes >= sizeof kDisallow) *reinterpret_cast<DWORD*>(policy) = kDisallow;
  return S_FALSE;
}

HRESULT ActiveScriptSite::QueryCustomPolicy(REFGUID, BYTE** policy, DWORD* policy_bytes, BYTE*, DWORD, DWORD) {
  if (policy) *policy = nullptr;
  if (policy_bytes) *policy_bytes = 0;
  return E_ACCESSDENIED;
}

}  // namespace kestrun
