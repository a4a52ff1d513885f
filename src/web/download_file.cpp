#include "web/download_file.h"

#include <memory>

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "web/fetch_scope.h"
#include "web/web_request.h"

namespace kestrun {
namespace {

std::string UnusedNameBeside(const std::string& path) {
  std::string name = path + ".part";
  for (int number = 2; platform().files().Exists(name); ++number) name = path + ".part" + std::to_string(number);
  return name;
}

// A body on its way into a file that is deleted again unless it takes the target's place.
class FileReceiver final : public HttpReceiver {
 public:
  explicit FileReceiver(const std::string& target) : target_(target), part_(UnusedNameBeside(target)) {}
  ~FileReceiver() override {
    if (!file_) return;
    file_.reset();
    Attempt([this] { platform().files().Delete(part_); });
  }
  FileReceiver(const FileReceiver&) = delete;
  FileReceiver& operator=(const FileReceiver&) = delete;

  // The page of an error is no file.
  bool TakeHead(int status, const HttpHeaders&) override {
    if (status < 200 || status > 299) Raise(error::kFileNotFound);
    file_ = platform().files().Open(part_, OpenMode::kCreate);
    return true;
  }

  bool TakePiece(ByteView piece) override {
    file_->WriteAt(size_, piece);
    size_ += piece.size();
    return true;
  }

  void PutInPlace() {
    file_->Close();
    platform().files().Replace(part_, target_);
    file_.reset();
  }

 private:
  std::string target_;
  std::string part_;
  std::unique_ptr<File> file_;
  uint64_t size_ = 0;
};

void DownloadOverHttp(const std::string& url, const std::string& path) {
  FileReceiver receiver(path);
  ReceiveAnswer({"GET", url, {{"Cache-Control", "no-cache"}, {"Pragma", "no-cache"}}, {}}, receiver);
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
