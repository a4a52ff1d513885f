// Any bytes as the service's answer to the search for a picture: only web addresses come out, under names without
// folders.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/runtime_error.h"
#include "desktop/headless/headless_platform.h"
#include "fuzz_files.h"
#include "maps/preview_search.h"
#include "web/redirect.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string reply(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> addresses = kestrun::PreviewAddresses(reply);
  if (addresses.size() > 1000) std::abort();
  for (const std::string& address : addresses) {
    if (!kestrun::IsHttpUrl(address)) std::abort();
    if (kestrun::PreviewName(address).find_first_of("/\\\r\n") != std::string::npos) std::abort();
  }
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  // Not everything is a path.
  std::string name;
  kestrun::Attempt([&] { name = kestrun::PreviewSearchName(reply); });
  if (name.find_first_of("?'*\\/[]\"") != std::string::npos) std::abort();
  return 0;
}
