#include "controls/list_box_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// ---- a list of gestures and the selection after each ----

struct Gesture {
  const char* what;
  int row;
  int shift_state;
  std::vector<int> selected;
};

TEST_F(ListBoxTest, GesturesOfASingleSelection) {
  Fill(5);
  for (const Gesture& gesture : std::vector<Gesture>{
           {"click", 2, 0, {2}},
           {"click with Ctrl", 4, shift::kCtrl, {4}},
           {"click with Shift", 1, shift::kShift, {1}},
           {"click again", 1, 0, {1}},
       }) {
    Click(gesture.row, gesture.shift_state);
    EXPECT_EQ(Selected(), gesture.selected) << gesture.what;
    EXPECT_EQ(list.ListIndex(), gesture.row) << gesture.what;
  }
}

TEST_F(ListBoxTest, GesturesOfAMultipleSelection) {
  Fill(5);
  list.MultiSelect = true;
  for (const Gesture& gesture : std::vector<Gesture>{
           {"click", 2, 0, {2}},
           {"Ctrl puts a row in", 4, shift::kCtrl, {2, 4}},
           {"Ctrl puts a lower row in front", 0, shift::kCtrl, {0, 2, 4}},
           {"Ctrl takes a row out", 2, shift::kCtrl, {0, 4}},
           {"Shift selects from the last row that Ctrl touched", 4, shift::kShift, {2, 3, 4}},
           {"Shift keeps its anchor", 0, shift::kShift, {0, 1, 2}},
           {"Ctrl goes before Shift", 4, shift::kCtrl | shift::kShift, {0, 1, 2, 4}},
           {"click selects one", 3, 0, {3}},
           {"Ctrl can empty the selection", 3, shift::kCtrl, {}},
       }) {
    Click(gesture.row, gesture.shift_state);
    EXPECT_EQ(Selected(), gesture.selected) << gesture.what;
    EXPECT_EQ(list.ListIndex(), gesture.row) << gesture.what;
  }
}

TEST_F(ListBoxTest, SelItemGivesRowsAscendingWhateverTheOrderOfClicks) {
  Fill(5);
  list.MultiSelect = true;
  Click(4);
  Click(1, shift::kCtrl);
  Click(3, shift::kCtrl);
  EXPECT_THAT(Selected(), ElementsAre(1, 3, 4));
}

