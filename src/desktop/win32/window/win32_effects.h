// What styles do to windows, by the system's own calls.
#pragma once

#include "platform/window_effects.h"

namespace kestrun {

class Win32Effects final : public WindowEffects {
 public:
  void SetOpacity(WindowNumber window, uint8_t alpha) override;
  void FillGradient(ContextNumber context, const std::array<GradientVertex, 2>& vertices) override;
  [[nodiscard]] std::optional<BitmapPixels> ReadBitmap(BitmapNumber bitmap, ContextNumber context) override;
  [[nodiscard]] RegionNumber CreateRegion(std::span<const RegionRect> block) override;
  void UniteRegions(RegionNumber region, RegionNumber other) override;
  void DeleteRegion(RegionNumber region) override;
  void PictureWindow(WindowNumber window,
                     const std::function<void(BitmapNumber bitmap, ContextNumber context)>& use) override;
  void SetWindowRegion(WindowNumber window, RegionNumber region) override;
  void PlaySoundAndWait(ByteView wave) override;
  void StartSound(Bytes wave) override;
};

}  // namespace kestrun
