// What is kept when commands replace something of the game.
#include <gtest/gtest.h>

#include "game/originals/originals_fixture.h"
#include "program/originals_hook.h"
#include "program/pack_command.h"

namespace kestrun::originals {
namespace {

class KeepOriginalsTest : public OriginalsTest {
 protected:
  void Pack(const std::string& name, const std::string& map, const std::string& end = "") {
    PackCommand("-pack \"" + Archive() + "\" \"" + name + "\" \"" + MapPath(map) + "\"" + end);
  }
};

TEST_F(KeepOriginalsTest, TheFirstPutKeepsTheEntryUnderItsHash) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(IsKept(stock));
  EXPECT_FALSE(IsKept(oasis));
  const Index index = ReadIndex();
  const Record* record = RecordOf(index, "dflw.pff", kMission);
  ASSERT_NE(record, nullptr);
  ASSERT_EQ(record->versions.size(), 1U);
  EXPECT_EQ(record->versions[0].sha256, Sha256Hex(AsBytes(stock)));
  EXPECT_EQ(record->versions[0].length, stock.size());
  ASSERT_TRUE(record->put.has_value());
  EXPECT_EQ(record->put->sha256, Sha256Hex(AsBytes(oasis)));
  EXPECT_EQ(record->put->source, MapPath("Oasis.bms"));
}

TEST_F(KeepOriginalsTest, TheIndexCanBeRead) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  const std::string index = IndexText();
  EXPECT_TRUE(StartsWith(index, "# What Kestrun replaced in the game"));
  EXPECT_NE(index.find("\tdflw.pff\tD08M03.BMS\t"), std::string::npos);
  EXPECT_NE(index.find("\t436\t" + Sha256Hex(AsBytes(stock)) + "\r\n"), std::string::npos);
  EXPECT_NE(index.find(MapPath("Oasis.bms") + "\t" + Sha256Hex(AsBytes(stock))), std::string::npos);
}

TEST_F(KeepOriginalsTest, ALooseFileIsKeptBeforeItIsOverwritten) {
  WriteFile(GamePath(kMission), "the player's own");
  EXPECT_TRUE(Put("Oasis.bms", kMission, kPutBesideOnly));
  EXPECT_TRUE(IsKept("the player's own"));
  EXPECT_FALSE(IsKept(stock));
}

TEST_F(KeepOriginalsTest, AFileThatWasNotThereIsNotedAsSuch) {
  EXPECT_TRUE(Put("Oasis.bms", kMission, kPutBesideOnly));
  const Index index = ReadIndex();
  const Record* record = RecordOf(index, kMission);
  ASSERT_NE(record, nullptr);
  ASSERT_EQ(record->versions.size(), 1U);
  EXPECT_TRUE(record->versions[0].IsAbsence());
}

TEST_F(KeepOriginalsTest, WhatTheProgramPutThereItselfIsNoOriginal) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_FALSE(IsKept(oasis));
  EXPECT_FALSE(IsKept(harbour));
  const Index index = ReadIndex();
  EXPECT_EQ(RecordOf(index, "dflw.pff", kMission)->versions.size(), 1U);
  EXPECT_EQ(RecordOf(index, kMission)->versions.size(), 1U);
}

TEST_F(KeepOriginalsTest, WhatAnotherProgramPutThereIsAFurtherVersion) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  PackByHand("foreign", kMission);
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  EXPECT_TRUE(IsKept("foreign"));
  const Index index = ReadIndex();
  const Record* record = RecordOf(index, "dflw.pff", kMission);
  ASSERT_EQ(record->versions.size(), 2U);
  EXPECT_EQ(record->versions[0].sha256, Sha256Hex(AsBytes(stock)));
}

TEST_F(KeepOriginalsTest, AnEntryThatIsNewIsNotedAsSuch) {
  Pack("NEW.BMS", "Oasis.bms");
  const Index index = ReadIndex();
  const Record* record = RecordOf(index, "dflw.pff", "NEW.BMS");
  ASSERT_NE(record, nullptr);
  EXPECT_TRUE(record->versions.front().IsAbsence());
  EXPECT_EQ(native_files.List(ProgramPath("originals")).size(), 2U);  // the index and the turn
}

TEST_F(KeepOriginalsTest, AnEntryThatIsMarkedAsDeletedWasNotThere) {
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Archive()));
  ASSERT_EQ(archive.WritePFFInfo(0, 0, kMission, "0", true), 0);
  archive.SavePffFile();
  Pack(kMission, "Oasis.bms");
  EXPECT_TRUE(RecordOf(ReadIndex(), "dflw.pff", kMission)->versions.front().IsAbsence());
}

TEST_F(KeepOriginalsTest, PuttingTheSameContentAgainReplacesNothing) {
  WriteFile(MapPath("Stock.bms"), stock);
  Pack(kMission, "Stock.bms");
  EXPECT_TRUE(ReadIndex().records().empty());
}

TEST_F(KeepOriginalsTest, PackKeepsTheEntryItReplaces) {
  Pack(kMission, "Oasis.bms");
  EXPECT_TRUE(IsKept(stock));
  EXPECT_EQ(EntryOf(Archive(), kMission), oasis);
}

TEST_F(KeepOriginalsTest, AnEntryWithoutDataIsAnOriginalToo) {
  ClsPFF archive;
  archive.NewPffFile(Archive());
  archive.PackFile({}, "EMPTY.BMS");
  archive.PackFile(AsBytes("more"), "MORE.BMS");
  archive.SavePffFile();
  Pack("EMPTY.BMS", "Oasis.bms");
  EXPECT_EQ(EntryOf(Archive(), "EMPTY.BMS"), oasis);
  EXPECT_TRUE(IsKept(""));
}

