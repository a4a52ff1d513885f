// Forms on the Windows desktop.
#pragma once

#include "desktop/win32/drawing/gdi_canvas.h"
#include "platform/windowing.h"

namespace kestrun {

class Win32Windowing final : public Windowing {
 public:
  Win32Windowing();
  ~Win32Windowing() override;
  [[nodiscard]] std::shared_ptr<FormPeer> MakePeer(Form& form) override;
  void RunModal(Form& form) override;
  void RunUntilQuit() override;
  void Quit() override;
  [[nodiscard]] ScreenSize Screen() override;
  void Beep() override;
  [[nodiscard]] std::optional<uint32_t> SystemColor(int number) override;
  [[nodiscard]] int TextWidth(std::string_view text, const FontDescription& font) override;
  [[nodiscard]] PixelSize MeasureText(std::string_view text, const FontDescription& font, int dpi) override;
  [[nodiscard]] TextExtent MeasureLines(std::string_view text, const FontDescription& font, int width_twips) override;
  [[nodiscard]] std::unique_ptr<DrawingSurface> MakeSurface(PixelSize size, int dpi) override;
  [[nodiscard]] std::vector<std::string> FontNames() override;

 private:
  FontCache fonts_;
  MemoryDevice measuring_;
};

}  // namespace kestrun
