#include "game/run/rehearsed_game.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"

namespace kestrun {

RehearsedGame::RehearsedGame(const GameOptions& options, Clock& clock, LoadedMission mission,
                             std::function<void(const std::string& line)> log)
    : clock_(clock),
      mission_(std::move(mission)),
      game_(
          options, [this] { return mission_; }, static_cast<GameBody&>(*this), clock.NowMs(), std::move(log)) {}

void RehearsedGame::PutMission(LoadedMission mission) {
  Turn();
  mission_ = std::move(mission);
}

void RehearsedGame::Press(int32_t key_code) {
  Turn();
  game_.KeyDown(key_code);
  game_.KeyUp(key_code);
}

Bytes RehearsedGame::Read(int32_t address, size_t count) {
  Turn();
  return Load(static_cast<uint32_t>(address), count);
}

void RehearsedGame::Write(int32_t address, ByteView bytes) {
  Turn();
  Store(static_cast<uint32_t>(address), bytes);
}

// A place that is written for the first time holds as much as a text line.
void RehearsedGame::Store(uint32_t address, ByteView bytes) {
  Bytes& place = memory_[address];
  place.resize(std::max({place.size(), bytes.size(), kTextLineBytes}));
  std::ranges::copy(bytes, place.begin());
}

Bytes RehearsedGame::Load(uint32_t address, size_t count) {
  const auto place = memory_.find(address);
  Bytes bytes(count);
  if (place != memory_.end()) std::copy_n(place->second.begin(), std::min(count, place->second.size()), bytes.begin());
  return bytes;
}

uint8_t RehearsedLink::ReadByteAt(int32_t address) { return is_attached_ ? game_.Read(address, 1).front() : 0; }

int32_t RehearsedLink::ReadLongAt(int32_t address) {
  return is_attached_ ? static_cast<int32_t>(LoadU32(game_.Read(address, sizeof(int32_t)), 0)) : 0;
}

void RehearsedLink::PressKey(int32_t key_code) {
  if (is_attached_) game_.Press(key_code);
}

void RehearsedLink::WriteTextAt(int32_t address, std::string_view text) {
  if (is_attached_) game_.Write(address, AsBytes(EncodeText(text) + '\0'));
}

}  // namespace kestrun
