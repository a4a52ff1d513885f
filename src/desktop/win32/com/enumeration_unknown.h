// The items of one of the program's collections as others walk them.
#pragma once

#include <memory>

#include "base/object.h"
#include "desktop/win32/com/counted_unknown.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/windows_api.h"
// The header below needs the one above.
#include <oleauto.h>

namespace kestrun {

class EnumerationUnknown final : public CountedUnknown, public IEnumVARIANT {
 public:
  // Stands in front of the first item.
  [[nodiscard]] static ComOwner<IEnumVARIANT> For(Ref<Object> collection, std::unique_ptr<Enumeration> items);
  EnumerationUnknown(Ref<Object> collection, std::unique_ptr<Enumeration> items)
      : collection_(std::move(collection)), items_(std::move(items)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return Retain(); }
  ULONG STDMETHODCALLTYPE Release() override { return LetGo(); }

  // S_FALSE when there were fewer than asked for. `fetched` may be null when one is asked for.
  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  // The collection is walked anew: it may hold other items by now.
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

 private:
  Ref<Object> collection_;
  std::unique_ptr<Enumeration> items_;
  ULONG at_ = 0;
};

}  // namespace kestrun
