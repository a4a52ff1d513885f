// The settings file of the program's web space: where things are there, which versions exist, how many maps, which
// banners. It is fetched anew before each use. What it says is not trusted: numbers are read as numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "web/fetch_scope.h"

namespace kestrun {

// Names and default of one value. Section and key names match in any case.
struct SiteRow {
  std::string_view section;
  std::string_view key;
  std::string_view text;
  bool is_page = false;  // the default is a page of the site
};

namespace site {
inline constexpr SiteRow kMapCenter{"launcher", "MAPCENTER", "mapcenter", true};
inline constexpr SiteRow kVersion{"launcher", "versiononsite", "0"};
inline constexpr SiteRow kProgram{"launcher", "path", "kestrun-update.exe", true};
inline constexpr SiteRow kProgramHash{"launcher", "sha256", ""};
inline constexpr SiteRow kUpdateNotice{"UPDATE", "MSG", ""};
inline constexpr SiteRow kHelpVersion{"HELP", "versiononsite", "0"};
inline constexpr SiteRow kHelp{"HELP", "path", ""};
inline constexpr SiteRow kHelpExtension{"HELP", "EXTENSION", ".pdf"};
inline constexpr SiteRow kHelpHash{"HELP", "sha256", ""};
inline constexpr SiteRow kMapCount{"MAPS", "TOTONSITE", "0"};
inline constexpr SiteRow kBannerCount{"BANNERS", "TOT", "1"};
// The section goes on with the banner's number, from 1.
inline constexpr SiteRow kBannerPicture{"BANNER", "URL", ""};
inline constexpr SiteRow kBannerFormat{"BANNER", "FORMAT", "gif"};
inline constexpr SiteRow kBannerLink{"BANNER", "LINK", "", true};
}  // namespace site

// Where it is on the web, and under which names it is fetched into the program's folder.
[[nodiscard]] std::string SiteFileUrl();
[[nodiscard]] std::string SiteFilePath();
inline constexpr const char* kBannerSiteFile = "banners.dat";

// Fetches it to SiteFilePath. Where it does not come, the one that was there stays. `display` shows how far it is;
// without one the scope around it does.
enum class SiteFetch { kThere, kFailed, kCancelled };
[[nodiscard]] SiteFetch FetchSiteFile(FetchDisplay* display = nullptr);
// Behind its use. Where that cannot be, it stays until the next fetch.
void DeleteSiteFile();

// One value of a site file at a path. `number` is that of a banner.
[[nodiscard]] std::string ReadSiteValue(const std::string& path, const SiteRow& row, int number = 0);
// The same as a whole number: the digits at its beginning, at most 18; 0 where it does not begin with a number.
[[nodiscard]] int64_t ReadSiteNumber(const std::string& path, const SiteRow& row);
[[nodiscard]] int64_t NumberAtStart(std::string_view text);

// Major, minor and revision of this program, joined as text and read as one number: 5.1.12 is 5112. A plain join, so
// that 5.0.10 is greater than 5.1.0.
[[nodiscard]] int64_t ProgramVersionNumber();

}  // namespace kestrun
