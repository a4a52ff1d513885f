// What differs from the originals, and putting them back.
#include <gtest/gtest.h>

#include "game/originals/originals_fixture.h"
#include "program/commands.h"
#include "program/originals_hook.h"

namespace kestrun::originals {
namespace {

class RestoreTest : public OriginalsTest {
 protected:
  void RestoreAll() {
    for (const Difference& difference : Differences()) {
      RestoreOriginal(difference, difference.present == Present::kForeign);
    }
  }
  [[nodiscard]] std::string Log() { return ReadFile(ProgramPath("kestrun.log")); }
};

TEST_F(RestoreTest, AFreshGameDiffersInNothing) { EXPECT_EQ(Names(), ""); }

TEST_F(RestoreTest, APutDiffersInTheEntryAndTheLooseFile) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_EQ(Names(), "D08M03.BMS|dflw.pff:D08M03.BMS|");
  const Difference entry = Differences()[1];
  EXPECT_EQ(entry.present, Present::kOurs);
  EXPECT_EQ(entry.source, MapPath("Oasis.bms"));
  EXPECT_EQ(entry.mission, "Oasis");
  EXPECT_EQ(entry.length, oasis.size());
  EXPECT_FALSE(entry.since.empty());
  EXPECT_TRUE(Differences()[0].IsAddition());
}

TEST_F(RestoreTest, AfterRestoringAllEveryEntryReadsBackByteEqualAndAddedFilesAreGone) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(Put("Harbour.bms", "D08M04.BMS"));
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  RestoreAll();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_EQ(EntryOf(Archive(), "D08M04.BMS"), stock_deathmatch);
  EXPECT_EQ(EntryOf(Archive(), "LAST.BIN"), "the last entry");
  EXPECT_FALSE(FileIsThere(GamePath(kMission)));
  EXPECT_FALSE(FileIsThere(GamePath("D08M04.BMS")));
  EXPECT_EQ(Names(), "");
}

TEST_F(RestoreTest, PackDateAndInfoComeBackWithTheEntry) {
  {
    ClsPFF archive;
    ASSERT_TRUE(archive.LoadPff(Archive()));
    archive.SetFilePackDate(0, 20010203);
    archive.SetFileInfo(0, 77);
    archive.SavePffFile();
  }
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  RestoreAll();
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Archive()));
  EXPECT_EQ(archive.FilePackDate(0), 20010203);
  EXPECT_EQ(archive.FileInfo(0), 77);
}

TEST_F(RestoreTest, ARestoredMissionCanBePutOverAgain) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  RestoreAll();
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  RestoreAll();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

TEST_F(RestoreTest, WhatAnotherProgramPutThereIsToldAndKeptWhenWanted) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  PackByHand("foreign", kMission);
  const Difference entry = Differences()[1];
  EXPECT_EQ(entry.present, Present::kForeign);
  EXPECT_EQ(entry.since, "");
  RestoreOriginal(entry, true);
  EXPECT_TRUE(IsKept("foreign"));
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

TEST_F(RestoreTest, WhatChangedSinceItWasLookedAtIsNotReplaced) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  const Difference entry = Differences()[1];
  PackByHand("foreign", kMission);
  EXPECT_THROW(RestoreOriginal(entry, false), RuntimeError);
  EXPECT_EQ(EntryOf(Archive(), kMission), "foreign");
}

TEST_F(RestoreTest, ALooseFileThatWasThereComesBack) {
  WriteFile(GamePath(kMission), "the player's own");
  EXPECT_TRUE(Put("Oasis.bms", kMission, kPutBesideOnly));
  RestoreAll();
  EXPECT_EQ(ReadFile(GamePath(kMission)), "the player's own");
}

TEST_F(RestoreTest, AFileThatIsGoneComesBack) {
  WriteFile(GamePath(kMission), "the player's own");
  EXPECT_TRUE(Put("Oasis.bms", kMission, kPutBesideOnly));
  native_files.Delete(GamePath(kMission));
  EXPECT_EQ(Differences()[0].present, Present::kGone);
  RestoreAll();
  EXPECT_EQ(ReadFile(GamePath(kMission)), "the player's own");
}

