#include <algorithm>
#include <limits>

#include "controls/list_box/color_blend.h"
#include "controls/list_box_fixture.h"
#include "forms/label.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// What the colours of the blended selection come to for the default SelColor, FF8C1A (blue, green, red).
constexpr const char* kBorder = "FA8919";
constexpr const char* kCurrent = "FFBB78";
constexpr const char* kOther = "FFD2A5";
constexpr const char* kUnfocused = "FFDDBC";

Ref<Picture> Dot(uint32_t pixel, int side = 8) {
  return MakeRef<Picture>(side, side, std::vector<uint32_t>(static_cast<size_t>(side * side), pixel));
}

// ---- one row in each state ----

TEST_F(ListBoxTest, APlainRow) {
  list.AddItem("alpha");
  list.AddItem("beta");
  list.Refresh();
  list.FocusRectangle = false;
  EXPECT_THAT(Painted(), ElementsAre("Fill 0,0,200,110 FFFFFF", "Text 5,1,200,23 000000 left 'alpha'",
                                     "Text 5,23,200,45 000000 left 'beta'", "Line 0,110,200,111 000000"));
}

TEST_F(ListBoxTest, ASelectedRowWithAndWithoutFocus) {
  list.AddItem("alpha");
  list.Refresh();
  list.SetListIndex(0);
  list.OnFocus(false);
  EXPECT_THAT(Painted(), ElementsAre("Fill 0,0,200,110 FFFFFF", std::string("Fill 1,1,200,22 ") + kUnfocused,
                                     std::string("Frame 1,1,200,22 ") + kBorder, "Text 5,1,200,23 FFFFFF left 'alpha'",
                                     "Focus -1,0,201,23", "Line 0,110,200,111 000000"));
  list.OnFocus(true);
  EXPECT_EQ(Painted("Fill")[1], std::string("Fill 1,1,200,22 ") + kCurrent);
  list.OnFocus(false);
  EXPECT_EQ(Painted("Fill")[1], std::string("Fill 1,1,200,22 ") + kUnfocused);
}

TEST_F(ListBoxTest, OtherSelectedRowsArePalerThanTheCurrentOne) {
  Fill(2);
  list.MultiSelect = true;
  list.SelectAll();
  list.OnFocus(true);
  EXPECT_THAT(Painted("Fill"), ElementsAre("Fill 0,0,200,110 FFFFFF", std::string("Fill 1,1,200,22 ") + kCurrent,
                                           std::string("Fill 1,23,200,44 ") + kOther));
}

TEST_F(ListBoxTest, AFlatSelectionIsOfOneColour) {
  Fill(1);
  list.SelectionStyle = 0;
  list.SetListIndex(0);
  EXPECT_THAT(Painted("Fill"), ElementsAre("Fill 0,0,200,110 FFFFFF", "Fill 1,1,200,22 FF8C1A"));
  EXPECT_THAT(Painted("Frame"), ElementsAre("Frame 1,1,200,22 FF8C1A"));
}

TEST_F(ListBoxTest, AnIconCellStandsInFrontOfTheText) {
  form->ImageList1.AddNewImage(Dot(0xFF112233));
  list.SetImageList(Ref<Object>(form->FindControl("ImageList1")));
  list.ShowIcon = true;
  list.AddItem("alpha", -1, 0);
  list.AddItem("beta");
  list.Refresh();
  list.SetListIndex(0);
  list.OnFocus(true);
  EXPECT_THAT(Painted("Picture"), ElementsAre("Picture 7,7,15,15")) << "in the middle of a cell of 18";
  EXPECT_THAT(Painted("Text"),
              ElementsAre("Text 30,1,200,23 FFFFFF left 'alpha'", "Text 30,23,200,45 000000 left 'beta'"));
  EXPECT_THAT(Painted("Fill")[1], HasSubstr("Fill 26,1,200,22"));
  EXPECT_THAT(Painted("Focus"), ElementsAre("Focus 1,1,22,22", "Focus 25,0,201,23"));
  EXPECT_EQ(canvas.At(10, 10), 0x112233U);
  list.StrechIcon = true;
  EXPECT_THAT(Painted("Picture"), ElementsAre("Picture 2,2,20,20"));
  list.FullRowSelect = true;
  EXPECT_THAT(Painted("Fill")[1], HasSubstr("Fill 1,1,200,22"));
  EXPECT_THAT(Painted("Focus"), ElementsAre("Focus -1,0,201,23"));
}

