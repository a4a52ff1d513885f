// Bitmaps turned into regions: the list of runs against a reference that marks each pixel, the system's block with its
// header, and the second try in blocks.
#include "styles/mod_trans_control.h"

#include <gtest/gtest.h>

#include <random>

#include "forms/command_button.h"
#include "forms/text_box.h"
#include "styles/style_fixture.h"
#include "support/recorded_effects.h"

namespace kestrun {
namespace {

constexpr int32_t kBlack = 0;
constexpr int32_t kTopLeft = -1;

// A bitmap of one character a pixel, rows between blanks: the colours are blue, green, red.
BitmapPixels Drawn(const std::vector<std::string>& rows) {
  BitmapPixels pixels{static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), {}};
  const size_t stride = BitmapStride(rows.front().size());
  pixels.bytes.assign(stride * rows.size(), 0xEE);  // the padding of a row is never looked at
  for (size_t y = 0; y < rows.size(); ++y) {
    for (size_t x = 0; x < rows[y].size(); ++x) {
      const uint8_t shade = rows[y][x] == '.' ? 0 : static_cast<uint8_t>(rows[y][x]);
      std::fill_n(pixels.bytes.begin() + static_cast<ptrdiff_t>(y * stride + x * 3), 3, shade);
    }
  }
  return pixels;
}

std::vector<RegionRect> RectsOf(const RegionList& list) {
  return {list.slots.begin() + kFirstRect, list.slots.begin() + kFirstRect + list.count};
}

using Rects = std::vector<RegionRect>;

TEST(TransControlTest, EachRunOfARowIsOneRectangle) {
  EXPECT_EQ(RectsOf(ListRuns(Drawn({"a.bb", ".aa.", "...."}), kBlack, false)),
            (Rects{{0, 0, 1, 1}, {2, 0, 4, 1}, {1, 1, 3, 2}}));
}

TEST(TransControlTest, InvertedTheRunsOfTheKeyAreListed) {
  EXPECT_EQ(RectsOf(ListRuns(Drawn({"a.bb", ".aa."}), kBlack, true)),
            (Rects{{1, 0, 2, 1}, {0, 1, 1, 2}, {3, 1, 4, 2}}));
}

TEST(TransControlTest, ARunAtTheRightEdgeEndsWithItsRow) {
  EXPECT_EQ(RectsOf(ListRuns(Drawn({"..a", "a.."}), kBlack, false)), (Rects{{2, 0, 3, 1}, {0, 1, 1, 2}}));
}

TEST(TransControlTest, WithoutAKeyPixelEachRowIsOneRectangle) {
  EXPECT_EQ(RectsOf(ListRuns(Drawn({"aa", "aa"}), kBlack, false)), (Rects{{0, 0, 2, 1}, {0, 1, 2, 2}}));
}

TEST(TransControlTest, ABitmapThatIsAllKeyHasNoRectangle) {
  EXPECT_EQ(ListRuns(Drawn({"..", ".."}), kBlack, false).count, 0);
}

TEST(TransControlTest, ANegativeKeyMeansTheTopLeftPixelWhateverItIs) {
  EXPECT_EQ(RectsOf(ListRuns(Drawn({"aab"}), kTopLeft, false)), (Rects{{2, 0, 3, 1}}));
}

TEST(TransControlTest, AColoursRedIsInItsLowByteAndAPixelsInItsThird) {
  BitmapPixels pixels{2, 1, {0x10, 0x20, 0x30, 0x30, 0x20, 0x10, 0, 0}};
  EXPECT_EQ(RectsOf(ListRuns(pixels, 0x102030, false)), (Rects{{1, 0, 2, 1}}));
}

TEST(TransControlTest, TheFourthByteOfAKeyNeverCounts) {
  BitmapPixels pixels{1, 1, {0x10, 0x20, 0x30, 0}};
  EXPECT_EQ(ListRuns(pixels, 0x7F102030, false).count, 0);
}

TEST(TransControlTest, AOnePixelWideBitmapsListStartsWithFourSlotsAndGrowsByThree) {
  EXPECT_EQ(ListRuns(Drawn({"."}), kBlack, false).slots.size(), 4U);
  EXPECT_EQ(ListRuns(Drawn({"a", "a"}), kBlack, false).slots.size(), 4U);
  EXPECT_EQ(ListRuns(Drawn({"a", "a", "a"}), kBlack, false).slots.size(), 7U);
  EXPECT_EQ(ListRuns(Drawn({"a", "a", "a", "a", "a", "a"}), kBlack, false).slots.size(), 10U);
}

// Marks each pixel of the rectangles; none may be marked twice.
std::vector<int> MarksOf(const RegionList& list, int width, int height) {
  std::vector<int> marks(static_cast<size_t>(width) * static_cast<size_t>(height));
  for (const RegionRect& rect : RectsOf(list)) {
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) ++marks[static_cast<size_t>(y * width + x)];
    }
  }
  return marks;
}