TEST_F(RestoreTest, AnEntryThatWasNotThereIsMarkedAsDeletedAndCanBePutInAgain) {
  EXPECT_TRUE(Put("Oasis.bms", "NEW.BMS"));
  EXPECT_EQ(Names(), "dflw.pff:NEW.BMS|NEW.BMS|");
  RestoreAll();
  EXPECT_EQ(Names(), "");
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Archive()));
  EXPECT_TRUE(archive.FileDeleted(3));
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_TRUE(Put("Harbour.bms", "NEW.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), harbour);
  RestoreAll();
  EXPECT_EQ(Names(), "");
}

TEST_F(RestoreTest, AnEntryThatAnotherProgramMarkedAsDeletedIsGoneAndComesBack) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  {
    ClsPFF archive;
    ASSERT_TRUE(archive.LoadPff(Archive()));
    ASSERT_EQ(archive.WritePFFInfo(0, 0, kMission, "0", true), 0);
    archive.SavePffFile();
  }
  EXPECT_EQ(Differences()[1].present, Present::kGone);
  RestoreAll();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_EQ(Names(), "");
}

TEST_F(RestoreTest, AFurtherVersionComesBackAndIsKnownAsOne) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  PackByHand("foreign", kMission);
  RestoreOriginal(Differences()[1], true);
  const std::vector<Difference> restorable = FindRestorable(Path("game"));
  ASSERT_EQ(restorable.size(), 2U);
  EXPECT_EQ(restorable[1].present, Present::kOriginal);
  ASSERT_EQ(restorable[1].further.size(), 1U);
  RestoreVersion(restorable[1], restorable[1].further[0], false);
  EXPECT_EQ(EntryOf(Archive(), kMission), "foreign");
  EXPECT_EQ(Differences()[1].present, Present::kKept);
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  RestoreAll();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_EQ(FindRestorable(Path("game")).front().further.size(), 1U);
}

TEST_F(RestoreTest, ADamagedKeptContentIsNotPutBack) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  WriteFile(LedgerPath(Sha256Hex(AsBytes(stock))), std::string(stock.size(), 'x'));
  const Difference entry = Differences()[1];
  EXPECT_THROW(RestoreOriginal(entry, false), RuntimeError);
  EXPECT_EQ(EntryOf(Archive(), kMission), oasis);
}

TEST_F(RestoreTest, AGameFolderThatHasMovedIsKnownByWhatIsInIt) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(Put("Harbour.bms", "D08M04.BMS"));
  native_files.Rename(Path("game"), Path("elsewhere"));
  const std::vector<Difference> differences = FindDifferences(Path("elsewhere"));
  EXPECT_EQ(differences.size(), 4U);
  for (const Difference& difference : differences) RestoreOriginal(difference, false);
  EXPECT_EQ(EntryOf(Path("elsewhere\\dflw.pff"), kMission), stock);
  EXPECT_EQ(EntryOf(Path("elsewhere\\dflw.pff"), "D08M04.BMS"), stock_deathmatch);
  EXPECT_FALSE(FileIsThere(Path("elsewhere\\D08M03.BMS")));
}

TEST_F(RestoreTest, InAFolderThatHasMovedWhatAnotherProgramChangedIsKnownToo) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(Put("Harbour.bms", "D08M04.BMS"));
  PackByHand("foreign", kMission);
  native_files.Rename(Path("game"), Path("elsewhere"));
  const std::vector<Difference> differences = FindDifferences(Path("elsewhere"));
  ASSERT_EQ(differences.size(), 4U);
  for (const Difference& difference : differences) {
    RestoreOriginal(difference, difference.present == Present::kForeign);
  }
  EXPECT_EQ(EntryOf(Path("elsewhere\\dflw.pff"), kMission), stock);
  EXPECT_TRUE(IsKept("foreign"));
  const Index index = ReadIndex();
  const Record* record = index.Find(PlaceOf(Path("elsewhere\\dflw.pff"), kMission));
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->versions[0].sha256, Sha256Hex(AsBytes(stock)));
}

TEST_F(RestoreTest, InAFolderThatHasMovedTheProgramsOwnMapIsNoOriginal) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  native_files.Rename(Path("game"), Path("elsewhere"));
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Path("elsewhere\\dflw.pff")));
  const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
  keeper->KeepEntry(archive, kMission, AsBytes(harbour), "Harbour.bms");
  keeper->Finish();
  EXPECT_FALSE(IsKept(oasis));
  const Index index = ReadIndex();
  const Record* record = index.Find(PlaceOf(Path("elsewhere\\dflw.pff"), kMission));
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->versions[0].sha256, Sha256Hex(AsBytes(stock)));
}

TEST_F(RestoreTest, AnotherGameOfTheSameKindIsNotTakenForTheOneThatIsGone) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  native_files.MakeFolder(Path("other"));
  MakeArchive(Path("other\\dflw.pff"), {"D08M03.BMS"});
  EXPECT_TRUE(FindDifferences(Path("other")).empty());
}

