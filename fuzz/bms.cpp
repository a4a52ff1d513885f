// Any bytes as a mission, for both of its readers.
#include <cstddef>
#include <cstdint>

#include "base/runtime_error.h"
#include "desktop/headless/headless_platform.h"
#include "formats/bms/mission_reader.h"
#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const kestrun::ByteView input(data, size);
  files.content["a.bms"].assign(input.begin(), input.end());
  static_cast<void>(kestrun::ReadMissionInfo("a.bms"));
  static_cast<void>(kestrun::ReadUploadInfo("a.bms"));
  return 0;
}
