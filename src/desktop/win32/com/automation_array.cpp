#include "desktop/win32/com/automation_array.h"

#include "base/runtime_error.h"
#include "desktop/win32/com/automation_calls.h"
#include "desktop/win32/com/automation_element.h"
#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/system/handles.h"

namespace kestrun {
namespace {

constexpr UINT kMostDimensions = 60;

struct ArrayTraits {
  using Handle = SAFEARRAY*;
  static Handle Empty() { return nullptr; }
  static void Close(Handle array) { AUTOMATION_CALL(SafeArrayDestroy)(array); }
};
using ArrayOwner = UniqueHandle<ArrayTraits>;

// The elements of an array, which keeps its size meanwhile.
class LockedElements {
 public:
  explicit LockedElements(SAFEARRAY* array) : array_(array) {
    if (FAILED(AUTOMATION_CALL(SafeArrayAccessData)(array, &data_))) Raise(error::kOutOfMemory);
  }
  ~LockedElements() { AUTOMATION_CALL(SafeArrayUnaccessData)(array_); }
  LockedElements(const LockedElements&) = delete;
  LockedElements& operator=(const LockedElements&) = delete;

  [[nodiscard]] void* data() const { return data_; }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

std::vector<int32_t> SizesOf(SAFEARRAY* array) {
  const UINT dimensions = AUTOMATION_CALL(SafeArrayGetDim)(array);
  if (dimensions > kMostDimensions) Raise(error::kSubscriptOutOfRange);
  std::vector<int32_t> sizes;
  for (UINT dimension = 1; dimension <= dimensions; ++dimension) {
    LONG lower = 0;
    LONG upper = -1;
    AUTOMATION_CALL(SafeArrayGetLBound)(array, dimension, &lower);
    AUTOMATION_CALL(SafeArrayGetUBound)(array, dimension, &upper);
    const int64_t size = int64_t{upper} - lower + 1;
    if (size > INT32_MAX) Raise(error::kOutOfMemory);
    sizes.push_back(static_cast<int32_t>(size));
  }
  return sizes;
}

}  // namespace

Variant FromAutomationArray(SAFEARRAY* array, VARTYPE type) {
  if (!array) return Variant(MakeRef<ArrayBody>(std::vector<int32_t>()));
  const Ref<ArrayBody> copy = MakeRef<ArrayBody>(SizesOf(array));
  const LockedElements locked(array);
  const size_t size = SizeOfElement(type);
  const auto* place = static_cast<const uint8_t*>(locked.data());
  for (Variant& element : copy->elements) {
    element = FromAutomationElement(type, place);
    place += size;
  }
  copy->CountBytes();
  return Variant(copy);
}

SAFEARRAY* NewAutomationArray(const ArrayBody& array) {
  std::vector<SAFEARRAYBOUND> bounds;
  for (const int32_t size : array.sizes) bounds.push_back({static_cast<ULONG>(size), 0});
  if (bounds.empty()) bounds.push_back({0, 0});
  ArrayOwner copy(AUTOMATION_CALL(SafeArrayCreate)(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data()));
  if (!copy.IsValid()) Raise(error::kOutOfMemory);
  {
    const LockedElements locked(copy.get());
    auto* place = static_cast<VARIANT*>(locked.data());
    for (const Variant& element : array.elements) StoreAutomation(element, *place++);
  }
  return copy.Release();
}

}  // namespace kestrun
