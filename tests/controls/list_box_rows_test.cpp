#include <limits>

#include "base/text.h"
#include "controls/list_box_fixture.h"
#include "script/script_engine.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ListBoxTest, TheIndexOfAnEmptyListIsMinusOneAndPressesDoNothing) {
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  Click(0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_THAT(Selected(), IsEmpty());
  EXPECT_THAT(events, ElementsAre("MouseClick"));
}

TEST_F(ListBoxTest, AddItemAloneShowsNothingUntilRefresh) {
  desktop.windowing().record_calls = true;
  list.AddItem("alpha");
  EXPECT_THAT(desktop.windowing().calls, IsEmpty());
  list.Refresh();
  EXPECT_EQ(desktop.windowing().calls.size(), 1U);
  EXPECT_EQ(desktop.windowing().calls[0].kind, PeerCall::Kind::kRepaint);
}

TEST_F(ListBoxTest, RowsAreAppendedOrPutInFrontOfARow) {
  list.AddItem("alpha");
  list.AddItem("gamma");
  list.AddItem("beta", 1, 3, true, 42);
  EXPECT_THAT(Rows(), ElementsAre("alpha", "beta", "gamma"));
  EXPECT_EQ(list.ListIcon(1), 3);
  EXPECT_TRUE(list.ListBold(1));
  EXPECT_EQ(ToLong(list.ItemData(1)), 42);
  EXPECT_EQ(list.ListIcon(0), -1);
  EXPECT_FALSE(list.ListBold(0));
  EXPECT_EQ(ErrorNumberOf([&] { list.AddItem("delta", 3); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { list.AddItem("delta", -2); }), 9);
}

TEST_F(ListBoxTest, IconAndBoldOfARowCanBeChanged) {
  Fill(2);
  list.SetListIcon(1, 7);
  list.SetListBold(1, true);
  EXPECT_EQ(list.ListIcon(1), 7);
  EXPECT_TRUE(list.ListBold(1));
  EXPECT_EQ(list.List(1), "row 1");
  EXPECT_EQ(ErrorNumberOf([&] { return list.ListIcon(2); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { list.SetListBold(-1, true); }), 9);
}

TEST_F(ListBoxTest, TheTextOfARowThatIsNotThereIsEmptyAndAssigningOneFails) {
  Fill(1);
  EXPECT_EQ(list.List(-1), "");
  EXPECT_EQ(list.List(1), "");
  EXPECT_EQ(ErrorNumberOf([&] { list.SetList(0, "new"); }), 424);
  EXPECT_EQ(list.List(0), "row 0");
}

TEST_F(ListBoxTest, AfterRemoveOfRowZeroItsDataIsStillTheFirst) {
  list.AddItem("alpha", -1, -1, false, "data of alpha");
  list.AddItem("beta", -1, -1, false, "data of beta");
  list.Refresh();
  list.Remove(0);
  EXPECT_THAT(Rows(), ElementsAre("beta"));
  EXPECT_EQ(ToText(list.ItemData(0)), "data of alpha");
  EXPECT_EQ(ToText(list.ItemData(1)), "data of beta");
  EXPECT_EQ(ErrorNumberOf([&] { return list.ItemData(2); }), 9);
}

TEST_F(ListBoxTest, RemoveWithoutANumberTakesTheCurrentRow) {
  Fill(3);
  list.SetListIndex(1);
  list.Remove();
  EXPECT_THAT(Rows(), ElementsAre("row 0", "row 2"));
  EXPECT_EQ(ErrorNumberOf([&] { list.Remove(2); }), 9);
  list.Remove();
  list.Remove();
  EXPECT_EQ(ErrorNumberOf([&] { list.Remove(); }), 9);
}

TEST_F(ListBoxTest, ClearEmptiesRowsAndSelectionAndKeepsTheData) {
  list.AddItem("alpha", -1, -1, false, 1);
  list.Refresh();
  Click(0);
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.SelCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(ToLong(list.ItemData(0)), 1);
}

TEST_F(ListBoxTest, DataMoveUpWithTheRowsPutInFrontOfTheirs) {
  list.AddItem("beta", -1, -1, false, "b");
  list.AddItem("delta", -1, -1, false, "d");
  list.AddItem("epsilon");
  list.AddItem("gamma", 1, -1, false, "c");
  list.AddItem("alpha", 0);
  EXPECT_TRUE(list.ItemData(0).Is(VarType::kEmpty));
  EXPECT_EQ(ToText(list.ItemData(1)), "b");
  EXPECT_EQ(ToText(list.ItemData(2)), "c");
  EXPECT_EQ(ToText(list.ItemData(3)), "d");
  EXPECT_TRUE(list.ItemData(4).Is(VarType::kEmpty));
  EXPECT_EQ(ErrorNumberOf([&] { return list.ItemData(5); }), 9);
}

TEST_F(ListBoxTest, SortingAscendingTakesEffectWithRefreshAndLeavesTheDataBehind) {
  list.SortOrder = -1;
  for (const char* text : {"gamma", "Alpha", "beta"}) list.AddItem(text, -1, -1, false, text);
  EXPECT_THAT(Rows(), ElementsAre("gamma", "Alpha", "beta"));
  list.Refresh();
  EXPECT_THAT(Rows(), ElementsAre("Alpha", "beta", "gamma"));
  EXPECT_EQ(ToText(list.ItemData(0)), "gamma");
}

TEST_F(ListBoxTest, SortingDescendingKeepsTheOrderOfEqualRows) {
  list.SortOrder = 1;
  list.AddItem("beta");
  list.AddItem("ALPHA");
  list.AddItem("alpha");
  list.AddItem("Beta");
  list.Refresh();
  EXPECT_THAT(Rows(), ElementsAre("beta", "Beta", "ALPHA", "alpha"));
}

TEST_F(ListBoxTest, AnyOtherSortOrderLeavesTheRows) {
  list.SortOrder = 2;
  list.AddItem("beta");
  list.AddItem("alpha");
  list.Refresh();
  EXPECT_THAT(Rows(), ElementsAre("beta", "alpha"));
}

// What the sorting has to agree with: each row goes in front of the first that it compares to as the order says.
std::vector<std::string> InsertedByRule(const std::vector<std::string>& rows, int order) {
  std::vector<std::string> sorted;
  for (const std::string& row : rows) {
    size_t at = 0;
    while (at < sorted.size() && CompareNoCase(row, sorted[at]) != order) ++at;
    sorted.insert(sorted.begin() + static_cast<ptrdiff_t>(at), row);
  }
  return sorted;
}

TEST_F(ListBoxTest, SortingGivesTheOrderOfTheInsertionRule) {
  std::vector<std::string> rows;
  uint32_t state = 7;
  for (int at = 0; at < 300; ++at) {
    state = state * 1664525 + 1013904223;
    std::string row;
    for (uint32_t bits = state >> 20; bits > 0; bits /= 5) row += "aBc_É"[bits % 5];
    rows.push_back(ToUtf8(ToUtf16(row)));
  }
  for (const int order : {-1, 1}) {
    list.Clear();
    for (const std::string& row : rows) list.AddItem(row);
    list.SortOrder = order;
    list.Refresh();
    // The rule compares the whole joined rows.
    std::vector<std::string> joined;
    for (const std::string& row : rows) joined.push_back(row + "<%S%>-1<%S%>False");
    std::vector<std::string> expected;
    for (const std::string& row : InsertedByRule(joined, order)) expected.push_back(row.substr(0, row.find("<%S%>")));
    EXPECT_EQ(Rows(), expected) << order;
  }
}

TEST_F(ListBoxTest, TheMarkerInATextShiftsWhatFollowsIt) {
  list.AddItem("alpha<%S%>5<%S%>True");
  list.Refresh();
  EXPECT_EQ(list.List(0), "alpha");
  EXPECT_EQ(list.ListIcon(0), 5);
  EXPECT_TRUE(list.ListBold(0));
  list.AddItem("beta<%S%>no number");
  EXPECT_EQ(ErrorNumberOf([&] { return list.ListIcon(1); }), 13);
  Painted();
}

TEST_F(ListBoxTest, TextsOfAnyKindAreKeptAndPainted) {
  const std::string very_long(100000, 'x');
  for (const std::string& text : {std::string(), std::string("two\r\nlines"), very_long}) list.AddItem(text);
  list.Refresh();
  EXPECT_EQ(list.List(1), "two\r\nlines");
  EXPECT_EQ(list.List(2).size(), 100000U);
  EXPECT_EQ(Painted("Text").size(), 3U);
}

TEST_F(ListBoxTest, IndexTextAndSelectionFollowAnAssignedIndex) {
  Fill(10);
  list.SetListIndex(7);
  EXPECT_EQ(list.ListIndex(), 7);
  EXPECT_EQ(list.Text(), "row 7");
  EXPECT_THAT(Selected(), ElementsAre(7));
  EXPECT_THAT(events, ElementsAre("SelChange 7"));
  EXPECT_EQ(list.VerticalScrollBar().position, 3);
}

TEST_F(ListBoxTest, AnIndexOutsideIsBroughtInside) {
  Fill(3);
  list.SetListIndex(99);
  EXPECT_EQ(list.ListIndex(), 2);
  list.SetListIndex(-5);
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(ListBoxTest, SelectAllAndClearSelection) {
  list.SelectAll();
  EXPECT_THAT(Selected(), IsEmpty());
  Fill(3);
  list.SelectAll();
  EXPECT_THAT(Selected(), ElementsAre(0, 1, 2));
  list.ClearSelection();
  EXPECT_THAT(Selected(), ElementsAre(0));
  EXPECT_EQ(ErrorNumberOf([&] { return list.SelItem(1); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { return list.SelItem(-1); }), 9);
}

TEST_F(ListBoxTest, MultiSelectEmptiesTheSelectionAndSelectsTheCurrentRow) {
  Fill(3);
  list.SelectAll();
  list.MultiSelect = true;
  EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(ListBoxTest, EveryCharacterButLettersAndTheUnderscoreDelimits) {
  for (const char* letter : {"A", "Z", "a", "z", "_"}) EXPECT_FALSE(list.IsDelim(letter)) << letter;
  for (const char* other : {" ", "-", ".", "0", "9", "@", "[", "`", "{", "é", ""})
    EXPECT_TRUE(list.IsDelim(other)) << other;
}

TEST_F(ListBoxTest, TheImageListIsGivenAndNotRead) {
  PutMember(list, "ImageList", Variant(&form->ImageList1));
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(GetMember(list, "ImageList")); }), 438);
}

TEST_F(ListBoxTest, AScriptReachesPropertiesAndRows) {
  const auto engine = MakeScriptEngine();
  engine->SetLanguage("VBScript");
  engine->AddObject("Window", form);
  ASSERT_TRUE(
      engine->AddCode("With Window.ListBox1\n"
                      ".AddItem \"beta\"\n"
                      ".AddItem \"alpha\", 0, 4, True, \"data\"\n"
                      ".RowHeight = 30 : .SelColor = &HFF& : .Refresh\n"
                      ".ListIndex = 1\n"
                      "End With"))
      << engine->Error().Description;
  EXPECT_THAT(Rows(), ElementsAre("alpha", "beta"));
  EXPECT_EQ(list.ListIcon(0), 4);
  EXPECT_EQ(list.RowHeight, 30);
  EXPECT_EQ(list.SelColor, 0xFFU);
  EXPECT_EQ(list.ListIndex(), 1);
}

// ---- wrapping and colours ----------------------------------------------------------------------------------------

class ListBoxToolsTest : public ListBoxTest {
 protected:
  // Of the width of so many characters.
  [[nodiscard]] std::vector<std::string> Wrap(std::string_view text, int characters, bool strip = false) const {
    const int one = desktop_width();
    return list.SplitToLines(text, characters * one, strip);
  }
  [[nodiscard]] int desktop_width() const { return platform().windowing().MeasureText("x", list.Font, 96).width; }
};

TEST_F(ListBoxToolsTest, ALineIsCutInFrontOfTheLastDelimiterThatFits) {
  EXPECT_THAT(Wrap("the quick brown fox jumps", 10), ElementsAre("the quick", "brown fox", "jumps"));
}

TEST_F(ListBoxToolsTest, AWordWithoutADelimiterIsCutWhereTheWidthEnds) {
  EXPECT_THAT(Wrap("abcdefghijkl", 5), ElementsAre("abcde", "fghij", "kl"));
}

TEST_F(ListBoxToolsTest, ATextThatFitsIsOneLine) {
  EXPECT_THAT(Wrap("alpha", 10), ElementsAre("alpha"));
  EXPECT_THAT(Wrap("", 10), IsEmpty());
}

TEST_F(ListBoxToolsTest, LineEndsAreTakenOutOnlyWhenAsked) {
  EXPECT_THAT(Wrap("al\r\npha", 20, true), ElementsAre("alpha"));
  EXPECT_THAT(Wrap("al\r\npha", 20), ElementsAre("al\r\npha"));
}

TEST_F(ListBoxToolsTest, AWidthOfNothingEndsAllTheSame) { EXPECT_FALSE(Wrap("alpha beta", 0).empty()); }

TEST_F(ListBoxToolsTest, AVeryLongTextIsWrappedAtOnceWhereItFits) {
  const std::string text = std::string(99990, 'x') + " tail end";
  EXPECT_THAT(list.SplitToLines(text, std::numeric_limits<int>::max(), false), ElementsAre(text));
}

TEST_F(ListBoxToolsTest, AnAlphaThatIsNoneGivesAColourAllTheSame) {
  EXPECT_EQ(list.BlendColor(0xFFFFFF, 0x000000, std::numeric_limits<int>::max()), 0xFFFFFFU);
  EXPECT_EQ(list.BlendColor(0xFFFFFF, 0x000000, std::numeric_limits<int>::min()), 0x000000U);
}

TEST_F(ListBoxToolsTest, ColoursAreMixedChannelByChannelToTheNearest) {
  EXPECT_EQ(list.BlendColor(0xFF8C1A, 0xFFFFFF, 150), 0xFFBB78U);  // 8C: 140 * 150 / 255 + 105 = 187.4
  EXPECT_EQ(list.BlendColor(0xFF8C1A, 0x000000, 250), 0xFA8919U);
  EXPECT_EQ(list.BlendColor(0x123456, 0xABCDEF, 255), 0x123456U);
  EXPECT_EQ(list.BlendColor(0x123456, 0xABCDEF, 0), 0xABCDEFU);
  EXPECT_EQ(list.BlendColor(color::kWindowBackground, color::kBlack, 255), 0xFFFFFFU);
}

TEST_F(ListBoxToolsTest, SystemColoursBecomePlainOnesAndWhatIsNoneMinusOne) {
  EXPECT_EQ(list.TranslateColor(0x123456), 0x123456);
  EXPECT_EQ(list.TranslateColor(0x80000005), 0xFFFFFF);
  EXPECT_EQ(list.TranslateColor(0x02123456), 0x123456);
  EXPECT_EQ(list.TranslateColor(0x80000063), -1);
  EXPECT_EQ(list.TranslateColor(0x40000000), -1);
}

}  // namespace
}  // namespace kestrun
