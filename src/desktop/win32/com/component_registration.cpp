#include "desktop/win32/com/component_registration.h"

#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr DWORD kPatienceMs = 10'000;

struct LibraryTraits {
  using Handle = HMODULE;
  static Handle Empty() { return nullptr; }
  static void Close(Handle library) { FreeLibrary(library); }
};
using LibraryHandle = UniqueHandle<LibraryTraits>;

struct ThreadTraits {
  using Handle = HANDLE;
  static Handle Empty() { return nullptr; }
  static void Close(Handle thread) { CloseHandle(thread); }
};
using ThreadHandle = UniqueHandle<ThreadTraits>;

using Entry = HRESULT(STDAPICALLTYPE*)();

DWORD WINAPI RunEntry(void* entry) { return static_cast<DWORD>(reinterpret_cast<Entry>(entry)()); }

}  // namespace

bool RunRegistrationEntry(const std::string& file, bool unregister) {
  LibraryHandle library(LoadLibraryW(ToWidePath(file).c_str()));
  if (!library.IsValid()) return false;
  void* const entry =
      reinterpret_cast<void*>(GetProcAddress(library.get(), unregister ? "DllUnregisterServer" : "DllRegisterServer"));
  if (!entry) return false;
  const ThreadHandle thread(CreateThread(nullptr, 0, &RunEntry, entry, 0, nullptr));
  if (!thread.IsValid()) {
    static_cast<void>(library.Release());
    return false;
  }
  if (WaitForSingleObject(thread.get(), kPatienceMs) != WAIT_OBJECT_0) {
    // Nothing may be taken from under the entry, which still runs.
    DWORD code = 0;
    GetExitCodeThread(thread.get(), &code);
    ExitThread(code);
  }
  return true;
}

}  // namespace kestrun
