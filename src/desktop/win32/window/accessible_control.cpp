#include "desktop/win32/window/accessible_control.h"

#include <algorithm>
#include <vector>

#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/number_enumeration.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kAccessibility = L"oleacc.dll";

void SetNumber(VARIANT& target, long number) {
  target.vt = VT_I4;
  target.lVal = number;
}

long RoleOf(Accessible::Role role) {
  switch (role) {
    case Accessible::Role::kList: return ROLE_SYSTEM_LIST;
    case Accessible::Role::kProgressBar: return ROLE_SYSTEM_PROGRESSBAR;
    case Accessible::Role::kLink: return ROLE_SYSTEM_LINK;
    case Accessible::Role::kPanel: break;
  }
  return ROLE_SYSTEM_PANE;
}

BSTR NewText(const std::wstring& text) {
  return KESTRUN_LATE(L"oleaut32.dll", SysAllocStringLen)(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace

bool AccessibleControl::Answer(WPARAM first, LRESULT& result) {
  try {
    result =
        KESTRUN_LATE(kAccessibility, LresultFromObject)(__uuidof(IAccessible), first, static_cast<IAccessible*>(this));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

void AccessibleControl::Disconnect() { control_.Reset(); }

HRESULT AccessibleControl::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible)) return E_NOINTERFACE;
  *object = static_cast<IAccessible*>(this);
  Retain();
  return S_OK;
}

ULONG AccessibleControl::AddRef() {
  Retain();
  return references();
}

ULONG AccessibleControl::Release() {
  const ULONG left = references() - 1;
  RefCounted::Release();
  return left;
}

HRESULT AccessibleControl::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT AccessibleControl::RowOf(const VARIANT& child, int& row) const {
  if (!control_) return CO_E_OBJNOTCONNECTED;
  if (child.vt != VT_I4) return E_INVALIDARG;
  row = -1;
  if (child.lVal == CHILDID_SELF) return S_OK;
  if (child.lVal < 1 || child.lVal > shown_.AccessibleChildCount()) return E_INVALIDARG;
  row = static_cast<int>(child.lVal) - 1;
  return S_OK;
}

HRESULT AccessibleControl::get_accParent(IDispatch** parent) {
  if (!control_) return CO_E_OBJNOTCONNECTED;
  return KESTRUN_LATE(kAccessibility, AccessibleObjectFromWindow)(
      window_, static_cast<DWORD>(OBJID_WINDOW), __uuidof(IDispatch), reinterpret_cast<void**>(parent));
}

HRESULT AccessibleControl::get_accChildCount(long* count) {
  if (!control_) return CO_E_OBJNOTCONNECTED;
  *count = shown_.AccessibleChildCount();
  return S_OK;
}

// Rows are no objects of their own: this object answers for them by their numbers.
HRESULT AccessibleControl::get_accChild(VARIANT child, IDispatch** object) {
  *object = nullptr;
  int row = -1;
  const HRESULT found = RowOf(child, row);
  return found == S_OK ? S_FALSE : found;
}

HRESULT AccessibleControl::get_accName(VARIANT child, BSTR* name) {
  *name = nullptr;
  int row = -1;
  if (const HRESULT found = RowOf(child, row); found != S_OK) return found;
  const std::wstring text = ToWide(row < 0 ? shown_.AccessibleName() : shown_.AccessibleChildName(row));
  if (text.empty()) return S_FALSE;
  *name = NewText(text);
  return *name ? S_OK : E_OUTOFMEMORY;
}

HRESULT AccessibleControl::get_accValue(VARIANT child, BSTR* value) {
  *value = nullptr;
  int row = -1;
  if (const HRESULT found = RowOf(child, row); found != S_OK) return found;
  const std::wstring text = row < 0 ? ToWide(shown_.AccessibleValue()) : std::wstring();
  if (text.empty()) return DISP_E_MEMBERNOTFOUND;
  *value = NewText(text);
  return *value ? S_OK : E_OUTOFMEMORY;
}

HRESULT AccessibleControl::get_accRole(VARIANT child, VARIANT* role) {
  int row = -1;
  if (const HRESULT found = RowOf(child, row); found != S_OK) return found;
  const bool is_list = shown_.AccessibleRole() == Accessible::Role::kList;
  SetNumber(*role, row < 0 ? RoleOf(shown_.AccessibleRole()) : is_list ? ROLE_SYSTEM_LISTITEM : ROLE_SYSTEM_STATICTEXT);
  return S_OK;
}

long AccessibleControl::ControlState() const {
  long state = control_->TakesFocus() ? STATE_SYSTEM_FOCUSABLE : 0;
  if (GetFocus() == window_) state |= STATE_SYSTEM_FOCUSED;
  if (!IsWindowVisible(window_)) state |= STATE_SYSTEM_INVISIBLE;
  if (!IsWindowEnabled(window_)) state |= STATE_SYSTEM_UNAVAILABLE;
  if (shown_.AccessibleRole() == Accessible::Role::kLink) state |= STATE_SYSTEM_LINKED;
  return state;
}

long AccessibleControl::RowState(int row) const {
  long state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
  if (shown_.IsAccessibleChildSelected(row)) state |= STATE_SYSTEM_SELECTED;
  if (row == shown_.AccessibleFocusedChild() && GetFocus() == window_) state |= STATE_SYSTEM_FOCUSED;
  if (shown_.AccessibleChildArea(row).IsEmpty()) state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
  return state;
}

HRESULT AccessibleControl::get_accState(VARIANT child, VARIANT* state) {
  int row = -1;
  if (const HRESULT found = RowOf(child, row); found != S_OK) return found;
  SetNumber(*state, row < 0 ? ControlState() : RowState(row));
  return S_OK;
}

HRESULT AccessibleControl::get_accFocus(VARIANT* child) {
  child->vt = VT_EMPTY;
  if (!control_) return CO_E_OBJNOTCONNECTED;
  if (GetFocus() != window_) return S_FALSE;
  SetNumber(*child, shown_.AccessibleFocusedChild() + 1);
  return S_OK;
}

// Nothing, one number, or an enumeration of several.
HRESULT AccessibleControl::get_accSelection(VARIANT* child) {
  child->vt = VT_EMPTY;
  if (!control_) return CO_E_OBJNOTCONNECTED;
  std::vector<long> selected;
  const int count = shown_.AccessibleChildCount();
  for (int row = 0; row < count; ++row) {
    if (shown_.IsAccessibleChildSelected(row)) selected.push_back(row + 1);
  }
  if (selected.empty()) return S_FALSE;
  if (selected.size() == 1) {
    SetNumber(*child, selected.front());
    return S_OK;
  }
  child->vt = VT_UNKNOWN;
  return MakeRef<NumberEnumeration>(std::move(selected))
      ->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(&child->punkVal));
}

