// The temporary files of a fetch have fixed names: from the fetch until the map has been used, other processes wait.
#pragma once

#include <string>

namespace kestrun {

// Stands in a command that fetches a map and uses it. What FetchMap and GetFileFromZip write meanwhile stays this
// process's own until the last such object has ended, or this one's End is called.
class FetchTurn {
 public:
  FetchTurn();
  ~FetchTurn() { End(); }
  FetchTurn(const FetchTurn&) = delete;
  FetchTurn& operator=(const FetchTurn&) = delete;

  void End();

 private:
  bool has_ended_ = false;
};

// Takes the turn at a temporary file or folder, and keeps it where a FetchTurn stands; waits up to 5 s for another
// process, then raises error 70, which names it.
void TakeFetchTurn(const std::string& path);

}  // namespace kestrun