TEST_F(ListBoxTest, AnIconLargerThanItsCellIsClipped) {
  form->ImageList1.AddNewImage(Dot(0xFF112233, 40));
  list.SetImageList(Ref<Object>(form->FindControl("ImageList1")));
  list.ShowIcon = true;
  list.AddItem("alpha", -1, 0);
  list.Refresh();
  Painted();
  EXPECT_EQ(canvas.At(2, 2), 0x112233U);
  EXPECT_EQ(canvas.At(1, 2), 0xFFFFFFU);
  EXPECT_EQ(canvas.At(21, 5), 0xFFFFFFU);
}

TEST_F(ListBoxTest, AnIconNumberPastTheListEndsThePaintingQuietly) {
  list.SetImageList(Ref<Object>(form->FindControl("ImageList1")));
  list.ShowIcon = true;
  list.AddItem("alpha", -1, 5);
  list.AddItem("beta");
  list.Refresh();
  EXPECT_THAT(Painted("Text"), ElementsAre(HasSubstr("alpha")));
}

TEST_F(ListBoxTest, AnImageListThatHasGoneEndsThePaintingQuietly) {
  {
    const Ref<frmlist> other = MakeRef<frmlist>();
    list.SetImageList(Ref<Object>(other->FindControl("ImageList1")));
    other->Unload();
  }
  list.ShowIcon = true;
  list.AddItem("alpha", -1, 0);
  list.Refresh();
  EXPECT_THAT(Painted("Text"), ElementsAre(HasSubstr("alpha")));
}

TEST_F(ListBoxTest, BoldRowsAndAlignments) {
  list.AddItem("alpha", -1, -1, true);
  list.Refresh();
  for (const char* name : {"left", "center", "right"}) {
    EXPECT_THAT(Painted("Text")[0], HasSubstr(std::string(name) + " bold 'alpha'"));
    list.TextAlignment = list.TextAlignment + 1;
  }
}

TEST_F(ListBoxTest, GridLinesStandAboveEachRow) {
  Fill(2);
  list.GridLines = true;
  EXPECT_THAT(Painted("Line"),
              ElementsAre("Line 0,0,200,1 F0F0F0", "Line 0,22,200,23 F0F0F0", "Line 0,110,200,111 F0F0F0"));
}

TEST_F(ListBoxTest, APartlyVisibleRowIsPainted) {
  list.Resized({200, 120}, 96);
  Fill(10);
  EXPECT_THAT(Painted("Text"), testing::SizeIs(6));
}

TEST_F(ListBoxTest, RowsStretchToFillTheHeight) {
  list.Resized({200, 120}, 96);
  Fill(10);
  list.SetListIndex(1);
  EXPECT_THAT(Painted("Frame"), ElementsAre(HasSubstr("Frame 1,25,200,48")));
}

TEST_F(ListBoxTest, APaintCostsTheVisibleRowsAlone) {
  Fill(10000);
  list.OnScroll(5000);
  EXPECT_THAT(Painted("Text"), testing::SizeIs(6));
}

// ---- gradients ----

TEST_F(ListBoxTest, AColourTableGoesFromTheFirstToTheSecondColour) {
  EXPECT_THAT(ColorTable(0x000000, 0x0000FF, 3), ElementsAre(0x000000, 0x7F0000, 0xFF0000));
  EXPECT_THAT(ColorTable(0xFF0000, 0x000000, 4), ElementsAre(0x0000FF, 0x0000AA, 0x000055, 0x000000));
  EXPECT_THAT(ColorTable(0x102030, 0xFFFFFF, 1), ElementsAre(0x302010));
  EXPECT_THAT(ColorTable(0x102030, 0xFFFFFF, 0), IsEmpty());
}