TEST_F(RestoreTest, AnArchiveThatIsGoneIsToldWithTheReason) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  native_files.Delete(Archive());
  const Difference entry = Differences()[1];
  EXPECT_EQ(entry.present, Present::kUnknown);
  EXPECT_EQ(entry.fault, "File not found");
}

// ---- -restore ------------------------------------------------------------------------------------------------------

TEST_F(RestoreTest, TheCommandRestoresOneEntry) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(Put("Oasis.bms", "D08M04.BMS"));
  EXPECT_EQ(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\" \"d08m03.bms\""), kCommandCarriedOut);
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_EQ(EntryOf(Archive(), "D08M04.BMS"), oasis);
  EXPECT_EQ(Log(), "originals --> %GAMEDIR%\\dflw.pff:D08M03.BMS ~>OK\r\n");
}

TEST_F(RestoreTest, WithoutANameTheCommandRestoresTheWholeArchive) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(Put("Oasis.bms", "D08M04.BMS"));
  EXPECT_EQ(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\""), kCommandCarriedOut);
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_EQ(EntryOf(Archive(), "D08M04.BMS"), stock_deathmatch);
  EXPECT_TRUE(FileIsThere(GamePath(kMission)));
  EXPECT_EQ(Log(),
            "originals --> %GAMEDIR%\\dflw.pff:D08M03.BMS ~>OK\r\n"
            "originals --> %GAMEDIR%\\dflw.pff:D08M04.BMS ~>OK\r\n");
}

TEST_F(RestoreTest, WhatWasNotThereStaysUnlessTheCommandNamesIt) {
  EXPECT_TRUE(Put("Oasis.bms", "NEW.BMS"));
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\""));
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), oasis);
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\" \"NEW.BMS\""));
  EXPECT_EQ(Names(), "NEW.BMS|");
  EXPECT_EQ(Log(),
            "originals --> %GAMEDIR%\\dflw.pff:NEW.BMS ~>it was not there before and stays: its name behind the "
            "archive's removes it\r\n"
            "originals --> %GAMEDIR%\\dflw.pff:NEW.BMS ~>OK\r\n");
}

TEST_F(RestoreTest, TheCommandRestoresALooseFileByItsPath) {
  WriteFile(GamePath(kMission), "the player's own");
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  static_cast<void>(ProcessCommand("-restore \"" + GamePath(kMission) + "\""));
  EXPECT_EQ(ReadFile(GamePath(kMission)), "the player's own");
  EXPECT_EQ(EntryOf(Archive(), kMission), oasis);
}

TEST_F(RestoreTest, TheCommandKeepsWhatAnotherProgramPutThere) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  PackByHand("foreign", kMission);
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\" \"D08M03.BMS\""));
  EXPECT_TRUE(IsKept("foreign"));
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

TEST_F(RestoreTest, TheCommandSaysThatNothingIsKept) {
  desktop.dialogs().ExpectBox("No original of \"D08M03.BMS\" in \"%GAMEDIR%\\dflw.pff\" is kept.");
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\" \"D08M03.BMS\""));
  EXPECT_EQ(Log(), "originals --> %GAMEDIR%\\dflw.pff:D08M03.BMS ~>no original is kept\r\n");
}

TEST_F(RestoreTest, TheCommandIsContentWhenTheOriginalIsThereAlready) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\""));
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\""));
  EXPECT_TRUE(Log().ends_with("\r\noriginals --> %GAMEDIR%\\dflw.pff ~>nothing differs from the originals\r\n"));
}

TEST_F(RestoreTest, TheCommandReportsAFailureAndLogsIt) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  native_files.Delete(LedgerPath(Sha256Hex(AsBytes(stock))));
  const std::string kept = LedgerPath(Sha256Hex(AsBytes(stock)));
  desktop.dialogs().ExpectFileFailure("Error: restore 53\r\nFile not found", kept);
  static_cast<void>(ProcessCommand("-restore \"%GAMEDIR%\\dflw.pff\""));
  EXPECT_EQ(Log(), "originals --> %GAMEDIR%\\dflw.pff:D08M03.BMS ~>File not found\r\n");
}

TEST_F(RestoreTest, TheCommandWithoutQuotesEndsSilently) {
  EXPECT_EQ(ProcessCommand("-restore " + Archive()), kCommandCarriedOut);
  EXPECT_FALSE(FileIsThere(ProgramPath("kestrun.log")));
}

}  // namespace
}  // namespace kestrun::originals