// Entry names are no paths here, whatever they hold.
TEST_F(KeepOriginalsTest, AnEntryNamedLikeAPathStaysInTheLedger) {
  for (const char* name : {"..\\..\\evil.bms", "a/b\tc%41.bms", "C:\\x"}) {
    MakeArchive(Archive(), {name});
    Pack(name, "Oasis.bms");
    EXPECT_EQ(EntryOf(Archive(), name), oasis) << name;
    const Index index = ReadIndex();
    const Record* record = RecordOf(index, "dflw.pff", name);
    ASSERT_NE(record, nullptr) << name;
    EXPECT_EQ(record->place.entry, name);
  }
  EXPECT_EQ(native_files.List(ProgramPath("originals")).size(), 3U);  // the index, the turn and one content
}

// The folder for the originals cannot be made: a file stands in its place.
class CannotKeepTest : public KeepOriginalsTest {
 protected:
  CannotKeepTest() { WriteFile(ProgramPath("originals"), "in the way"); }

  void ExpectQuestion(BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("The original of \"D08M03.BMS\" cannot be kept. Go on without?", answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithDefaultButton(2);
  }
};

TEST_F(CannotKeepTest, NoLeavesTheGameAsItWas) {
  const std::string before = ReadFile(Archive());
  ExpectQuestion(BoxAnswer::kNo);
  EXPECT_FALSE(Put("Oasis.bms", kMission));
  EXPECT_EQ(ReadFile(Archive()), before);
  EXPECT_FALSE(FileIsThere(GamePath(kMission)));
}

TEST_F(CannotKeepTest, YesPutsTheMapIn) {
  ExpectQuestion(BoxAnswer::kYes);
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_EQ(EntryOf(Archive(), kMission), oasis);
}

TEST_F(CannotKeepTest, WhilePlayingTheQuestionIsTheSame) {
  WriteFile(GamePath(kMission), "the player's own");
  ExpectQuestion(BoxAnswer::kNo);
  EXPECT_FALSE(Put("Oasis.bms", kMission, kPutBesideOnly));
  EXPECT_EQ(ReadFile(GamePath(kMission)), "the player's own");
}

TEST_F(CannotKeepTest, WithoutWarningsTheMapGoesInAndTheLogSaysSo) {
  WriteFile(GamePath(kMission), "the player's own");
  EXPECT_TRUE(Put("Oasis.bms", kMission, kPutBesideOnly, false));
  EXPECT_EQ(ReadFile(GamePath(kMission)), oasis);
  EXPECT_TRUE(StartsWith(ReadFile(ProgramPath("kestrun.log")), "The original of \"D08M03.BMS\" cannot be kept: "));
}

TEST_F(CannotKeepTest, PackGoesOnAndSaysSoInItsLog) {
  PackCommand("-pack \"%GAMEDIR%\\dflw.pff\" \"D08M03.BMS\" \"%APPDIR%\\..\\maps\\Oasis.bms\"");
  EXPECT_EQ(EntryOf(Archive(), kMission), oasis);
  const std::string log = ReadFile(ProgramPath("kestrun.log"));
  EXPECT_TRUE(StartsWith(log, "The original of \"D08M03.BMS\" cannot be kept: ")) << log;
  EXPECT_TRUE(log.ends_with("\r\n%APPDIR%\\..\\maps\\Oasis.bms --> %GAMEDIR%\\dflw.pff:D08M03.BMS ~>OK\r\n")) << log;
}

TEST_F(KeepOriginalsTest, WithoutAnOriginalToKeepNothingIsAsked) {
  WriteFile(ProgramPath("originals"), "in the way");
  EXPECT_TRUE(Put("Oasis.bms", "NEW.BMS"));
}

// The answer No was given to the question: what is there then is still the original.
TEST_F(KeepOriginalsTest, AnOriginalThatCouldNotBeKeptAtFirstIsKeptTheNextTime) {
  native_files.MakeFolder(ProgramPath("originals"));
  native_files.MakeFolder(LedgerPath(Sha256Hex(AsBytes(stock))));
  desktop.dialogs().ExpectBox("The original of \"D08M03.BMS\" cannot be kept. Go on without?", BoxAnswer::kNo);
  EXPECT_FALSE(Put("Oasis.bms", kMission));
  native_files.RemoveFolder(LedgerPath(Sha256Hex(AsBytes(stock))));
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(IsKept(stock));
}

TEST_F(KeepOriginalsTest, AKeptContentThatWasDamagedIsWrittenAnew) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  WriteFile(LedgerPath(Sha256Hex(AsBytes(stock))), "damaged");
  MakeGameArchive(Archive());
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  EXPECT_TRUE(IsKept(stock));
}

TEST_F(KeepOriginalsTest, EveryFileOfAZipKeepsWhatItReplaces) {
  // Put in one by one here as a zip's members are: with one keeper, before one save.
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Archive()));
  const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
  for (const char* name : {"D08M03.BMS", "D08M04.BMS"}) {
    keeper->KeepEntry(archive, name, AsBytes(oasis), "maps.zip");
    archive.PackFile(AsBytes(oasis), name);
  }
  keeper->Finish();
  archive.SavePffFile();
  EXPECT_TRUE(IsKept(stock));
  EXPECT_TRUE(IsKept(stock_deathmatch));
}

}  // namespace
}  // namespace kestrun::originals
