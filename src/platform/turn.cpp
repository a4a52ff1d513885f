#include "platform/turn.h"

#include <map>

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr uint32_t kAskAgainMs = 50;

// The turns of this process, by the path of their lock.
std::map<std::string, std::weak_ptr<FileLock>>& HeldTurns() {
  static std::map<std::string, std::weak_ptr<FileLock>> turns;
  return turns;
}

[[noreturn]] void RaiseInUse(const std::string& path, const LockHolder& holder) {
  const std::string who =
      holder.program.empty() ? "another program" : holder.program + " (process " + std::to_string(holder.process) + ")";
  Raise(error::kPermissionDenied, "'" + path + "' is in use by " + who + ". Try again when it has finished.");
}

std::shared_ptr<FileLock> WaitFor(const std::string& path, const std::string& lock_path) {
  FileSystem& files = platform().files();
  const std::string program = platform().program().ExeName();
  for (uint32_t waited = 0;; waited += kAskAgainMs) {
    if (std::shared_ptr<FileLock> lock = files.TryLock(lock_path, program)) return lock;
    if (waited >= kTurnWaitMs) RaiseInUse(path, files.ReadLockHolder(lock_path));
    platform().clock().SleepMs(kAskAgainMs);
  }
}

}  // namespace

std::shared_ptr<FileLock> TakeTurn(const std::string& path) {
  const std::string lock_path = platform().files().TruePath(path) + ".lock";
  if (std::shared_ptr<FileLock> held = HeldTurns()[lock_path].lock()) return held;
  std::shared_ptr<FileLock> taken = WaitFor(path, lock_path);
  std::erase_if(HeldTurns(), [](const auto& turn) { return turn.second.expired(); });
  HeldTurns()[lock_path] = taken;
  return taken;
}

}  // namespace kestrun
