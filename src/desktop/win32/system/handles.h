// Move-only owners of Windows handles. Each releases what it holds when it is destroyed or given something else.
#pragma once

#include <utility>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Traits: the handle's type, its empty value, and how it is released.
template <class Traits>
class UniqueHandle {
 public:
  using Handle = typename Traits::Handle;

  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  ~UniqueHandle() { Reset(); }

  [[nodiscard]] Handle get() const { return handle_; }
  [[nodiscard]] bool IsValid() const { return handle_ != Traits::Empty(); }
  // Gives the handle away without releasing it.
  [[nodiscard]] Handle Release() { return std::exchange(handle_, Traits::Empty()); }
  void Reset(Handle handle = Traits::Empty()) {
    if (handle_ != Traits::Empty() && handle_ != handle) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_ = Traits::Empty();
};

struct FileHandleTraits {
  using Handle = HANDLE;
  static Handle Empty() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
struct FindHandleTraits {
  using Handle = HANDLE;
  static Handle Empty() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { FindClose(handle); }
};
struct WindowTraits {
  using Handle = HWND;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { DestroyWindow(handle); }
};
struct MenuTraits {
  using Handle = HMENU;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { DestroyMenu(handle); }
};
struct RegistryKeyTraits {
  using Handle = HKEY;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { RegCloseKey(handle); }
};
struct IconTraits {
  using Handle = HICON;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { DestroyIcon(handle); }
};
struct MemoryDeviceTraits {
  using Handle = HDC;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { DeleteDC(handle); }
};
// Bitmaps, brushes, fonts, pens and regions.
template <class Object>
struct GraphicsTraits {
  using Handle = Object;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { DeleteObject(handle); }
};

using FileHandle = UniqueHandle<FileHandleTraits>;
using FindHandle = UniqueHandle<FindHandleTraits>;
using WindowHandle = UniqueHandle<WindowTraits>;
using MenuHandle = UniqueHandle<MenuTraits>;
using RegistryKey = UniqueHandle<RegistryKeyTraits>;
using IconHandle = UniqueHandle<IconTraits>;
using MemoryDevice = UniqueHandle<MemoryDeviceTraits>;
using BitmapHandle = UniqueHandle<GraphicsTraits<HBITMAP>>;
using BrushHandle = UniqueHandle<GraphicsTraits<HBRUSH>>;
using PenHandle = UniqueHandle<GraphicsTraits<HPEN>>;
using FontHandle = UniqueHandle<GraphicsTraits<HFONT>>;
using RegionHandle = UniqueHandle<GraphicsTraits<HRGN>>;

}  // namespace kestrun
