// One of the program's objects as others see it.
#pragma once

#include "base/object.h"
#include "desktop/win32/com/counted_unknown.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

class ObjectDispatch final : public CountedUnknown, public IDispatch {
 public:
  // The one for this object, made when there is none.
  [[nodiscard]] static ComOwner<IDispatch> For(Object& object);
  // The object behind a reference that is one of these; null when it is somebody else's. Error 424 when the bridge was
  // closed meanwhile.
  [[nodiscard]] static Ref<Object> Behind(IUnknown& reference);
  // All that exist let go of their objects.
  static void DisconnectAll();

  explicit ObjectDispatch(Object& object);
  ~ObjectDispatch() override;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return Retain(); }
  ULONG STDMETHODCALLTYPE Release() override { return LetGo(); }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO* failure, UINT* bad_argument) override;

 private:
  // Error 424 once disconnected.
  [[nodiscard]] Ref<Object> Target() const;
  HRESULT Access(DISPID number, WORD kind, DISPPARAMS& given, VARIANT* result);

  Ref<Object> object_;
};

}  // namespace kestrun
