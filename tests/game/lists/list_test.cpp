// Rotation lists on disk, and the texts of search and replace.
#include "game/lists/list_texts.h"
#include "game/lists/map_list_file.h"
#include "program/settings.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"
#include "support/map_rows.h"

namespace kestrun {
namespace {

class MapListFileTest : public HeadlessTest {
 protected:
  std::string list_ = Path("night.lst");
};

TEST_F(MapListFileTest, AFreshFileHoldsMapsTotalAndVersionInThisOrder) {
  EXPECT_TRUE(WriteMapList(list_, {"C:\\maps\\a.bms", "http://maps.example/b.bms"}));
  EXPECT_EQ(ReadFile(list_),
            "[LIST]\r\nMAP0=C:\\maps\\a.bms\r\nMAP1=http://maps.example/b.bms\r\nTOTAL=2\r\n[INFO]\r\nVERSION=128\r\n");
  EXPECT_EQ(ReadMapList(list_), (std::vector<std::string>{"C:\\maps\\a.bms", "http://maps.example/b.bms"}));
}

TEST_F(MapListFileTest, AMissingKeyGivesARowThatReadsError) {
  WriteFile(list_, "[list]\r\ntotal=3\r\nMAP0=a\r\nMAP2=c\r\n");
  EXPECT_EQ(ReadMapList(list_), (std::vector<std::string>{"a", "ERROR!", "c"}));
}

TEST_F(MapListFileTest, ATotalOfZeroAndAFileWithoutAListGiveNoRow) {
  WriteFile(list_, "[LIST]\r\nTOTAL=0\r\nMAP0=a\r\n");
  EXPECT_TRUE(ReadMapList(list_).empty());
  WriteFile(list_, "nothing\r\n");
  EXPECT_TRUE(ReadMapList(list_).empty());
  EXPECT_TRUE(ReadMapList(Path("missing.lst")).empty());
}

TEST_F(MapListFileTest, AShorterListLeavesTheKeysOfTheLongerOneUnread) {
  EXPECT_TRUE(WriteMapList(list_, {"a", "b", "c"}));
  EXPECT_TRUE(WriteMapList(list_, {"x"}));
  EXPECT_EQ(ReadFile(list_), "[LIST]\r\nMAP0=x\r\nMAP1=b\r\nMAP2=c\r\nTOTAL=1\r\n[INFO]\r\nVERSION=128\r\n");
  EXPECT_EQ(ReadMapList(list_), std::vector<std::string>{"x"});
}

TEST_F(MapListFileTest, ATotalThatIsARealNumberIsRoundedTiesToEven) {
  WriteFile(list_, "[LIST]\r\nTOTAL=2.5\r\nMAP0=a\r\nMAP1=b\r\nMAP2=c\r\n");
  EXPECT_EQ(ReadMapList(list_).size(), 3u);  // the last number is 1.5, which is 2
  WriteFile(list_, "[LIST]\r\nTOTAL=1.5\r\nMAP0=a\r\nMAP1=b\r\n");
  EXPECT_EQ(ReadMapList(list_).size(), 1u);  // the last number is 0.5, which is 0
}

TEST_F(MapListFileTest, ATotalThatIsNoNumberRaisesATypeMismatch) {
  WriteFile(list_, "[LIST]\r\nTOTAL=many\r\n");
  EXPECT_EQ(ErrorOf([&] { return ReadMapList(list_); }), "13: Type mismatch");
}

TEST_F(MapListFileTest, ATotalBeyondReasonIsRefusedWithASentence) {
  WriteFile(list_, "[LIST]\r\nTOTAL=2000000000\r\n");
  EXPECT_EQ(ErrorOf([&] { return ReadMapList(list_); }),
            "6: This list says that it holds 2000000000 maps. Kestrun loads lists of at most 100000.");
}

TEST_F(MapListFileTest, APathOfMoreThan254CharactersComesBackCut) {
  EXPECT_TRUE(WriteMapList(list_, {std::string(300, 'x')}));
  EXPECT_EQ(ReadMapList(list_), std::vector<std::string>{std::string(254, 'x')});
}

TEST_F(MapListFileTest, TheBytesAreThoseOfOneKeyAfterTheOther) {
  const std::vector<std::string> rows{"C:\\maps\\a.bms", "C:\\Ã©\\b.bms", "C:\\Карты\\c.bms", "d\r\nMAP1=e", "'f'", ""};
  const std::string one_by_one = Path("slow.lst");
  for (const char* before : {"", "[LIST]\nMAP0=old\n\n[other]\nx=1\n", "[LIST]\r\nMAP1=\xE9\r\n"}) {
    WriteFile(list_, before);
    WriteFile(one_by_one, before);
    EXPECT_TRUE(WriteMapList(list_, rows));
    for (size_t row = 0; row < rows.size(); ++row) {
      std::string value = rows[row];
      SetIniValue(one_by_one, "LIST", "MAP" + std::to_string(row), value);
    }
    std::string total = std::to_string(rows.size());
    std::string version = "128";
    SetIniValue(one_by_one, "LIST", "TOTAL", total);
    SetIniValue(one_by_one, "INFO", "VERSION", version);
    EXPECT_EQ(ReadFile(list_), ReadFile(one_by_one)) << before;
    std::vector<std::string> read;
    for (size_t row = 0; row < rows.size(); ++row) {
      read.push_back(GetIniValue(one_by_one, "LIST", "MAP" + std::to_string(row), "ERROR!"));
    }
    EXPECT_EQ(ReadMapList(list_), read);
  }
}

TEST_F(MapListFileTest, AFolderThatIsNotThereIsNoPlaceToSave) {
  EXPECT_FALSE(WriteMapList(Path("nowhere\\night.lst"), {"a"}));
}

TEST(ListTextsTest, SearchTakesNoRegardToCaseAndFindsTheEmptyTextEverywhere) {
  EXPECT_TRUE(ContainsNoCase("C:\\Maps\\Oasis.bms", "OASIS"));
  EXPECT_TRUE(ContainsNoCase("Карты", "КАРТ"));
  EXPECT_TRUE(ContainsNoCase("", ""));
  EXPECT_FALSE(ContainsNoCase("C:\\Maps", "Oasis"));
}

TEST(ListTextsTest, ReplaceTakesAllOccurrencesInAnyCase) {
  EXPECT_EQ(ReplaceAllNoCase("C:\\Maps\\maps.bms", "MAPS", "m"), "C:\\m\\m.bms");
  EXPECT_EQ(ReplaceAllNoCase("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAllNoCase("aaa", "", "b"), "aaa");
  EXPECT_EQ(ReplaceAllNoCase("ÄäÄ", "ä", "o"), "ooo");
}

}  // namespace
}  // namespace kestrun
