#include "formats/bms/bms_writer.h"
#include "formats/bms/mission_reader.h"
#include "formats/bms/mission_texts.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr const char* kNotAMission = "This map is not a BMS file";

class BmsTest : public HeadlessTest {
 protected:
  void WriteMap(const MissionFields& fields) { WriteFile(map_path, WriteMission(fields)); }
  [[nodiscard]] MissionInfo Info() { return ReadMissionInfo(map_path).value(); }
  [[nodiscard]] MissionInfo InfoOf(const std::string& bytes) {
    WriteFile(map_path, bytes);
    return Info();
  }
  [[nodiscard]] UploadInfo Upload() { return ReadUploadInfo(map_path).value(); }
  [[nodiscard]] UploadInfo UploadOf(const std::string& bytes) {
    WriteFile(map_path, bytes);
    return Upload();
  }
  [[nodiscard]] std::string WholeMission() const {
    MissionFields fields;
    fields.mission_name = "River Crossing";
    fields.designer = "José";
    fields.terrain = "TRN07";
    fields.item_colors = 1;
    fields.game_types = 0x3200;
    fields.water_level = 0x1234;
    fields.fog_level = -300;
    fields.fog_color = {10, 20, 30};
    fields.sun = "SUNSET2";
    return std::string(AsChars(WriteMission(fields)));
  }

  const std::string map_path = Path("river.bms");
};

TEST_F(BmsTest, AllKnownFieldsAreRead) {
  const MissionInfo info = InfoOf(WholeMission() + "the rest of the mission");
  EXPECT_EQ(info.mission_name, "River Crossing");
  EXPECT_EQ(info.designer, "José");
  EXPECT_EQ(info.terrain, "TRN07");
  EXPECT_EQ(info.item_colors, "Brown");
  EXPECT_EQ(info.game_types, "Deathmatch, Team Deathmatch, Capture the flag");
  EXPECT_EQ(info.water_level, "4660");
  EXPECT_EQ(info.fog_level, "-300");
  EXPECT_EQ(info.fog_color_text, "10, 20, 30");
  EXPECT_EQ(info.fog_color, 0x000A141EU);
  EXPECT_EQ(info.sun, "SUNSET2");
}

TEST_F(BmsTest, EachFieldLiesAtItsOffset) {
  std::string bytes(256, '\0');
  bytes.replace(0, 3, "BMS");
  bytes[4] = 'n';
  bytes[36] = 'd';
  bytes[68] = 't';
  bytes[116] = 2;
  bytes[123] = 0x08;
  bytes[136] = 0x21;
  bytes[140] = 7;
  bytes[144] = 1;
  bytes[145] = 2;
  bytes[146] = 3;
  bytes[224] = 's';
  const MissionInfo info = InfoOf(bytes);
  EXPECT_EQ(info.mission_name, "n");
  EXPECT_EQ(info.designer, "d");
  EXPECT_EQ(info.terrain, "t");
  EXPECT_EQ(info.item_colors, "White");
  EXPECT_EQ(info.game_types, "Flagball");
  EXPECT_EQ(info.water_level, "33");
  EXPECT_EQ(info.fog_level, "7");
  EXPECT_EQ(info.fog_color_text, "1, 2, 3");
  EXPECT_EQ(info.fog_color, 0x00010203U);  // blue, green, red from the high byte on
  EXPECT_EQ(info.sun, "s");
}

TEST_F(BmsTest, AMaskOf0x3200IsDeathmatchTeamDeathmatchAndCaptureTheFlag) {
  EXPECT_EQ(GameTypeText(0x3200), "Deathmatch, Team Deathmatch, Capture the flag");
}

TEST_F(BmsTest, AMaskWithOnlyBit15IsSearchAndDestroy) {
  MissionFields fields;
  fields.game_types = 0x8000;
  WriteMap(fields);
  EXPECT_EQ(Info().game_types, "Search and destroy");
  EXPECT_EQ(GameTypeText(-32768), "Search and destroy");
  EXPECT_EQ(GameTypeText(0x8000), "Search and destroy");
}

TEST_F(BmsTest, AllGameTypesStandInTheirOwnOrder) {
  EXPECT_EQ(GameTypeText(-1),
            "Cooperative, Deathmatch, Team Deathmatch, King of the hill, Team King of the hill, Capture the flag, "
            "Attack and defend, Search and destroy, Flagball");
}

TEST_F(BmsTest, OtherBitsAreNoGameType) {
  EXPECT_EQ(GameTypeText(0x7F), "");
  EXPECT_EQ(GameTypeText(0), "");
  EXPECT_EQ(GameTypeText(0x7FFF0080), "Attack and defend");
}

TEST_F(BmsTest, EachItemColourSetHasItsText) {
  EXPECT_EQ(ItemColorText(0), "Green");
  EXPECT_EQ(ItemColorText(1), "Brown");
  EXPECT_EQ(ItemColorText(2), "White");
  EXPECT_EQ(ItemColorText(3), "Alpha");
  EXPECT_EQ(ItemColorText(255), "");
}

TEST_F(BmsTest, ItemColourByteFourLeavesTheFieldEmpty) {
  MissionFields fields;
  fields.item_colors = 4;
  WriteMap(fields);
  EXPECT_EQ(Info().item_colors, "");
}

TEST_F(BmsTest, TheWaterLevelIsWhatTheJoinedDigitsSpell) {
  EXPECT_EQ(WaterLevelText(0x05, 0x01), "21");  // "1" and "5"
  EXPECT_EQ(WaterLevelText(0x10, 0x01), "272");
  EXPECT_EQ(WaterLevelText(0x05, 0x00), "5");
  EXPECT_EQ(WaterLevelText(0x00, 0x00), "0");
  EXPECT_EQ(WaterLevelText(0x00, 0x12), "288");  // "12" and "0"
  EXPECT_EQ(WaterLevelText(0x0F, 0xFF), "4095");
  EXPECT_EQ(WaterLevelText(0xFF, 0xFF), "65535");
  MissionFields fields;
  fields.water_level = 0x0105;
  WriteMap(fields);
  EXPECT_EQ(Info().water_level, "21");
}

