#include <gtest/gtest.h>

#include "formats/pff/pff_journal.h"
#include "formats/pff/pff_recovery.h"
#include "formats/pff_fixture.h"
#include "support/simulated_disk.h"

namespace kestrun {
namespace {

using pff::JournalHeader;
using pff::JournalKind;

class PffJournalTest : public PffTest {
 protected:
  void WriteJournal(const JournalHeader& header, uint64_t offset, std::string_view old, std::string_view fresh) {
    const auto file = native_files.Open(journal_path, OpenMode::kCreate);
    pff::JournalWriter writer(*file, header);
    writer.Add(offset, AsBytes(old), AsBytes(fresh));
    writer.Finish();
  }
  [[nodiscard]] JournalKind KindOf(const std::string& bytes) {
    WriteFile(journal_path, bytes);
    const auto file = native_files.Open(journal_path, OpenMode::kRead);
    return pff::JournalReader(*file).kind();
  }
  [[nodiscard]] std::string Recover() { return pff::RecoverArchive(archive_path).value_or("(nothing)"); }
  [[nodiscard]] std::string CutShort(const std::string& rest) const {
    return "The last change to the archive '" + archive_path + "' was cut short" + rest;
  }
  [[nodiscard]] std::string DoesNotFit() const {
    return "The journal beside the archive '" + archive_path + "' does not fit it; it was set aside as '" +
           TruePathOf(journal_path + "-1") + "', and the archive is left as it is.";
  }
  [[nodiscard]] std::string TruePathOf(const std::string& path) const {
    return pff::JournalPath(archive_path) + path.substr(journal_path.size());
  }

