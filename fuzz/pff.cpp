// Any bytes as an archive: load it, read what it claims, change it, save it. What was saved has to load again.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/runtime_error.h"
#include "desktop/headless/headless_platform.h"
#include "formats/pff/cls_pff.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const kestrun::ByteView input(data, size);
  files.content["a.pff"].assign(input.begin(), input.end());

  kestrun::ClsPFF archive;
  const bool loaded = archive.LoadPff("a.pff");
  for (int32_t at = 0; loaded && at < std::min(archive.PFFTotalFiles(), 8); ++at) {
    kestrun::Bytes bytes;
    kestrun::Attempt([&] { archive.ExtractFile(at, bytes, ""); });
    kestrun::Attempt([&] { static_cast<void>(archive.FileCRC32(at)); });
    kestrun::Attempt([&] { archive.SetFileDeleted(at, true); });
  }
  const kestrun::ByteView map = input.first(std::min<size_t>(size, 64));
  kestrun::Attempt([&] { archive.PackFile(map, "D08M03.BMS"); });
  kestrun::Attempt([&] { archive.PackFile(map, archive.FileName(0)); });
  kestrun::Attempt([&] { static_cast<void>(archive.FileCRC32("0")); });
  if (!kestrun::Attempt([&] { archive.SavePffFile(); })) return 0;
  // Tables are written with records of 36 bytes whatever the header says.
  kestrun::ClsPFF saved;
  const bool loads = saved.LoadPff("a.pff") && saved.PFFTotalFiles() == archive.PFFTotalFiles();
  if (archive.PFFTotalFiles() > 0 && archive.PFFItemSize() == 36 && !loads) std::abort();
  return 0;
}
