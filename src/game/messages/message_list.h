// The messages that the auto messenger types into the game, and where they are stored.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "game/memory/type_message.h"

namespace kestrun {

struct MessageType {
  int32_t number;  // as it is stored
  std::string_view caption;
  int32_t key;         // opens the line that the message goes to
  bool at_game_start;  // sent once after the start of each game, not by the clock
};

// In the order in which they are offered.
inline constexpr std::array kMessageTypes{
    MessageType{84, "Public message (T)", kPublicChatKey, false},
    MessageType{89, "Team message (Y)", kTeamChatKey, false},
    MessageType{192, "Command (\u00F9 or ~)", kConsoleKey, false},
    MessageType{0, "Game start public (T)", kPublicChatKey, true},
    MessageType{1, "Game start team (Y)", kTeamChatKey, true},
    MessageType{2, "Game start command (~ or \u00F9)", kConsoleKey, true},
};

// Any other number is that of a message by the clock whose key it is.
[[nodiscard]] bool IsGameStartMessage(int32_t type);
[[nodiscard]] int32_t KeyOfMessage(int32_t type);

struct Message {
  std::string text;
  int32_t type = 0;
};

// No more are read: their count comes from a file.
inline constexpr int32_t kMostMessages = 1000;

// Hands over what is stored in packit.ini, one after the other. Error 13 or 6 for a count or a type that is no number,
// behind the messages before it.
void ReadMessages(const std::function<void(const Message&)>& take);

struct MessengerSettings {
  int build = 0;  // row of kMessengerBuilds
  std::vector<Message> messages;
  std::string seconds;
  bool random = false;
  bool fills_in = false;  // words such as %map% when a message is sent
};
// All of them as they are stored. Raises as ReadMessages does.
[[nodiscard]] MessengerSettings ReadMessengerSettings();
// Raises when they cannot be stored.
void WriteMessengerSettings(const MessengerSettings& settings);

}  // namespace kestrun
