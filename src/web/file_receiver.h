// An answer on its way into a file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/http.h"

namespace kestrun {

// A GET that no cache on the way answers.
[[nodiscard]] HttpRequest FreshFileRequest(const std::string& url);

// The body goes into a new file beside the target (".part"), which takes the target's place when it is whole. Without
// that it is deleted, and what was there before stays.
class FileReceiver final : public HttpReceiver {
 public:
  explicit FileReceiver(const std::string& target);
  ~FileReceiver() override;
  FileReceiver(const FileReceiver&) = delete;
  FileReceiver& operator=(const FileReceiver&) = delete;

  // All but the statuses of success raise error 53: the page of an error is no file.
  bool TakeHead(int status, const HttpHeaders& headers) override;
  bool TakePiece(ByteView piece) override;

  // Of the last head; 0 before there was one.
  [[nodiscard]] int Status() const { return status_; }
  [[nodiscard]] uint64_t Size() const { return size_; }
  void PutInPlace();
  // Deletes what has arrived.
  void Discard();

 private:
  std::string target_;
  std::string part_;
  std::unique_ptr<File> file_;
  uint64_t size_ = 0;
  int status_ = 0;
};

}  // namespace kestrun
