#include "desktop/win32/window/panel_peer.h"

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/window_class.h"
#include "forms/composite_control.h"
#include "forms/frame.h"
#include "forms/picture_box.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kPanelClass = L"KestrunPanel";

}  // namespace

void PanelPeer::CreatePanel(DWORD extended_style) {
  RegisterWindowClass(kPanelClass, DefWindowProcW);
  CreateWindowOf(kPanelClass, L"", WS_CLIPCHILDREN, WS_EX_CONTROLPARENT | extended_style);
}

void PanelPeer::Update(PropertyId property) {
  WindowedPeer::Update(property);
  if (property == PropertyId::kPicture || property == PropertyId::kCaption || property == PropertyId::kFont) Repaint();
}

bool PanelPeer::HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  return form().HandleContainerMessage(window(), control(), message, first, second, result);
}

void FramePeer::Create() { CreatePanel(0); }

void FramePeer::DrawBackground(HDC target, const RECT& area) {
  const auto& frame = static_cast<Frame&>(control());
  FillColor(target, area, frame.BackColor);
  if (frame.BorderStyle == 0) return;
  const HGDIOBJ previous = SelectObject(target, form().FontFor(frame.Font));
  const std::wstring caption = ToWide(frame.Caption.get());
  RECT text{0, 0, 0, 0};
  DrawTextW(target, caption.c_str(), -1, &text, DT_SINGLELINE | DT_CALCRECT);
  RECT edge = area;
  edge.top += text.bottom / 2;
  DrawEdge(target, &edge, EDGE_ETCHED, BF_RECT);
  if (!caption.empty()) {
    const int inset = form().scale().Pixels(135);
    RECT gap{area.left + inset - 3, area.top, area.left + inset + text.right + 3, area.top + text.bottom};
    FillColor(target, gap, frame.BackColor);
    OffsetRect(&text, area.left + inset, area.top);
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, frame.Enabled ? ToColorRef(frame.ForeColor) : GetSysColor(COLOR_GRAYTEXT));
    DrawTextW(target, caption.c_str(), -1, &text, DT_SINGLELINE);
  }
  SelectObject(target, previous);
}

void PictureBoxPeer::Create() {
  CreatePanel(static_cast<PictureBox&>(control()).BorderStyle == 0 ? 0 : WS_EX_CLIENTEDGE);
}

void PictureBoxPeer::DrawBackground(HDC target, const RECT& area) {
  const auto& box = static_cast<PictureBox&>(control());
  FillColor(target, area, box.BackColor);
  const Picture* picture = box.Picture.get().get();
  if (!picture) return;
  const int dpi = form().scale().dpi();
  DrawPictureTo(target, *picture,
                {area.left, area.top, area.left + MulDiv(picture->width_pixels(), dpi, 96),
                 area.top + MulDiv(picture->height_pixels(), dpi, 96)});
}

CompositePeer::~CompositePeer() {
  if (accessible_) accessible_->Disconnect();
}

// Its constituents speak for themselves, unless the control has something to say as a whole.
bool CompositePeer::HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  const auto* shown = dynamic_cast<const Accessible*>(&control());
  if (message != WM_GETOBJECT || static_cast<LONG>(second) != OBJID_CLIENT || !shown) {
    return PanelPeer::HandleMessage(message, first, second, result);
  }
  if (!accessible_) accessible_ = MakeRef<AccessibleControl>(window(), control(), *shown);
  return accessible_->Answer(first, result);
}

DWORD CompositePeer::BorderStyle() const {
  return static_cast<CompositeControl&>(control()).BorderStyle == 0 ? 0 : WS_EX_CLIENTEDGE;
}

void CompositePeer::Create() { CreatePanel(BorderStyle()); }

void CompositePeer::Update(PropertyId property) {
  PanelPeer::Update(property);
  if (property == PropertyId::kBorderStyle) {
    const auto others = GetWindowLongPtrW(window(), GWL_EXSTYLE) & ~static_cast<LONG_PTR>(WS_EX_CLIENTEDGE);
    SetWindowLongPtrW(window(), GWL_EXSTYLE, others | static_cast<LONG_PTR>(BorderStyle()));
    SetWindowPos(window(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  }
  Repaint();
}

void CompositePeer::Repaint() { RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN); }

void CompositePeer::DrawBackground(HDC target, const RECT& area) {
  if (static_cast<CompositeControl&>(control()).BackStyle == 0) {
    form().PaintBehind(target, *this);
  } else {
    FillColor(target, area, control().BackColor);
  }
}

}  // namespace kestrun
