// Windows that are shown to nobody: each has a peer that only tells what changes. Texts are measured as on the screen.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windowing.h"

namespace kestrun {

class UnseenWindowing final : public Windowing {
 public:
  // Colours, fonts and measures are those of the other one.
  explicit UnseenWindowing(Windowing& screen) : screen_(screen) {}

  // A property of a control, or of a form, has changed.
  std::function<void(Control& control, PropertyId property)> on_change;

  [[nodiscard]] std::shared_ptr<FormPeer> MakePeer(Form& form) override;
  // Nobody is there to close the window: it hides at once.
  void RunModal(Form& form) override;
  void RunUntilQuit() override {}
  void Quit() override {}
  [[nodiscard]] ScreenSize Screen() override { return screen_.Screen(); }
  [[nodiscard]] std::optional<uint32_t> SystemColor(int number) override { return screen_.SystemColor(number); }
  [[nodiscard]] int TextWidth(std::string_view text, const FontDescription& font) override {
    return screen_.TextWidth(text, font);
  }
  [[nodiscard]] PixelSize MeasureText(std::string_view text, const FontDescription& font, int dpi) override {
    return screen_.MeasureText(text, font, dpi);
  }
  [[nodiscard]] TextExtent MeasureLines(std::string_view text, const FontDescription& font, int width_twips) override {
    return screen_.MeasureLines(text, font, width_twips);
  }
  [[nodiscard]] std::unique_ptr<DrawingSurface> MakeSurface(PixelSize size, int dpi) override;
  void Beep() override {}
  [[nodiscard]] std::vector<std::string> FontNames() override { return screen_.FontNames(); }

 private:
  class Peer;

  Windowing& screen_;
  int32_t last_number_ = 0;  // of a window or a bitmap
};

}  // namespace kestrun
