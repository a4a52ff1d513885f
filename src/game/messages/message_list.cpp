#include "game/messages/message_list.h"

#include <algorithm>

#include "base/convert.h"
#include "platform/file_error.h"
#include "program/settings.h"

namespace kestrun {
namespace {

const MessageType* FindType(int32_t number) {
  const auto found = std::ranges::find(kMessageTypes, number, &MessageType::number);
  return found == kMessageTypes.end() ? nullptr : &*found;
}

ProfileValue Stored(const Setting& row, const std::string& number, std::string value) {
  return {std::string(row.section), std::string(row.key) + number, std::move(value)};
}

}  // namespace

bool IsGameStartMessage(int32_t type) {
  const MessageType* const known = FindType(type);
  return known && known->at_game_start;
}

int32_t KeyOfMessage(int32_t type) {
  const MessageType* const known = FindType(type);
  return known ? known->key : type;
}

void ReadMessages(const std::function<void(const Message&)>& take) {
  const ProfileSnapshot settings = ReadSettingsSnapshot();
  const int32_t count = std::min(TextToLong(ReadSetting(settings, setting::kChatCount)), kMostMessages);
  for (int32_t number = 1; number <= count; ++number) {
    const std::string part = std::to_string(number);
    take({ReadSetting(settings, setting::kChatMessage, part),
          TextToLong(ReadSetting(settings, setting::kChatMessageType, part))});
  }
}

MessengerSettings ReadMessengerSettings() {
  MessengerSettings settings;
  settings.build = TextToLong(ReadSetting(setting::kChatVersion));
  settings.seconds = ReadSetting(setting::kChatSeconds);
  settings.random = TextToLong(ReadSetting(setting::kChatRandom)) == 1;
  settings.fills_in = ReadSetting(setting::kChatFillIn) == "1";
  ReadMessages([&](const Message& message) { settings.messages.push_back(message); });
  return settings;
}

void WriteMessengerSettings(const MessengerSettings& settings) {
  std::vector<ProfileValue> values{Stored(setting::kChatVersion, "", std::to_string(settings.build))};
  for (size_t row = 0; row < settings.messages.size(); ++row) {
    const std::string number = std::to_string(row + 1);
    values.push_back(Stored(setting::kChatMessage, number, settings.messages[row].text));
    values.push_back(Stored(setting::kChatMessageType, number, std::to_string(settings.messages[row].type)));
  }
  values.push_back(Stored(setting::kChatCount, "", std::to_string(settings.messages.size())));
  values.push_back(Stored(setting::kChatSeconds, "", settings.seconds));
  values.push_back(Stored(setting::kChatRandom, "", settings.random ? "1" : "0"));
  // Only somebody who has used it finds it among the settings.
  const std::string fills_in = settings.fills_in ? "1" : "0";
  if (ReadSetting(setting::kChatFillIn) != fills_in) values.push_back(Stored(setting::kChatFillIn, "", fills_in));
  const std::string file = AppFile("packit.ini");
  if (!SetIniValues(file, {}, values)) throw FileError(error::kPathFileAccess, file);
}

}  // namespace kestrun
