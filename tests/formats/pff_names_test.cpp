// Names are found by an index once many have been asked for: it must not be told apart from looking at each entry.
#include "formats/pff_fixture.h"

namespace kestrun {
namespace {

class PffNamesTest : public PffTest {
 protected:
  PffNamesTest() {
    WriteArchive({{"A.BMS", "first"}, {"a.bms ", "second of that name"}, {"B.BMS", "b"}, {"C.BMS", "c"}});
    EXPECT_TRUE(archive.LoadPff(archive_path));
    AskOften();
  }
  // More often than any single command does.
  void AskOften() {
    for (int time = 0; time < 40; ++time) static_cast<void>(NumberOf("none"));
  }
  [[nodiscard]] int32_t NumberOf(const std::string& name) const {
    int32_t number = -1;
    const bool is_found = archive.PFFFileExists(name, number);
    EXPECT_EQ(is_found, number >= 0);
    return number;
  }
};

TEST_F(PffNamesTest, OfTwoEntriesWithOneNameTheFirstIsFound) {
  EXPECT_EQ(NumberOf("a.BMS"), 0);
  EXPECT_EQ(NumberOf(" b.bms "), 2);
}

TEST_F(PffNamesTest, ANameIsFoundAfterRenamingAndNoLongerUnderTheOldOne) {
  archive.SetFileName(0, "NEW.BMS");
  AskOften();
  EXPECT_EQ(NumberOf("NEW.BMS"), 0);
  EXPECT_EQ(NumberOf("A.BMS"), 1);
  EXPECT_EQ(archive.WritePFFInfo(2, 0, "OTHER.BMS", "0", false), 0);
  EXPECT_EQ(NumberOf("B.BMS"), -1);
  EXPECT_EQ(NumberOf("other.bms"), 2);
}

TEST_F(PffNamesTest, ADeletedEntryIsFoundUnderWhatIsLeftOfItsName) {
  archive.SetFileDeleted(2, true);
  AskOften();
  EXPECT_EQ(NumberOf("B.BMS"), -1);
  EXPECT_EQ(NumberOf("B.BM"), 2);
}

TEST_F(PffNamesTest, WhatIsPackedIsFoundAtOnceAndWhatIsReplacedKeepsItsNumber) {
  Pack("D.BMS", "new");
  EXPECT_EQ(NumberOf("d.bms"), 4);
  Pack("c.bms", "C");
  EXPECT_EQ(NumberOf("C.BMS"), 3);
  Pack("E.BMS", "new too");
  EXPECT_EQ(NumberOf("E.BMS"), 5);
}

// A handler of the progress may ask while an entry has its place and not its name yet.
TEST_F(PffNamesTest, AQuestionInTheMiddleOfAPackDoesNotHideTheNewName) {
  archive.PFFPorgress = [this](int16_t) { static_cast<void>(NumberOf("D.BMS")); };
  Pack("D.BMS", "new");
  archive.PFFPorgress = nullptr;
  EXPECT_EQ(NumberOf("D.BMS"), 4);
}

TEST_F(PffNamesTest, AnotherArchiveInTheSameObjectHasItsOwnNames) {
  const std::string other = Path("other.pff");
  WriteFile(other, BuildArchive({{"X.BMS", "x"}}));
  ASSERT_TRUE(archive.LoadPff(other));
  AskOften();
  EXPECT_EQ(NumberOf("A.BMS"), -1);
  EXPECT_EQ(NumberOf("X.BMS"), 0);
}

}  // namespace
}  // namespace kestrun
