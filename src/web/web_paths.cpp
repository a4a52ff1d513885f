#include "web/web_paths.h"

#include "platform/platform.h"

namespace kestrun {

bool DownloadFile(const std::string& Url, const std::string& LocalPath) {
  return platform().internet().DownloadToFile(Url, LocalPath) == 0;
}

bool IsUrl(const std::string& Path) { return platform().internet().IsUrl(Path); }

bool IsOnline() { return platform().internet().IsConnected(); }

}  // namespace kestrun