TEST(TransControlTest, TenThousandRandomBitmapsEqualTheMarksOfTheirPixels) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 10000; ++round) {
    const int width = static_cast<int>(random() % 40) + 1;
    const int height = static_cast<int>(random() % 12) + 1;
    BitmapPixels pixels{width, height, {}};
    const size_t stride = BitmapStride(static_cast<size_t>(width));
    pixels.bytes.resize(stride * static_cast<size_t>(height));
    const uint32_t colors = random() % 3 + 1;
    for (uint8_t& byte : pixels.bytes) byte = static_cast<uint8_t>(random() % colors);
    const bool invert = random() % 2 == 0;
    const int32_t key = random() % 3 == 0 ? kTopLeft : kBlack;
    const auto is_key = [&](int x, int y) {
      const uint8_t* at = pixels.bytes.data() + static_cast<size_t>(y) * stride + static_cast<size_t>(x) * 3;
      const uint8_t* first = pixels.bytes.data();
      return key == kTopLeft ? std::equal(at, at + 3, first) : at[0] == 0 && at[1] == 0 && at[2] == 0;
    };
    std::vector<int> expected;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) expected.push_back(is_key(x, y) == invert ? 1 : 0);
    }
    ASSERT_EQ(MarksOf(ListRuns(pixels, key, invert), width, height), expected) << "round " << round;
  }
}

class RegionTest : public StyleTest {
 protected:
  // A column of single pixels, every other row: one rectangle each.
  static BitmapPixels Dotted(int rectangles) {
    std::vector<std::string> rows;
    for (int row = 0; row < rectangles; ++row) rows.insert(rows.end(), {"a", "."});
    return Drawn(rows);
  }
  RegionNumber RegionOf(const BitmapPixels& pixels) {
    effects.bitmaps[1] = pixels;
    return RegionFromBitmap(1, 0, kBlack, false);
  }

  RecordedEffects effects;
};

TEST_F(RegionTest, TheBlockBeginsWithTheSystemsHeader) {
  EXPECT_EQ(RegionOf(Drawn({"a.b", "...", ".aa"})), 1);
  ASSERT_EQ(effects.blocks.size(), 1U);
  EXPECT_EQ(effects.blocks[0], (Rects{{32, 1, 3, 48}, {0, 0, 3, 3}, {0, 0, 1, 1}, {2, 0, 3, 1}, {1, 2, 3, 3}}));
}

TEST_F(RegionTest, NoBitmapAndNoInformationGiveNoRegionWithoutAWord) {
  EXPECT_EQ(RegionFromBitmap(0, 0, kBlack, false), 0);
  EXPECT_EQ(RegionFromBitmap(99, 0, kBlack, false), 0);
  EXPECT_TRUE(effects.blocks.empty());
}

TEST_F(RegionTest, ABitmapThatIsAllKeyGivesNoRegion) {
  EXPECT_EQ(RegionOf(Drawn({"..."})), 0);
  EXPECT_TRUE(effects.blocks.empty());
}

TEST_F(RegionTest, UpToTwoThousandRectanglesAreNeverTriedInBlocks) {
  effects.refuses = [](const Rects&) { return true; };
  EXPECT_EQ(RegionOf(Dotted(2000)), 0);
  EXPECT_EQ(effects.blocks.size(), 1U);
}

