// The add-in of the tests, written as an outsider writes one: an automation object with the two members that the auto
// host wants of it, AHForm and SetInfo. When it is told to begin it takes a tour through the window, uses all that the
// window offers, and writes what it saw into a log beside its own file.
#pragma once

#include <windows.h>
// The header below needs the one above.
#include <ole2.h>

#include <string>

#include "support/late_bound.h"

namespace tour {

// The file that this code stands in: the library or the program.
[[nodiscard]] std::wstring OwnFile();
// One line for the log: OwnFile() with ".log" behind it.
void WriteLine(const std::wstring& line);

// How many objects and kept references there are: while there is one, neither library nor program may go.
[[nodiscard]] long LiveObjects();

class TourObject final : public IDispatch {
 public:
  TourObject();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO* told, UINT* bad_argument) override;

 private:
  ~TourObject();

  long references_ = 0;
  late_bound::Reference window_;
};

// Makes tour objects for COM.
class TourFactory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  // There is one for the life of the process.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** made) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

// One value of the registry under the classes of all programs of this kind.
[[nodiscard]] bool WriteClassValue(const std::wstring& key, const std::wstring& text);

}  // namespace tour
