#include "desktop/win32/window/number_enumeration.h"

#include <algorithm>

namespace kestrun {

HRESULT NumberEnumeration::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IEnumVARIANT)) return E_NOINTERFACE;
  *object = static_cast<IEnumVARIANT*>(this);
  Retain();
  return S_OK;
}

ULONG NumberEnumeration::AddRef() {
  Retain();
  return references();
}

ULONG NumberEnumeration::Release() {
  const ULONG left = references() - 1;
  RefCounted::Release();
  return left;
}

HRESULT NumberEnumeration::Next(ULONG count, VARIANT* numbers, ULONG* fetched) {
  if (!numbers || (!fetched && count != 1)) return E_INVALIDARG;
  const auto given = static_cast<ULONG>(std::min<size_t>(count, numbers_.size() - at_));
  for (ULONG one = 0; one < given; ++one) {
    numbers[one] = {};
    numbers[one].vt = VT_I4;
    numbers[one].lVal = numbers_[at_ + one];
  }
  at_ += given;
  if (fetched) *fetched = given;
  return given == count ? S_OK : S_FALSE;
}

HRESULT NumberEnumeration::Skip(ULONG count) {
  const size_t skipped = std::min<size_t>(count, numbers_.size() - at_);
  at_ += skipped;
  return skipped == count ? S_OK : S_FALSE;
}

HRESULT NumberEnumeration::Reset() {
  at_ = 0;
  return S_OK;
}

HRESULT NumberEnumeration::Clone(IEnumVARIANT** copy) {
  if (!copy) return E_POINTER;
  return MakeRef<NumberEnumeration>(numbers_, at_)
      ->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(copy));
}

}  // namespace kestrun
