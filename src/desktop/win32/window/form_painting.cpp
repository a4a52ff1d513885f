#include "desktop/win32/window/form_painting.h"

#include <algorithm>

#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/form_window.h"

namespace kestrun {

// The system's controls keep their font: none goes while the form is there.
HFONT FormPainting::FontFor(const FontDescription& font) {
  const auto found = std::find_if(fonts_of_controls_.begin(), fonts_of_controls_.end(),
                                  [&font](const auto& made) { return made.first == font; });
  if (found != fonts_of_controls_.end()) return found->second.get();
  fonts_of_controls_.emplace_back(font, MakeFont(font, form_.scale()));
  return fonts_of_controls_.back().second.get();
}

HBRUSH FormPainting::BrushFor(Color color) {
  BrushHandle& made = brushes_[color];
  if (!made.IsValid()) made.Reset(CreateSolidBrush(ToColorRef(color)));
  return made.get();
}

void FormPainting::Paint(HWND window, Control& container) {
  PAINTSTRUCT paint{};
  const HDC screen = BeginPaint(window, &paint);
  RECT client{};
  GetClientRect(window, &client);
  if (client.right > 0 && client.bottom > 0) {
    const MemoryDevice buffer(CreateCompatibleDC(screen));
    const BitmapHandle bitmap(CreateCompatibleBitmap(screen, client.right, client.bottom));
    const HGDIOBJ previous = SelectObject(buffer.get(), bitmap.get());
    PaintContent(buffer.get(), container, client);
    BitBlt(screen, 0, 0, client.right, client.bottom, buffer.get(), 0, 0, SRCCOPY);
    SelectObject(buffer.get(), previous);
  }
  EndPaint(window, &paint);
}

void FormPainting::PaintBackground(HDC target, DrawableControl& container, const RECT& client) {
  if (const DrawingSurface* kept = container.KeptDrawing()) {
    const auto drawn = reinterpret_cast<HDC>(static_cast<intptr_t>(kept->ContextNumber()));
    BitBlt(target, 0, 0, client.right, client.bottom, drawn, 0, 0, SRCCOPY);
    return;
  }
  GdiCanvas canvas(target, {client.right, client.bottom}, form_.scale().dpi(), fonts_);
  container.PaintBackground(canvas);
}

void FormPainting::PaintContent(HDC target, Control& container, const RECT& client) {
  Form& form = form_.form();
  if (&container == &form) {
    PaintBackground(target, form, client);
  } else if (ControlPeer* panel = form_.PeerOf(container)) {
    panel->DrawBackground(target, client);
  }
  for (Control* control : form.StackingOrder()) {
    if (control->Container() != &container || !control->Visible) continue;
    ControlPeer* peer = form_.PeerOf(*control);
    if (peer && !peer->window()) peer->Draw(target, peer->Area());
  }
}

void FormPainting::PaintBehind(HDC target, const ControlPeer& peer) {
  const HWND container_window = form_.ContainerWindow(peer.control());
  POINT place{};
  MapWindowPoints(peer.window(), container_window, &place, 1);
  RECT client{};
  GetClientRect(container_window, &client);
  POINT before{};
  OffsetViewportOrgEx(target, -place.x, -place.y, &before);
  PaintContent(target, *peer.control().Container(), client);
  SetViewportOrgEx(target, before.x, before.y, nullptr);
}

}  // namespace kestrun
