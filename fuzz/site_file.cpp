// Any bytes as the site's settings file: every value can be read, and a number is one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/bytes.h"
#include "desktop/headless/headless_platform.h"
#include "fuzz_files.h"
#include "program/site_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const std::string path = "maps.ini";
  files.content[path] = kestrun::Bytes(data, data + size);
  namespace site = kestrun::site;
  constexpr size_t kMostBytes = 3 * 254;  // of a value's characters in UTF-8
  for (const kestrun::SiteRow& row :
       {site::kMapCenter, site::kVersion, site::kProgram, site::kProgramHash, site::kUpdateNotice, site::kHelpVersion,
        site::kHelp, site::kHelpExtension, site::kHelpHash, site::kMapCount, site::kBannerCount}) {
    if (kestrun::ReadSiteValue(path, row).size() > kMostBytes) std::abort();
    constexpr int64_t kLargest = 999'999'999'999'999'999;
    const int64_t number = kestrun::ReadSiteNumber(path, row);
    if (number > kLargest || number < -kLargest) std::abort();
  }
  for (const kestrun::SiteRow& row : {site::kBannerPicture, site::kBannerFormat, site::kBannerLink}) {
    if (kestrun::ReadSiteValue(path, row, 1).size() > kMostBytes) std::abort();
  }
  return 0;
}
