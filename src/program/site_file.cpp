#include "program/site_file.h"

#include <charconv>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/platform.h"
#include "program/settings.h"
#include "web/download_file.h"
#include "web/site.h"

namespace kestrun {

std::string SiteFileUrl() { return SiteUrl("MAPS.INI"); }

std::string SiteFilePath() { return AppFile("maps.ini"); }

SiteFetch FetchSiteFile(FetchDisplay* display) {
  const FetchScope fetch(display);
  const bool is_there = DownloadFile(SiteFileUrl(), SiteFilePath());
  if (fetch.IsCancelled()) return SiteFetch::kCancelled;
  return is_there ? SiteFetch::kThere : SiteFetch::kFailed;
}

void DeleteSiteFile() {
  Attempt([] { platform().files().Delete(SiteFilePath()); });
}

std::string ReadSiteValue(const std::string& path, const SiteRow& row, int number) {
  std::string section(row.section);
  if (number > 0) section += std::to_string(number);
  return GetIniValue(path, section, std::string(row.key), row.is_page ? SiteUrl(row.text) : std::string(row.text));
}

int64_t NumberAtStart(std::string_view text) {
  constexpr size_t kMostDigits = 18;
  text = TrimBlanks(text).substr(0, kMostDigits);
  int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

int64_t ReadSiteNumber(const std::string& path, const SiteRow& row) { return NumberAtStart(ReadSiteValue(path, row)); }

int64_t ProgramVersionNumber() {
  const Version version = platform().program().ProgramVersion();
  return NumberAtStart(std::to_string(version.major) + std::to_string(version.minor) +
                       std::to_string(version.revision));
}

}  // namespace kestrun
