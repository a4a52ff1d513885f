#include "maps/health/map_health.h"

#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "base/text.h"
#include "formats/bms/mission_layout.h"
#include "formats/bms/mission_texts.h"
#include "maps/put/mission_name.h"
#include "program/path_text.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

constexpr std::array<std::string_view, 4> kWords{"not checked", "good", "doubtful", "bad"};

enum class Reason {
  kMissing,
  kUnreadable,
  kNoAnswer,
  kNotAsked,
  kNoTime,
  kEmpty,
  kNoMission,
  kTooShort,
  kZip,
  kInsideZip,
  kNoName,
  kNameTooLong,
  kNameCharacter,
  kOwnNameTooLong,
  kOwnCharacter,
  kAdministrator,
  kOtherGameType,
  kNoGameType,
  kTwice,
};

// How bad a reason is in the main list and in the play list, and what it says.
struct ReasonRow {
  Reason reason;
  Health in_main_list;
  Health in_play_list;
  const char* sentence;
};

// A map's own name never reaches the game, which sees that of the mission: what it could not hold of it is only said.
// clang-format off
constexpr std::array kReasons{
    ReasonRow{Reason::kMissing, Health::kBad, Health::kBad, "The file is not there."},
    ReasonRow{Reason::kUnreadable, Health::kBad, Health::kBad, "The file cannot be read."},
    ReasonRow{Reason::kNoAnswer, Health::kBad, Health::kBad, "The web address does not answer: %1"},
    ReasonRow{Reason::kNotAsked, Health::kDoubtful, Health::kDoubtful, "Only addresses that begin with http:// or https:// can be checked."},
    ReasonRow{Reason::kNoTime, Health::kUnknown, Health::kUnknown, "The address was not asked: others took too long to answer."},
    ReasonRow{Reason::kEmpty, Health::kBad, Health::kBad, "The file is empty."},
    ReasonRow{Reason::kNoMission, Health::kBad, Health::kBad, "The file is no mission: it does not begin with \"BMS\"."},
    ReasonRow{Reason::kTooShort, Health::kBad, Health::kBad, "The file is too short for a mission: it has %1 of at least 256 bytes."},
    ReasonRow{Reason::kZip, Health::kGood, Health::kBad, "It is a zip file, which the auto host does not unpack: put the map that is inside into the list."},
    ReasonRow{Reason::kInsideZip, Health::kGood, Health::kGood, "What is inside the zip file is not looked at."},
    ReasonRow{Reason::kNoName, Health::kBad, Health::kBad, "No name is typed that the map is to be renamed to."},
    ReasonRow{Reason::kNameTooLong, Health::kDoubtful, Health::kDoubtful, "The name '%1' is too long for the archive, which holds 16 characters of it."},
    ReasonRow{Reason::kNameCharacter, Health::kBad, Health::kBad, "The game cannot store the character '%1' of the name that the map is to be renamed to."},
    ReasonRow{Reason::kOwnNameTooLong, Health::kGood, Health::kGood, "The map's own name is too long for the archive, which holds 16 characters of it; it goes in under the mission's name."},
    ReasonRow{Reason::kOwnCharacter, Health::kGood, Health::kGood, "The game cannot store the character '%1' of the map's own name; it goes in under the mission's name."},
    ReasonRow{Reason::kAdministrator, Health::kDoubtful, Health::kDoubtful, "It lies in a folder that needs administrator rights: the map can be read, and not be changed, renamed or deleted."},
    ReasonRow{Reason::kOtherGameType, Health::kDoubtful, Health::kDoubtful, "It is made for %1, not for %2."},
    ReasonRow{Reason::kNoGameType, Health::kDoubtful, Health::kDoubtful, "It is made for no game type; the chosen mission is %1."},
    ReasonRow{Reason::kTwice, Health::kDoubtful, Health::kDoubtful, "The same file stands in row %1 as well."},
};
// clang-format on

// The stock missions whose game type is known.
struct MissionType {
  std::string_view mission;
  uint32_t game_type;
};
constexpr std::array kMissionTypes{MissionType{kDeathmatchMission, 0x200}, MissionType{kCaptureTheFlagMission, 0x1000}};

std::string OwnName(const std::string& map) { return map.substr(map.find_last_of("\\/") + 1); }

// Collects what speaks against one map.
class Judgement {
 public:
  Judgement(const MapToJudge& map, const MapUse& use)
      : map_(map), use_(use), is_zip_(HasExtension(map.map, "zip")), is_url_(IsUrl(map.map)) {
    const bool is_known = map.facts && map.facts->state != MapFacts::State::kNoTime;
    result_.health = is_known ? Health::kGood : Health::kUnknown;
  }

