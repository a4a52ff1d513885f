#include "desktop/headless/headless_game.h"

#include <algorithm>
#include <utility>

#include "base/code_page.h"

namespace kestrun {
namespace {

// Links find their games through the list, which lives as long as the platform.
class HeadlessGameMemory final : public GameMemory {
 public:
  HeadlessGameMemory(HeadlessGames& games, KeyDeliverySource key_delivery)
      : games_(games), key_delivery_(std::move(key_delivery)) {}

  uint8_t ReadByteAt(int32_t address) override {
    const MutableByteView bytes = Memory(address, 1);
    return bytes.empty() ? 0 : bytes[0];
  }

  int32_t ReadLongAt(int32_t address) override {
    const MutableByteView bytes = Memory(address, sizeof(int32_t));
    return bytes.empty() ? 0 : static_cast<int32_t>(LoadU32(bytes, 0));
  }

  void PressKey(int32_t key_code) override {
    const KeyDelivery delivery = key_delivery_ ? key_delivery_() : KeyDelivery::kAuto;
    const std::shared_ptr<HeadlessGame> game = Game();
    if (!game) return;
    game->keys.push_back(key_code);
    game->deliveries.push_back(delivery);
    if (game->on_key) game->on_key(key_code);
  }

  void WriteTextAt(int32_t address, std::string_view text) override {
    const std::shared_ptr<HeadlessGame> game = Game();
    if (!game) return;
    if (game->refuses_writing) {
      refusal_ = kGameNotWritable;
      return;
    }
    const std::string bytes = EncodeText(text) + '\0';
    const MutableByteView memory = game->Memory(static_cast<uint32_t>(address), bytes.size());
    std::ranges::copy(AsBytes(bytes).first(memory.size()), memory.begin());
  }

  bool AttachToWindow(std::string_view title) override {
    refusal_.clear();
    game_ = games_.Find(title);
    if (game_ && game_->refuses_reading) {
      refusal_ = kGameNotReadable;
      game_.reset();
    }
    return game_ != nullptr;
  }

  std::string Refusal() override { return refusal_; }

 private:
  // The game, up to the moment; null when none is attached or it has ended.
  std::shared_ptr<HeadlessGame> Game() {
    if (game_ && !game_->ended && game_->before_access) game_->before_access();
    if (game_ && game_->ended) game_.reset();
    return game_;
  }

  MutableByteView Memory(int32_t address, size_t count) {
    const std::shared_ptr<HeadlessGame> game = Game();
    return game ? game->Memory(static_cast<uint32_t>(address), count) : MutableByteView();
  }

  HeadlessGames& games_;
  KeyDeliverySource key_delivery_;
  std::shared_ptr<HeadlessGame> game_;
  std::string refusal_;
};

}  // namespace

MutableByteView HeadlessGame::Memory(uint32_t address, size_t count) {
  auto block = blocks_.upper_bound(address);
  if (block == blocks_.begin()) return {};
  --block;
  const size_t offset = address - block->first;
  if (offset > block->second.size() || count > block->second.size() - offset) return {};
  return MutableByteView(block->second).subspan(offset, count);
}

void HeadlessGame::SetByte(uint32_t address, uint8_t value) {
  if (Memory(address, 1).empty()) AddMemory(address, 1);
  Memory(address, 1)[0] = value;
}

void HeadlessGame::SetLong(uint32_t address, int32_t value) {
  if (Memory(address, sizeof value).empty()) AddMemory(address, sizeof value);
  StoreU32(Memory(address, sizeof value), 0, static_cast<uint32_t>(value));
}

std::string HeadlessGame::TextAt(uint32_t address) {
  std::string text;
  for (MutableByteView byte = Memory(address, 1); !byte.empty() && byte[0] != 0; byte = Memory(++address, 1)) {
    text += static_cast<char>(byte[0]);
  }
  return text;
}

std::unique_ptr<GameMemory> HeadlessGames::MakeMemory(KeyDeliverySource key_delivery) {
  return std::make_unique<HeadlessGameMemory>(*this, std::move(key_delivery));
}

std::shared_ptr<HeadlessGame> HeadlessGames::Start(std::string title) {
  std::erase_if(games_, [](const auto& game) { return game->ended; });
  games_.push_back(std::make_shared<HeadlessGame>(std::move(title)));
  return games_.back();
}

std::shared_ptr<HeadlessGame> HeadlessGames::Find(std::string_view title) {
  const auto found =
      std::ranges::find_if(games_, [title](const auto& game) { return !game->ended && game->Title() == title; });
  return found == games_.end() ? nullptr : *found;
}

}  // namespace kestrun
