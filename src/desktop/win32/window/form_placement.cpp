#include "desktop/win32/window/form_placement.h"

#include <algorithm>
#include <cstdlib>

#include "desktop/win32/window/form_window.h"
#include "forms/form.h"

namespace kestrun {
namespace {

RECT WorkAreaOf(HWND near_window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromWindow(near_window, MONITOR_DEFAULTTOPRIMARY), &info);
  return info.rcWork;
}

}  // namespace

HWND FormPlacement::window() const { return form_window_.window(); }

Form& FormPlacement::form() const { return form_window_.form(); }

ScreenScale FormPlacement::scale() const { return form_window_.scale(); }

bool FormPlacement::IsSizable() const { return form().BorderStyle == static_cast<int>(FormBorder::kSizable); }

RECT FormPlacement::WorkArea() const { return WorkAreaOf(window()); }

DWORD FormPlacement::Style() const {
  DWORD style = WS_CLIPCHILDREN;
  switch (static_cast<FormBorder>(form().BorderStyle.get())) {
    case FormBorder::kNone: return style | WS_POPUP;
    case FormBorder::kFixedDialog: style |= WS_POPUP | WS_CAPTION | DS_MODALFRAME; break;
    case FormBorder::kFixedSingle: style |= WS_CAPTION; break;
    case FormBorder::kSizable: style |= WS_CAPTION | WS_THICKFRAME; break;
  }
  if (form().ControlBox) style |= WS_SYSMENU;
  if (form().MinButton) style |= WS_MINIMIZEBOX;
  if (form().MaxButton) style |= WS_MAXIMIZEBOX;
  return style;
}

DWORD FormPlacement::ExtendedStyle() const {
  DWORD style = WS_EX_CONTROLPARENT;
  if (form().BorderStyle == static_cast<int>(FormBorder::kFixedDialog)) style |= WS_EX_DLGMODALFRAME;
  style |= form().ShowInTaskbar ? WS_EX_APPWINDOW : 0;
  style |= form().FilesDropped ? WS_EX_ACCEPTFILES : 0;
  return style;
}

SIZE FormPlacement::OuterSizeOfModel() const {
  const SIZE client{scale().Pixels(form().ScaleWidth()), scale().Pixels(form().ScaleHeight())};
  return OuterSize(client, Style(), ExtendedStyle(), form().HasMenu(), scale());
}

