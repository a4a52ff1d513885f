// Numbers as COM hands several of them out at once: what a screen reader gets when more than one row is selected.
#pragma once

#include <utility>
#include <vector>

#include "base/ref.h"
#include "desktop/win32/system/windows_api.h"
// The header below needs the one above.
#include <oleauto.h>

namespace kestrun {

class NumberEnumeration final : public RefCounted, public IEnumVARIANT {
 public:
  // Stands at the first number, or at the place that is given.
  explicit NumberEnumeration(std::vector<long> numbers, size_t at = 0) : numbers_(std::move(numbers)), at_(at) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // S_FALSE when there were fewer than asked for. `fetched` may be null when one is asked for.
  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* numbers, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

 private:
  std::vector<long> numbers_;
  size_t at_;
};

}  // namespace kestrun
