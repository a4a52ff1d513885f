// What the inflate benchmark compresses, made anew in each run: prose, an executable, records that resemble missions.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "formats/bms/bms_writer.h"

namespace kestrun {

// Several buffers where they are small: expanding one alone again and again, a processor would learn it by heart.
struct Corpus {
  std::string name;
  std::vector<Bytes> buffers;
};

using RandomEngine = std::minstd_rand;

inline size_t Draw(RandomEngine& random, size_t below) {
  return std::uniform_int_distribution<size_t>(0, below - 1)(random);
}

// Word n comes about n times as rarely as the first.
inline size_t DrawWord(RandomEngine& random, size_t words) {
  const double log_words = std::log(static_cast<double>(words));
  const double drawn = std::exp(std::uniform_real_distribution<double>(0, log_words)(random));
  return std::min(words - 1, static_cast<size_t>(drawn) - 1);
}

inline std::vector<std::string> MakeVocabulary(RandomEngine& random, size_t words) {
  const std::string consonants = "tnshrdlcmwfgypbvk";
  const std::string vowels = "eaoiu";
  std::vector<std::string> vocabulary;
  for (size_t at = 0; at < words; ++at) {
    std::string word;
    // Frequent words are short.
    const size_t syllables = 1 + Draw(random, at < 60 ? 1 : 4);
    for (size_t syllable = 0; syllable < syllables; ++syllable) {
      if (Draw(random, 4) != 0) word += consonants[DrawWord(random, consonants.size())];
      word += vowels[DrawWord(random, vowels.size())];
      if (Draw(random, 2) != 0) word += consonants[DrawWord(random, consonants.size())];
    }
    vocabulary.push_back(word);
  }
  return vocabulary;
}

// Sentences of made-up words. After each word some others are likely, as in a language.
inline Bytes MakeProse(size_t bytes) {
  constexpr size_t kWords = 6000;
  constexpr size_t kLikely = 12;
  RandomEngine random(1);
  const std::vector<std::string> vocabulary = MakeVocabulary(random, kWords);
  std::string text;
  size_t word = 0;
  size_t line = 0;
  while (text.size() < bytes) {
    const size_t likely = (word * 131 + Draw(random, kLikely) * 977) % kWords;
    word = Draw(random, 3) == 0 ? likely : DrawWord(random, kWords);
    text += vocabulary[word];
    if (Draw(random, 9) == 0) text += Draw(random, 3) == 0 ? "." : ",";
    line += vocabulary[word].size() + 1;
    text += line > 90 ? "\n" : " ";
    if (line > 90) line = 0;
  }
  text.resize(bytes);
  return Bytes(text.begin(), text.end());
}

inline Bytes ReadOwnExecutable(size_t most) {
  std::ifstream file("/proc/self/exe", std::ios::binary);
  Bytes bytes(std::istreambuf_iterator<char>(file), {});
  if (bytes.size() > most) bytes.resize(most);
  return bytes;
}

// A mission's first fields, then objects of 64 bytes: type, number, position, angles, side, many zeros, a name.
inline Bytes MakeRecords(size_t bytes, uint32_t seed) {
  constexpr size_t kRecordBytes = 64;
  const char* const names[] = {"tree", "palm", "rock", "hut", "tower", "guard", "truck", "crate", "fence", "waypoint"};
  RandomEngine random(seed);
  MissionFields fields;
  fields.mission_name = "River Crossing";
  fields.designer = "Somebody";
  fields.terrain = "dvriver";
  fields.game_types = 0x3200;
  fields.sun = "noon";
  Bytes mission = WriteMission(fields);
  for (uint16_t number = 0; mission.size() < bytes; ++number) {
    Bytes record(kRecordBytes);
    const size_t kind = DrawWord(random, std::size(names));
    StoreU16(record, 0, static_cast<uint16_t>(1000 + kind * 13));
    StoreU16(record, 2, number);
    StoreU32(record, 4, static_cast<uint32_t>(Draw(random, 1 << 24)));
    StoreU32(record, 8, static_cast<uint32_t>(Draw(random, 1 << 24)));
    StoreU32(record, 12, static_cast<uint32_t>(Draw(random, 1 << 12)));
    StoreU16(record, 18, static_cast<uint16_t>(Draw(random, 36) * 10));
    record[24] = static_cast<uint8_t>(Draw(random, 3));
    record[28] = 100;
    const std::string name = names[kind] + std::to_string(Draw(random, 40));
    std::copy(name.begin(), name.end(), record.begin() + 40);
    mission.insert(mission.end(), record.begin(), record.end());
  }
  mission.resize(bytes);
  return mission;
}

inline Corpus MakeMissions(const std::string& name, size_t bytes) {
  constexpr uint32_t kMissions = 8;
  Corpus corpus{name, {}};
  for (uint32_t seed = 1; seed <= kMissions; ++seed) corpus.buffers.push_back(MakeRecords(bytes, seed));
  return corpus;
}

inline std::vector<Corpus> MakeCorpora() {
  return {{"text", {MakeProse(1 << 19)}},
          {"executable", {ReadOwnExecutable(4 << 20)}},
          MakeMissions("records 20 KB", 20000),
          MakeMissions("records 40 KB", 40000),
          MakeMissions("records 60 KB", 60000)};
}

}  // namespace kestrun
