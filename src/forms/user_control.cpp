#include "forms/user_control.h"

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
std::string UserControl::AccessibleChildName(int) const { return {}; }
bool UserControl::IsAccessibleChildSelected(int) const { return false; }

}  // namespace kestrun
