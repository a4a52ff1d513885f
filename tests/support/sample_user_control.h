// A control that paints itself and writes down what happens to it, for tests of what shows such controls.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "forms/user_control.h"

namespace kestrun {

// Four pixels of different colours, which Paint stretches over the upper left quarter of the control.
inline constexpr std::array<uint32_t, 4> kSamplePixels{0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
inline constexpr Color kSampleBackground = Rgb(10, 20, 30);

class SampleControl final : public UserControl {
 public:
  using UserControl::UserControl;

  [[nodiscard]] std::string TypeName() const override { return "SampleControl"; }
  [[nodiscard]] bool TakesFocus() const override { return takes_focus; }

  void Paint(Canvas& canvas) override {
    ++paints;
    const PixelSize size = canvas.Size();
    canvas.Fill({0, 0, size.width, size.height}, kSampleBackground);
    canvas.DrawPixels(kSamplePixels, {2, 2}, {0, 0, size.width / 2, size.height / 2});
    canvas.Text(text, {0, size.height / 2, size.width, size.height}, Font, color::kWhite, TextPlacement::kLeft);
    if (on_paint) on_paint(canvas);
  }
  void Resized(PixelSize client, int dpi) override {
    UserControl::Resized(client, dpi);
    ++resizes;
  }
  void OnMouseDown(int button, int shift_state, int x, int y) override { Note("down", {button, shift_state, x, y}); }
  void OnMouseMove(int button, int shift_state, int x, int y) override { Note("move", {button, shift_state, x, y}); }
  void OnMouseUp(int button, int shift_state, int x, int y) override { Note("up", {button, shift_state, x, y}); }
  void OnDoubleClick(int x, int y) override { Note("double", {x, y}); }
  void OnMouseLeave() override { Note("leave", {}); }
  bool OnWheel(int notches, int shift_state) override {
    Note("wheel", {notches, shift_state});
    return true;
  }
  bool OnKeyDown(int key_code, int shift_state) override {
    Note("key", {key_code, shift_state});
    return key_code == taken_key;
  }
  void OnKeyPress(char32_t character) override { Note("char", {static_cast<int>(character)}); }
  void OnFocus(bool has_focus) override { Note("focus", {has_focus}); }
  void OnScroll(int position) override {
    Note("scroll", {position});
    bar.position = position;
    Invalidate();
  }
  [[nodiscard]] ScrollBarState VerticalScrollBar() const override { return bar; }
  [[nodiscard]] int FrameKind() const override { return frame; }

  [[nodiscard]] Role AccessibleRole() const override { return Role::kList; }
  [[nodiscard]] std::string AccessibleName() const override { return "Sample"; }
  [[nodiscard]] int AccessibleChildCount() const override { return static_cast<int>(rows.size()); }
  [[nodiscard]] std::string AccessibleChildName(int child) const override { return rows[static_cast<size_t>(child)]; }
  [[nodiscard]] bool IsAccessibleChildSelected(int child) const override {
    return child == selected || (child == also_selected && child >= 0);
  }
  [[nodiscard]] int AccessibleFocusedChild() const override { return selected; }
  [[nodiscard]] PixelRect AccessibleChildArea(int child) const override {
    return child < 2 ? PixelRect{0, child * 10, 50, child * 10 + 10} : PixelRect{};
  }

  using UserControl::client;
  using UserControl::dpi;
  using UserControl::HidePopup;
  using UserControl::Invalidate;
  using UserControl::MeasureText;
  using UserControl::ScreenArea;
  using UserControl::ScreenPosition;
  using UserControl::ScreenSize;
  using UserControl::ShowPopup;
  using UserControl::TellAccessibility;

  std::vector<std::string> log;
  std::vector<std::string> rows;
  std::string text;
  ScrollBarState bar;
  std::function<void(Canvas&)> on_paint;
  int frame = 0;
  int selected = -1;
  int also_selected = -1;
  int taken_key = 0;
  int paints = 0;
  int resizes = 0;
  bool takes_focus = true;

 private:
  void Note(std::string line, const std::vector<int>& values) {
    for (const int value : values) line += " " + std::to_string(value);
    log.push_back(std::move(line));
  }
};

}  // namespace kestrun
