#include "desktop/headless/socket_http.h"

#ifndef _WIN32

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/file_descriptor.h"
#include "formats/http/http_syntax.h"

namespace kestrun {
namespace {

constexpr int kConnectMs = 60000;
constexpr int kTransferMs = 30000;
constexpr std::string_view kScheme = "http://";

[[noreturn]] void Refuse(const char* why) { Raise(error::kAutomationError, why); }

struct Target {
  std::string authority;  // as the Host header names it
  std::string host;
  std::string port;
  std::string resource;  // path and query
};

// Bytes that may not stand in a request line are escaped, as browsers do.
std::string Escaped(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 32 && byte < 127) {
      escaped += c;
    } else {
      escaped += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return escaped;
}

Target ParseUrl(std::string_view url) {
  if (!EqualsNoCase(url.substr(0, kScheme.size()), kScheme)) Refuse("Only http URLs can be asked for.");
  const std::string_view rest = url.substr(kScheme.size(), url.find('#') - kScheme.size());
  const size_t slash = std::min(rest.find_first_of("/?"), rest.size());
  Target target;
  target.authority = rest.substr(0, slash);
  target.resource = Escaped(rest.substr(slash));
  if (!StartsWith(target.resource, "/")) target.resource.insert(0, "/");
  const size_t colon = target.authority.find(':');
  target.host = target.authority.substr(0, colon);
  target.port = colon == std::string::npos ? "80" : target.authority.substr(colon + 1);
  const std::optional<uint64_t> port = ParseLength(target.port);
  constexpr uint64_t kMostPort = 65535;
  if (target.host.empty() || target.host.find('@') != std::string::npos || !port || *port > kMostPort) {
    Refuse("The URL names no server.");
  }
  return target;
}

// Waits for a socket, and tells the receiver now and then that it does, in the flow of an answer as well.
class Patience {
 public:
  explicit Patience(HttpReceiver& receiver) : receiver_(receiver) {}

  void WaitFor(const FileDescriptor& socket, short events, int limit_ms) {
    pollfd wanted{socket.get(), events, 0};
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(limit_ms);
    for (;;) {
      const int ready = ::poll(&wanted, 1, kTellEveryMs);
      Tell();
      if (ready > 0) return;
      if ((ready < 0 && errno != EINTR) || Clock::now() >= end) Refuse("The server does not answer in time.");
    }
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr int kTellEveryMs = 100;

  void Tell() {
    if (Clock::now() < next_) return;
    next_ = Clock::now() + std::chrono::milliseconds(kTellEveryMs);
    receiver_.StillWaiting(false);
  }

  HttpReceiver& receiver_;
  Clock::time_point next_ = Clock::now() + std::chrono::milliseconds(kTellEveryMs);
};

// Invalid when this address cannot be reached.
FileDescriptor TryAddress(const addrinfo& address, Patience& patience) {
  FileDescriptor socket(::socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket.IsOpen()) return {};
  if (::connect(socket.get(), address.ai_addr, address.ai_addrlen) == 0) return socket;
  if (errno != EINPROGRESS) return {};
  patience.WaitFor(socket, POLLOUT, kConnectMs);
  int failure = 0;
  socklen_t size = sizeof failure;
  ::getsockopt(socket.get(), SOL_SOCKET, SO_ERROR, &failure, &size);
  return failure == 0 ? std::move(socket) : FileDescriptor();
}

FileDescriptor Connect(const Target& target, Patience& patience) {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* first = nullptr;
  if (::getaddrinfo(target.host.c_str(), target.port.c_str(), &wanted, &first) != 0) Refuse("No such server.");
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> owner(first, ::freeaddrinfo);
  for (const addrinfo* at = first; at; at = at->ai_next) {
    FileDescriptor socket = TryAddress(*at, patience);
    if (socket.IsOpen()) return socket;
  }
  Refuse("The server cannot be reached.");
}

// False once the server takes no more: what it has answered by then is still there to be read.
bool SendAll(const FileDescriptor& socket, std::string_view bytes, Patience& patience) {
  while (!bytes.empty()) {
    patience.WaitFor(socket, POLLOUT, kTransferMs);
    const ssize_t sent = ::send(socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (sent < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(sent));
  }
  return true;
}

size_t Receive(const FileDescriptor& socket, std::span<char> buffer, Patience& patience) {
  for (;;) {
    patience.WaitFor(socket, POLLIN, kTransferMs);
    const ssize_t got = ::recv(socket.get(), buffer.data(), buffer.size(), 0);
    if (got >= 0) return static_cast<size_t>(got);
    if (errno != EAGAIN && errno != EINTR) Refuse("The connection is broken.");
  }
}

std::string RequestHead(const HttpRequest& request, const Target& target) {
  std::string head = request.method + " " + target.resource + " HTTP/1.1\r\nHost: " + target.authority +
                     "\r\nUser-Agent: Kestrun\r\nAccept: */*\r\nConnection: close\r\n";
  for (const HttpHeader& header : request.headers) head += header.name + ": " + header.value + "\r\n";
  const bool may_lack_body = request.method == "GET" || request.method == "HEAD";
  if (!request.body.empty() || !may_lack_body) {
    head += "Content-Length: " + std::to_string(request.body.size()) + "\r\n";
  }
  return head + "\r\n";
}

class SocketSession final : public HttpSession {
 public:
  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override {
    Patience patience(receiver);
    const Target target = ParseUrl(request.url);
    const FileDescriptor socket = Connect(target, patience);
    if (SendAll(socket, RequestHead(request, target), patience)) {
      static_cast<void>(SendAll(socket, AsChars(request.body), patience));
    }
    ReadHttpAnswer(
        request.method, [&](std::span<char> buffer) { return Receive(socket, buffer, patience); }, receiver);
  }
};

}  // namespace

std::unique_ptr<HttpSession> OpenSocketSession() { return std::make_unique<SocketSession>(); }

}  // namespace kestrun

#endif  // _WIN32