TEST_F(ListBoxTest, AClickBelowTheLastRowOfAShortListChangesNothing) {
  Fill(3);
  Click(1);
  events.clear();
  Click(4);
  EXPECT_THAT(Selected(), ElementsAre(1));
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(ListBoxTest, APressExactlyAtTheCountSelectsARowPastTheEndThatIsBroughtInside) {
  Fill(3);
  list.OnMouseDown(mouse::kLeft, 0, 50, 66);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_THAT(Selected(), ElementsAre(3));
}

TEST_F(ListBoxTest, APressTellsTheSelectionAndThenTheMouse) {
  Fill(3);
  std::vector<std::string> order;
  list.SelChange = [&] { order.emplace_back("SelChange"); };
  list.MouseDown = [&](int button, int shift_state, int x, int y) {
    order.push_back("MouseDown " + std::to_string(button) + " " + std::to_string(shift_state) + " " +
                    std::to_string(x) + " " + std::to_string(y));
  };
  list.MouseUp = [&](int button, int, int, int) { order.push_back("MouseUp " + std::to_string(button)); };
  list.MouseClick = [&] { order.emplace_back("MouseClick"); };
  list.OnMouseDown(mouse::kRight, shift::kAlt, 10, 30);
  list.OnMouseUp(mouse::kRight, 0, 10, 30);
  EXPECT_THAT(order, ElementsAre("SelChange", "MouseDown 2 4 150 450", "MouseUp 2"));
  order.clear();
  Click(0);
  EXPECT_THAT(order, ElementsAre("SelChange", "MouseDown 1 0 750 165", "MouseUp 1", "MouseClick"));
  EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(ListBoxTest, ReleasingTellsTheSelectionOnceMoreWithMultiSelect) {
  Fill(3);
  list.MultiSelect = true;
  events.clear();
  Click(1);
  EXPECT_THAT(events, ElementsAre("SelChange 1", "SelChange 1", "MouseClick"));
}

TEST_F(ListBoxTest, ADoubleClickIsNoSecondClick) {
  Fill(3);
  Click(1);
  list.OnDoubleClick(50, MiddleOf(1));
  Release(1);
  EXPECT_THAT(events, ElementsAre("SelChange 1", "MouseClick", "DbClick"));
}

TEST_F(ListBoxTest, AHandlerMayCloseTheFormInTheMiddleOfAPress) {
  Fill(3);
  list.SelChange = [this] { form->Unload(); };
  Click(1);
  SUCCEED();
}

TEST_F(ListBoxTest, AfterAHandlerHasClosedTheFormThePressIsToldToNobodyElse) {
  Fill(3);
  list.SelChange = [this] { form->Unload(); };
  list.MouseDown = [this](int, int, int, int) { events.emplace_back("MouseDown"); };
  Press(1);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(ListBoxTest, ARangeFromAnAnchorThatIsGoneEndsAtTheLastRow) {
  Fill(10);
  list.MultiSelect = true;
  Click(4);
  for (int rows = 0; rows < 7; ++rows) list.Remove(0);
  Click(1, shift::kShift);
  EXPECT_THAT(Selected(), ElementsAre(1, 2));
}

// ---- dragging ----

TEST_F(ListBoxTest, DraggingMovesTheCurrentRow) {
  Fill(10);
  Press(1);
  events.clear();
  DragTo(3);
  EXPECT_THAT(Selected(), ElementsAre(3));
  DragTo(3);
  DragTo(0);
  EXPECT_THAT(events, ElementsAre("MouseEnter", "SelChange 3", "SelChange 0"));
}

TEST_F(ListBoxTest, DraggingPastTheEndScrollsARowAtEachMove) {
  Fill(10);
  Press(4);
  list.OnMouseMove(mouse::kLeft, 0, 50, 200);
  EXPECT_EQ(list.VerticalScrollBar().position, 1);
  EXPECT_EQ(list.ListIndex(), 5);
  list.OnMouseMove(mouse::kLeft, 0, 50, 200);
  EXPECT_EQ(list.ListIndex(), 6);
  list.OnMouseMove(mouse::kLeft, 0, 50, -1);
  EXPECT_EQ(list.VerticalScrollBar().position, 1);
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(ListBoxTest, DraggingWithMultiSelectSelectsFromTheAnchor) {
  Fill(10);
  list.MultiSelect = true;
  Press(1);
  DragTo(3);
  EXPECT_THAT(Selected(), ElementsAre(1, 2, 3));
  DragTo(0);
  EXPECT_THAT(Selected(), ElementsAre(0, 1));
  DragTo(4, shift::kCtrl);
  EXPECT_THAT(Selected(), ElementsAre(0, 1));
}

TEST_F(ListBoxTest, AMoveAfterTheReleaseDragsNothing) {
  Fill(10);
  Click(1);
  DragTo(3);
  EXPECT_THAT(Selected(), ElementsAre(1));
}

// ---- keys ----

TEST_F(ListBoxTest, KeysMoveTheCurrentRow) {
  Fill(20);
  struct Step {
    int key;
    int row;
  };
  for (const Step& step : std::vector<Step>{{key::kDown, 1},
                                            {key::kDown, 2},
                                            {key::kUp, 1},
                                            {key::kPageDown, 6},
                                            {key::kPageUp, 1},
                                            {key::kPageUp, 0},
                                            {key::kUp, 0},
                                            {key::kEnd, 19},
                                            {key::kPageDown, 19},
                                            {key::kHome, 0}}) {
    Key(step.key);
    EXPECT_EQ(list.ListIndex(), step.row);
  }
}

TEST_F(ListBoxTest, AKeyThatMovesTellsLikeAPressAndAClick) {
  Fill(3);
  std::vector<int> pressed;
  list.MouseDown = [&](int button, int shift_state, int x, int) { pressed = {button, shift_state, x}; };
  Key(key::kDown);
  EXPECT_THAT(pressed, ElementsAre(999, 0, 1));
  EXPECT_THAT(events, ElementsAre("SelChange 1", "MouseClick"));
  events.clear();
  Key(key::kEnd);
  Key(key::kDown);
  EXPECT_THAT(events, ElementsAre("SelChange 2", "MouseClick")) << "nothing for the same row";
}

TEST_F(ListBoxTest, ShiftExtendsByKeysAndCtrlIsOutOfPlay) {
  Fill(10);
  list.MultiSelect = true;
  Click(2);
  Key(key::kDown, shift::kShift);
  Key(key::kDown, shift::kShift);
  EXPECT_THAT(Selected(), ElementsAre(2, 3, 4));
  Key(key::kDown, shift::kCtrl);
  EXPECT_THAT(Selected(), ElementsAre(5));
}

TEST_F(ListBoxTest, EnterIsADoubleClick) {
  Fill(1);
  Key(key::kEnter);
  EXPECT_THAT(events, ElementsAre("DbClick"));
}

TEST_F(ListBoxTest, ALetterFindsTheFirstRowThatBeginsWithIt) {
  for (const char* text : {"alpha", "Beta", "bravo", "Éclair"}) list.AddItem(text);
  list.Refresh();
  list.OnKeyPress('B');
  EXPECT_EQ(list.ListIndex(), 1);
  list.OnKeyPress('b');
  EXPECT_EQ(list.ListIndex(), 1) << "never the next of the same letter";
  list.OnKeyPress(U'é');
  EXPECT_EQ(list.ListIndex(), 3);
  events.clear();
  list.OnKeyPress('x');
  EXPECT_EQ(list.ListIndex(), 3);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(ListBoxTest, TheSpaceBarAndDigitsFindRowsLikeLetters) {
  for (const char* text : {"alpha", "2 rivers", " indented"}) list.AddItem(text);
  list.Refresh();
  list.OnKeyPress(' ');
  EXPECT_EQ(list.ListIndex(), 2);
  list.OnKeyPress('2');
  EXPECT_EQ(list.ListIndex(), 1);
  list.OnKeyPress(1);  // Ctrl+A
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(ListBoxTest, KeysDoNothingInAnEmptyList) {
  for (const int key : {key::kDown, key::kUp, key::kHome, key::kEnd, key::kPageDown}) Key(key);
  list.OnKeyPress('a');
  EXPECT_THAT(events, IsEmpty());
}

// ---- scrolling ----

TEST_F(ListBoxTest, TheBarCountsTheRowsThatDoNotFit) {
  Fill(3);
  EXPECT_EQ(list.VerticalScrollBar(), (ScrollBarState{true, false, 0, 0, 5}));
  Fill(9);
  EXPECT_EQ(list.VerticalScrollBar(), (ScrollBarState{true, false, 0, 7, 5}));
  list.FlatScrollBar = true;
  EXPECT_TRUE(list.VerticalScrollBar().flat);
}

TEST_F(ListBoxTest, ABarThatHidesItselfIsThereOnlyWhenNeeded) {
  list.AutoHideScrollBars = true;
  Fill(5);
  EXPECT_FALSE(list.VerticalScrollBar().visible);
  Fill(1);
  EXPECT_TRUE(list.VerticalScrollBar().visible);
}

TEST_F(ListBoxTest, AWheelAtTheTopStaysAtTheTop) {
  Fill(10);
  EXPECT_TRUE(list.OnWheel(1, 0));
  EXPECT_EQ(list.VerticalScrollBar().position, 0);
  list.OnWheel(-2, 0);
  EXPECT_EQ(list.VerticalScrollBar().position, 2);
  list.OnWheel(-100, 0);
  EXPECT_EQ(list.VerticalScrollBar().position, 5);
  list.OnWheel(1, shift::kCtrl);
  EXPECT_EQ(list.VerticalScrollBar().position, 5);
}

TEST_F(ListBoxTest, TheBarMovesTheRows) {
  Fill(10);
  list.OnScroll(4);
  EXPECT_THAT(Painted("Text")[0], testing::HasSubstr("'row 4'"));
  list.OnScroll(99);
  EXPECT_EQ(list.VerticalScrollBar().position, 5);
}

TEST_F(ListBoxTest, APressCountsFromTheFirstRowShown) {
  Fill(10);
  list.OnScroll(4);
  Click(2);
  EXPECT_EQ(list.ListIndex(), 6);
}

TEST_F(ListBoxTest, AShorterListScrollsBack) {
  Fill(10);
  list.OnScroll(5);
  for (int rows = 0; rows < 4; ++rows) list.Remove(0);
  EXPECT_EQ(list.VerticalScrollBar(), (ScrollBarState{true, false, 1, 1, 5}));
}

// ---- the pop-up ----

class ListPopupTest : public ListBoxTest {
 protected:
  ListPopupTest() {
    list.AddItem("short");
    list.AddItem(std::string(60, 'x'));
    list.AddItem(std::string(2000, 'x'));
    list.Refresh();
  }
  void Hover(int row) { list.OnMouseMove(0, 0, 50, MiddleOf(row)); }
  [[nodiscard]] const HeadlessPopup* Popup() { return desktop.windowing().PopupOf(list); }
};

TEST_F(ListPopupTest, ARowThatIsTooLongShowsItsWholeText) {
  Hover(1);
  ASSERT_TRUE(Popup());
  // The control's edge is 2 pixels wide.
  EXPECT_EQ(Popup()->area.left, 2 + 2);
  EXPECT_EQ(Popup()->area.top, 2 + 22);
  EXPECT_EQ(Popup()->area.height(), 22);
  EXPECT_GT(Popup()->area.width(), 200);
  RasterCanvas surface({Popup()->area.width(), Popup()->area.height()});
  Popup()->paint(surface);
  EXPECT_THAT(surface.calls().back(), testing::HasSubstr("'" + std::string(60, 'x') + "'"));
}

TEST_F(ListPopupTest, ARowThatFitsHasNone) {
  Hover(1);
  Hover(0);
  EXPECT_FALSE(Popup());
}

TEST_F(ListPopupTest, ATextWiderThanTheScreenIsWrapped) {
  Hover(2);
  ASSERT_TRUE(Popup());
  EXPECT_LE(Popup()->area.width(), 1024);
  EXPECT_GT(Popup()->area.height(), 5 * 22);
}

TEST_F(ListPopupTest, ThePopUpGoesAwayOnWheelAndOnLeaving) {
  Hover(1);
  list.OnWheel(-1, 0);
  EXPECT_FALSE(Popup());
  Hover(1);
  ASSERT_TRUE(Popup());
  list.OnMouseLeave();
  EXPECT_FALSE(Popup());
  EXPECT_THAT(events, ElementsAre("MouseEnter", "MouseLeave"));
}

TEST_F(ListPopupTest, ATextThatJustFitsBesideTheListStaysOnOneLine) {
  const int room = 1024 - 2;  // from the list's edge to the screen's
  std::string text;
  while (platform().windowing().MeasureText(text + "y", list.Font, 96).width <= room) text += "y";
  ASSERT_GT(platform().windowing().MeasureText(text, list.Font, 96).width, room - 10);
  list.AddItem(text);
  list.AddItem(text + "y");
  list.Refresh();
  Hover(3);
  ASSERT_TRUE(Popup());
  EXPECT_EQ(Popup()->area.height(), 22);
  EXPECT_EQ(Popup()->area.left, 0) << "the box moves in from the screen's edge";
  EXPECT_LE(Popup()->area.right - 5, 1024) << "the whole text is on the screen";
  Hover(4);
  EXPECT_EQ(Popup()->area.height(), 2 * 22);
}

TEST_F(ListPopupTest, ItsTextStandsTwoPixelsAboveTheMiddle) {
  Hover(1);
  RasterCanvas surface({Popup()->area.width(), Popup()->area.height()});
  Popup()->paint(surface);
  EXPECT_THAT(surface.calls().back(), testing::HasSubstr("Text 5,0,")) << "and 5 from the left";
  EXPECT_THAT(surface.calls().back(), testing::HasSubstr(",18 ")) << "centred in 18 of the 22 pixels";
}

TEST_F(ListPopupTest, ItFollowsTheMouseInADragToo) {
  Press(0);
  DragTo(1);
  EXPECT_TRUE(Popup());
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(ListPopupTest, ItGoesAwayWhenTheRowsMoveUnderIt) {
  Fill(10);
  Hover(1);
  ASSERT_TRUE(Popup());
  Key(key::kEnd);
  EXPECT_FALSE(Popup());
  Key(key::kHome);
  Hover(1);
  ASSERT_TRUE(Popup());
  list.Remove(0);
  EXPECT_FALSE(Popup());
}

TEST_F(ListPopupTest, ItGoesAwayWithTheFocus) {
  list.OnFocus(true);
  Hover(1);
  ASSERT_TRUE(Popup());
  list.OnFocus(false);
  EXPECT_FALSE(Popup());
}

TEST_F(ListPopupTest, ARowWhoseFlagIsNoneIsShownToo) {
  list.AddItem(std::string(60, 'x') + "<%S%>0<%S%>no flag");
  list.Refresh();
  Hover(3);
  EXPECT_TRUE(Popup());
}

TEST_F(ListPopupTest, BelowTheRowsItStaysAsItIs) {
  Hover(1);
  Hover(4);
  EXPECT_TRUE(Popup());
}

TEST_F(ListPopupTest, TheMouseEntersOnceUntilItLeaves) {
  Hover(0);
  Hover(1);
  list.OnMouseLeave();
  Hover(0);
  EXPECT_THAT(events, ElementsAre("MouseEnter", "MouseLeave", "MouseEnter"));
}

}  // namespace
}  // namespace kestrun
