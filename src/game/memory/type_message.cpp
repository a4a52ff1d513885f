#include "game/memory/type_message.h"

#include <utility>

#include "base/flag_scope.h"

namespace kestrun {
namespace {

constexpr uint32_t kTextIsTakenMs = 500;
constexpr int32_t kEnterKey = 13;

bool is_taken = false;

}  // namespace

bool IsTextLineTaken() { return is_taken; }

SeparateTextLine::SeparateTextLine() : was_taken_(std::exchange(is_taken, false)) {}

SeparateTextLine::~SeparateTextLine() { is_taken = was_taken_; }

void TypeMessage(GameMemory& game, Clock& clock, const TextLine& line, std::string_view message) {
  const FlagScope typing(is_taken);
  game.PressKey(line.key);
  clock.RunPendingEvents();
  clock.SleepMs(line.opens_ms);
  game.WriteTextAt(line.address, message);
  clock.SleepMs(kTextIsTakenMs);
  game.PressKey(kEnterKey);
}

}  // namespace kestrun