TEST_F(ListBoxTest, BackgroundGradientsOfAllKinds) {
  list.BackColor = 0x000000;
  list.BackGradientCol = 0x0000C7;  // red 199: one step a pixel across
  list.BackGradient = gradient::kAcross;
  EXPECT_THAT(Painted("Pixels"), ElementsAre("Pixels 0,0,200,110 200x1"));
  EXPECT_EQ(canvas.At(0, 50), 0x000000U);
  EXPECT_EQ(canvas.At(100, 3), 0x640000U);
  EXPECT_EQ(canvas.At(199, 109), 0xC70000U);

  list.BackGradient = gradient::kAcrossMirrored;
  EXPECT_THAT(Painted("Pixels"), ElementsAre("Pixels 0,0,100,110 100x1", "Pixels 100,0,200,110 100x1"));
  EXPECT_EQ(canvas.At(0, 0), 0x000000U);
  EXPECT_EQ(canvas.At(99, 0), 0xC70000U);
  EXPECT_EQ(canvas.At(100, 0), 0xC70000U);
  EXPECT_EQ(canvas.At(199, 0), 0x000000U);

  list.BackGradient = gradient::kDown;
  EXPECT_THAT(Painted("Pixels"), ElementsAre("Pixels 0,0,200,110 1x110"));
  EXPECT_EQ(canvas.At(120, 0), 0x000000U);
  EXPECT_EQ(canvas.At(120, 109), 0xC70000U);
  EXPECT_EQ(canvas.At(7, 50), 0x5B0000U);  // 199 * 50 / 109

  list.BackGradient = gradient::kDownMirrored;
  EXPECT_THAT(Painted("Pixels"), ElementsAre("Pixels 0,0,200,55 1x55", "Pixels 0,55,200,110 1x55"));
  EXPECT_EQ(canvas.At(0, 54), 0xC70000U);
  EXPECT_EQ(canvas.At(0, 109), 0x000000U);

  list.BackGradient = 7;
  EXPECT_THAT(Painted("Pixels"), ElementsAre("Pixels 0,0,200,110 200x110"));
  EXPECT_EQ(canvas.At(0, 0), 0x000000U);
  EXPECT_EQ(canvas.At(199, 109), 0xC70000U);
  EXPECT_EQ(canvas.At(100, 54), 0x630000U);  // 199 * 154 / 308
  EXPECT_EQ(canvas.At(54, 100), 0x630000U);
}

TEST_F(ListBoxTest, ASelectionGradientFillsTheRow) {
  Fill(1);
  list.SelGradient = gradient::kDown;
  list.SetListIndex(0);
  EXPECT_THAT(Painted("Pixels"), ElementsAre("Pixels 1,1,200,23 1x22"));
  EXPECT_EQ(canvas.At(150, 1), 0x1A8CFFU);
  EXPECT_EQ(canvas.At(151, 22), 0xFFFFFFU) << "between the dots of the focus";
  EXPECT_THAT(Painted("Frame"), IsEmpty());
}

TEST_F(ListBoxTest, APictureStandsBehindTheRows) {
  list.Picture = Dot(0xFF00FF00);
  Fill(1);
  EXPECT_THAT(Painted("Picture"), ElementsAre("Picture 0,0,8,8"));
  EXPECT_EQ(canvas.At(1, 90), 0xFFFFFFU);
}

// ---- properties ----

TEST_F(ListBoxTest, EveryPropertyHasItsDefault) {
  EXPECT_FALSE(list.Picture.get());
  EXPECT_EQ(list.Font.get(), form->Font.get());
  EXPECT_EQ(list.ForeColor, 0x80000012U);
  EXPECT_EQ(list.BackColor, 0xFFFFFFU);
  EXPECT_EQ(list.SelColor, 0xFF8C1AU);
  EXPECT_EQ(list.SelForeColor, 0xFFFFFFU);
  EXPECT_EQ(list.Appearance, 1);
  EXPECT_EQ(list.BorderStyle, 1);
  EXPECT_EQ(list.GridColor, 0x8000000FU);
  EXPECT_EQ(list.RowHeight, 22);
  EXPECT_EQ(list.BackGradientCol, 0xC0C0C0U);
  EXPECT_EQ(list.SelGradientCol, 0xFFFFFFU);
  EXPECT_EQ(list.SelectionStyle, 1);
  for (const bool flag : {list.FocusRectangle.get(), list.IconFocus.get()}) EXPECT_TRUE(flag);
  for (const bool flag : {list.StrechIcon.get(), list.FullRowSelect.get(), list.MultiSelect.get(), list.ShowIcon.get(),
                          list.GridLines.get(), list.FlatScrollBar.get(), list.AutoHideScrollBars.get()}) {
    EXPECT_FALSE(flag);
  }
  for (const int number :
       {list.SortOrder.get(), list.TextAlignment.get(), list.BackGradient.get(), list.SelGradient.get()}) {
    EXPECT_EQ(number, 0);
  }
  PropertyBag bag;
  list.WriteProperties(bag);
  EXPECT_EQ(bag.Count(), 0U);
}

