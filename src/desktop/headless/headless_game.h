// The games beside the program as a test lays them down: a window title, memory at chosen addresses, and the keys that
// were pressed.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "platform/game_memory.h"

namespace kestrun {

// One game with a window. It models neither pages nor several threads: memory is there at the addresses that were
// added, byte by byte, readable and writable.
class HeadlessGame {
 public:
  explicit HeadlessGame(std::string title) : title_(std::move(title)) {}

  [[nodiscard]] const std::string& Title() const { return title_; }
  // Memory of zeros at an address; blocks do not overlap.
  void AddMemory(uint32_t address, size_t count) { blocks_[address].resize(count); }
  // The memory from there on; empty unless all of it lies in one block.
  [[nodiscard]] MutableByteView Memory(uint32_t address, size_t count);
  // Add the memory when there is none yet.
  void SetByte(uint32_t address, uint8_t value);
  void SetLong(uint32_t address, int32_t value);
  // The bytes up to the first zero; empty where no memory is.
  [[nodiscard]] std::string TextAt(uint32_t address);

  // The process has ended: links to it read 0 from now on.
  bool ended = false;
  // The system refuses to open it, or to open it for writing.
  bool refuses_reading = false;
  bool refuses_writing = false;
  // Every key that was pressed, with the delivery that was asked for, in order.
  std::vector<int32_t> keys;
  std::vector<KeyDelivery> deliveries;
  // Called before each operation on the game, which so can bring itself up to the moment, and may end.
  std::function<void()> before_access;
  // Called for each key, after it was noted.
  std::function<void(int32_t key_code)> on_key;

 private:
  std::string title_;
  std::map<uint32_t, Bytes> blocks_;
};

class HeadlessGames final : public RunningGames {
 public:
  [[nodiscard]] std::unique_ptr<GameMemory> MakeMemory(KeyDeliverySource key_delivery) override;

  // A game with this window title runs from now on, until its `ended` is set. Of two with one title the older is found.
  std::shared_ptr<HeadlessGame> Start(std::string title);
  // Null when no game that runs has this title.
  [[nodiscard]] std::shared_ptr<HeadlessGame> Find(std::string_view title);

 private:
  std::vector<std::shared_ptr<HeadlessGame>> games_;
};

}  // namespace kestrun
