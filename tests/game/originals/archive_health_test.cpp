#include "game/originals/archive_health.h"

#include <gtest/gtest.h>

#include <cstring>

#include "formats/pff/pff_layout.h"
#include "game/originals/originals_fixture.h"
#include "program/folders.h"
#include "program/game_paths.h"

namespace kestrun::originals {
namespace {

class ArchiveHealthTest : public OriginalsTest {
 protected:
  // Changes fields of the archive's records: three entries of 436, 336 and 14 bytes from byte 20 on.
  template <class Change>
  void ChangeEntries(Change&& change) {
    Bytes bytes = native_files.ReadAll(Archive());
    pff::Header header;
    std::memcpy(&header, bytes.data(), sizeof header);
    auto* table = bytes.data() + header.table_offset;
    std::array<pff::Entry, 3> entries;
    std::memcpy(entries.data(), table, sizeof entries);
    change(entries);
    std::memcpy(table, entries.data(), sizeof entries);
    WriteFile(Archive(), bytes);
  }
  [[nodiscard]] std::string Fault() { return FindArchiveFault(Archive()).value_or("sound"); }
  [[nodiscard]] std::string Says(const std::string& what) {
    return "The archive '" + Archive() + "' says that " + what + ".";
  }
};

TEST_F(ArchiveHealthTest, ASoundArchiveHasNoFault) { EXPECT_EQ(Fault(), "sound"); }

TEST_F(ArchiveHealthTest, AnArchiveAfterManyPutsAndRestoresIsSound) {
  for (const char* map : {"Oasis.bms", "Harbour.bms", "Oasis.bms"}) EXPECT_TRUE(Put(map, kMission));
  EXPECT_TRUE(Put("Harbour.bms", "LAST.BIN"));
  EXPECT_EQ(Fault(), "sound");
}

TEST_F(ArchiveHealthTest, AMissingArchiveIsNoDamagedOne) {
  native_files.Delete(Archive());
  EXPECT_EQ(Fault(), "sound");
}

TEST_F(ArchiveHealthTest, ATableBehindTheEndIsAFault) {
  std::string bytes = ReadFile(Archive());
  bytes[19] = '\x7F';
  WriteFile(Archive(), bytes);
  EXPECT_EQ(Fault(), Says("its table lies behind its end"));
}

TEST_F(ArchiveHealthTest, AnArchiveThatEndsInsideItsHeaderIsAFault) {
  WriteFile(Archive(), "PFF");
  EXPECT_EQ(Fault(), "The archive '" + Archive() + "' ends inside its header.");
}

TEST_F(ArchiveHealthTest, EntriesThatLieOverEachOtherAreAFault) {
  ChangeEntries([](auto& entries) { entries[1].offset -= 1; });
  EXPECT_EQ(Fault(), Says("'D08M03.BMS' and 'D08M04.BMS' lie over each other"));
}

TEST_F(ArchiveHealthTest, AnEntryInsideAnEarlierOneThatIsNotItsNeighbourIsAFault) {
  ChangeEntries([](auto& entries) {
    entries[1].length = 1;
    entries[1].offset = entries[0].offset + 1;
    entries[0].length = 430;
    entries[2].offset = entries[0].offset + 400;
  });
  EXPECT_EQ(Fault(), Says("'D08M03.BMS' and 'D08M04.BMS' lie over each other"));
}

TEST_F(ArchiveHealthTest, AnEntryBehindTheEndIsAFault) {
  ChangeEntries([](auto& entries) { entries[2].offset = 0x7FFFFF00; });
  EXPECT_EQ(Fault(), Says("'LAST.BIN' lies behind its end"));
}

TEST_F(ArchiveHealthTest, AnEntryOverTheHeaderIsAFault) {
  ChangeEntries([](auto& entries) { entries[0].offset = 4; });
  EXPECT_EQ(Fault(), Says("'D08M03.BMS' lies over its header"));
}

TEST_F(ArchiveHealthTest, AnEntryOverTheTableIsAFault) {
  ChangeEntries([](auto& entries) { entries[2].length += 5; });
  EXPECT_EQ(Fault(), Says("'LAST.BIN' lies over its table"));
}

TEST_F(ArchiveHealthTest, ADeletedEntryMayLieAnywhere) {
  ChangeEntries([](auto& entries) {
    entries[2].deleted = 1;
    entries[2].offset = 4;
  });
  EXPECT_EQ(Fault(), "sound");
}

TEST_F(ArchiveHealthTest, AFolderThatIsChosenForTheGameIsLookedAtOnce) {
  WriteFile(Archive(), "PFF");
  for (int time = 0; time < 2; ++time) {
    desktop.dialogs().ExpectFolder("Where is the game?", Path("game") + "\\");
    if (time == 0) {
      desktop.dialogs().ExpectBox("The archive '" + Archive() +
                                  "' ends inside its header.\r\n"
                                  "No originals of it are kept. Install the game's archive again.");
    }
    EXPECT_EQ(PickGameFolder("Where is the game?", folder::kMyComputer, ""), Path("game"));
  }
}

TEST_F(ArchiveHealthTest, WithoutAnyOriginalTheUserIsToldSo) {
  EXPECT_EQ(TellArchiveFault("Fault.", Archive()),
            "Fault.\r\nNo originals of it are kept. Install the game's archive again.");
}

}  // namespace
}  // namespace kestrun::originals