TEST_F(ListBoxTest, StoredPropertiesComeBack) {
  list.SelColor = 0x123456;
  list.ShowIcon = true;
  list.RowHeight = 40;
  list.BorderStyle = int16_t{0};
  list.BackColor = 0x654321;
  list.Picture = Dot(1);
  PropertyBag bag;
  list.WriteProperties(bag);
  EXPECT_EQ(bag.Count(), 6U);
  const Ref<frmlist> other = MakeRef<frmlist>();
  other->ListBox1.ReadProperties(bag);
  EXPECT_EQ(other->ListBox1.SelColor, 0x123456U);
  EXPECT_TRUE(other->ListBox1.ShowIcon);
  EXPECT_EQ(other->ListBox1.RowHeight, 40);
  EXPECT_EQ(other->ListBox1.BorderStyle, 0);
  EXPECT_EQ(other->ListBox1.BackColor, 0x654321U);
  EXPECT_EQ(other->ListBox1.Picture.get(), list.Picture.get());
}

TEST_F(ListBoxTest, EveryAssignmentMarksItsPropertyAndPaints) {
  desktop.windowing().record_calls = true;
  list.SelGradient = 0;
  list.BackColor = 0x010101;
  EXPECT_THAT(marks, ElementsAre("SelGradient", "BackColor"));
  EXPECT_THAT(desktop.windowing().calls,
              testing::Contains(testing::Field(&PeerCall::kind, PeerCall::Kind::kRepaint)).Times(2));
}

TEST_F(ListBoxTest, ARowIsNeverLowerThanALineOfText) {
  list.RowHeight = 1;
  EXPECT_EQ(list.RowHeight, platform().windowing().MeasureText("A", list.Font, 96).height);
  FontDescription large = list.Font;
  large.size_points = 40;
  list.Font = large;
  EXPECT_EQ(list.RowHeight, platform().windowing().MeasureText("A", large, 96).height);
  list.RowHeight = 0;
  EXPECT_GT(list.RowHeight, 0);
}

TEST_F(ListBoxTest, AFontOfASizeThatNoFontHasIsRefused) {
  for (const double points : {0.0, -8.0, 2161.0, 1e300}) {
    EXPECT_EQ(ErrorNumberOf([&] { PutMember(list, "FontSize", points); }), 380) << points;
    PropertyBag bag;
    bag.WriteProperty("Font", Variant("Tahoma;" + ToText(Variant(points))), Variant());
    EXPECT_EQ(ErrorNumberOf([&] { list.ReadProperties(bag); }), 380) << points;
  }
  PutMember(list, "FontSize", 2160);
  EXPECT_THAT(Painted("Text"), IsEmpty());
}

TEST_F(ListBoxTest, TheFrameFollowsBorderAndAppearance) {
  EXPECT_EQ(list.FrameKind(), 2);
  list.Appearance = int16_t{0};
  EXPECT_EQ(list.FrameKind(), 1);
  list.BorderStyle = int16_t{0};
  EXPECT_EQ(list.FrameKind(), 0);
}

TEST_F(ListBoxTest, AHugeRowAndAControlOfNoSizeShowNoRowsAndTakeNoPress) {
  Fill(3);
  list.Resized({300, 165}, 144);
  for (const int height : {32767, std::numeric_limits<int>::max()}) {
    list.RowHeight = height;
    EXPECT_THAT(Painted("Text"), IsEmpty()) << height;
  }
  Click(0);
  Key(key::kPageDown);
  list.Resized({0, 0}, 96);
  RasterCanvas none({0, 0});
  list.Paint(none);
  Click(0);
  list.OnMouseMove(0, 0, 0, 0);
  list.OnWheel(-1, 0);
  EXPECT_EQ(list.VerticalScrollBar().position, 0);
}

TEST_F(ListBoxTest, EverythingGrowsWithTheScreensScale) {
  list.Resized({300, 165}, 144);
  list.AddItem("alpha");
  list.ShowIcon = true;
  list.Refresh();
  RasterCanvas large({300, 165}, 144);
  list.Paint(large);
  EXPECT_THAT(large.calls(), testing::Contains("Text 44,1,300,34 000000 left 'alpha'"));
}

