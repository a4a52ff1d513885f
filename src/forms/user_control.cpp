#include "forms/user_control.h"

#include <utility>

#include "forms/form.h"
#include "platform/platform.h"

namespace kestrun {

void UserControl::Resized(PixelSize client, int dpi) {
  client_ = client;
  dpi_ = dpi;
}

void UserControl::OnMouseDown(int, int, int, int) {}
void UserControl::OnMouseMove(int, int, int, int) {}
void UserControl::OnMouseUp(int, int, int, int) {}
void UserControl::OnDoubleClick(int, int) {}
bool UserControl::OnWheel(int, int) { return false; }
bool UserControl::OnKeyDown(int, int) { return false; }
void UserControl::OnKeyPress(char32_t) {}
void UserControl::OnFocus(bool) {}
void UserControl::OnScroll(int) {}

std::string UserControl::AccessibleName() const {
  return ToolTipText->empty() ? WordsBefore(*this) : ToolTipText.get();
}

PixelSize UserControl::MeasureText(std::string_view text, const FontDescription& font) const {
  return platform().windowing().MeasureText(text, font, dpi_);
}

void UserControl::ShowPopup(const PixelRect& screen_area, std::function<void(Canvas&)> paint) {
  if (FormPeer* shown = peer()) shown->ShowPopup(*this, screen_area, std::move(paint));
}

void UserControl::HidePopup() {
  if (FormPeer* shown = peer()) shown->HidePopup(*this);
}

PixelPoint UserControl::ScreenPosition() const {
  FormPeer* shown = peer();
  return shown ? shown->ScreenPosition(*this) : PixelPoint{};
}

PixelRect UserControl::ScreenArea() const {
  FormPeer* shown = peer();
  return shown ? shown->ScreenArea(*this) : PixelRect{};
}

void UserControl::TellAccessibility(AccessibleEvent event, int child) {
  if (FormPeer* shown = peer()) shown->TellAccessibility(*this, event, child);
}

}  // namespace kestrun
