// A small web server on this machine's own address, on a thread of its own, that answers what a test lays down: well
// or badly. One connection after the other, one request on each.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace kestrun {

// What arrived: the request line and headers as they stood on the wire, and the body.
struct ServedRequest {
  std::string line;
  std::string head;
  std::string body;
  // The value of a header, empty when it is not there.
  [[nodiscard]] std::string Header(std::string_view name) const;
};

// The server's end of a connection.
class ServedConnection {
 public:
  explicit ServedConnection(std::uintptr_t socket) : socket_(socket) {}
  // False once the client has gone.
  bool Write(std::string_view bytes);
  // Bytes that Write has got rid of.
  [[nodiscard]] size_t written() const { return written_; }

 private:
  friend class LoopbackServer;
  [[nodiscard]] ServedRequest Read() const;

  std::uintptr_t socket_;
  size_t written_ = 0;
};

class LoopbackServer {
 public:
  using Handler = std::function<void(ServedConnection& connection)>;

  // Listens on a free port.
  LoopbackServer();
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  [[nodiscard]] std::string Url(std::string_view path) const;

  // Answers a path with these bytes as they stand, and closes the connection.
  void Answer(const std::string& path, std::string raw);
  // Answers with status 200, these header lines (each with its end), the body and its length.
  void AnswerPage(const std::string& path, const std::string& header_lines, const std::string& body);
  // Runs on the server's thread; the connection is closed behind it.
  void Handle(const std::string& path, Handler handler);

  // Every request so far, in order. Any path that nobody laid an answer down for gets a 404.
  [[nodiscard]] std::vector<ServedRequest> Requests() const;

 private:
  void Serve();
  void ServeOne(std::uintptr_t socket);
  [[nodiscard]] Handler HandlerFor(const ServedRequest& request) const;

  std::uintptr_t listener_;
  uint16_t port_ = 0;
  std::atomic<bool> ends_ = false;
  mutable std::mutex mutex_;
  std::map<std::string, Handler> handlers_;
  std::vector<ServedRequest> requests_;
  std::thread thread_;
};

// A port on this machine where nobody listens.
[[nodiscard]] uint16_t ClosedPort();

}  // namespace kestrun
