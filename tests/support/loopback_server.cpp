#include "support/loopback_server.h"

#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "formats/http/http_syntax.h"

#ifdef _WIN32
// In this order.
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#endif

namespace kestrun {
namespace {

#ifdef _WIN32
using Socket = SOCKET;
constexpr int kSendFlags = 0;

void StartSockets() {
  static const int started = [] {
    WSADATA data;
    return WSAStartup(MAKEWORD(2, 2), &data);
  }();
  if (started != 0) std::abort();
}
void CloseSocket(Socket socket) { closesocket(socket); }
void SetBlocking(Socket socket, bool blocks) {
  u_long is_free = blocks ? 0 : 1;
  ioctlsocket(socket, static_cast<long>(FIONBIO), &is_free);
}
// Sends some of the bytes; 0 or less once the client has gone. Now and then Wine does not wake a send that waits,
// though the client has read everything: this one looks for itself.
int Send(Socket socket, const char* bytes, size_t count) {
  SetBlocking(socket, false);
  int sent = -1;
  for (;;) {
    sent = send(socket, bytes, static_cast<int>(count), kSendFlags);
    if (sent > 0 || WSAGetLastError() != WSAEWOULDBLOCK) break;
    fd_set writers;
    FD_ZERO(&writers);
    FD_SET(socket, &writers);
    timeval look_again{0, 20'000};
    select(0, nullptr, &writers, nullptr, &look_again);
  }
  SetBlocking(socket, true);
  return sent;
}
void SetReceiveTimeOut(Socket socket, int seconds) {
  const DWORD milliseconds = static_cast<DWORD>(seconds) * 1000;
  setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&milliseconds), sizeof milliseconds);
}
#else
using Socket = int;

constexpr int kSendFlags = MSG_NOSIGNAL;
void StartSockets() {}
void CloseSocket(Socket socket) { ::close(socket); }
ssize_t Send(Socket socket, const char* bytes, size_t count) { return send(socket, bytes, count, kSendFlags); }
void SetReceiveTimeOut(Socket socket, int seconds) {
  const timeval time{seconds, 0};
  setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
}
#endif

sockaddr_in LoopbackAddress(uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

// A socket with a free port of its own, and the port.
std::pair<Socket, uint16_t> BindFreePort() {
  StartSockets();
  const Socket socket = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = LoopbackAddress(0);
  socklen_t size = sizeof address;
  if (bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    std::abort();
  }
  return {socket, ntohs(address.sin_port)};
}

// Waits for the client to close, so that no reset overtakes the last bytes.
void Drain(Socket socket) {
  constexpr int kNoMoreWrites = 1;
  shutdown(socket, kNoMoreWrites);
  char rest[4096];
  SetReceiveTimeOut(socket, 1);
  while (recv(socket, rest, sizeof rest, 0) > 0) {
  }
}

}  // namespace

std::string ServedRequest::Header(std::string_view name) const {
  for (const std::string& line_of_head : Split(head, kCrLf)) {
    const std::optional<HttpHeader> header = ParseHeaderLine(line_of_head);
    if (header && EqualsNoCase(header->name, name)) return header->value;
  }
  return {};
}

bool ServedConnection::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto sent = Send(static_cast<Socket>(socket_), bytes.data(), bytes.size());
    if (sent <= 0) return false;
    written_ += static_cast<size_t>(sent);
    bytes.remove_prefix(static_cast<size_t>(sent));
  }
  return true;
}

ServedRequest ServedConnection::Read() const {
  std::string text;
  char piece[4096];
  const auto read_until = [&](auto&& done) {
    while (!done()) {
      const auto got = recv(static_cast<Socket>(socket_), piece, sizeof piece, 0);
      if (got <= 0) return false;
      text.append(piece, static_cast<size_t>(got));
    }
    return true;
  };
  ServedRequest request;
  if (!read_until([&] { return text.find("\r\n\r\n") != std::string::npos; })) return request;
  const size_t head_end = text.find("\r\n\r\n");
  const size_t line_end = text.find(kCrLf);
  request.line = text.substr(0, line_end);
  if (head_end > line_end) request.head = text.substr(line_end + 2, head_end - line_end - 2);
  const size_t length = ParseLength(request.Header("Content-Length")).value_or(0);
  read_until([&] { return text.size() >= head_end + 4 + length; });
  request.body = text.substr(head_end + 4);
  return request;
}

LoopbackServer::LoopbackServer() {
  const auto [socket, port] = BindFreePort();
  if (listen(socket, 16) != 0) std::abort();
  listener_ = static_cast<std::uintptr_t>(socket);
  port_ = port;
  thread_ = std::thread([this] { Serve(); });
}

LoopbackServer::~LoopbackServer() {
  ends_ = true;
  // A last visitor wakes the thread.
  const Socket visitor = ::socket(AF_INET, SOCK_STREAM, 0);
  const sockaddr_in address = LoopbackAddress(port_);
  static_cast<void>(connect(visitor, reinterpret_cast<const sockaddr*>(&address), sizeof address));
  CloseSocket(visitor);
  thread_.join();
  CloseSocket(static_cast<Socket>(listener_));
}

std::string LoopbackServer::Url(std::string_view path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + std::string(path);
}

void LoopbackServer::Answer(const std::string& path, std::string raw) {
  Handle(path, [raw = std::move(raw)](ServedConnection& connection) { connection.Write(raw); });
}

void LoopbackServer::AnswerPage(const std::string& path, const std::string& header_lines, const std::string& body) {
  Answer(path, "HTTP/1.1 200 OK\r\n" + header_lines + "Content-Length: " + std::to_string(body.size()) +
                   "\r\nConnection: close\r\n\r\n" + body);
}

void LoopbackServer::Handle(const std::string& path, Handler handler) {
  const std::lock_guard lock(mutex_);
  handlers_[path] = std::move(handler);
}

std::vector<ServedRequest> LoopbackServer::Requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

void LoopbackServer::Serve() {
  for (;;) {
    const Socket socket = accept(static_cast<Socket>(listener_), nullptr, nullptr);
    if (!ends_) ServeOne(static_cast<std::uintptr_t>(socket));
    CloseSocket(socket);
    if (ends_) return;
  }
}

void LoopbackServer::ServeOne(std::uintptr_t socket) {
  constexpr int kPatienceSeconds = 10;
  SetReceiveTimeOut(static_cast<Socket>(socket), kPatienceSeconds);
  ServedConnection connection(socket);
  const ServedRequest request = connection.Read();
  if (request.line.empty()) return;
  {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
  }
  HandlerFor(request)(connection);
  Drain(static_cast<Socket>(socket));
}

LoopbackServer::Handler LoopbackServer::HandlerFor(const ServedRequest& request) const {
  const std::vector<std::string> words = Split(request.line, " ");
  const std::lock_guard lock(mutex_);
  const auto found = words.size() > 1 ? handlers_.find(words[1]) : handlers_.end();
  if (found != handlers_.end()) return found->second;
  return [](ServedConnection& unknown) {
    unknown.Write("HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nnot found");
  };
}

uint16_t ClosedPort() {
  const auto [socket, port] = BindFreePort();
  CloseSocket(socket);
  return port;
}

}  // namespace kestrun