  MapHealth Judge() {
    JudgeZip();
    if (map_.facts) JudgeFile(*map_.facts);
    JudgeMissionName();
    JudgeOwnName();
    if (map_.same_row > 0) Add(Reason::kTwice, {map_.same_row});
    return std::move(result_);
  }

 private:
  void Add(Reason reason, const std::vector<Variant>& arguments = {}) {
    const auto row =
        std::find_if(kReasons.begin(), kReasons.end(), [&](const ReasonRow& each) { return each.reason == reason; });
    const Health health = use_.place == MapPlace::kPlayList ? row->in_play_list : row->in_main_list;
    result_.health = std::max(result_.health, health);
    result_.reasons.push_back(FillPlaceholders(row->sentence, arguments));
  }

  void JudgeZip() {
    if (is_zip_ && use_.place == MapPlace::kPlayList) Add(Reason::kZip);
  }

  void JudgeFile(const MapFacts& facts) {
    switch (facts.state) {
      case MapFacts::State::kMissing: return Add(Reason::kMissing);
      case MapFacts::State::kUnreadable: return Add(Reason::kUnreadable);
      case MapFacts::State::kNoAnswer: return Add(Reason::kNoAnswer, {facts.failure});
      case MapFacts::State::kNotAsked: return Add(Reason::kNotAsked);
      case MapFacts::State::kNoTime: return Add(Reason::kNoTime);
      case MapFacts::State::kThere: break;
    }
    JudgeContent(facts);
    if (!facts.may_change) Add(Reason::kAdministrator);
  }

  // The map inside a zip is not known.
  void JudgeContent(const MapFacts& facts) {
    if (facts.bytes == 0) return Add(Reason::kEmpty);
    if (is_zip_) return use_.place == MapPlace::kMainList ? Add(Reason::kInsideZip) : void();
    if (!facts.is_mission) return Add(Reason::kNoMission);
    if (facts.bytes < bms::kKnownBytes) Add(Reason::kTooShort, {std::to_string(facts.bytes)});
    if (facts.game_types) JudgeGameType(*facts.game_types);
  }

  void JudgeGameType(uint16_t types) {
    if (!use_.mission || use_.is_renamed) return;
    const auto type = std::find_if(kMissionTypes.begin(), kMissionTypes.end(),
                                   [&](const MissionType& each) { return EqualsNoCase(each.mission, *use_.mission); });
    if (type == kMissionTypes.end() || (types & type->game_type) != 0) return;
    const std::string made_for = GameTypeText(types);
    const std::string chosen = GameTypeText(static_cast<int32_t>(type->game_type));
    if (made_for.empty()) return Add(Reason::kNoGameType, {chosen});
    Add(Reason::kOtherGameType, {made_for, chosen});
  }

  void JudgeMissionName() {
    if (!use_.mission) return;
    if (use_.mission->empty()) return Add(Reason::kNoName);
    if (const auto character = FirstUnencodable(*use_.mission)) Add(Reason::kNameCharacter, {*character});
    if (EncodeText(*use_.mission).size() > kMissionNameBytes) Add(Reason::kNameTooLong, {*use_.mission});
  }

  void JudgeOwnName() {
    if (is_url_ || is_zip_) return;
    const std::string name = OwnName(map_.map);
    if (const auto character = FirstUnencodable(name)) Add(Reason::kOwnCharacter, {*character});
    if (EncodeText(name).size() > kMissionNameBytes) Add(Reason::kOwnNameTooLong);
  }

  const MapToJudge& map_;
  const MapUse& use_;
  bool is_zip_;
  bool is_url_;
  MapHealth result_;
};

}  // namespace

std::string_view HealthWord(Health health) { return kWords[static_cast<size_t>(health)]; }

MapHealth JudgeMap(const MapToJudge& map, const MapUse& use) { return Judgement(map, use).Judge(); }

std::string DescribeHealth(const MapHealth& health) {
  std::string text(HealthWord(health.health));
  for (const std::string& reason : health.reasons)
    text.append(&reason == &health.reasons.front() ? ": " : " ").append(reason);
  return text;
}

std::string MapKey(const std::string& map) {
  if (IsUrl(map)) return map;
  return ToLower(ReplaceAll(map, "/", "\\"));
}

}  // namespace kestrun
