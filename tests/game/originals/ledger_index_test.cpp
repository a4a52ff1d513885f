// The index of the ledger as a text: what is written is read again, and what is no line of it does no harm.
#include "game/originals/ledger_index.h"

#include <gtest/gtest.h>

#include "base/sha256.h"
#include "base/text.h"

namespace kestrun::originals {
namespace {

const std::string kFirst = Sha256Hex(AsBytes("first"));
const std::string kSecond = Sha256Hex(AsBytes("second"));
const Place kPlace{"C:\\game", "dflw.pff", "D08M03.BMS"};

Event Kept(const std::string& sha256, uint64_t length = 5) {
  return {EventKind::kKept, kPlace, {sha256, length, 1, -2, "2026-11-21 15:49:26"}, {}, "2026-11-21 15:49:26"};
}

Index Read(const std::string& text) { return Index::Parse(AsBytes(text)); }

// A line of the index with all its columns, for those that lie.
std::string Line(const std::string& what, const std::string& folder, const std::string& file, const std::string& length,
                 const std::string& hash, const std::string& over = "-") {
  return what + "\tnow\t" + folder + "\t" + file + "\tENTRY\tsource\t" + over + "\t0\t0\t" + length + "\t" + hash +
         "\r\n";
}

TEST(LedgerIndexTest, AKeptVersionIsReadAsItWasWritten) {
  const Index index = Read(std::string(IndexHead()) + LineOf(Kept(kFirst)));
  const Record* record = index.Find(kPlace);
  ASSERT_NE(record, nullptr);
  ASSERT_EQ(record->versions.size(), 1U);
  EXPECT_EQ(record->versions[0].sha256, kFirst);
  EXPECT_EQ(record->versions[0].length, 5U);
  EXPECT_EQ(record->versions[0].pack_date, 1);
  EXPECT_EQ(record->versions[0].info, -2);
  EXPECT_EQ(record->versions[0].when, "2026-11-21 15:49:26");
}

TEST(LedgerIndexTest, NamesWithTabsLineEndsAndPercentSignsComeThrough) {
  Event event = Kept(kFirst);
  event.place = {"C:\\gäme %41", "d\x7F%.pff", "A\tB\r\nC%09"};
  const Index index = Read(LineOf(event));
  const Record* record = index.Find(event.place);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->place.folder, event.place.folder);
  EXPECT_EQ(record->place.file, event.place.file);
  EXPECT_EQ(record->place.entry, event.place.entry);
}

TEST(LedgerIndexTest, PlacesAreFoundWithoutRegardToCase) {
  const Index index = Read(LineOf(Kept(kFirst)));
  EXPECT_NE(index.Find({"c:\\GAME", "DFLW.PFF", "d08m03.bms"}), nullptr);
  EXPECT_EQ(index.Find({"c:\\GAME", "DFLW.PFF", ""}), nullptr);
}

TEST(LedgerIndexTest, TheFirstVersionIsNeverDroppedWhateverALineSays) {
  Event drop = Kept(kFirst);
  drop.kind = EventKind::kDropped;
  Event drop_second = Kept(kSecond);
  drop_second.kind = EventKind::kDropped;
  const Index index = Read(LineOf(Kept(kFirst)) + LineOf(Kept(kSecond)) + LineOf(drop) + LineOf(drop_second));
  ASSERT_EQ(index.Find(kPlace)->versions.size(), 1U);
  EXPECT_EQ(index.Find(kPlace)->versions[0].sha256, kFirst);
}

TEST(LedgerIndexTest, AnyLineThatIsCutOffIsPassedOver) {
  const std::string whole = LineOf(Kept(kFirst));
  for (size_t length = 1; length + 2 < whole.size(); ++length) {
    EXPECT_TRUE(Read(whole.substr(0, length)).records().empty()) << length;
  }
}

TEST(LedgerIndexTest, LinesThatLieArePassedOver) {
  const std::string hash(64, 'a');
  for (const std::string& line :
       {Line("kept", "C:\\game", "..", "1", hash),                           // a file that is no file
        Line("kept", "C:\\game", "..\\..\\boot.ini", "1", hash),             // a way out of the folder
        Line("kept", "C:\\game", "C:", "1", hash),                           // a drive
        Line("kept", "C:\\game", "", "1", hash),                             // no file
        Line("kept", "", "dflw.pff", "1", hash),                             // no folder
        Line("kept", "C:\\ga%00me", "dflw.pff", "1", hash),                  // a folder with a NUL
        Line("kept", "C:\\game", "dflw.pff", "-1", hash),                    // a length below zero
        Line("kept", "C:\\game", "dflw.pff", "99999999999999999999", hash),  // a length that is no number here
        Line("kept", "C:\\game", "dflw.pff", "1", "..\\..\\x"),              // a content outside the ledger
        Line("kept", "C:\\game", "dflw.pff", "1", "-"),                      // a content without a hash
        Line("none", "C:\\game", "dflw.pff", "1", hash),                     // an absence with one
        Line("put", "C:\\game", "dflw.pff", "1", hash, "x"),                 // put over something without a hash
        Line("stolen", "C:\\game", "dflw.pff", "1", hash),                   // no such event
        std::string("kept\tnow\tC:\\game\r\n"),                              // too few columns
        Line("kept", "C:\\game", "dflw.pff", "1", hash + "\tmore"),          // too many
        std::string(100'000, 'x') + "\r\n", std::string("\0\xFF\xFE\n", 4)}) {
    EXPECT_TRUE(Read(line).records().empty()) << line;
  }
}

TEST(LedgerIndexTest, CompactingSaysTheSameInFewerLinesAndKeepsWhatItDoesNotUnderstand) {
  Event put{EventKind::kPut, kPlace, {}, {kSecond, 6, kFirst, "a.bms", "then"}, "then"};
  std::string text = LineOf(Kept(kFirst)) + "a line of a later program\r\n";
  for (int times = 0; times < 100; ++times) text += LineOf(put);
  const Index index = Read(text);
  const std::string compacted = index.Compacted();
  EXPECT_LT(compacted.size(), text.size() / 4);
  EXPECT_NE(compacted.find("a line of a later program\r\n"), std::string::npos);
  const Index again = Read(compacted);
  EXPECT_EQ(again.Compacted(), compacted);
  ASSERT_NE(again.Find(kPlace), nullptr);
  EXPECT_EQ(again.Find(kPlace)->versions.size(), 1U);
  EXPECT_EQ(again.Find(kPlace)->put->sha256, kSecond);
  EXPECT_EQ(again.Find(kPlace)->put->source, "a.bms");
}

TEST(LedgerIndexTest, AContentThatTwoPlacesShareIsCountedOnce) {
  Event other = Kept(kFirst, 1000);
  other.place.entry = "D08M04.BMS";
  EXPECT_EQ(Read(LineOf(Kept(kFirst, 1000)) + LineOf(other)).KeptBytes(), 1000U);
}

}  // namespace
}  // namespace kestrun::originals
