// What becomes of links, the hostile ones first of all.
#include "program/link_guard.h"

#include <gtest/gtest.h>

#include "program/frame_fixture.h"

namespace kestrun {
namespace {

class LinkGuardTest : public FrameTest {};

constexpr std::string_view kFollow = "";
constexpr std::string_view kFile = "It would open a file.";
constexpr std::string_view kStyle = "It would load a style file, whose scripts then run.";
constexpr std::string_view kSecond = "It holds more than one command.";
constexpr std::string_view kAbroad = "It leads to another computer's files.";
constexpr std::string_view kNested = "It holds another link.";
constexpr std::string_view kHidden = "It holds characters that cannot be shown.";

struct Row {
  const char* link;  // behind the first prefix
  LinkVerdict verdict;
  std::string_view why;
};

TEST_F(LinkGuardTest, EachLinkIsJudgedByWhatItWouldDo) {
  constexpr auto kAsks = LinkVerdict::kAsk;
  constexpr auto kRefuses = LinkVerdict::kRefuse;
  constexpr auto kFollows = LinkVerdict::kFollow;
  for (const Row& row : {
           // What opens a window or a web address.
           Row{"", kFollows, kFollow},
           Row{"\"\"", kFollows, kFollow},
           Row{"-options", kFollows, kFollow},
           Row{"\"-options\"", kFollows, kFollow},
           Row{"-UPDATE", kFollows, kFollow},
           Row{"\"http://maps.example/a%20b.bms\"", kFollows, kFollow},
           Row{"HTTPS://maps.example/oasis.zip", kFollows, kFollow},
           // What does more.
           Row{"C:\\maps\\oasis.bms", kAsks, kFile},
           Row{"\"C:\\maps\\night.lst\"", kAsks, kFile},
           Row{"C:\\dark.stl", kAsks, kStyle},
           Row{"-x.stl", kAsks, kStyle},
           Row{"-STYLE e.stl", kAsks, kStyle},
           Row{"\"-\\..\\..\\Public\\e.STL\"", kAsks, kStyle},
           Row{"-x.lst", kAsks, kFile},
           Row{"ftp://maps.example/oasis.bms", kAsks, kFile},
           Row{"file:///C:/maps/oasis.bms", kAsks, kFile},
           Row{"-mapinfo C:\\maps\\oasis.bms", kAsks, kFile},
           Row{"-moreplayers", kFollows, kFollow},
           Row{"-style C:\\dark.stl", kAsks, "It would load a style file, whose scripts then run."},
           Row{"-edit C:\\dark.stl", kAsks, "It would open a file in the style editor."},
           Row{"-pack \"C:\\game\\dflw.pff\" \"D08M03.BMS\" \"C:\\a.bms\"", kAsks,
               "It would put a file into an archive."},
           Row{"-pack \"a.pff\" \"b\" \"c.zip\"/z", kAsks, "It would put a file into an archive."},
           Row{"-restore \"C:\\game\\dflw.pff\"", kAsks, "It would bring back files of the game."},
           Row{"-checkstyle a.stl", kAsks, "It would run the scripts of a style file."},
           // What hides something.
           Row{"http://a.example/x.bms\" -pack \"a.pff\" \"b\" \"c\"", kRefuses, kSecond},
           Row{"\"-options\" -pack \"a.pff\" \"b\" \"c\"", kRefuses, kSecond},
           Row{"-pack \"a.pff\" \"b\" \"c\" -update", kRefuses, kSecond},
           Row{"-pack \"a.pff\" \"b\" \"c\" \"d\"", kRefuses, kSecond},
           Row{"-pack %22a.pff%22 %22b%22 %22c%22", kRefuses, kSecond},
           Row{"C:\\a.bms%22 -update", kRefuses, kSecond},
           Row{"C:\\a.bms%2522 -update", kRefuses, kSecond},
           Row{"\\\\host\\share\\a.bms", kRefuses, kAbroad},
           Row{"\"//host/share/a.bms\"", kRefuses, kAbroad},
           Row{"%5C%5Chost\\share\\a.bms", kRefuses, kAbroad},
           Row{"%255C%255Chost\\share\\a.bms", kRefuses, kAbroad},
           Row{"\\/host/a.bms", kRefuses, kAbroad},
           Row{"file://host/share/a.bms", kRefuses, kAbroad},
           Row{"file:////host/share/a.bms", kRefuses, kAbroad},
           Row{"-style \\\\host\\a.stl", kRefuses, kAbroad},
           Row{"-mapinfo \\\\host\\a.bms", kRefuses, kAbroad},
           Row{"-style\\\\host\\e.stl", kRefuses, kAbroad},
           Row{"-style//host/e.stl", kRefuses, kAbroad},
           Row{"-mapinfo=\\\\host\\a.bms", kRefuses, kAbroad},
           Row{"\\??\\UNC\\host\\a.bms", kRefuses, kAbroad},
           Row{"C://host/a.bms", kRefuses, kAbroad},
           Row{"FILE:\\\\host\\a.bms", kRefuses, kAbroad},
           Row{"C:\\a\xE2\x80\xAEsmb.bms", kRefuses, kHidden},
           Row{"-pack \"a.pff\" \"b\" \"\\\\host\\c.bms\"", kRefuses, kAbroad},
           Row{"kestrun://-options", kRefuses, kNested},
           Row{"KESTRUN://-options", kRefuses, kNested},
           Row{"kestrun%3A//-options", kRefuses, kNested},
           Row{"http://a.example/?q=kestrun%253a%252F%252Fx", kRefuses, kNested},
           Row{"C:\\a.bms%0D%0A-update", kRefuses, kHidden},
           Row{"http://a.example/%00", kRefuses, kHidden},
           Row{"C:\\a\tb.bms", kRefuses, kHidden},
       }) {
    SCOPED_TRACE(row.link);
    const LinkJudgement judgement = JudgeLink(row.link);
    EXPECT_EQ(judgement.verdict, row.verdict);
    EXPECT_EQ(judgement.why, row.why);
  }
}

TEST_F(LinkGuardTest, ALinkOfAHundredKilobytesIsRefusedAndNotShownWhole) {
  const std::string link = "C:\\" + std::string(100'000, 'a');
  desktop.dialogs()
      .ExpectBox("This link was not followed:\r\n\r\n" + link.substr(0, 300) + " ...\r\n\r\nIt is too long for a link.")
      .WithIcon(BoxIcon::kWarning);
  EXPECT_FALSE(MayFollowLink(link));
}

TEST_F(LinkGuardTest, WhatCannotBeShownWholeIsNotAskedAbout) {
  const std::string link = "C:\\" + std::string(300, 'a') + ".bms";
  EXPECT_EQ(JudgeLink(link).verdict, LinkVerdict::kRefuse);
  EXPECT_EQ(JudgeLink(link).why, "It is too long to be shown whole.");
  EXPECT_EQ(JudgeLink("http://a.example/" + std::string(300, 'a')).verdict, LinkVerdict::kFollow);
}

TEST_F(LinkGuardTest, TheQuestionShowsTheDecodedTextAndNoIsItsDefault) {
  desktop.dialogs()
      .ExpectBox(
          "A link wants Kestrun to do this:\r\n\r\nC:\\my maps\\a.bms\r\n\r\nIt would open a file. Anybody can "
          "write a link. Do you want to follow this one?",
          BoxAnswer::kNo)
      .WithButtons(BoxButtons::kYesNo)
      .WithDefaultButton(2)
      .WithIcon(BoxIcon::kWarning);
  EXPECT_FALSE(MayFollowLink("\"C:\\my%20maps\\a.bms\""));
}

TEST_F(LinkGuardTest, OnlyARawCommandLineWithThePrefixIsALink) {
  EXPECT_TRUE(IsLink("\"kestrun://-options\""));
  EXPECT_TRUE(IsLink("KESTRUN://x"));
  EXPECT_FALSE(IsLink("a kestrun://b"));
  EXPECT_FALSE(IsLink("kestrun%3A//x"));
  EXPECT_FALSE(IsLink("C:\\kestrun\\a.bms"));
  EXPECT_FALSE(IsLink(""));
}

}  // namespace
}  // namespace kestrun
