#include "desktop/win32/window/win32_effects.h"

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
#include "platform/pictures.h"
// These need the Windows headers above.
#include <mmsystem.h>

namespace kestrun {
namespace {

// Handles of windows and of what is drawn with have 32 significant bits on every Windows; the number keeps their sign.
template <class Handle, class Number>
Handle HandleOf(Number number) {
  return reinterpret_cast<Handle>(static_cast<intptr_t>(number));
}
int64_t NumberOf(const void* handle) { return static_cast<int64_t>(reinterpret_cast<intptr_t>(handle)); }

// A context that is given back to its window.
class WindowContext {
 public:
  WindowContext(HWND window, HDC context) : window_(window), context_(context) {}
  ~WindowContext() { ReleaseDC(window_, context_); }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  [[nodiscard]] HDC get() const { return context_; }

 private:
  HWND window_;
  HDC context_;
};

TRIVERTEX VertexOf(const GradientVertex& vertex) {
  return {vertex.x, vertex.y, vertex.red, vertex.green, vertex.blue, vertex.alpha};
}

}  // namespace

void Win32Effects::SetOpacity(WindowNumber window, uint8_t alpha) {
  const auto handle = HandleOf<HWND>(window);
  SetWindowLongPtrW(handle, GWL_EXSTYLE, GetWindowLongPtrW(handle, GWL_EXSTYLE) | WS_EX_LAYERED);
  SetLayeredWindowAttributes(handle, 0, alpha, LWA_ALPHA);
}

void Win32Effects::FillGradient(ContextNumber context, const std::array<GradientVertex, 2>& vertices) {
  TRIVERTEX corners[2] = {VertexOf(vertices[0]), VertexOf(vertices[1])};
  GRADIENT_RECT whole{0, 1};
  KESTRUN_LATE(L"msimg32.dll", GradientFill)(HandleOf<HDC>(context), corners, 2, &whole, 1, GRADIENT_FILL_RECT_V);
}

std::optional<BitmapPixels> Win32Effects::ReadBitmap(BitmapNumber bitmap, ContextNumber context) {
  const auto handle = HandleOf<HBITMAP>(bitmap);
  BITMAP facts{};
  if (GetObjectW(handle, sizeof facts, &facts) == 0 || !IsPictureSizeAllowed(facts.bmWidth, facts.bmHeight)) {
    return std::nullopt;
  }
  BitmapPixels pixels{static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight), {}};
  pixels.bytes.resize(BitmapStride(static_cast<size_t>(pixels.width)) * static_cast<size_t>(pixels.height));
  const WindowContext desktop(nullptr, GetDC(nullptr));
  const HDC reading = context != 0 ? HandleOf<HDC>(context) : desktop.get();
  BITMAPINFO info = TopDownInfo(pixels.width, pixels.height, 24);
  GetDIBits(reading, handle, 0, static_cast<UINT>(pixels.height), pixels.bytes.data(), &info, DIB_RGB_COLORS);
  return pixels;
}

RegionNumber Win32Effects::CreateRegion(std::span<const RegionRect> block) {
  return NumberOf(
      ExtCreateRegion(nullptr, static_cast<DWORD>(block.size_bytes()), reinterpret_cast<const RGNDATA*>(block.data())));
}

void Win32Effects::UniteRegions(RegionNumber region, RegionNumber other) {
  CombineRgn(HandleOf<HRGN>(region), HandleOf<HRGN>(region), HandleOf<HRGN>(other), RGN_OR);
}

void Win32Effects::DeleteRegion(RegionNumber region) { DeleteObject(HandleOf<HRGN>(region)); }

void Win32Effects::PictureWindow(WindowNumber window,
                                 const std::function<void(BitmapNumber bitmap, ContextNumber context)>& use) {
  const auto handle = HandleOf<HWND>(window);
  RECT place{};
  if (!GetWindowRect(handle, &place)) return;
  OffsetRect(&place, -place.left, -place.top);
  const WindowContext source(handle, GetWindowDC(handle));
  const BitmapHandle bitmap(CreateCompatibleBitmap(source.get(), place.right, place.bottom));
  {
    const MemoryDevice memory(CreateCompatibleDC(source.get()));
    const HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
    BitBlt(memory.get(), 0, 0, place.right, place.bottom, source.get(), 0, 0, SRCCOPY);
    SelectObject(memory.get(), before);
  }
  use(NumberOf(bitmap.get()), NumberOf(source.get()));
}

void Win32Effects::SetWindowRegion(WindowNumber window, RegionNumber region) {
  SetWindowRgn(HandleOf<HWND>(window), HandleOf<HRGN>(region), TRUE);
}

void Win32Effects::PlaySoundAndWait(ByteView wave) {
  KESTRUN_LATE(L"winmm.dll", sndPlaySoundW)
  (reinterpret_cast<const wchar_t*>(wave.data()), SND_MEMORY | SND_NODEFAULT | SND_SYNC);
}

// The system plays from the program's memory: the bytes stay until the next sound has taken their place.
void Win32Effects::StartSound(Bytes wave) {
  static Bytes playing;
  const auto play = KESTRUN_LATE(L"winmm.dll", sndPlaySoundW);
  play(nullptr, 0);
  playing = std::move(wave);
  play(reinterpret_cast<const wchar_t*>(playing.data()), SND_MEMORY | SND_ASYNC);
}

}  // namespace kestrun
