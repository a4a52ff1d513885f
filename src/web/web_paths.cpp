#include "web/web_paths.h"

#include "platform/platform.h"
#include "web/cls_http.h"

namespace kestrun {

bool IsUrl(const std::string& Path) { return platform().internet().IsUrl(Path); }

bool IsOnline() { return platform().internet().IsConnected(); }

std::string NameFromServer(const std::string& url) { return MakeRef<ClsHTTP>()->GetURLFileName(url, "GET"); }

}  // namespace kestrun
