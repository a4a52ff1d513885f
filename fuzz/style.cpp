// Any bytes as a style file, and as the manifest and the sound of one: loaded and put on a form.
#include <cstddef>
#include <cstdint>

#include "base/runtime_error.h"
#include "desktop/headless/headless_platform.h"
#include "forms/form.h"
#include "forms/label.h"
#include "fuzz_files.h"
#include "styles/mod_style.h"
#include "styles/wave_file.h"

namespace {

void LoadStyle(kestrun::MemoryFiles& files, const kestrun::Bytes& archive) {
  files.content["a.stl"].assign(archive.begin(), archive.end());
  kestrun::ModStyle::LoadStyleFile("a.stl");
  const auto form = kestrun::MakeRef<kestrun::Form>("frmfuzz");
  form->Add<kestrun::Label>("lblone");
  kestrun::ModStyle::FormLoadStyle(*form);
  kestrun::ModStyle::Forget();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  platform.OnUnexpected([](const kestrun::UnexpectedQuestion&) {});
  const kestrun::Bytes input(data, data + size);
  LoadStyle(files, input);
  kestrun::ClsPFF archive;
  archive.NewPffFile("m.stl");
  archive.PackFile(input, "assembly.txt");
  kestrun::Attempt([&] { archive.SavePffFile(); });
  LoadStyle(files, kestrun::Bytes(files.content["m.stl"].begin(), files.content["m.stl"].end()));
  kestrun::Attempt([&] { static_cast<void>(kestrun::PlayableWave(input, 1000)); });
  return 0;
}
