#include "maps/fetch/fetch_turn.h"

#include <utility>
#include <vector>

#include "platform/turn.h"

namespace kestrun {
namespace {

int commands = 0;
std::vector<std::shared_ptr<FileLock>> kept;

}  // namespace

FetchTurn::FetchTurn() { ++commands; }

void FetchTurn::End() {
  if (std::exchange(has_ended_, true)) return;
  if (--commands == 0) kept.clear();
}

void TakeFetchTurn(const std::string& path) {
  auto turn = TakeTurn(path);
  if (commands > 0) kept.push_back(std::move(turn));
}

}  // namespace kestrun
