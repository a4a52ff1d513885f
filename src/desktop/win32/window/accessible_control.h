// What a screen reader sees of a control that paints itself: the control with its role and name, and its rows as
// children 1, 2, 3 and so on. Active Accessibility's rules (IAccessible) hold.
#pragma once

#include "base/ref.h"
#include "desktop/win32/system/windows_api.h"
#include "forms/accessible.h"
#include "forms/control.h"
// The header below needs the one above.
#include <oleacc.h>

namespace kestrun {

class AccessibleControl final : public RefCounted, public IAccessible {
 public:
  // The control keeps what it shows to a reader.
  AccessibleControl(HWND window, Control& control, const Accessible& shown)
      : window_(window), control_(&control), shown_(shown) {}

  // The answer to WM_GETOBJECT. False where the system has no Active Accessibility.
  [[nodiscard]] bool Answer(WPARAM first, LRESULT& result);
  // The window goes. References that readers keep then get an error from every call.
  void Disconnect();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
  HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override;
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* child) override;
  HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height, VARIANT child) override;
  HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* child) override;

  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR*, VARIANT, long*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE accSelect(long, VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE accNavigate(long, VARIANT, VARIANT*) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

 private:
  // The row that a child number means, -1 for the control itself, or an error.
  [[nodiscard]] HRESULT RowOf(const VARIANT& child, int& row) const;
  [[nodiscard]] long ControlState() const;
  [[nodiscard]] long RowState(int row) const;

  HWND window_;
  Ref<Control> control_;     // null once disconnected
  const Accessible& shown_;  // a part of the control
};

}  // namespace kestrun