  const std::string journal_path = archive_path + ".journal";
};

TEST_F(PffJournalTest, WhatIsWrittenIsReadBack) {
  WriteJournal({true, 1000, 1200}, 500, std::string(500, 'o'), std::string(700, 'n'));
  const auto file = native_files.Open(journal_path, OpenMode::kRead);
  pff::JournalReader reader(*file);
  ASSERT_EQ(reader.kind(), JournalKind::kWhole);
  EXPECT_TRUE(reader.header().existed);
  EXPECT_EQ(reader.header().old_bytes, 1000U);
  EXPECT_EQ(reader.header().new_bytes, 1200U);
  int records = 0;
  EXPECT_TRUE(reader.ForEach([&](const pff::JournalRecord& record) {
    ++records;
    EXPECT_EQ(record.offset, 500U);
    EXPECT_EQ(record.length, 700U);
    EXPECT_EQ(record.checks.size(), 3U);  // 500 to 512, 512 to 1024, 1024 to 1200
    EXPECT_EQ(AsChars(record.old), std::string(500, 'o'));
    return true;
  }));
  EXPECT_EQ(records, 1);
}

TEST_F(PffJournalTest, AJournalCutAnywhereIsTornAndOneWithAnyOtherByteIsNotWhole) {
  WriteJournal({true, 40, 40}, 8, "old bytes", "new bytes");
  const std::string whole = ReadFile(journal_path);
  for (size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(KindOf(whole.substr(0, length)), JournalKind::kTorn) << length;
  }
  for (size_t at = 0; at < whole.size(); ++at) {
    std::string other = whole;
    other[at] = static_cast<char>(other[at] ^ 1);
    EXPECT_NE(KindOf(other), JournalKind::kWhole) << at;
  }
  EXPECT_EQ(KindOf(std::string(whole.size(), '\0')), JournalKind::kTorn);
  EXPECT_EQ(KindOf("notes of the user about this archive"), JournalKind::kForeign);
}

TEST_F(PffJournalTest, RecordsThatDoNotFitTheirHeaderMakeTheJournalForeign) {
  const std::vector<std::pair<JournalHeader, uint64_t>> lies{
      {{true, 40, 30}, 0},                   // it would become shorter
      {{false, 40, 40}, 0},                  // it was not there and had bytes
      {{true, 40, 40}, 36},                  // behind the new end
      {{true, 4, 40}, 0},                    // more old bytes than there were
      {{true, 40, uint64_t{1} << 40}, 0},    // no archive is so long
      {{true, 40, 40}, 0xFFFFFFFFFFFFFFF0},  // the place wraps
  };
  for (const auto& [header, offset] : lies) {
    WriteJournal(header, offset, "old bytes", "new bytes");
    const auto file = native_files.Open(journal_path, OpenMode::kRead);
    EXPECT_EQ(pff::JournalReader(*file).kind(), JournalKind::kForeign) << header.old_bytes << " " << offset;
  }
}

TEST_F(PffJournalTest, ASaveThatStoppedHalfWayIsUndoneAndSaidInOneSentence) {
  const std::string old = std::string(600, 'o');
  WriteFile(archive_path, std::string(512, 'n') + std::string(88, 'o'));
  WriteJournal({true, 600, 600}, 0, old, std::string(600, 'n'));
  EXPECT_EQ(Recover(), CutShort("; it has been undone, and the archive is as it was before."));
  EXPECT_EQ(FileBytes(), old);
  EXPECT_FALSE(FileIsThere(journal_path));
  EXPECT_EQ(Recover(), "(nothing)");
}

TEST_F(PffJournalTest, ASaveThatNeverBeganLeavesTheArchive) {
  WriteFile(archive_path, "old bytes");
  WriteJournal({true, 9, 9}, 0, "old bytes", "new bytes");
  EXPECT_EQ(Recover(), CutShort(" before it began; the archive is as it was."));
  EXPECT_EQ(FileBytes(), "old bytes");
}

TEST_F(PffJournalTest, ASaveThatWroteItsLastByteIsKept) {
  WriteFile(archive_path, "new bytes");
  WriteJournal({true, 9, 9}, 0, "old bytes", "new bytes");
  EXPECT_EQ(Recover(), CutShort(" after its last byte; it is kept."));
  EXPECT_EQ(FileBytes(), "new bytes");
  EXPECT_FALSE(FileIsThere(journal_path));
}

TEST_F(PffJournalTest, ATornJournalIsRemovedAndTheArchiveLeft) {
  WriteFile(archive_path, "old bytes");
  WriteFile(journal_path, "KSTJRNL1 and then nothing that was finished");
  EXPECT_EQ(Recover(), CutShort(" before it began; the archive is as it was."));
  EXPECT_EQ(FileBytes(), "old bytes");
  EXPECT_FALSE(FileIsThere(journal_path));
}

// The user has put a copy in the place of the archive since: its bytes are neither the old nor the new ones.
TEST_F(PffJournalTest, AJournalOfAnotherArchiveIsSetAsideAndTheArchiveLeft) {
  WriteFile(archive_path, "a backup.");
  WriteJournal({true, 9, 9}, 0, "old bytes", "new bytes");
  EXPECT_EQ(Recover(), DoesNotFit());
  EXPECT_EQ(FileBytes(), "a backup.");
  EXPECT_TRUE(FileIsThere(journal_path + "-1"));
  EXPECT_FALSE(FileIsThere(journal_path));
}

TEST_F(PffJournalTest, AnArchiveOfAnotherLengthIsNotThatOfTheJournal) {
  for (const std::string bytes : {"old byte", "old bytes and more"}) {
    WriteFile(archive_path, bytes);
    WriteJournal({true, 9, 9}, 0, "old bytes", "new bytes");
    EXPECT_NE(Recover().find("does not fit it"), std::string::npos);
    EXPECT_EQ(FileBytes(), bytes);
  }
}

// The journal of a new archive takes the file away again; it must not take one that holds more than the save wrote.
TEST_F(PffJournalTest, ANewArchiveHalfWrittenGoesAndAnotherFileStays) {
  WriteFile(archive_path, std::string(512, 'n'));
  WriteJournal({false, 0, 600}, 0, "", std::string(600, 'n'));
  EXPECT_EQ(Recover(), CutShort("; it has been undone, and the archive is as it was before."));
  EXPECT_FALSE(FileIsThere(archive_path));

  WriteFile(archive_path, "somebody's file");
  WriteJournal({false, 0, 600}, 100, "", std::string(500, 'n'));
  EXPECT_EQ(Recover(), DoesNotFit());
  EXPECT_EQ(FileBytes(), "somebody's file");
}

TEST_F(PffJournalTest, ANoteOfTheUserUnderTheJournalsNameIsKept) {
  WriteArchive({{"A.BMS", "aaaa"}});
  WriteFile(journal_path, "notes about this archive");
  archive.Recovered = [this](const std::string& sentence) { events.push_back(sentence); };
  Load();
  Pack("A.BMS", "AAAA");
  archive.SavePffFile();
  EXPECT_EQ(events, std::vector<std::string>{DoesNotFit()});
  EXPECT_EQ(ReadFile(journal_path + "-1"), "notes about this archive");
  EXPECT_EQ(Stored("A.BMS"), "AAAA");
}

TEST_F(PffJournalTest, AFolderUnderTheJournalsNameIsSetAside) {
  WriteFile(archive_path, "old bytes");
  native_files.MakeFolder(journal_path);
  EXPECT_EQ(Recover(), DoesNotFit());
  EXPECT_EQ(FileBytes(), "old bytes");
  EXPECT_TRUE(native_files.IsFolder(journal_path + "-1"));
}

TEST_F(PffJournalTest, ARestingJournalIsNothingToBeToldAndGoesWithTheProcessThatLeftIt) {
  WriteArchive({{"A.BMS", "0123456789"}, {"B.BMS", "b"}});
  Load();
  Pack("A.BMS", "9876543210");
  archive.LetJournalRest();
  archive.SavePffFile();
  EXPECT_TRUE(StartsWith(ReadFile(journal_path), "KSTJREST"));
  const size_t room = ReadFile(journal_path).size();
  EXPECT_EQ(room, size_t{64} * 1024);
  EXPECT_EQ(Recover(), "(nothing)");
  Pack("A.BMS", "abcdefghij");
  archive.SavePffFile();
  EXPECT_EQ(ReadFile(journal_path).size(), room);
  EXPECT_EQ(Stored("A.BMS"), "abcdefghij");
  pff::RemoveRestingJournals();
  EXPECT_FALSE(FileIsThere(journal_path));
  EXPECT_FALSE(FileIsThere(archive_path + ".lock"));
}

TEST_F(PffJournalTest, ARestingJournalThatAnotherProcessUsesStaysForThatOne) {
  WriteArchive({{"A.BMS", "0123456789"}, {"B.BMS", "b"}});
  Load();
  Pack("A.BMS", "9876543210");
  archive.LetJournalRest();
  archive.SavePffFile();
  NativeFileSystem other;
  const auto turn = other.TryLock(other.TruePath(archive_path) + ".lock", "another kestrun");
  ASSERT_NE(turn, nullptr);
  pff::RemoveRestingJournals();
  EXPECT_TRUE(FileIsThere(journal_path));
}

TEST_F(PffJournalTest, WithoutAListenerTheSentenceIsABox) {
  WriteArchive({{"A.BMS", "aaaa"}});
  WriteFile(journal_path, "");
  desktop.dialogs().ExpectBox(CutShort(" before it began; the archive is as it was."));
  Load();
}

TEST_F(PffJournalTest, WhileAnotherProcessSavesTheArchiveIsNotReadAndItsHolderNamed) {
  WriteArchive({{"A.BMS", "aaaa"}});
  WriteFile(journal_path, "");
  NativeFileSystem other;
  const auto turn = other.TryLock(other.TruePath(archive_path) + ".lock", "another kestrun");
  ASSERT_TRUE(turn);
  const std::string process = std::to_string(other.ReadLockHolder(other.TruePath(archive_path) + ".lock").process);
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_EQ(events, std::vector<std::string>{"70 '" + archive_path + "' is in use by another kestrun (process " +
                                             process + "). Try again when it has finished."});
  EXPECT_EQ(desktop.clock().NowMs(), 5000U);
}

TEST_F(PffJournalTest, ASaveWaitsForAnotherProcessAndThenNamesIt) {
  WriteArchive({{"A.BMS", "aaaa"}});
  Load();
  Pack("A.BMS", "AAAA");
  const std::string before = FileBytes();
  NativeFileSystem other;
  auto turn = other.TryLock(other.TruePath(archive_path) + ".lock", "another kestrun");
  EXPECT_EQ(ErrorNumberOf([&] { archive.SavePffFile(); }), error::kPermissionDenied);
  EXPECT_EQ(FileBytes(), before);
  turn.reset();
  archive.SavePffFile();
  EXPECT_EQ(Stored("A.BMS"), "AAAA");
}

TEST_F(PffJournalTest, WhatAnotherProcessSavedSinceTheLoadIsNotLost) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  Load();
  Pack("A.BMS", "AAAA and longer");
  ClsPFF other;
  ASSERT_TRUE(other.LoadPff(archive_path));
  other.PackFile(AsBytes("BBBB and longer"), "B.BMS");
  other.SavePffFile();
  EXPECT_EQ(ErrorNumberOf([&] { archive.SavePffFile(); }), error::kPermissionDenied);
  EXPECT_EQ(events.back(),
            "70 The archive '" + archive_path +
                "' was changed by another program since it was read, so it is left as it is. Try again.");
  EXPECT_EQ(Stored("B.BMS"), "BBBB and longer");
  EXPECT_EQ(Stored("A.BMS"), "aaaa");
}

TEST_F(PffJournalTest, FilesThatAreSettledOneAfterTheOtherLieAsIfSavedOneAfterTheOther) {
  const std::vector<std::pair<std::string, std::string>> files{{"LAST.BMS", "a longer copy of the last"},
                                                               {"NEW.BMS", "new"},
                                                               {"NEW.BMS", "new and longer"},
                                                               {"A.BMS", "AAAAAA"}};
  WriteArchive({{"A.BMS", "aaaa"}, {"LAST.BMS", "last"}});
  Load();
  for (const auto& [name, data] : files) {
    Pack(name, data);
    archive.SavePffFile();
  }
  const std::string one_by_one = FileBytes();
  WriteArchive({{"A.BMS", "aaaa"}, {"LAST.BMS", "last"}});
  Load();
  for (const auto& [name, data] : files) {
    Pack(name, data);
    archive.SettleStaged();
    int32_t index = -1;
    ASSERT_TRUE(archive.PFFFileExists(name, index));
    EXPECT_EQ(Extract(index), data);
  }
  archive.SavePffFile();
  EXPECT_EQ(FileBytes(), one_by_one);
}

TEST_F(PffJournalTest, AFullDiskLeavesTheArchiveAndIsSaidWithItsName) {
  SimulatedDisk disk;
  const std::string bytes = BuildArchive({{"A.BMS", "aaaa"}});
  disk.Put("game.pff", Bytes(bytes.begin(), bytes.end()));
  desktop.UseFiles(disk);
  ASSERT_TRUE(archive.LoadPff("game.pff"));
  disk.LimitBytes(600);
  Pack("NEW.BMS", std::string(500, 'n'));
  std::string said;
  try {
    archive.SavePffFile();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), error::kDiskFull);
    said = failure.description();
  }
  desktop.UseFiles(native_files);
  EXPECT_EQ(said,
            "The disk is full: there is no room for what goes into the archive 'game.pff', which is left as it was.");
  EXPECT_EQ(AsChars(*disk.Content("game.pff")), bytes);
  EXPECT_EQ(disk.Names(), std::vector<std::string>{"game.pff"});
}

TEST_F(PffJournalTest, ATableNearFourGigabytesTakesNothingMore) {
  std::string bytes = BuildArchive({{"A.BMS", "aaaa"}});
  WriteFile(archive_path, bytes);
  const uint32_t table = 0xFFFFFF00;
  {
    const auto file = native_files.Open(archive_path, OpenMode::kReadWrite);
    Bytes field(4);
    StoreU32(field, 0, table);
    file->WriteAt(16, field);
    file->WriteAt(table, AsBytes(std::string_view(bytes).substr(24, 36)));  // the entry's record
  }
  Load();
  EXPECT_EQ(ErrorNumberOf([&] { Pack("NEW.BMS", std::string(1000, 'n')); }), error::kOverflow);
  EXPECT_EQ(events.back(),
            "6 The archive '" + archive_path +
                "' would become larger than 2 GB, which its format does not hold, so it is left as it is.");
}

}  // namespace
}  // namespace kestrun
