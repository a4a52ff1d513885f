// A folder of maps built in code, each with one thing about it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "formats/bms/bms_writer.h"
#include "maps/health/map_health.h"
#include "maps/put/mission_name.h"
#include "program/frame_fixture.h"

namespace kestrun {

inline constexpr uint16_t kDeathmatch = 0x200;
inline constexpr uint16_t kCaptureTheFlag = 0x1000;

inline Bytes MissionOf(uint16_t game_types) {
  MissionFields fields;
  fields.mission_name = "Oasis";
  fields.game_types = game_types;
  return WriteMission(fields);
}

class HealthTest : public FrameTest {
 protected:
  HealthTest() { TellGameFolder(); }

  // Gives the path of a map with these bytes.
  [[nodiscard]] std::string MapOf(std::string_view name, ByteView content) {
    WriteFile(MapPath(name), content);
    return MapPath(name);
  }
  [[nodiscard]] std::string GoodMap(std::string_view name = "Oasis.bms", uint16_t game_types = kCaptureTheFlag) {
    return MapOf(name, MissionOf(game_types));
  }
  [[nodiscard]] static MapUse InPlayList(const char* mission = kCaptureTheFlagMission) {
    return {MapPlace::kPlayList, mission};
  }
  [[nodiscard]] static MapUse InMainList(const char* mission = kCaptureTheFlagMission) {
    return {MapPlace::kMainList, mission};
  }
  [[nodiscard]] static MapUse Renamed(const std::string& name, MapPlace place = MapPlace::kMainList) {
    return {place, name, true};
  }
  // "bad: The file is empty."
  [[nodiscard]] std::string HealthOf(const std::string& path, const MapUse& use, int same_row = 0) {
    const MapFacts facts = MapFactsReader(desktop.files()).Read(path);
    return DescribeHealth(JudgeMap({path, &facts, same_row}, use));
  }
  // In the main list and in the play list, where that is the same.
  [[nodiscard]] std::string HealthOf(const std::string& path) {
    const std::string health = HealthOf(path, InMainList());
    EXPECT_EQ(HealthOf(path, InPlayList()), health);
    return health;
  }
};

}  // namespace kestrun