void FormPlacement::Place(HWND owner) {
  SIZE outer = OuterSizeOfModel();
  const RECT work = WorkAreaOf(owner ? owner : window());
  if (IsSizable()) {
    // On a screen that is too small the form arranges its controls for less room.
    outer.cx = std::min(outer.cx, work.right - work.left);
    outer.cy = std::min(outer.cy, work.bottom - work.top);
  }
  RECT frame = work;
  const auto start = static_cast<StartPosition>(form().StartUpPosition.get());
  if (start == StartPosition::kCenterOwner && owner) GetWindowRect(owner, &frame);
  POINT place{frame.left + (frame.right - frame.left - outer.cx) / 2,
              frame.top + (frame.bottom - frame.top - outer.cy) / 2};
  if (start == StartPosition::kManual || form().IsPlaced()) {
    place = {scale().Pixels(form().Left), scale().Pixels(form().Top)};
  }
  // The whole window stays on the screen, its top left corner first of all.
  place.x = std::max(work.left, std::min(place.x, work.right - outer.cx));
  place.y = std::max(work.top, std::min(place.y, work.bottom - outer.cy));
  SetWindowPos(window(), nullptr, place.x, place.y, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  NotePlace();
}

// A window that fills the screen or is minimized has no place of its own.
void FormPlacement::MoveToModel() {
  if (!form().IsShown() || IsIconic(window()) || IsZoomed(window())) return;
  SetWindowPos(window(), nullptr, scale().Pixels(form().Left), scale().Pixels(form().Top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormPlacement::SizeToModel() {
  const SIZE outer = OuterSizeOfModel();
  RECT place{};
  GetWindowRect(window(), &place);
  // A window that grows beyond the screen's edge moves back from it; otherwise it stays where the user put it.
  const RECT work = WorkArea();
  if (outer.cx > place.right - place.left)
    place.left = std::max(work.left, std::min(place.left, work.right - outer.cx));
  if (outer.cy > place.bottom - place.top) place.top = std::max(work.top, std::min(place.top, work.bottom - outer.cy));
  SetWindowPos(window(), nullptr, place.left, place.top, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Another border leaves Width and Height as they are: the client area gives or takes what the border needs.
void FormPlacement::ShowBorder() {
  constexpr DWORD kStates = WS_VISIBLE | WS_DISABLED | WS_MINIMIZE | WS_MAXIMIZE;
  const auto states = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE)) & kStates;
  SetWindowLongPtrW(window(), GWL_STYLE, static_cast<LONG_PTR>(Style() | states));
  SetWindowLongPtrW(window(), GWL_EXSTYLE, static_cast<LONG_PTR>(ExtendedStyle()));
  const SIZE outer = OuterSizeOfModel();
  const UINT size = form().IsShown() && !IsIconic(window()) && !IsZoomed(window()) ? 0 : SWP_NOSIZE;
  SetWindowPos(window(), nullptr, 0, 0, outer.cx, outer.cy,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | size);
}

void FormPlacement::NotePlace() {
  if (IsIconic(window())) return;
  RECT place{};
  GetWindowRect(window(), &place);
  // Rounding to pixels and back is no move.
  const auto note = [this](Property<int>& stored, LONG pixels) {
    if (scale().Pixels(stored) != pixels) stored.StoreQuietly(scale().Twips(pixels));
  };
  note(form().Left, place.left);
  note(form().Top, place.top);
}

void FormPlacement::NoteSize() {
  RECT client{};
  GetClientRect(window(), &client);
  const int width = scale().Twips(client.right) + (form().Width - form().ScaleWidth());
  const int height = scale().Twips(client.bottom) + (form().Height - form().ScaleHeight());
  // Rounding to pixels and back is no change of size.
  const int pixel = scale().Twips(1) + 1;
  if (std::abs(width - form().Width) <= pixel && std::abs(height - form().Height) <= pixel) return;
  form().Width.StoreQuietly(width);
  form().Height.StoreQuietly(height);
  DispatchEvent(&form(), [this] { form().Resize(); });
}

void FormPlacement::NoteState(WPARAM state) {
  if (!form().IsShown()) return;
  form().WindowState.StoreQuietly(state == SIZE_MINIMIZED ? 1 : state == SIZE_MAXIMIZED ? 2 : 0);
  if (state != SIZE_MINIMIZED) NoteSize();
}

// A border that cannot be dragged holds the form's own size. A window manager that redraws the frame a moment after the
// border has changed asks for the size before, and the form would drift. One that can be dragged is never smaller than
// the least size, which not every window manager asks for.
bool FormPlacement::KeepSize(WINDOWPOS& place) const {
  if (!form().IsShown() || (place.flags & SWP_NOSIZE) != 0 || IsIconic(window()) || IsZoomed(window())) return false;
  if (!IsSizable()) {
    const SIZE outer = OuterSizeOfModel();
    place.cx = outer.cx;
    place.cy = outer.cy;
    return false;
  }
  const SIZE least = LeastSize();
  const bool is_too_small = place.cx < least.cx || place.cy < least.cy;
  place.cx = std::max<int>(place.cx, least.cx);
  place.cy = std::max<int>(place.cy, least.cy);
  return is_too_small;
}

// A size that is what it was tells nobody anything: it changes there and back.
void FormPlacement::RepeatSize() {
  constexpr UINT kSizeOnly = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
  RECT place{};
  GetWindowRect(window(), &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  SetWindowPos(window(), nullptr, 0, 0, width + 1, height + 1, kSizeOnly);
  SetWindowPos(window(), nullptr, 0, 0, width, height, kSizeOnly);
}

void FormPlacement::LimitSize(MINMAXINFO& limits) const {
  const SIZE least = LeastSize();
  if (least.cx > 0) limits.ptMinTrackSize = {least.cx, least.cy};
}

// Never more than the screen: there the form has to do with less. Nothing for a form without a least size.
SIZE FormPlacement::LeastSize() const {
  if (form().LeastScaleWidth() == 0 || !IsSizable()) return {};
  const SIZE client{scale().Pixels(form().LeastScaleWidth()), scale().Pixels(form().LeastScaleHeight())};
  const SIZE least = OuterSize(client, Style(), ExtendedStyle(), form().HasMenu(), scale());
  const RECT work = WorkArea();
  return {std::min(least.cx, work.right - work.left), std::min(least.cy, work.bottom - work.top)};
}

}  // namespace kestrun
