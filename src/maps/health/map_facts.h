// What a map's file is, as far as its health goes.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "base/bytes.h"
#include "platform/files.h"

namespace kestrun {

struct MapFacts {
  enum class State {
    kThere,
    kMissing,     // a folder of that name is no map either
    kUnreadable,  // it is there, and cannot be opened
    kNoAnswer,    // of a web address: `failure` says why
    kNotAsked,    // a web address of a scheme that is not asked
    kNoTime,      // a web address that was not come to
  };
  State state = State::kMissing;
  std::string failure;
  uint64_t bytes = 0;
  uint64_t write_time = 0;  // of the last change, as the file system tells it
  bool is_mission = false;  // begins as missions do
  // The mask of the game types; nothing where the file ends before it.
  std::optional<uint16_t> game_types;
  bool may_change = true;  // the user has the rights to make and remove files in its folder
  friend bool operator==(const MapFacts&, const MapFacts&) = default;
};

// From how many bytes the facts are told.
inline constexpr size_t kMapHeadBytes = 256;
// Fills in what the first bytes of a file tell.
void ReadMapHead(ByteView head, MapFacts& facts);

// Reads several files, asking about each folder once.
class MapFactsReader {
 public:
  // The files have to outlive the reader; it uses nothing else of the platform, which may go while it reads.
  explicit MapFactsReader(FileSystem& files) : files_(files) {}

  // A file that has the size and the date of `known` is not read again. Takes no longer than the file system does, may
  // run on any thread, and never raises.
  [[nodiscard]] MapFacts Read(const std::string& path, const std::optional<MapFacts>& known = std::nullopt);

 private:
  [[nodiscard]] bool MayChangeFilesOf(const std::string& path);
  void ReadFile(const std::string& path, const std::optional<MapFacts>& known, MapFacts& facts);

  FileSystem& files_;
  std::map<std::string, bool> may_change_;  // by folder
};

}  // namespace kestrun
