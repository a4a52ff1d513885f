// Labels and pictures, which their container draws, and labels that answer clicks.
#include <algorithm>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/image.h"
#include "forms/label.h"

namespace kestrun {
namespace {

// A border of one pixel in the text's colour, or a sunken one, which goes with a form in colours of its own. Gives what
// is left inside.
RECT DrawBorder(FormWindow& form, HDC target, RECT area, EdgeKind edge) {
  const Form& behind = form.form();
  if (edge == EdgeKind::kSunken && HasOwnBackground(behind)) {
    DrawEtchedEdge(target, area, behind.BackColor, behind.ForeColor);
    InflateRect(&area, -2, -2);
  } else if (edge == EdgeKind::kSunken) {
    DrawEdge(target, &area, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  }
  if (edge != EdgeKind::kLine) return area;
  FrameRect(target, &area, form.BrushFor(color::kWindowText));
  InflateRect(&area, -1, -1);
  return area;
}

// Lines that do not fit whole are not drawn: of a text that is too long for its label, the tops of the letters of the
// next line stood at the bottom edge as dots. A label as high as one line shows all of it that its width allows.
void DrawWholeLines(HDC target, const std::wstring& caption, RECT area, UINT format) {
  TEXTMETRICW metrics{};
  GetTextMetricsW(target, &metrics);
  const int lines = std::max(1, static_cast<int>((area.bottom - area.top) / metrics.tmHeight));
  if (lines == 1 && (format & DT_WORDBREAK) != 0) format = (format & ~static_cast<UINT>(DT_WORDBREAK)) | DT_SINGLELINE;
  const int saved = SaveDC(target);
  IntersectClipRect(target, area.left, area.top, area.right,
                    std::min(area.bottom, area.top + lines * metrics.tmHeight));
  DrawTextW(target, caption.c_str(), -1, &area, format);
  RestoreDC(target, saved);
}

void DrawLabel(FormWindow& form, const Label& label, HDC target, const RECT& area) {
  if (label.BackStyle == 1) FillColor(target, area, label.BackColor);
  const RECT text = DrawBorder(form, target, area, EdgeOf(label.BorderStyle, label.Appearance));
  const HGDIOBJ previous = SelectObject(target, form.FontFor(label.Font));
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, label.Enabled ? ToColorRef(label.ForeColor) : GetSysColor(COLOR_GRAYTEXT));
  const UINT aligned = label.Alignment == 1 ? DT_RIGHT : label.Alignment == 2 ? DT_CENTER : DT_LEFT;
  const UINT lines = label.AutoSize && !label.WordWrap ? 0 : DT_WORDBREAK;
  const UINT signs = label.UseMnemonic ? 0 : DT_NOPREFIX;
  DrawWholeLines(target, ToWide(label.Caption.get()), text, aligned | lines | signs);
  SelectObject(target, previous);
}

class LabelPeer final : public DrawnPeer {
 public:
  using DrawnPeer::DrawnPeer;

  void Draw(HDC target, const RECT& area) override { DrawLabel(form(), static_cast<Label&>(control()), target, area); }
};

// A label that answers a click: a system button underneath, for the keyboard and for screen readers, that looks like
// the label, with the focus rectangle around it while it has the focus.
class LinkPeer final : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(L"BUTTON", ToWide(Model().Caption.get()), WS_TABSTOP | BS_OWNERDRAW | BS_NOTIFY, 0);
  }

  void Update(PropertyId property) override {
    WindowedPeer::Update(property);
    if (property == PropertyId::kCaption) SetWindowTextW(window(), ToWide(Model().Caption.get()).c_str());
    Repaint();
  }

  void Notify(int code) override {
    if (code == BN_CLICKED) Dispatch([&] { control().Click(); });
    if (code == BN_DBLCLK) Dispatch([&] { control().DblClick(); });
  }

  void DrawBackground(HDC target, const RECT& area) override {
    if (Model().BackStyle == 0) form().painting().PaintBehind(target, *this);
    DrawLabel(form(), Model(), target, area);
    if (GetFocus() == window()) DrawFocusRect(target, &area);
  }

 protected:
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    const bool done = WindowedPeer::HandleMessage(message, first, second, result);
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_ENABLE) Repaint();
    if (message != WM_PAINT && message != WM_ERASEBKGND) return done;
    return form().HandleContainerMessage(window(), control(), message, first, second, result);
  }

 private:
  [[nodiscard]] Label& Model() const { return static_cast<Label&>(control()); }
};

class ImagePeer final : public DrawnPeer {
 public:
  using DrawnPeer::DrawnPeer;

  void Draw(HDC target, const RECT& area) override {
    const auto& image = static_cast<Image&>(control());
    RECT inner = DrawBorder(form(), target, area, EdgeOf(image.BorderStyle, image.Appearance));
    const Picture* picture = image.Picture.get().get();
    if (!picture) return;
    if (!image.Stretch) {
      inner.right = inner.left + MulDiv(picture->width_pixels(), form().scale().dpi(), 96);
      inner.bottom = inner.top + MulDiv(picture->height_pixels(), form().scale().dpi(), 96);
    }
    DrawPictureTo(target, *picture, inner);
  }
};

}  // namespace

std::unique_ptr<ControlPeer> MakeLabelPeer(FormWindow& form, Control& control) {
  if (control.TakesFocus()) return MakePeerOfKind<LinkPeer>(form, control);
  return MakePeerOfKind<LabelPeer>(form, control);
}

std::unique_ptr<ControlPeer> MakeImagePeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<ImagePeer>(form, control);
}

}  // namespace kestrun
