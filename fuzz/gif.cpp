// Any bytes as an animated GIF: cut into frames, and loaded into the control that shows it.
#include <cstddef>
#include <cstdint>

#include "base/runtime_error.h"
#include "controls/animated_gif/animated_gif.h"
#include "desktop/headless/headless_platform.h"
#include "forms/form.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  platform.OnUnexpected([](const kestrun::UnexpectedQuestion&) {});
  const kestrun::ByteView input(data, size);
  files.content["a.gif"].assign(input.begin(), input.end());
  const auto form = kestrun::MakeRef<kestrun::Form>("frmbanner");
  auto& gif = form->Add<kestrun::AnimatedGIF>("AnimGIF1");
  gif.LoadNewPicture("a.gif", kestrun::kAnimatedGif);
  platform.clock().AdvanceMs(1000);
  return 0;
}
