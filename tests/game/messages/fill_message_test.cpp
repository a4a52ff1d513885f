#include "game/messages/fill_message.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

const MessageFacts kFacts{"Harbour", "Desert", "4:05", "21:07"};

TEST(FillMessageTest, EachWordGivesWayToItsFact) {
  EXPECT_EQ(FillMessage("Now %map%, in %left% %next%. It is %time%.", kFacts),
            "Now Harbour, in 4:05 Desert. It is 21:07.");
}

TEST(FillMessageTest, TheCaseOfAWordDoesNotMatter) { EXPECT_EQ(FillMessage("%MAP% %Next%", kFacts), "Harbour Desert"); }

TEST(FillMessageTest, WhatIsNotKnownIsAQuestionMark) { EXPECT_EQ(FillMessage("%map% %next% %left%", {}), "? ? ?"); }

TEST(FillMessageTest, EveryOtherTextStaysAsItIs) {
  for (const char* text : {"", "100 %", "%maps%", "% map %", "%%", "%map", "map%", "\xC3\xA9%"}) {
    EXPECT_EQ(FillMessage(text, kFacts), text);
  }
}

TEST(FillMessageTest, AMapThatIsCalledLikeAWordIsNotFilledInAgain) {
  EXPECT_EQ(FillMessage("%map%!", {"%next%", "Desert", "", ""}), "%next%!");
}

TEST(FillMessageTest, AWordBehindAPercentSignIsFound) { EXPECT_EQ(FillMessage("%%map%%", kFacts), "%Harbour%"); }

}  // namespace
}  // namespace kestrun
