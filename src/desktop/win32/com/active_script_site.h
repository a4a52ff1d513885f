// What a script engine of the machine asks of its host: the objects that scripts see by name, the places of errors, and
// leave to make other objects, which is never given.
#pragma once

#include <atomic>
#include <map>
#include <optional>
#include <string>

#include "base/object.h"
#include "desktop/win32/com/counted_unknown.h"
#include "platform/foreign_scripts.h"

// These need the system's types.
#include <activscp.h>
#include <servprov.h>
#include <urlmon.h>

namespace kestrun {

class ActiveScriptSite final : public CountedUnknown,
                               public IActiveScriptSite,
                               public IActiveScriptSiteInterruptPoll,
                               public IServiceProvider,
                               public IInternetHostSecurityManager {
 public:
  void AddObject(const std::wstring& name, const Ref<Object>& object) { objects_[name] = object; }
  // Lets go of all objects.
  void Clear() { objects_.clear(); }
  // The error that the engine told since the last call.
  [[nodiscard]] std::optional<ForeignScriptFault> TakeFault() { return std::exchange(fault_, std::nullopt); }
  // Set by whoever watches the time, on any thread.
  [[nodiscard]] std::atomic<bool>& is_time_up() { return is_time_up_; }

  STDMETHODIMP QueryInterface(REFIID id, void** found) override;
  STDMETHODIMP_(ULONG) AddRef() override { return Retain(); }
  STDMETHODIMP_(ULONG) Release() override { return LetGo(); }

  STDMETHODIMP GetLCID(LCID* locale) override;
  STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type) override;
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError* told) override;
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }

  STDMETHODIMP QueryContinue() override { return is_time_up_ ? S_FALSE : S_OK; }

  STDMETHODIMP QueryService(REFGUID service, REFIID id, void** found) override;

  STDMETHODIMP GetSecurityId(BYTE*, DWORD*, DWORD_PTR) override { return E_NOTIMPL; }
  STDMETHODIMP ProcessUrlAction(DWORD, BYTE* policy, DWORD policy_bytes, BYTE*, DWORD, DWORD, DWORD) override;
  STDMETHODIMP QueryCustomPolicy(REFGUID, BYTE** policy, DWORD* policy_bytes, BYTE*, DWORD, DWORD) override;

 private:
  std::map<std::wstring, Ref<Object>> objects_;
  std::optional<ForeignScriptFault> fault_;
  std::atomic<bool> is_time_up_ = false;
};

// A fault without a place, from a result code and what came with DISP_E_EXCEPTION, which is let go.
[[nodiscard]] ForeignScriptFault FaultOf(HRESULT result, EXCEPINFO& told);

}  // namespace kestrun
