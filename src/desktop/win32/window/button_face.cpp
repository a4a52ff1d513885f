#include "desktop/win32/window/button_face.h"

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

// One pixel, light from the top left.
void DrawEdgeLines(HDC target, const RECT& area, Color top_left, Color bottom_right) {
  FillColor(target, {area.left, area.top, area.right, area.top + 1}, top_left);
  FillColor(target, {area.left, area.top, area.left + 1, area.bottom}, top_left);
  FillColor(target, {area.left, area.bottom - 1, area.right, area.bottom}, bottom_right);
  FillColor(target, {area.right - 1, area.top, area.right, area.bottom}, bottom_right);
}

void DrawSurface(const Button& button, HDC target, RECT area, ButtonState state) {
  const Color face = button.BackColor;
  if (state.is_default) {
    FillColor(target, area, BlendColors(face, color::kBlack, 60));
    InflateRect(&area, -1, -1);
  }
  FillColor(target, area, state.is_down ? BlendColors(face, color::kBlack, 12) : face);
  const Color light = BlendColors(face, color::kWhite, 45);
  const Color dark = BlendColors(face, color::kBlack, 45);
  if (button.Appearance == 0) {
    DrawEdgeLines(target, area, dark, dark);
  } else {
    DrawEdgeLines(target, area, state.is_down ? dark : light, state.is_down ? light : dark);
  }
}

Color TextColor(const Button& button) {
  return button.Enabled ? button.ForeColor.get() : BlendColors(button.ForeColor, button.BackColor, 50);
}

void DrawFocusAround(const Button& button, HDC target, const RECT& area) {
  SetTextColor(target, ToColorRef(button.ForeColor));
  SetBkColor(target, ToColorRef(button.BackColor));
  DrawFocusRect(target, &area);
}

// The caption beside a mark, in one line, with the focus around it.
void DrawCaption(FormWindow& form, const MarkedButtonFace& face, HDC target, RECT area) {
  const Button& button = face.button;
  const std::wstring caption = ToWide(button.Caption.get());
  const HGDIOBJ previous = SelectObject(target, form.FontFor(button.Font));
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, ToColorRef(TextColor(button)));
  const UINT signs = face.shows_access_keys ? 0 : DT_HIDEPREFIX;
  DrawTextW(target, caption.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | signs);
  if (face.has_focus) {
    RECT focus = area;
    DrawTextW(target, caption.c_str(), -1, &focus, DT_SINGLELINE | DT_CALCRECT);
    const int height = focus.bottom - focus.top;
    focus.top = area.top + (area.bottom - area.top - height) / 2;
    focus.bottom = focus.top + height;
    InflateRect(&focus, 1, 0);
    DrawFocusAround(button, target, focus);
  }
  SelectObject(target, previous);
}

}  // namespace

bool HasOwnColors(const Control& control, SystemColors usual) {
  return control.BackColor != usual.background || control.ForeColor != usual.text;
}

void DrawButtonFace(FormWindow& form, const Button& button, HDC target, const RECT& area, ButtonState state) {
  constexpr int kInset = 4;
  DrawSurface(button, target, area, state);
  const int dpi = form.scale().dpi();
  const std::wstring caption = ToWide(button.Caption.get());
  const Ref<Picture> picture = button.Style == 1 ? button.ShownPicture(state.is_down) : Ref<Picture>();
  const SIZE drawn{picture ? MulDiv(picture->width_pixels(), dpi, 96) : 0,
                   picture ? MulDiv(picture->height_pixels(), dpi, 96) : 0};
  const HGDIOBJ previous = SelectObject(target, form.FontFor(button.Font));
  RECT text{area.left + kInset, 0, area.right - kInset, 0};
  if (!caption.empty()) DrawTextW(target, caption.c_str(), -1, &text, DT_CALCRECT | DT_WORDBREAK);
  const int gap = picture && !caption.empty() ? MulDiv(2, dpi, 96) : 0;
  const int pressed = state.is_down ? 1 : 0;
  int top = area.top + (area.bottom - area.top - drawn.cy - gap - text.bottom) / 2 + pressed;
  if (picture) {
    const int left = area.left + (area.right - area.left - drawn.cx) / 2 + pressed;
    DrawPictureTo(target, *picture, {left, top, left + drawn.cx, top + drawn.cy});
    top += drawn.cy + gap;
  }
  RECT place{area.left + kInset + pressed, top, area.right - kInset + pressed, top + text.bottom};
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, ToColorRef(TextColor(button)));
  DrawTextW(target, caption.c_str(), -1, &place, DT_CENTER | DT_WORDBREAK);
  SelectObject(target, previous);
  if (!state.has_focus) return;
  constexpr int kFocusInset = kInset - 1;  // around what the face shows
  const RECT focus{area.left + kFocusInset, area.top + kFocusInset, area.right - kFocusInset,
                   area.bottom - kFocusInset};
  DrawFocusAround(button, target, focus);
}

void DrawMarkedButton(FormWindow& form, const MarkedButtonFace& face, HDC target, const RECT& area) {
  const Button& button = face.button;
  FillColor(target, area, button.BackColor);
  const int dpi = form.scale().dpi();
  const int side = MulDiv(13, dpi, 96);
  const int gap = MulDiv(4, dpi, 96);
  const int left = face.is_mark_right ? area.right - side : area.left;
  const int top = area.top + (area.bottom - area.top - side) / 2;
  face.draw_mark(target, {left, top, left + side, top + side}, form.scale().LineWidth(),
                 PartColorsOf(button.BackColor, button.ForeColor, face.state));
  const RECT text{face.is_mark_right ? area.left : area.left + side + gap, area.top,
                  face.is_mark_right ? area.right - side - gap : area.right, area.bottom};
  DrawCaption(form, face, target, text);
}

}  // namespace kestrun
