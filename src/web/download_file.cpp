#include "web/download_file.h"

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "web/fetch_scope.h"
#include "web/file_receiver.h"
#include "web/web_request.h"

namespace kestrun {
namespace {

void DownloadOverHttp(const std::string& url, const std::string& path) {
  FileReceiver receiver(path);
  ReceiveAnswer(FreshFileRequest(url), receiver);
  receiver.PutInPlace();
}

}  // namespace

bool DownloadFile(const std::string& Url, const std::string& LocalPath) {
  if (IsHttpUrl(Url)) return Attempt([&] { DownloadOverHttp(Url, LocalPath); });
  if (FetchScope::IsAnyCancelled()) return false;
  FetchScope::Show({Url, 0, std::nullopt});
  return platform().internet().DownloadToFile(Url, LocalPath) == 0;
}

}  // namespace kestrun
