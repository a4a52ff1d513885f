#include "game/simulated/game_options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "game/simulated/simulated_build.h"

namespace kestrun {
namespace {

// One word of the command line: exactly one of the places is set.
struct OptionWord {
  std::string_view word;
  std::string_view meaning;
  uint32_t GameOptions::*number = nullptr;
  uint32_t least = 0;
  uint32_t most = 0;
  std::string GameOptions::*text = nullptr;
  bool GameOptions::*flag = nullptr;
};

constexpr uint32_t kDayMs = 24 * 60 * 60 * 1000;

constexpr OptionWord Number(std::string_view word, std::string_view meaning, uint32_t GameOptions::*place,
                            uint32_t least, uint32_t most) {
  return {word, meaning, place, least, most};
}
constexpr OptionWord Text(std::string_view word, std::string_view meaning, std::string GameOptions::*place) {
  return {word, meaning, nullptr, 0, 0, place};
}
constexpr OptionWord Flag(std::string_view word, std::string_view meaning, bool GameOptions::*place) {
  return {word, meaning, nullptr, 0, 0, nullptr, place};
}

constexpr std::array kWords{
    Text("-folder", "the game's folder", &GameOptions::folder),
    Text("-archive", "the archive in it", &GameOptions::archive),
    Text("-mission", "the stock mission that is played", &GameOptions::mission),
    Number("-round", "seconds of a round on its clock", &GameOptions::round_seconds, 1, 100'000),
    Number("-speed", "seconds of the round clock in one second", &GameOptions::speed, 1, 1000),
    Number("-pause", "milliseconds between two rounds", &GameOptions::pause_ms, 1, kDayMs),
    Number("-leave", "milliseconds that the game takes to leave a round", &GameOptions::leave_ms, 0, kDayMs),
    Number("-kill", "milliseconds after which the process ends in the middle", &GameOptions::kill_after_ms, 1, kDayMs),
    Flag("-keysignored", "no key is heard", &GameOptions::ignores_keys),
    Flag("-anyfile", "files that are no missions are played too", &GameOptions::plays_anything),
    Text("-log", "file for the log lines", &GameOptions::log),
};

[[noreturn]] void Refuse(std::string sentence) { Raise(error::kInvalidProcedureCall, std::move(sentence)); }

// Words are parted by blanks; what stands in double quotes is one word.
std::vector<std::string> WordsOf(std::string_view command_line) {
  std::vector<std::string> words;
  for (size_t at = 0; at < command_line.size();) {
    if (command_line[at] == ' ') {
      ++at;
      continue;
    }
    const bool quoted = command_line[at] == '"';
    if (quoted) ++at;
    const size_t end = std::min(command_line.find(quoted ? '"' : ' ', at), command_line.size());
    words.emplace_back(command_line.substr(at, end - at));
    at = end + (quoted ? 1 : 0);
  }
  return words;
}

uint32_t NumberOf(std::string_view word, std::string_view text, uint32_t least, uint32_t most) {
  uint32_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure == std::errc() && end == text.data() + text.size() && number >= least && number <= most) return number;
  Refuse(std::string(word) + " needs a number from " + std::to_string(least) + " to " + std::to_string(most) +
         ", not \"" + std::string(text) + "\"");
}

const OptionWord* FindWord(std::string_view word) {
  const auto* const found = std::ranges::find(kWords, word, &OptionWord::word);
  return found == kWords.end() ? nullptr : found;
}

}  // namespace

GameOptions ParseGameOptions(std::string_view command_line) {
  GameOptions options;
  const std::vector<std::string> words = WordsOf(command_line);
  for (size_t at = 0; at < words.size(); ++at) {
    const std::string& word = words[at];
    const OptionWord* const known = FindWord(word);
    if (!known && word != "-build") Refuse("The word \"" + word + "\" is unknown");
    if (known && known->flag) {
      options.*known->flag = true;
      continue;
    }
    if (++at == words.size()) Refuse("Behind " + word + " something is missing");
    if (!known)
      options.build = NumberOf(word, words[at], 0, static_cast<uint32_t>(SimulatedBuilds().size() - 1));
    else if (known->number)
      options.*known->number = NumberOf(word, words[at], known->least, known->most);
    else
      options.*known->text = words[at];
  }
  return options;
}

std::string GameOptionsUsage() {
  std::string usage = "-build NUMBER: which build\n";
  for (size_t at = 0; at < SimulatedBuilds().size(); ++at) {
    usage += "    " + std::to_string(at) + " " + std::string(SimulatedBuilds()[at].title) + "\n";
  }
  for (const OptionWord& word : kWords) {
    const std::string_view value = word.number ? " NUMBER" : word.text ? " TEXT" : "";
    usage += std::string(word.word) + std::string(value) + ": " + std::string(word.meaning) + "\n";
  }
  return usage;
}

}  // namespace kestrun