HRESULT AccessibleControl::accLocation(long* left, long* top, long* width, long* height, VARIANT child) {
  *left = *top = *width = *height = 0;
  int row = -1;
  if (const HRESULT found = RowOf(child, row); found != S_OK) return found;
  RECT place{};
  GetWindowRect(window_, &place);
  if (row >= 0) {
    const PixelRect area = shown_.AccessibleChildArea(row);
    POINT corner{area.left, area.top};
    ClientToScreen(window_, &corner);
    place = {corner.x, corner.y, corner.x + area.width(), corner.y + area.height()};
  }
  *left = place.left;
  *top = place.top;
  *width = std::max(0L, place.right - place.left);
  *height = std::max(0L, place.bottom - place.top);
  return S_OK;
}

HRESULT AccessibleControl::accHitTest(long left, long top, VARIANT* child) {
  child->vt = VT_EMPTY;
  if (!control_) return CO_E_OBJNOTCONNECTED;
  RECT place{};
  GetWindowRect(window_, &place);
  if (!PtInRect(&place, {left, top})) return S_FALSE;
  POINT inside{left, top};
  ScreenToClient(window_, &inside);
  const int count = shown_.AccessibleChildCount();
  int row = 0;
  while (row < count && !shown_.AccessibleChildArea(row).Contains(inside.x, inside.y)) ++row;
  SetNumber(*child, row < count ? row + 1 : CHILDID_SELF);
  return S_OK;
}

}  // namespace kestrun
