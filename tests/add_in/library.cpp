// The add-in of the tests as a library, which is loaded into the program: TourInside.Tour.
#include "add_in/tour_object.h"

namespace {

constexpr GUID kClass{0x6f0a3c51, 0x27de, 0x4f9b, {0x8c, 0x44, 0x1b, 0x9f, 0x30, 0x7e, 0x55, 0xa1}};
constexpr const wchar_t* kClassText = L"{6F0A3C51-27DE-4F9B-8C44-1B9F307E55A1}";

tour::TourFactory factory;

}  // namespace

extern "C" {

__declspec(dllexport) HRESULT WINAPI DllGetClassObject(REFCLSID class_id, REFIID id, void** found) {
  if (class_id != kClass) return CLASS_E_CLASSNOTAVAILABLE;
  return factory.QueryInterface(id, found);
}

// It keeps references for the life of the process.
__declspec(dllexport) HRESULT WINAPI DllCanUnloadNow() { return S_FALSE; }

// Never comes back while the variable TOUR_HANGS is set.
__declspec(dllexport) HRESULT WINAPI DllRegisterServer() {
  if (GetEnvironmentVariableW(L"TOUR_HANGS", nullptr, 0) != 0) Sleep(INFINITE);
  const std::wstring key = std::wstring(L"CLSID\\") + kClassText;
  const bool is_written = tour::WriteClassValue(L"TourInside.Tour\\CLSID", kClassText) &&
                          tour::WriteClassValue(key, L"The add-in of the tests") &&
                          tour::WriteClassValue(key + L"\\InprocServer32", tour::OwnFile());
  return is_written ? S_OK : E_ACCESSDENIED;
}

}  // extern "C"
