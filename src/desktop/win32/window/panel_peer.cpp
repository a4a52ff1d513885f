#include "desktop/win32/window/panel_peer.h"

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/window_class.h"
#include "forms/composite_control.h"
#include "forms/frame.h"
#include "forms/picture_box.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kPanelClass = L"KestrunPanel";

}  // namespace

void PanelPeer::CreatePanel() {
  RegisterWindowClass(kPanelClass, DefWindowProcW);
  CreateWindowOf(kPanelClass, L"", WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
}

void PanelPeer::Update(PropertyId property) {
  WindowedPeer::Update(property);
  switch (property) {
    case PropertyId::kCaption:
    case PropertyId::kFont:
    case PropertyId::kForeColor:
    case PropertyId::kEnabled: Repaint(); break;
    case PropertyId::kBackColor:
    case PropertyId::kPicture:
    case PropertyId::kDrawing:
    case PropertyId::kBorderStyle:
    case PropertyId::kAppearance: RepaintWithChildren(window()); break;
    default: break;
  }
}

bool PanelPeer::HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  return form().HandleContainerMessage(window(), control(), message, first, second, result);
}

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
  if (frame.Appearance == 0) {
    FrameRect(target, &edge, form().BrushFor(color::kWindowText));
  } else if (HasOwnBackground(frame)) {
    DrawEtchedEdge(target, edge, frame.BackColor, frame.ForeColor);
  } else {
    DrawEdge(target, &edge, EDGE_ETCHED, BF_RECT);
  }
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

EdgeKind PictureBoxPeer::Edge() const {
  const auto& box = static_cast<PictureBox&>(control());
  return EdgeOf(box.BorderStyle, box.Appearance);
}

void PictureBoxPeer::DrawBackground(HDC target, const RECT& area) {
  form().painting().PaintBackground(target, static_cast<PictureBox&>(control()), area);
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

EdgeKind CompositePeer::Edge() const {
  return static_cast<CompositeControl&>(control()).BorderStyle == 0 ? EdgeKind::kNone : EdgeKind::kSunken;
}

void CompositePeer::Update(PropertyId property) {
  PanelPeer::Update(property);
  Repaint();
}

void CompositePeer::Repaint() { RepaintWithChildren(window()); }

void CompositePeer::DrawBackground(HDC target, const RECT& area) {
  if (static_cast<CompositeControl&>(control()).BackStyle == 0) {
    form().painting().PaintBehind(target, *this);
  } else {
    FillColor(target, area, control().BackColor);
  }
}

}  // namespace kestrun