TEST_F(ListBoxTest, AnEmptyListInADesignerShowsASampleRow) {
  list.PaintPreview(canvas);
  EXPECT_THAT(canvas.calls(), testing::Contains(HasSubstr("'McListBox'")));
  EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(ListBoxTest, ScreenReadersLearnRowsAndSelection) {
  Fill(7);
  Click(1);
  EXPECT_EQ(list.AccessibleRole(), UserControl::Role::kList);
  EXPECT_EQ(list.AccessibleChildCount(), 7);
  EXPECT_EQ(list.AccessibleChildName(1), "row 1");
  EXPECT_TRUE(list.IsAccessibleChildSelected(1));
  EXPECT_FALSE(list.IsAccessibleChildSelected(2));
  EXPECT_EQ(list.AccessibleChildArea(1), (PixelRect{0, 22, 200, 44}));
  EXPECT_TRUE(list.AccessibleChildArea(6).IsEmpty());
}

TEST_F(ListBoxTest, ScreenReadersAreToldWhenTheListHasOtherRows) {
  desktop.windowing().record_calls = true;
  const auto told = [this] {
    const auto& calls = desktop.windowing().accessibility_calls;
    return std::count(calls.begin(), calls.end(), AccessibilityCall{AccessibleEvent::kChildren, "ListBox1", -1});
  };
  Fill(3);
  EXPECT_EQ(told(), 1);
  list.Refresh();
  EXPECT_EQ(told(), 1);
  list.Remove(0);
  EXPECT_EQ(told(), 2);
}

TEST_F(ListBoxTest, ItsNameIsItsTipOrTheLabelInFrontOfIt) {
  EXPECT_EQ(list.AccessibleName(), "");
  Label& label = form->Add<Label>("lblmaps");
  label.Caption = "Map&s: ";
  label.TabIndex = 4;
  list.TabIndex = 5;
  EXPECT_EQ(list.AccessibleName(), "Maps");
  list.TabIndex = 6;
  EXPECT_EQ(list.AccessibleName(), "") << "a label further away is another control's";
  list.ToolTipText = "All the maps";
  EXPECT_EQ(list.AccessibleName(), "All the maps");
}

// ---- badges ----

TEST_F(ListBoxTest, ABadgeStandsAtTheRightEndOfItsRowAndTheTextsEndBeforeIt) {
  Fill(2);
  list.SetBadges({[](int row) {
                    return row == 0 ? RowBadge{Dot(0xFF112233), "bad", "It is empty."} : RowBadge{};
                  },
                  "doubtful"});
  EXPECT_THAT(Painted("Picture"), ElementsAre("Picture 134,5,148,19"));
  EXPECT_THAT(Painted("Text"), ElementsAre("Text 5,1,130,23 000000 left 'row 0'", "Text 152,1,200,23 000000 left 'bad'",
                                           "Text 5,23,130,45 000000 left 'row 1'"));
}

TEST_F(ListBoxTest, ABadgeOfASelectedRowHasTheColourOfItsText) {
  Fill(1);
  list.SetBadges({[](int) { return RowBadge{{}, "good", {}}; }, "good"});
  list.SetListIndex(0);
  EXPECT_THAT(Painted("Text"), ElementsAre(HasSubstr("FFFFFF left 'row 0'"), HasSubstr("FFFFFF left 'good'")));
}

TEST_F(ListBoxTest, OnlyRowsThatAreSeenAreAskedForTheirBadge) {
  Fill(1000);
  std::vector<int> asked;
  list.SetBadges({[&](int row) { return asked.push_back(row), RowBadge{}; }, "good"});
  static_cast<void>(Painted());
  EXPECT_THAT(asked, ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST_F(ListBoxTest, ScreenReadersHearABadgeBehindTheTextWhichStaysAsItIs) {
  Fill(1);
  list.SetBadges({[](int) { return RowBadge{{}, "bad", "It is empty."}; }, "good"});
  EXPECT_EQ(list.AccessibleChildName(0), "row 0, bad, It is empty.");
  EXPECT_EQ(list.List(0), "row 0");
  EXPECT_EQ(list.AccessibleChildName(7), "");
}

}  // namespace
}  // namespace kestrun
