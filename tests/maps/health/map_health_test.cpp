#include "maps/health/map_health.h"

#include "maps/health/health_fixture.h"
#include "support/closed_folders.h"
#include "support/forwarding_files.h"
#include "support/without_rights.h"

namespace kestrun {
namespace {

TEST_F(HealthTest, AMissionOfTheChosenTypeIsGood) {
  EXPECT_EQ(HealthOf(GoodMap()), "good");
  EXPECT_EQ(HealthOf(GoodMap("Both.bms", kCaptureTheFlag | kDeathmatch), InPlayList(kDeathmatchMission)), "good");
}

TEST_F(HealthTest, AMapThatIsNotThereIsBad) {
  EXPECT_EQ(HealthOf(MapPath("gone.bms")), "bad: The file is not there.");
  EXPECT_EQ(HealthOf("ERROR!"), "bad: The file is not there.") << "what a list file without a key gives";
}

TEST_F(HealthTest, AFolderWithAMapsNameIsNoFile) {
  native_files.MakeFolder(MapPath("Folder.bms"));
  EXPECT_EQ(HealthOf(MapPath("Folder.bms")), "bad: The file is not there.");
}

// Another program holds the file for itself alone.
class HeldFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<File> Open(std::string_view, OpenMode) override { Raise(error::kPermissionDenied); }
};

TEST_F(HealthTest, AMapThatCannotBeOpenedIsBad) {
  const std::string map = GoodMap();
  HeldFiles held(native_files);
  desktop.UseFiles(held);
  EXPECT_EQ(HealthOf(map), "bad: The file cannot be read.");
  desktop.UseFiles(native_files);
}

TEST_F(HealthTest, AnEmptyMapIsBad) { EXPECT_EQ(HealthOf(MapOf("empty.bms", {})), "bad: The file is empty."); }

TEST_F(HealthTest, AMapThatEndsBeforeTheKnownFieldsIsBad) {
  Bytes mission = MissionOf(kCaptureTheFlag);
  mission.resize(255);  // the last known field ends at 256
  EXPECT_EQ(HealthOf(MapOf("short.bms", mission)),
            "bad: The file is too short for a mission: it has 255 of at least 256 bytes.");
  mission.resize(10);  // the game types are not there either: nothing is said of them
  EXPECT_EQ(HealthOf(MapOf("short.bms", mission)),
            "bad: The file is too short for a mission: it has 10 of at least 256 bytes.");
}

TEST_F(HealthTest, AFileThatDoesNotBeginAsAMissionIsBad) {
  Bytes mission = MissionOf(kCaptureTheFlag);
  mission[2] = 'X';
  EXPECT_EQ(HealthOf(MapOf("none.bms", mission)), "bad: The file is no mission: it does not begin with \"BMS\".");
}

TEST_F(HealthTest, AZipIsGoodInTheMainListAndBadInThePlayList) {
  const std::string zip = MapOf("Maps.zip", AsBytes("PK\3\4"));
  EXPECT_EQ(HealthOf(zip, InMainList()), "good: What is inside the zip file is not looked at.");
  EXPECT_EQ(HealthOf(zip, InPlayList()),
            "bad: It is a zip file, which the auto host does not unpack: put the map that is inside into the list.");
}

TEST_F(HealthTest, AnEmptyZipIsBadInTheMainListToo) {
  EXPECT_EQ(HealthOf(MapOf("Maps.zip", {}), InMainList()), "bad: The file is empty.");
}

TEST_F(HealthTest, ATypedNameThatTheArchiveCutsIsDoubtful) {
  const std::string map = GoodMap();
  EXPECT_EQ(HealthOf(map, Renamed("SIXTEEN.CHARS.OK")), "good");
  EXPECT_EQ(HealthOf(map, Renamed("SEVENTEEN.CHARS.X")),
            "doubtful: The name 'SEVENTEEN.CHARS.X' is too long for the archive, which holds 16 characters of it.");
}

TEST_F(HealthTest, ATypedNameWithACharacterThatTheGameCannotStoreIsBad) {
  EXPECT_EQ(HealthOf(GoodMap(), Renamed("地図.BMS", MapPlace::kPlayList)),
            "bad: The game cannot store the character '地' of the name that the map is to be renamed to.");
}

TEST_F(HealthTest, ARenameWithoutANameIsBad) {
  EXPECT_EQ(HealthOf(GoodMap(), Renamed("")), "bad: No name is typed that the map is to be renamed to.");
}

TEST_F(HealthTest, AMapsOwnNameIsOnlyMentionedSinceTheGameNeverSeesIt) {
  EXPECT_EQ(
      HealthOf(GoodMap("Seventeen char.bms")),
      "good: The map's own name is too long for the archive, which holds 16 characters of it; it goes in under the "
      "mission's name.");
  EXPECT_EQ(
      HealthOf(GoodMap("Карта.bms")),
      "good: The game cannot store the character 'К' of the map's own name; it goes in under the mission's name.");
}

TEST_F(HealthTest, AMapOfAnotherGameTypeIsDoubtful) {
  EXPECT_EQ(HealthOf(GoodMap("d.bms", kDeathmatch)), "doubtful: It is made for Deathmatch, not for Capture the flag.");
  EXPECT_EQ(HealthOf(GoodMap("c.bms", kCaptureTheFlag), InPlayList(kDeathmatchMission)),
            "doubtful: It is made for Capture the flag, not for Deathmatch.");
  EXPECT_EQ(HealthOf(GoodMap("n.bms", 0)),
            "doubtful: It is made for no game type; the chosen mission is Capture the flag.");
}

TEST_F(HealthTest, ARenamedMapIsJudgedWithoutAGameType) {
  EXPECT_EQ(HealthOf(GoodMap("d.bms", kDeathmatch), Renamed(kCaptureTheFlagMission)), "good");
}

TEST_F(HealthTest, AMapForWhichNoMissionIsChosenIsJudgedByItself) {
  EXPECT_EQ(HealthOf(GoodMap("d.bms", kDeathmatch), {}), "good");
}

TEST_F(HealthTest, AFileThatStandsInTheListTwiceIsDoubtful) {
  EXPECT_EQ(HealthOf(GoodMap(), InPlayList(), 3), "doubtful: The same file stands in row 3 as well.");
}

TEST_F(HealthTest, TwoSpellingsOfAPathAreOneMap) {
  EXPECT_EQ(MapKey("C:\\Maps\\Oasis.bms"), MapKey("c:/maps/OASIS.BMS"));
  EXPECT_NE(MapKey("http://maps.example/a"), MapKey("http://maps.example/A")) << "servers tell them apart";
}

TEST_F(HealthTest, SeveralReasonsStandOneBehindTheOtherAndTheWorstDecides) {
  EXPECT_EQ(HealthOf(MapOf("empty.bms", {}), InPlayList(), 2),
            "bad: The file is empty. The same file stands in row 2 as well.");
}

TEST_F(HealthTest, AWebAddressIsNotCheckedUntilItIsAsked) {
  const std::string address = "http://maps.example/Oasis.bms";
  EXPECT_EQ(DescribeHealth(JudgeMap({address}, InPlayList())), "not checked");
}

TEST_F(HealthTest, AWebAddressOfAZipIsBadInThePlayListUnasked) {
  const std::string address = "http://maps.example/Oasis.zip";
  EXPECT_EQ(DescribeHealth(JudgeMap({address}, InPlayList())),
            "bad: It is a zip file, which the auto host does not unpack: put the map that is inside into the list.");
}

TEST_F(HealthTest, AFileIsReadAgainOnlyWhenItsSizeOrDateHasChanged) {
  const std::string map = GoodMap("d.bms", kDeathmatch);
  MapFacts known = MapFactsReader(desktop.files()).Read(map);
  EXPECT_EQ(known.game_types, kDeathmatch);
  known.game_types = kCaptureTheFlag;  // not what the file holds: taken over shows that it was not read
  EXPECT_EQ(MapFactsReader(desktop.files()).Read(map, known).game_types, kCaptureTheFlag);
  native_files.SetWriteTime(map, known.write_time + 20'000'000);
  EXPECT_EQ(MapFactsReader(desktop.files()).Read(map, known).game_types, kDeathmatch);
}

TEST_F(HealthTest, AMapInAFolderThatIsClosedToTheUserIsDoubtful) {
  const std::string map = GoodMap();
  const ClosedFolders closed;
  EXPECT_EQ(HealthOf(map),
            "doubtful: It lies in a folder that needs administrator rights: the map can be read, and not be changed, "
            "renamed or deleted.");
}

#ifndef _WIN32
TEST_F(HealthTest, AMapInAFolderThatNeedsAdministratorRightsIsDoubtful) {
  const std::string map = GoodMap();
  const WithoutRights rights;
  // Others may look into the folder, as into that of installed programs, and not write there.
  EXPECT_EQ(HealthOf(map),
            "doubtful: It lies in a folder that needs administrator rights: the map can be read, and not be changed, "
            "renamed or deleted.");
}
#endif

}  // namespace
}  // namespace kestrun
