#include "desktop/headless/headless_shell.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "base/url_escapes.h"

namespace kestrun {
namespace {

constexpr std::string_view kFileScheme = "file://";

bool IsSchemeCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

// "file:///tmp/x" and "file:///C:/x", the second without the slash before the letter.
std::string PathOfFileUrl(std::string_view url) {
  std::string path = WithoutUrlEscapes(url.substr(kFileScheme.size()));
  if (path.size() > 2 && path[0] == '/' && path[2] == ':') path.erase(0, 1);
  return path;
}

}  // namespace

int HeadlessShell::Open(std::string_view operation, std::string_view file, std::string_view parameters,
                        std::string_view directory, int show_command) {
  openings.push_back(
      {std::string(operation), std::string(file), std::string(parameters), std::string(directory), show_command});
  return open_result;
}

bool HeadlessShell::WriteShortcut(std::string_view link, const Shortcut& shortcut) {
  if (refuses_shortcuts) return false;
  shortcuts[std::string(link)] = shortcut;
  return true;
}

std::string HeadlessShell::ShellFolder(int csidl) {
  const auto found = shell_folders.find(csidl);
  return found == shell_folders.end() ? std::string() : found->second;
}

std::vector<std::string> HeadlessProcesses::RunningNames() { return list ? list() : names; }

std::vector<std::string> HeadlessProcesses::HoldersOf(std::string_view path) {
  if (list_holders) return list_holders(path);
  const auto found = holders.find(path);
  return found == holders.end() ? std::vector<std::string>() : found->second;
}

void HeadlessProcesses::EndProcess() {
  ++end_count;
  if (end) end();
}

bool HeadlessInternet::IsUrl(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsSchemeCharacter);
  return end != text.end() && *end == ':' && end - text.begin() >= 2;
}

void HeadlessInternet::Reply(std::string url, std::string_view content) {
  const ByteView bytes = AsBytes(content);
  answers_[url] = {200, {}, Bytes(bytes.begin(), bytes.end())};
  replies_[std::move(url)] = {0, Bytes(bytes.begin(), bytes.end())};
}

void HeadlessInternet::ReplyWithFailure(std::string url, int error_number) {
  answers_.erase(url);
  replies_[std::move(url)] = {error_number, {}};
}

Bytes HeadlessInternet::ContentOf(std::string_view url) {
  if (const auto reply = replies_.find(url); reply != replies_.end()) return reply->second.content;
  if (!EqualsNoCase(url.substr(0, kFileScheme.size()), kFileScheme)) Raise(error::kFileNotFound);
  return files_().ReadAll(PathOfFileUrl(url));
}

int HeadlessInternet::DownloadToFile(std::string_view url, std::string_view path) {
  downloads.emplace_back(url);
  const auto reply = replies_.find(url);
  if (reply != replies_.end() && reply->second.error_number != 0) return reply->second.error_number;
  Bytes content;
  if (!Attempt([&] { content = ContentOf(url); })) return kObjectNotFound;
  return Attempt([&] { files_().WriteAll(path, content); }) ? 0 : kDownloadFailure;
}

void HeadlessInternet::Answer(std::string url, HttpResponse response) {
  answers_[std::move(url)] = std::move(response);
}

// Hands a laid-down answer over: its head, and then a piece at a time.
class HeadlessInternet::CannedExchange final : public HttpExchange {
 public:
  CannedExchange(const HeadlessInternet& internet, const HttpRequest& request)
      : piece_bytes_(internet.piece_bytes), is_silent_(internet.silent.count(request.url) != 0) {
    const auto found = internet.answers_.find(request.url);
    if (found != internet.answers_.end()) response_ = found->second;
  }

  bool Advance(HttpReceiver& receiver, int) override {
    if (is_silent_) return true;
    if (!response_) Raise(error::kAutomationError, "The server cannot be reached.");
    if (!std::exchange(has_head_, true)) {
      return receiver.TakeHead(response_->status, response_->headers) && !response_->body.empty();
    }
    const size_t count = std::min(piece_bytes_, response_->body.size() - at_);
    const ByteView piece = ByteView(response_->body).subspan(at_, count);
    at_ += count;
    return receiver.TakePiece(piece) && at_ < response_->body.size();
  }

  [[nodiscard]] uint64_t HandedOn() const { return at_; }
  [[nodiscard]] bool HasHead() const { return has_head_; }
  [[nodiscard]] bool IsSilent() const { return is_silent_; }

 private:
  // A copy: the receiver may lay down other answers.
  std::optional<HttpResponse> response_;
  size_t piece_bytes_;
  bool is_silent_;
  bool has_head_ = false;
  size_t at_ = 0;
};

class HeadlessInternet::CannedSession final : public HttpSession {
 public:
  explicit CannedSession(HeadlessInternet& internet) : internet_(internet) {}

  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override {
    Note(request);
    CannedExchange exchange(internet_, request);
    receiver.StillWaiting(UserLeaves(0));
    if (exchange.IsSilent()) Raise(error::kAutomationError, "The server does not answer in time.");
    for (bool goes_on = true; goes_on;) {
      goes_on = exchange.Advance(receiver, 0);
      if (exchange.HandedOn() > 0) receiver.StillWaiting(UserLeaves(exchange.HandedOn()));
    }
  }

  std::unique_ptr<HttpExchange> Start(const HttpRequest& request) override {
    Note(request);
    return std::make_unique<CannedExchange>(internet_, request);
  }

 private:
  void Note(const HttpRequest& request) {
    internet_.requests.push_back({request.method, request.url, request.headers, std::string(AsChars(request.body))});
  }

  // Whether the user presses Esc once so many bytes have arrived.
  [[nodiscard]] bool UserLeaves(uint64_t received) const {
    return (internet_.leave_after_requests && internet_.requests.size() > *internet_.leave_after_requests) ||
           (internet_.leave_after_bytes && received >= *internet_.leave_after_bytes);
  }

  HeadlessInternet& internet_;
};

std::unique_ptr<HttpSession> HeadlessInternet::OpenSession() {
  if (transport) return transport();
  return std::make_unique<CannedSession>(*this);
}

}  // namespace kestrun
