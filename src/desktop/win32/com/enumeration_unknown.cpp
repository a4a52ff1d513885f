#include "desktop/win32/com/enumeration_unknown.h"

#include <utility>

#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/com/bridge_failures.h"

namespace kestrun {

ComOwner<IEnumVARIANT> EnumerationUnknown::For(Ref<Object> collection, std::unique_ptr<Enumeration> items) {
  return MakeUnknown<IEnumVARIANT, EnumerationUnknown>(std::move(collection), std::move(items));
}

HRESULT EnumerationUnknown::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IEnumVARIANT)) return E_NOINTERFACE;
  *found = static_cast<IEnumVARIANT*>(this);
  Retain();
  return S_OK;
}

HRESULT EnumerationUnknown::Next(ULONG count, VARIANT* items, ULONG* fetched) {
  if (!items || (!fetched && count != 1)) return E_INVALIDARG;
  if (!IsOwnThread()) return RPC_E_WRONG_THREAD;
  ULONG given = 0;
  const HRESULT result = AnswerCall(nullptr, [&] {
    Variant item;
    while (given < count && items_->Next(item)) {
      StoreAutomation(item, items[given]);
      ++given;
      ++at_;
    }
    return given == count ? S_OK : S_FALSE;
  });
  if (fetched) *fetched = given;
  return result;
}

HRESULT EnumerationUnknown::Skip(ULONG count) {
  if (!IsOwnThread()) return RPC_E_WRONG_THREAD;
  return AnswerCall(nullptr, [&] {
    Variant item;
    ULONG skipped = 0;
    while (skipped < count && items_->Next(item)) ++skipped;
    at_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  });
}

HRESULT EnumerationUnknown::Reset() {
  if (!IsOwnThread()) return RPC_E_WRONG_THREAD;
  return AnswerCall(nullptr, [&] {
    items_ = collection_->Enumerate();
    at_ = 0;
    return S_OK;
  });
}

HRESULT EnumerationUnknown::Clone(IEnumVARIANT** copy) {
  if (!copy) return E_POINTER;
  *copy = nullptr;
  if (!IsOwnThread()) return RPC_E_WRONG_THREAD;
  return AnswerCall(nullptr, [&] {
    ComOwner<IEnumVARIANT> made = For(collection_, collection_->Enumerate());
    static_cast<void>(made->Skip(at_));
    *copy = made.Detach();
    return S_OK;
  });
}

}  // namespace kestrun
