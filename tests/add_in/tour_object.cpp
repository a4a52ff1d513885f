#include "add_in/tour_object.h"

#include "add_in/tour.h"

namespace tour {
namespace {

enum Member : DISPID { kForm = 1, kSetInfo = 2 };

long live_objects = 0;

}  // namespace

std::wstring OwnFile() {
  HMODULE own = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&OwnFile), &own);
  std::wstring path(32'768, L'\0');
  path.resize(GetModuleFileNameW(own, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

void WriteLine(const std::wstring& line) {
  const HANDLE log = CreateFileW((OwnFile() + L".log").c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 nullptr, OPEN_ALWAYS, 0, nullptr);
  std::string bytes(line.size() * 4, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<size_t>(length));
  bytes += "\r\n";
  DWORD written = 0;
  WriteFile(log, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(log);
}

long LiveObjects() { return live_objects; }

TourObject::TourObject() { ++live_objects; }

TourObject::~TourObject() {
  WriteLine(L"released");
  --live_objects;
}

HRESULT TourObject::QueryInterface(REFIID id, void** found) {
  *found = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch)) return E_NOINTERFACE;
  *found = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

ULONG TourObject::AddRef() { return static_cast<ULONG>(++references_); }

ULONG TourObject::Release() {
  const long left = --references_;
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT TourObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT TourObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) {
  for (UINT at = 0; at < count; ++at) numbers[at] = DISPID_UNKNOWN;
  if (_wcsicmp(names[0], L"AHForm") == 0) numbers[0] = kForm;
  if (_wcsicmp(names[0], L"SetInfo") == 0) numbers[0] = kSetInfo;
  return numbers[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

// AHForm is set by reference, and only so.
HRESULT TourObject::Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* given, VARIANT*, EXCEPINFO* told,
                           UINT*) {
  if (member == kForm && (kind & DISPATCH_PROPERTYPUTREF) && given->cArgs == 1) {
    if (given->rgvarg[0].vt != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
    window_ = late_bound::Reference(given->rgvarg[0].pdispVal);
    WriteLine(L"AHForm");
    return S_OK;
  }
  if (member != kSetInfo || !(kind & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
  try {
    TakeTour(window_, *this);
    return S_OK;
  } catch (const late_bound::Failure& failure) {
    WriteLine(L"failed: " + std::to_wstring(failure.number) + L" " + failure.text);
    if (told) {
      *told = {};
      told->scode = E_FAIL;
      told->bstrDescription = SysAllocString((L"The tour failed: " + failure.text).c_str());
    }
    return told ? DISP_E_EXCEPTION : E_FAIL;
  }
}

HRESULT TourFactory::QueryInterface(REFIID id, void** found) {
  *found = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IClassFactory)) return E_NOINTERFACE;
  *found = static_cast<IClassFactory*>(this);
  return S_OK;
}

HRESULT TourFactory::CreateInstance(IUnknown* outer, REFIID id, void** made) {
  *made = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  auto* object = new TourObject;
  object->AddRef();
  const HRESULT result = object->QueryInterface(id, made);
  object->Release();
  return result;
}

bool WriteClassValue(const std::wstring& key, const std::wstring& text) {
  HKEY created = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &created, nullptr)) {
    return false;
  }
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  const LSTATUS written =
      RegSetValueExW(created, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  RegCloseKey(created);
  return written == ERROR_SUCCESS;
}

}  // namespace tour