TEST_F(BmsTest, AMissionNameOf32CharactersWithoutANulShowsWhole) {
  const std::string name = "Thirty-two characters, no more!!";
  ASSERT_EQ(name.size(), 32U);
  MissionFields fields;
  fields.mission_name = name;
  fields.designer = "next";
  WriteMap(fields);
  EXPECT_EQ(Info().mission_name, name);
  EXPECT_EQ(Upload().mission_name, name);
}

TEST_F(BmsTest, ATextEndsAtItsFirstNulOnTheScreenAndLosesItsNulsForTheUpload) {
  std::string bytes = WholeMission();
  bytes.replace(4, 32, std::string(" River\0Old name \0", 17) + std::string(15, '\0'));
  EXPECT_EQ(InfoOf(bytes).mission_name, " River");
  EXPECT_EQ(Upload().mission_name, "RiverOld name");
}

TEST_F(BmsTest, AnUploadTakesTheBytesBehindTheMaskToo) {
  std::string bytes = WholeMission();
  bytes.replace(122, 4, "\x01\x82\x03\x84");
  const UploadInfo info = UploadOf(bytes);
  EXPECT_EQ(info.mission_name, "River Crossing");
  EXPECT_EQ(info.designer, "José");
  EXPECT_EQ(info.game_type, static_cast<int32_t>(0x84038201));
  EXPECT_EQ(Info().game_types, "Deathmatch, Search and destroy");
}

// ---- files that are none -----------------------------------------------------------------------------------------

TEST_F(BmsTest, AMissingMapIsTold) {
  desktop.dialogs().ExpectBox("Can't find map on your computer!");
  EXPECT_FALSE(ReadMissionInfo(map_path));
  desktop.dialogs().ExpectBox("Can't find map on your computer!");
  EXPECT_FALSE(ReadMissionInfo(Folder()));
  EXPECT_EQ(ErrorNumberOf([&] { return ReadUploadInfo(map_path); }), error::kFileNotFound);
}

class BmsNoMissionTest : public BmsTest {
 protected:
  void ExpectNoMission(const std::string& bytes) {
    WriteFile(map_path, bytes);
    desktop.dialogs().ExpectBox(kNotAMission);
    EXPECT_FALSE(ReadMissionInfo(map_path));
    desktop.dialogs().ExpectBox(kNotAMission);
    EXPECT_FALSE(ReadUploadInfo(map_path));
  }
};

TEST_F(BmsNoMissionTest, AFileThatIsNoMissionIsToldWhateverItsName) { ExpectNoMission(std::string(500, 'x')); }

TEST_F(BmsNoMissionTest, AnEmptyFileIsNoMission) { ExpectNoMission(""); }

TEST_F(BmsNoMissionTest, AFileThatEndsInTheSignatureIsNoMission) { ExpectNoMission("BM"); }

TEST_F(BmsNoMissionTest, AZipWithTheNameOfAMissionIsNoMission) {
  ExpectNoMission(std::string("PK\x03\x04", 4) + WholeMission());
}

TEST_F(BmsNoMissionTest, TheSignatureIsInCapitals) { ExpectNoMission("bms" + WholeMission().substr(3)); }

// ---- files that end early ----------------------------------------------------------------------------------------

TEST_F(BmsTest, AFileOfOnlyTheSignatureHasEmptyFields) {
  const MissionInfo info = InfoOf("BMS");
  EXPECT_EQ(info.mission_name, "");
  EXPECT_EQ(info.designer, "");
  EXPECT_EQ(info.terrain, "");
  EXPECT_EQ(info.item_colors, "");
  EXPECT_EQ(info.game_types, "");
  EXPECT_EQ(info.water_level, "");
  EXPECT_EQ(info.fog_level, "");
  EXPECT_EQ(info.fog_color_text, "");
  EXPECT_FALSE(info.fog_color);
  EXPECT_EQ(info.sun, "");
  const UploadInfo upload = Upload();
  EXPECT_EQ(upload.mission_name, "");
  EXPECT_EQ(upload.game_type, 0);
}

TEST_F(BmsTest, AFileThatEndsInATextGivesTheTextAsFarAsItGoes) {
  const MissionInfo info = InfoOf(WholeMission().substr(0, 38));
  EXPECT_EQ(info.mission_name, "River Crossing");
  EXPECT_EQ(info.designer, "Jo");
  EXPECT_EQ(info.terrain, "");
  EXPECT_EQ(Upload().designer, "Jo");
}

TEST_F(BmsTest, ANumberThatIsCutInTwoIsMissing) {
  EXPECT_EQ(InfoOf(WholeMission().substr(0, 123)).game_types, "");
  EXPECT_EQ(InfoOf(WholeMission().substr(0, 137)).water_level, "");
  EXPECT_EQ(InfoOf(WholeMission().substr(0, 141)).fog_level, "");
  EXPECT_EQ(InfoOf(WholeMission().substr(0, 146)).fog_color_text, "");
}

TEST_F(BmsTest, AnUploadOfAFileThatEndsInTheGameTypeTakesTheBytesThatAreThere) {
  EXPECT_EQ(UploadOf(WholeMission().substr(0, 124)).game_type, 0x3200);
  EXPECT_EQ(UploadOf(WholeMission().substr(0, 123)).game_type, 0);
}

}  // namespace
}  // namespace kestrun
