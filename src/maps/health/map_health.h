// Whether a map would work where it is to be used, and what speaks against it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "maps/health/map_facts.h"

namespace kestrun {

// From the least to the worst. Bad: the map would not go in, or the game could not play it. Doubtful: it goes in, and
// may not be what the user wants.
enum class Health { kUnknown, kGood, kDoubtful, kBad };

// "not checked", "good", "doubtful", "bad".
[[nodiscard]] std::string_view HealthWord(Health health);
inline constexpr std::string_view kWidestHealthWord = "doubtful";

enum class MapPlace {
  kMainList,  // one map by hand, into the archive
  kPlayList,  // by the auto host, beside the archive
};

// Where a map would be used.
struct MapUse {
  MapPlace place = MapPlace::kMainList;
  // The name under which it would go in; nothing while no mission is chosen, as in the window of a map's info.
  std::optional<std::string> mission;
  // The user has typed the name: nothing is known about the game type of its mission.
  bool is_renamed = false;
  friend bool operator==(const MapUse&, const MapUse&) = default;
};

struct MapHealth {
  Health health = Health::kUnknown;
  // A sentence each. A good map may have some too: they say what is worth knowing.
  std::vector<std::string> reasons;
};

// What is known of a map beside its name.
struct MapToJudge {
  const std::string& map;  // a path or a web address
  // Nothing for a web address that was not asked: its health is unknown then, unless its name alone speaks against it.
  const MapFacts* facts = nullptr;
  // Another row of the list with the same file, counted from 1; 0 for none.
  int same_row = 0;
};

[[nodiscard]] MapHealth JudgeMap(const MapToJudge& map, const MapUse& use);

// The reasons as one text: "bad: The file is empty." Without reasons the word alone.
[[nodiscard]] std::string DescribeHealth(const MapHealth& health);

// What maps of a list are compared by: the same text for two spellings of one path.
[[nodiscard]] std::string MapKey(const std::string& map);

}  // namespace kestrun
