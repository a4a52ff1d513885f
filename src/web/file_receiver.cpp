#include "web/file_receiver.h"

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "platform/unused_name.h"

namespace kestrun {
HttpRequest FreshFileRequest(const std::string& url) {
  return {"GET", url, {{"Cache-Control", "no-cache"}, {"Pragma", "no-cache"}}, {}};
}

FileReceiver::FileReceiver(const std::string& target) : target_(target) {}

FileReceiver::~FileReceiver() { Discard(); }

void FileReceiver::Discard() {
  if (!file_) return;
  file_.reset();
  Attempt([this] { platform().files().Delete(part_); });
}

bool FileReceiver::TakeHead(int status, const HttpHeaders&) {
  status_ = status;
  if (status < 200 || status > 299) Raise(error::kFileNotFound);
  part_ = UnusedName(target_, ".part");
  file_ = platform().files().Open(part_, OpenMode::kCreate);
  return true;
}

bool FileReceiver::TakePiece(ByteView piece) {
  file_->WriteAt(size_, piece);
  size_ += piece.size();
  return true;
}

void FileReceiver::PutInPlace() {
  file_->Close();
  platform().files().Replace(part_, target_);
  file_.reset();
}

}  // namespace kestrun
