#include <gtest/gtest.h>

#include "frame/frame_fixture.h"
#include "frame/pack_command.h"
#include "support/zip_builder.h"

namespace kestrun {
namespace {

class PackZipTest : public FrameTest {
 protected:
  PackZipTest() {
    TellGameFolder();
    MakeArchive(archive, {"A.BMS"});
  }
  void Pack(const std::vector<ZipMember>& members, const std::string& name = "NEW.BMS") {
    WriteFile(MapPath("maps.zip"), BuildZip(members));
    PackCommand("-pack \"" + archive + "\" \"" + name + "\" \"" + MapPath("maps.zip") + "\"/z");
  }
  [[nodiscard]] std::string Unpacked(const std::string& path) {
    return ReadFile(Path("temp\\unzipped_NEW.BMS\\" + path));
  }

  const std::string archive = GamePath("dflw.pff");
};

TEST_F(PackZipTest, EveryFileOfTheZipGoesInUnderItsOwnBaseNameTheReadmeToo) {
  Pack({{"maps/", ""}, {"maps/deep/OASIS.BMS", "BMS oasis"}, {"A.BMS", "BMS new"}, {"readme.txt", "Read me"}});
  EXPECT_EQ(EntryOf(archive, "OASIS.BMS"), "BMS oasis");
  EXPECT_EQ(EntryOf(archive, "A.BMS"), "BMS new");
  EXPECT_EQ(EntryOf(archive, "readme.txt"), "Read me");
  EXPECT_EQ(EntryOf(archive, "NEW.BMS"), "(none)");
}

TEST_F(PackZipTest, TheFolderOfTheUnpackedFilesIsLeftBehind) {
  Pack({{"maps/deep/OASIS.BMS", "BMS oasis"}});
  EXPECT_EQ(Unpacked("maps\\deep\\OASIS.BMS"), "BMS oasis");
}

TEST_F(PackZipTest, AMissingZipIsReportedAndTheArchiveKept) {
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("Error: packfile 53\r\nFile not found");
  PackCommand("-pack \"" + archive + "\" \"NEW.BMS\" \"" + MapPath("none.zip") + "\"/z");
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, AMemberThatCannotBeUnpackedIsReportedAndTheArchiveKept) {
  ZipMember imploded{"OASIS.BMS", "data"};
  imploded.method = 6;
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("Error: packfile 1033\r\nFile not found.");
  Pack({{"A.BMS", "BMS new"}, imploded});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, WhatAnEarlierZipLeftBehindIsNotPackedInstead) {
  Pack({{"OASIS.BMS", "BMS oasis"}});
  const std::string before = ReadFile(archive);
  ZipMember imploded{"OASIS.BMS", "data"};
  imploded.method = 6;
  desktop.dialogs().ExpectBox("Error: packfile 1033\r\nFile not found.");
  Pack({imploded});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, AMemberThatLeadsOutsidePacksNothingAndTouchesNothing) {
  WriteFile(Path("temp\\outside.bms"), "not from the zip");
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("Error: packfile 76\r\nThe zip's member '../outside.bms' leads outside its folder.");
  Pack({{"../outside.bms", "BMS"}});
  EXPECT_EQ(ReadFile(archive), before);
  EXPECT_EQ(ReadFile(Path("temp\\outside.bms")), "not from the zip");
}

TEST_F(PackZipTest, ANameOfSeventeenCharactersIsRefusedAndTheArchiveKept) {
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("Error: packfile 1032\r\nMax file name size: 16 characters.");
  Pack({{"A.BMS", "BMS new"}, {"SEVENTEEN_LET.BMS", "BMS"}});
  EXPECT_EQ(ReadFile(archive), before);
}

}  // namespace
}  // namespace kestrun