TEST_F(RegionTest, FromTwoThousandAndOneOnASecondTryIsMadeInBlocks) {
  bool refused = false;
  effects.refuses = [&](const Rects&) { return !std::exchange(refused, true); };
  EXPECT_EQ(RegionOf(Dotted(2001)), 1);
  ASSERT_EQ(effects.blocks.size(), 3U);
  EXPECT_EQ(effects.blocks[1].size(), 2001U + 2);
  EXPECT_EQ(effects.blocks[2].size(), 1U + 2);
}

TEST_F(RegionTest, ABlocksLastRectangleIsTheNextOnesFirst) {
  effects.refuses = [](const Rects& block) { return block.size() > 2003; };
  EXPECT_EQ(RegionOf(Dotted(4500)), 1);
  ASSERT_EQ(effects.blocks.size(), 4U);
  EXPECT_EQ(effects.blocks[1].back(), effects.blocks[2][2]);
  EXPECT_EQ(effects.blocks[1][0], (RegionRect{32, 1, 2001, 2001 * 16}));
  EXPECT_EQ(effects.blocks[3][0], (RegionRect{32, 1, 500, 500 * 16}));
  EXPECT_EQ(effects.regions[1].size(), 2001U + 2001 + 500);
  EXPECT_EQ(effects.regions.size(), 1U) << "the parts are deleted";
}

TEST_F(RegionTest, ARefusedBlockDeletesWhatWasBuiltAndItsNumberIsStillReturned) {
  int asked = 0;
  effects.refuses = [&](const Rects&) { return ++asked != 2; };  // whole: no; first block: yes; second: no
  EXPECT_EQ(RegionOf(Dotted(3000)), 1);
  EXPECT_TRUE(effects.regions.empty());
}

TEST_F(RegionTest, AFailureOnTheWayIsToldAndGivesNoRegion) {
  effects.before_read = [] { throw std::bad_alloc(); };
  desktop.dialogs().ExpectBox("Shaped Region failed. Windows could not create the region.");
  EXPECT_EQ(RegionOf(Drawn({"a"})), 0);
}

TEST_F(RegionTest, AControlIsCutToThePictureOfItsWindow) {
  form->Show();
  auto& box = form->Add<Timer>("tmr");  // without a window
  effects.bitmaps[RecordedEffects::kWindowBitmap] = Drawn({".a"});
  CutControlToKeyColour(box, kBlack);
  EXPECT_TRUE(effects.calls.empty());
  CutControlToKeyColour(*form, kBlack);
  const std::string number = std::to_string(form->WindowNumber());
  EXPECT_EQ(effects.calls, (std::vector<std::string>{"picture " + number, "read 71 72", "cut " + number + " 1"}));
}

TEST_F(RegionTest, AControlThatIsAllKeyColourStaysAWholeRectangle) {
  form->Show();
  effects.bitmaps[RecordedEffects::kWindowBitmap] = Drawn({".."});
  CutControlToKeyColour(*form, kBlack);
  EXPECT_EQ(effects.calls.back(), "cut " + std::to_string(form->WindowNumber()) + " 0");
}

TEST_F(RegionTest, ALabelIsLeftAlone) {
  form->Show();
  CutControlToKeyColour(form->lblone, kBlack);
  EXPECT_TRUE(effects.calls.empty());
}

TEST_F(RegionTest, AWindowsOwnProcedureShowsItAndCutsEveryControlThatHasAWindow) {
  TellGameFolder();
  form->Add<CommandButton>("Command1");
  form->Add<TextBox>("Text1");
  effects.bitmaps[RecordedEffects::kWindowBitmap] = Drawn({".a"});
  CutAllControls(*form);
  EXPECT_TRUE(form->IsShown());
  EXPECT_EQ(std::count_if(effects.calls.begin(), effects.calls.end(),
                          [](const std::string& call) { return call.starts_with("cut "); }),
            2);
  EXPECT_NE(WindowByName("frmain").FindMember("InitTransControls"), kNoMember);
}

}  // namespace
}  // namespace kestrun
