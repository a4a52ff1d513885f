#include "formats/pff_fixture.h"

namespace kestrun {
namespace {

using PffPackTest = PffTest;

TEST_F(PffPackTest, AnEmptyNewArchiveSavesAHeaderOneZeroRecordAndTheTrailer) {
  archive.NewPffFile(archive_path);
  EXPECT_TRUE(archive.IsNewPFF());
  archive.SavePffFile();
  std::string expected("\x14\0\0\0PFF3\0\0\0\0\x24\0\0\0\x14\0\0\0", 20);
  expected += std::string(36, '\0') + std::string("\xC0\xA8\x00\x03\0\0\0\0KING", 12);
  EXPECT_EQ(FileBytes(), expected);
  EXPECT_FALSE(archive.IsNewPFF());
  EXPECT_FALSE(archive.Edited());
}

TEST_F(PffPackTest, ANewArchiveHoldsWhatWasPackedInOrder) {
  archive.NewPffFile(archive_path);
  EXPECT_TRUE(Pack("A.BMS", "first"));
  EXPECT_TRUE(Pack("B.BMS", "second"));
  archive.SavePffFile();
  EXPECT_EQ(FileBytes(), BuildArchive({{"A.BMS", "first"}, {"B.BMS", "second"}}));
}

TEST_F(PffPackTest, AFileOfExactlyTheStoredLengthReplacesInPlace) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  Load();
  const int32_t table = archive.PFFTableOffset();
  Pack("A.BMS", "AAAA");
  archive.SavePffFile();
  EXPECT_EQ(archive.PFFTableOffset(), table);
  EXPECT_EQ(FileBytes(), BuildArchive({{"A.BMS", "AAAA"}, {"B.BMS", "bbbb"}}));
}

TEST_F(PffPackTest, AShorterFileKeepsTheOffsetLowersTheLengthAndLeavesTheOldTail) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  Load();
  const size_t size = FileBytes().size();
  Pack("A.BMS", "X");
  archive.SavePffFile();
  EXPECT_EQ(archive.FileOffset("A.BMS"), 20);
  EXPECT_EQ(archive.FileLength("A.BMS"), 1);
  EXPECT_EQ(FileBytes().substr(20, 8), "Xaaabbbb");
  EXPECT_EQ(FileBytes().size(), size);
}

TEST_F(PffPackTest, ALongerFileThatIsLastGrowsInPlaceAndTheTableMovesByTheDifference) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  Load();
  const int32_t table = archive.PFFTableOffset();
  Pack("B.BMS", "bbbbbbb");
  archive.SavePffFile();
  EXPECT_EQ(archive.PFFTableOffset(), table + 3);
  EXPECT_EQ(FileBytes(), BuildArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbbbbb"}}));
}

TEST_F(PffPackTest, ALongerFileThatIsNotLastGoesBehindTheOldDataWhichStays) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  Load();
  const int32_t table = archive.PFFTableOffset();
  Pack("A.BMS", "longer");
  archive.SavePffFile();
  EXPECT_EQ(archive.PFFTableOffset(), table + 6);
  EXPECT_EQ(archive.FileOffset("A.BMS"), table);
  EXPECT_EQ(FileBytes().substr(20, 14), "aaaabbbblonger");
  EXPECT_EQ(Stored("A.BMS"), "longer");
  EXPECT_EQ(Stored("B.BMS"), "bbbb");
}

TEST_F(PffPackTest, ASecondPackOfAnAppendedNameTakesTheSameLengthOnly) {
  WriteArchive({{"A.BMS", "aaaa"}});
  Load();
  Pack("NEW.BMS", "1234");
  EXPECT_TRUE(Pack("NEW.BMS", "5678"));
  EXPECT_EQ(ErrorNumberOf([&] { Pack("NEW.BMS", "12345"); }), 1030);
  EXPECT_EQ(ErrorNumberOf([&] { Pack("NEW.BMS", "123"); }), 1030);
  EXPECT_EQ(events.back(), "1030 Cannot continue this file is waiting to be saved.");
  archive.SavePffFile();
  EXPECT_EQ(Stored("NEW.BMS"), "5678");
}

TEST_F(PffPackTest, ASecondPackInPlaceTakesNothingShorterAndKeepsTheLength) {
  WriteArchive({{"A.BMS", "aaaaaaaa"}, {"B.BMS", "bbbb"}});
  Load();
  Pack("A.BMS", "1234");
  EXPECT_EQ(ErrorNumberOf([&] { Pack("A.BMS", "123"); }), 1030);
  EXPECT_TRUE(Pack("A.BMS", "5678"));
  EXPECT_TRUE(Pack("A.BMS", "longer"));
  EXPECT_EQ(archive.FileLength("A.BMS"), 4);
  archive.SavePffFile();
  EXPECT_EQ(FileBytes().substr(20, 8), "longeraa");
  EXPECT_EQ(Stored("A.BMS"), "long");
}

TEST_F(PffPackTest, AppendedDataFollowsTheSavedHeaderEvenWhenTheLastFileGrewBefore) {
  WriteArchive({{"A.BMS", "aaaa"}});
  Load();
  const int32_t table = archive.PFFTableOffset();
  Pack("A.BMS", "aaaaAA");  // the last file grows by two
  Pack("NEW.BMS", "new");   // appended: written at the old table's place
  EXPECT_EQ(archive.FileOffset("NEW.BMS"), table + 2);
  archive.SavePffFile();
  EXPECT_EQ(FileBytes().substr(20, 7), "aaaanew");
}

