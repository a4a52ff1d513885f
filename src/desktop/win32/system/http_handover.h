// An answer of the web handed over, piece by piece, from the threads of the HTTP library to the thread that waits.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

#include "platform/http.h"

namespace kestrun {

class HttpHandover {
 public:
  // For the library's threads. None of them waits: whoever puts pieces asks for room first.
  void PutHead(int status, HttpHeaders headers);
  void PutPiece(Bytes piece);
  // The answer has ended; with a sentence, it has failed.
  void End(std::optional<std::string> failure);
  // False while as much is waiting to be taken as shall stand in memory.
  [[nodiscard]] bool HasRoom();

  // For the thread that waits. What has arrived next, after at most so long a wait.
  struct Item {
    bool is_end = false;
    int status = 0;  // of a head
    HttpHeaders headers;
    Bytes piece;
    std::optional<std::string> failure;
  };
  [[nodiscard]] std::optional<Item> Take(int wait_ms);

 private:
  void Put(Item item);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Item> items_;
  size_t waiting_bytes_ = 0;
};

// Gives the item to the receiver, and whether there is more to come. Raises the failure of one that has failed as error
// 440.
[[nodiscard]] bool HandOn(HttpHandover::Item item, HttpReceiver& receiver);

// Hands the whole answer over while the windows are painted and nothing else.
void WaitForAnswer(HttpExchange& exchange, HttpReceiver& receiver);

}  // namespace kestrun
