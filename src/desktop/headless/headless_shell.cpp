#include "desktop/headless/headless_shell.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr std::string_view kFileScheme = "file://";

bool IsSchemeCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string WithoutPercentEscapes(std::string_view text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    const bool escape =
        text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
    plain += escape ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2])) : text[i];
    if (escape) i += 2;
  }
  return plain;
}

// "file:///tmp/x" and "file:///C:/x", the second without the slash before the letter.
std::string PathOfFileUrl(std::string_view url) {
  std::string path = WithoutPercentEscapes(url.substr(kFileScheme.size()));
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

class HeadlessInternet::CannedSession final : public HttpSession {
 public:
  explicit CannedSession(HeadlessInternet& internet) : internet_(internet) {}
  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override;

 private:
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

void HeadlessInternet::CannedSession::Exchange(const HttpRequest& request, HttpReceiver& receiver) {
  internet_.requests.push_back({request.method, request.url, request.headers, std::string(AsChars(request.body))});
  receiver.StillWaiting(UserLeaves(0));
  const auto found = internet_.answers_.find(request.url);
  if (found == internet_.answers_.end()) Raise(error::kAutomationError, "The server cannot be reached.");
  // A copy: the receiver may lay down other answers.
  const HttpResponse response = found->second;
  if (!receiver.TakeHead(response.status, response.headers)) return;
  for (size_t at = 0; at < response.body.size();) {
    const size_t count = std::min(internet_.piece_bytes, response.body.size() - at);
    if (!receiver.TakePiece(ByteView(response.body).subspan(at, count))) return;
    at += count;
    receiver.StillWaiting(UserLeaves(at));
  }
}

}  // namespace kestrun
