// What screen readers are told of the rows of a list.
#include "desktop/win32/window/row_notes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RowNotesTest : public testing::Test {
 protected:
  // What was told since the last call, as "row: note".
  [[nodiscard]] std::vector<std::string> Told() { return std::exchange(told_, {}); }

  RowNotes notes{[this](int row, const std::string& note) { told_.push_back(std::to_string(row) + ": " + note); }};

 private:
  std::vector<std::string> told_;
};

TEST_F(RowNotesTest, ANoteIsToldOnce) {
  EXPECT_TRUE(notes.Note(2, "bad"));
  notes.Tell(-1, "plays now");
  EXPECT_THAT(Told(), ElementsAre("2: bad"));
  EXPECT_FALSE(notes.Note(2, "bad"));
  notes.Tell(-1, "plays now");
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(RowNotesTest, TheMarkStandsInFrontOfTheBadge) {
  EXPECT_TRUE(notes.Note(1, "good"));
  notes.Tell(1, "plays now");
  EXPECT_THAT(Told(), ElementsAre("1: plays now, good"));
  notes.Tell(4, "plays now");
  EXPECT_THAT(Told(), ElementsAre("1: good", "4: plays now"));
  notes.Tell(-1, "plays now");
  EXPECT_THAT(Told(), ElementsAre("4: "));
}

TEST_F(RowNotesTest, RowsOutOfSightAreTakenBackWhenWhatTheySayMayHaveChanged) {
  for (int row = 0; row < 6; ++row) notes.Note(row, "good");
  notes.Tell(-1, "");
  EXPECT_EQ(Told().size(), 6U);
  EXPECT_TRUE(notes.ForgetOutside(2, 3));
  notes.Note(2, "doubtful");
  notes.Tell(-1, "");
  EXPECT_THAT(Told(), ElementsAre("2: doubtful", "0: ", "1: ", "4: ", "5: "));
  EXPECT_FALSE(notes.ForgetOutside(2, 3));
}

TEST_F(RowNotesTest, WhatTheReadersKnowOfOtherRowsIsNotToldAgain) {
  notes.Note(0, "good");
  notes.Tell(-1, "");
  EXPECT_EQ(Told().size(), 1U);
  notes.Forget();
  EXPECT_TRUE(notes.Note(0, "good"));
  notes.Tell(-1, "");
  EXPECT_THAT(Told(), IsEmpty());
  notes.Forget();
  notes.Tell(-1, "");
  EXPECT_THAT(Told(), ElementsAre("0: "));
}

}  // namespace
}  // namespace kestrun
