// An exchange with the web on a thread of its own, and its answer handed over, piece by piece, to the thread that
// waits.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/http.h"

namespace kestrun {

class HttpHandover {
 public:
  // For the thread that asks. They wait for room and give whether anybody still listens.
  [[nodiscard]] bool PutHead(int status, HttpHeaders headers);
  [[nodiscard]] bool PutPiece(Bytes piece);
  // The answer has ended; with a sentence, it has failed.
  void End(std::optional<std::string> failure);

  // For the thread that waits. What has arrived next, after at most so long a wait.
  struct Item {
    bool is_end = false;
    int status = 0;  // of a head
    HttpHeaders headers;
    Bytes piece;
    std::optional<std::string> failure;
  };
  [[nodiscard]] std::optional<Item> Take(int wait_ms);
  // Nobody listens any more.
  void Leave();

 private:
  [[nodiscard]] bool Put(Item item);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Item> items_;
  size_t waiting_bytes_ = 0;
  bool is_left_ = false;
};

// Runs the exchange on a thread. A RuntimeError of it is raised where its answer is handed over, as error 440. When
// the object goes the thread is left behind and ends as soon as the library lets it.
[[nodiscard]] std::unique_ptr<HttpExchange> StartOnThread(std::function<void(HttpHandover& handover)> exchange);

// Hands the whole answer over while the windows are painted and nothing else.
void WaitForAnswer(HttpExchange& exchange, HttpReceiver& receiver);

}  // namespace kestrun