TEST_F(PffPackTest, AStagedFileIsReadBackBeforeItIsSaved) {
  WriteArchive({{"A.BMS", "aaaa"}});
  Load();
  Pack("NEW.BMS", "staged");
  EXPECT_EQ(Extract(1), "staged");
  EXPECT_EQ(archive.FileWaiting("new.bms"), 1);
}

TEST_F(PffPackTest, ANameOfSeventeenCharactersIsRefusedAndOneOfSixteenFillsTheField) {
  archive.NewPffFile(archive_path);
  EXPECT_EQ(ErrorNumberOf([&] { Pack("SEVENTEEN_LET.BMS", "x"); }), 1032);
  EXPECT_EQ(events, std::vector<std::string>{"1032 Max file name size: 16 characters."});
  EXPECT_TRUE(Pack("SIXTEEN_LETT.BMS", "x"));
  archive.SavePffFile();
  EXPECT_EQ(FileBytes().substr(21 + 16, 16), "SIXTEEN_LETT.BMS");
}

TEST_F(PffPackTest, WithoutAnArchiveNothingCanBePackedOrSaved) {
  EXPECT_EQ(ErrorNumberOf([&] { Pack("A.BMS", "x"); }), 1031);
  EXPECT_EQ(ErrorNumberOf([&] { archive.SavePffFile(); }), 1031);
  Bytes bytes;
  EXPECT_EQ(ErrorNumberOf([&] { archive.ExtractFile(0, bytes, ""); }), 1031);
  EXPECT_EQ(events[0], "1031 No pff file loaded.");
}

TEST_F(PffPackTest, SavingWithoutChangesMovesNothing) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  const std::string before = FileBytes();
  Load();
  archive.SavePffFile();
  EXPECT_EQ(FileBytes(), before);
}

TEST_F(PffPackTest, ALongerTailOfTheFileIsKept) {
  WriteFile(archive_path, BuildArchive({{"A.BMS", "aaaa"}}) + "behind the trailer");
  Load();
  archive.SavePffFile();
  EXPECT_EQ(FileBytes(), BuildArchive({{"A.BMS", "aaaa"}}) + "behind the trailer");
}

TEST_F(PffPackTest, AnEmptyArchiveThatWasSavedCannotBeLoadedButTakesAFile) {
  archive.NewPffFile(archive_path);
  archive.SavePffFile();
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_TRUE(Pack("A.BMS", "first"));
  archive.SavePffFile();
  EXPECT_EQ(Stored("A.BMS"), "first");
}

TEST_F(PffPackTest, ANameThatTheCodePageCannotHoldIsRefusedWithItsCharacter) {
  WriteArchive({{"A.BMS", "aaaa"}});
  Load();
  EXPECT_EQ(ErrorNumberOf([&] { Pack("Карта.BMS", "x"); }), 5);
  EXPECT_EQ(
      events.back(),
      "5 The name 'Карта.BMS' cannot be stored in the archive: it has no character for 'К'. Choose a name without "
      "it.");
}

TEST_F(PffPackTest, OnlyANewArchiveTakesAnotherPath) {
  archive.NewPffFile(Path("first.pff"));
  archive.SetOpenFileName(archive_path);
  Pack("A.BMS", "a");
  archive.SavePffFile();
  EXPECT_EQ(ErrorNumberOf([&] { archive.SetOpenFileName(Path("second.pff")); }), 1035);
  EXPECT_EQ(events.back(), "1035 You cannot change the file name of an existsing file. First Create a new pff file!");
  EXPECT_TRUE(FileIsThere(archive_path));
}

TEST_F(PffPackTest, EachOperationTellsItsProgressInOrder) {
  archive.NewPffFile(archive_path);
  EXPECT_EQ(progress, (std::vector<int>{1, 50, 100, 0}));
  progress.clear();
  Pack("A.BMS", "aaaa");
  EXPECT_EQ(progress, (std::vector<int>{5, 30, 50, 60, 100, 0}));
  Pack("B.BMS", "bbbb");
  progress.clear();
  EXPECT_EQ(Extract(0), "aaaa");
  EXPECT_EQ(progress, (std::vector<int>{1, 10, 50, 65, 80, 100, 0}));
  progress.clear();
  archive.SavePffFile();
  EXPECT_EQ(progress, (std::vector<int>{0, 10, 20, 21, 22, 80, 100, 0}));
  progress.clear();
  Load();
  EXPECT_EQ(progress, (std::vector<int>{1, 20, 25, 30, 50, 80, 100, 0}));
  progress.clear();
  EXPECT_EQ(Extract(0), "aaaa");
  EXPECT_EQ(progress, (std::vector<int>{1, 10, 30, 50, 80, 100, 0}));
}

TEST_F(PffPackTest, TheMessageLoopRunsOnceBeforeAPackEnds) {
  archive.NewPffFile(archive_path);
  bool ran = false;
  desktop.clock().Post([&] { ran = true; });
  Pack("A.BMS", "a");
  EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace kestrun
