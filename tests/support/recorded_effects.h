// Effects of styles without a screen: writes down what was asked for, and plays the system with bitmaps and regions
// that a test can look at.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/window_effects.h"

namespace kestrun {

class RecordedEffects final : public WindowEffects {
 public:
  RecordedEffects() { InstallWindowEffects(this); }
  ~RecordedEffects() override { InstallWindowEffects(nullptr); }

  void SetOpacity(WindowNumber window, uint8_t alpha) override {
    calls.push_back("opacity " + std::to_string(window) + " " + std::to_string(alpha));
  }
  void FillGradient(ContextNumber context, const std::array<GradientVertex, 2>& vertices) override {
    calls.push_back("gradient " + std::to_string(context));
    gradient = vertices;
  }
  std::optional<BitmapPixels> ReadBitmap(BitmapNumber bitmap, ContextNumber context) override {
    calls.push_back("read " + std::to_string(bitmap) + " " + std::to_string(context));
    if (before_read) before_read();
    const auto found = bitmaps.find(bitmap);
    return found == bitmaps.end() ? std::nullopt : std::optional(found->second);
  }
  RegionNumber CreateRegion(std::span<const RegionRect> block) override {
    blocks.emplace_back(block.begin(), block.end());
    if (refuses && refuses(blocks.back())) return 0;
    const RegionNumber number = ++last_region;
    regions[number].assign(block.begin() + 2, block.end());
    return number;
  }
  void UniteRegions(RegionNumber region, RegionNumber other) override {
    regions[region].insert(regions[region].end(), regions[other].begin(), regions[other].end());
  }
  void DeleteRegion(RegionNumber region) override { regions.erase(region); }
  void PictureWindow(WindowNumber window, const std::function<void(BitmapNumber, ContextNumber)>& use) override {
    calls.push_back("picture " + std::to_string(window));
    use(kWindowBitmap, kWindowContext);
  }
  void SetWindowRegion(WindowNumber window, RegionNumber region) override {
    calls.push_back("cut " + std::to_string(window) + " " + std::to_string(region));
  }
  void PlaySoundAndWait(ByteView wave) override { sounds.emplace_back(wave.begin(), wave.end()); }
  void StartSound(Bytes wave) override { started_sounds.push_back(std::move(wave)); }

  // The number of the bitmap that a window's picture has, and of the window's context.
  static constexpr BitmapNumber kWindowBitmap = 71;
  static constexpr ContextNumber kWindowContext = 72;

  std::vector<std::string> calls;
  std::map<BitmapNumber, BitmapPixels> bitmaps;
  std::function<void()> before_read;
  std::function<bool(const std::vector<RegionRect>& block)> refuses;
  std::vector<std::vector<RegionRect>> blocks;              // all that regions were asked of, with their headers
  std::map<RegionNumber, std::vector<RegionRect>> regions;  // those that were not deleted
  RegionNumber last_region = 0;
  std::array<GradientVertex, 2> gradient{};
  std::vector<Bytes> sounds;
  std::vector<Bytes> started_sounds;
};

}  // namespace kestrun
