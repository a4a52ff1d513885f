#include "game/messages/fill_message.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kestrun {
namespace {

struct Word {
  std::string_view word;
  std::string MessageFacts::*fact;
};
constexpr std::array kWords{Word{"%map%", &MessageFacts::map}, Word{"%next%", &MessageFacts::next},
                            Word{"%left%", &MessageFacts::left}, Word{"%time%", &MessageFacts::time}};

}  // namespace

std::string FillMessage(std::string_view message, const MessageFacts& facts) {
  std::string filled;
  while (!message.empty()) {
    const auto* const word = std::ranges::find_if(
        kWords, [&](const Word& each) { return EqualsNoCase(message.substr(0, each.word.size()), each.word); });
    if (word == kWords.end()) {
      filled += message.front();
      message.remove_prefix(1);
      continue;
    }
    const std::string& fact = facts.*word->fact;
    filled += fact.empty() ? "?" : fact;
    message.remove_prefix(word->word.size());
  }
  return filled;
}

}  // namespace kestrun
