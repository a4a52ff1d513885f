#include "desktop/win32/com/created_object.h"

#include <array>
#include <optional>

#include "base/text.h"
#include "desktop/win32/com/bridge_failures.h"
#include "desktop/win32/com/object_bridge.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/ole_start.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr bool kIs64Bit = sizeof(void*) == 8;
// The registry as programs of the other kind see it.
constexpr REGSAM kOtherView = kIs64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
constexpr const char* kOwnBits = kIs64Bit ? "64-bit" : "32-bit";
constexpr const char* kOtherBits = kIs64Bit ? "32-bit" : "64-bit";

// "{" and 36 digits and hyphens and "}".
constexpr size_t kClassIdLength = 38;

std::wstring InBraces(const std::string& id) {
  const std::string_view trimmed = TrimBlanks(id);
  const bool is_bare = trimmed.size() == kClassIdLength - 2 && trimmed[8] == '-' && trimmed[13] == '-';
  return ToWide(is_bare ? "{" + std::string(trimmed) + "}" : std::string(trimmed));
}

HRESULT FindClass(const std::wstring& id, CLSID& found) {
  if (id.starts_with(L'{')) return KESTRUN_LATE(L"ole32.dll", CLSIDFromString)(id.c_str(), &found);
  return KESTRUN_LATE(L"ole32.dll", CLSIDFromProgID)(id.c_str(), &found);
}

// The class identifier that programs of the other kind find under a program identifier.
std::optional<std::wstring> ClassInOtherView(const std::wstring& id) {
  if (id.starts_with(L'{')) return id;
  HKEY opened = nullptr;
  RegOpenKeyExW(HKEY_CLASSES_ROOT, (id + L"\\CLSID").c_str(), 0, KEY_QUERY_VALUE | kOtherView, &opened);
  const RegistryKey key(opened);
  std::array<wchar_t, kClassIdLength + 1> text{};
  DWORD bytes = kClassIdLength * sizeof(wchar_t) + sizeof(wchar_t);
  const bool is_read = key.IsValid() && RegQueryValueExW(key.get(), nullptr, nullptr, nullptr,
                                                         reinterpret_cast<BYTE*>(text.data()), &bytes) == ERROR_SUCCESS;
  return is_read ? std::optional<std::wstring>(text.data()) : std::nullopt;
}

bool HasComponent(const std::wstring& class_id, REGSAM view) {
  HKEY opened = nullptr;
  RegOpenKeyExW(HKEY_CLASSES_ROOT, (L"CLSID\\" + class_id + L"\\InprocServer32").c_str(), 0, KEY_QUERY_VALUE | view,
                &opened);
  return RegistryKey(opened).IsValid();
}

// A component that is loaded into programs of the other kind, and there is none for this one.
bool IsForOtherProgram(const std::wstring& id) {
  const std::optional<std::wstring> class_id = ClassInOtherView(id);
  return class_id && HasComponent(*class_id, kOtherView) && !HasComponent(*class_id, 0);
}

[[noreturn]] void RaiseNotCreated(const std::wstring& id, HRESULT result) {
  std::string text(StandardErrorText(error::kCannotCreateObject));
  const bool is_unknown = result == REGDB_E_CLASSNOTREG || result == CO_E_CLASSSTRING;
  if (IsForOtherProgram(id)) {
    text += std::string(kCrLf) + "This component is made for " + kOtherBits + " programs, and this kestrun.exe is a " +
            kOwnBits + " one: use the " + kOtherBits + " kestrun.exe.";
  } else if (const std::string reason = TextOfResult(result); !is_unknown && !reason.empty()) {
    text += std::string(kCrLf) + reason;
  }
  Raise(error::kCannotCreateObject, text);
}

}  // namespace

Ref<Object> CreateObjectOfClass(const std::string& id) {
  StartOle();
  const std::wstring name = InBraces(id);
  CLSID class_id{};
  HRESULT result = FindClass(name, class_id);
  ComOwner<IUnknown> made;
  if (SUCCEEDED(result)) {
    result = KESTRUN_LATE(L"ole32.dll", CoCreateInstance)(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                                          __uuidof(IUnknown), made.ReceiveAny());
  }
  if (FAILED(result)) RaiseNotCreated(name, result);
  return ObjectOf(made.get());
}

}  // namespace kestrun
