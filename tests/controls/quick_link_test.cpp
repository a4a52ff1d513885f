#include "controls/quick_link/quick_link.h"

#include "controls/quick_link/help_picture.h"
#include "forms/form.h"
#include "script/script_engine.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmlinks final : public Form {
 public:
  frmlinks() : Form("frmlinks") {}

  QuickLink& QuickLinks = Add<QuickLink>("QuickLinks");
};

class QuickLinkTest : public HeadlessTest {
 protected:
  void AddThree() {
    links.AddLink("pack1", "Play a new map");
    links.AddLink("pack2", "Change map when hosting");
    links.AddLink("autohost", "Auto change the maps");
  }
  static bool IsHighlighted(const Label& label) { return label.Font->bold && label.Font->underline; }
  static bool IsPlain(const Label& label) { return !label.Font->bold && !label.Font->underline; }
  // What the screen does when the user moves the mouse over a control.
  static void MoveOver(Control& control) { control.MouseMove(0, 0, 30, 45); }
  static FontDescription Bold() {
    FontDescription font;
    font.name = "Verdana";
    font.bold = true;
    return font;
  }

  Ref<frmlinks> form = MakeRef<frmlinks>();
  QuickLink& links = form->QuickLinks;
  Control& panel = links;
};

TEST_F(QuickLinkTest, ANewPanelHasNoLinksAndItsFirstLabelReadsLinkOne) {
  EXPECT_EQ(links.LinkCount(), 0);
  EXPECT_EQ(links.LblLink(0).Caption.get(), "Link 1");
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(links.LblLink(1)); }), error::kSubscriptOutOfRange);
  links.AddLink("upload", "Upload maps");
  EXPECT_EQ(links.LinkCount(), 1);
  EXPECT_EQ(links.LblLink(0).Caption.get(), "Upload maps");
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(links.LblLink(1)); }), error::kSubscriptOutOfRange);
}

TEST_F(QuickLinkTest, ANewPanelShowsItsStoredCaptions) {
  EXPECT_EQ(links.Label1.Caption.get(), "What do you want to do?");
  EXPECT_EQ(links.LblClose.Caption.get(), "Close");
  EXPECT_EQ(links.ChShow.Caption.get(), "Show at startup");
  EXPECT_EQ(&links.CloseLabel(), &links.LblClose);
  EXPECT_EQ(&links.ChStartup(), &links.ChShow);
}

TEST_F(QuickLinkTest, ANewPanelHasTheDefaultsThatAreNotStored) {
  EXPECT_EQ(links.BackColor, 0x8000000FU);
  EXPECT_EQ(links.ForeColor, 0x80000012U);
  EXPECT_TRUE(links.Enabled);
  EXPECT_EQ(links.BackStyle, 1);
  EXPECT_EQ(links.BorderStyle, 0);
  EXPECT_EQ(links.NormalFont.get(), form->Font.get());
  EXPECT_EQ(links.LinkFont.get(), form->Font.get());
  EXPECT_FALSE(links.MouseLinkIcon.get());
  EXPECT_EQ(links.FontColor, 0x80000012U);
  EXPECT_EQ(links.LinkFontColor, 0x80000012U);
  PropertyBag bag;
  links.WriteProperties(bag);
  EXPECT_EQ(bag.Count(), 0U);
}

TEST_F(QuickLinkTest, AThirdLinkStandsBelowTheSecondAndShowAtStartupBelowTheThird) {
  AddThree();
  for (const int index : {1, 2}) {
    const Label& above = links.LblLink(index - 1);
    const Label& below = links.LblLink(index);
    EXPECT_EQ(below.Top, above.Top + above.Height + 10) << index;
    EXPECT_EQ(below.Left, above.Left);
    EXPECT_EQ(below.Width, above.Width);
    EXPECT_TRUE(below.Visible);
  }
  EXPECT_EQ(links.ChShow.Top, links.LblLink(2).Top + links.LblLink(2).Height + 10);
  EXPECT_EQ(links.LblLink(2).Caption.get(), "Auto change the maps");
  EXPECT_EQ(links.LinkCount(), 3);
}

TEST_F(QuickLinkTest, TheFirstLinkMovesShowAtStartupBelowItself) {
  links.ChShow.Top = 0;
  links.AddLink("pack1", "Play");
  EXPECT_EQ(links.ChShow.Top, links.LblLink(0).Top + links.LblLink(0).Height + 10);
}

TEST_F(QuickLinkTest, TheFirstLinkTakesTheLinkFontAndALaterOneThatOfTheLinkAbove) {
  const Ref<Picture> hand = HelpPicture();
  links.LinkFont = Bold();
  links.MouseLinkIcon = hand;
  links.LblLink(0).Font = FontDescription{};
  links.LblLink(0).MouseIcon = Ref<Picture>();
  links.AddLink("pack1", "Play");
  EXPECT_EQ(links.LblLink(0).Font.get(), Bold());
  EXPECT_EQ(links.LblLink(0).MouseIcon.get(), hand);
  FontDescription large;
  large.size_points = 20;
  links.LblLink(0).Font = large;
  links.AddLink("pack2", "Change");
  EXPECT_EQ(links.LblLink(1).Font.get(), large);
  EXPECT_EQ(links.LblLink(1).MouseIcon.get(), hand);
}

TEST_F(QuickLinkTest, AClickOnALinkTellsItsKeyAndIndex) {
  AddThree();
  std::string clicked;
  links.LinkClick = [&](const std::string& key, int index) { clicked += key + std::to_string(index) + " "; };
  links.LblLink(2).Click();
  links.LblLink(0).Click();
  EXPECT_EQ(clicked, "autohost2 pack10 ");
}

TEST_F(QuickLinkTest, AClickBeforeAnyLinkWasAddedTellsNothing) {
  links.LinkClick = [](const std::string&, int) { ADD_FAILURE(); };
  links.LblLink(0).Click();
}

TEST_F(QuickLinkTest, ALinksHandlerMayAddLinks) {
  links.AddLink("first", "First");
  std::string key_after;
  links.LinkClick = [&](const std::string& key, int) {
    for (int more = 0; more < 20; ++more) links.AddLink("more", "More");
    key_after = key;
  };
  links.LblLink(0).Click();
  EXPECT_EQ(key_after, "first");
  EXPECT_EQ(links.LinkCount(), 21);
}

TEST_F(QuickLinkTest, CloseAndShowAtStartupHaveEventsOfTheirOwn) {
  std::string events;
  links.LblCloseClick = [&] { events += "close "; };
  links.ChStartupClick = [&] { events += "startup "; };
  links.Click = [&] { events += "panel "; };
  links.LblClose.Click();
  links.ChShow.Click();
  EXPECT_EQ(events, "close startup ");
}

TEST_F(QuickLinkTest, ThePanelsOwnMouseEventsArePassedOn) {
  std::string events;
  const auto note = [&events](const char* name) {
    return [&events, name](int button, int shift_state, int x, int y) {
      events += std::string(name) + std::to_string(button) + std::to_string(shift_state) + std::to_string(x) +
                std::to_string(y) + " ";
    };
  };
  links.Click = [&] { events += "click "; };
  links.DblClick = [&] { events += "double "; };
  links.MouseDown = note("down");
  links.MouseMove = note("move");
  links.MouseUp = note("up");
  panel.Click();
  panel.DblClick();
  panel.MouseDown(1, 2, 3, 4);
  panel.MouseMove(2, 3, 4, 5);
  panel.MouseUp(3, 4, 5, 6);
  EXPECT_EQ(events, "click double down1234 move2345 up3456 ");
}

TEST_F(QuickLinkTest, TheMouseMakesOneLinkBoldAndUnderlined) {
  AddThree();
  MoveOver(links.LblLink(0));
  EXPECT_TRUE(IsHighlighted(links.LblLink(0)));
  MoveOver(links.LblLink(2));
  EXPECT_TRUE(IsPlain(links.LblLink(0)));
  EXPECT_TRUE(IsPlain(links.LblLink(1)));
  EXPECT_TRUE(IsHighlighted(links.LblLink(2)));
}

TEST_F(QuickLinkTest, TheMouseOverThePanelTakesTheMarkFromAllLinks) {
  AddThree();
  int moves = 0;
  links.MouseMove = [&](int, int, int, int) { ++moves; };
  MoveOver(links.LblLink(1));
  EXPECT_EQ(moves, 0);
  MoveOver(panel);
  EXPECT_TRUE(IsPlain(links.LblLink(1)));
  EXPECT_EQ(moves, 1);
}

TEST_F(QuickLinkTest, ALinkFontKeepsItsOtherPartsUnderTheMouse) {
  FontDescription font{"Verdana", 14, false, true, false, false};
  links.LinkFont = font;
  links.AddLink("pack1", "Play");
  MoveOver(links.LblLink(0));
  font.bold = font.underline = true;
  EXPECT_EQ(links.LblLink(0).Font.get(), font);
}

TEST_F(QuickLinkTest, ResizingWidensTheLinksAndMovesClose) {
  AddThree();
  links.Width = 5000;
  for (const int index : {0, 1, 2}) EXPECT_EQ(links.LblLink(index).Width, 5000 - links.LblLink(index).Left - 200);
  EXPECT_EQ(links.LblClose.Left, 4800);
}

TEST_F(QuickLinkTest, ThePanelIsFullyOpenOnceItIsHigherThanWhatStandsInIt) {
  AddThree();
  const int needed = links.ChShow.Top + links.ChShow.Height + 150;
  links.Height = needed;
  EXPECT_FALSE(links.IsFullyOpen());
  links.Height = needed + 1;
  EXPECT_TRUE(links.IsFullyOpen());
  links.AddLink("editor", "Make a new map");
  EXPECT_TRUE(links.IsFullyOpen());
  links.Height = needed + 2;
  EXPECT_FALSE(links.IsFullyOpen());
}

TEST_F(QuickLinkTest, AClickOnThePictureOpensTheHelpBesideTheProgram) {
  links.Image1.Click();
  const std::vector<ShellOpening> expected{{"open", ProgramPath("kestrun.chm"), "", "", 1}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

TEST_F(QuickLinkTest, AClickOnThePictureOpensTheHelpThatTheOwnerNames) {
  links.help_file = ProgramPath("other.pdf");
  links.Image1.Click();
  EXPECT_EQ(desktop.shell().openings.at(0).file, ProgramPath("other.pdf"));
}

TEST_F(QuickLinkTest, TheHelpPictureIsAMarkOnADiscWithOpenCorners) {
  const Ref<Picture> picture = HelpPicture();
  const auto at = [&](int x, int y) { return picture->pixels()[static_cast<size_t>(y * 64 + x)]; };
  EXPECT_EQ(picture->width_pixels(), 64);
  EXPECT_EQ(at(0, 0) >> 24, 0U);
  EXPECT_EQ(at(10, 32), 0xFF2C6E8FU);
  EXPECT_EQ(at(32, 14), 0xFFFFFFFFU);  // top of the bow
  EXPECT_EQ(at(32, 51), 0xFFFFFFFFU);  // the dot
  EXPECT_EQ(links.Image1.Picture.get()->pixels(), picture->pixels());
}

TEST_F(QuickLinkTest, FontsAndColoursGoToTheirLabels) {
  AddThree();
  links.NormalFont = Bold();
  links.FontColor = 0x112233;
  links.LinkFontColor = 0x445566;
  links.ForeColor = 0x778899;
  EXPECT_EQ(links.Label1.Font.get(), Bold());
  EXPECT_EQ(links.ChShow.Font.get(), Bold());
  EXPECT_EQ(links.Label1.ForeColor, 0x112233U);
  EXPECT_EQ(links.ChShow.ForeColor, 0x112233U);
  EXPECT_EQ(links.LblClose.ForeColor, 0x778899U);
  for (const int index : {0, 1, 2}) EXPECT_EQ(links.LblLink(index).ForeColor, 0x445566U);
  EXPECT_EQ(links.LblLink(1).Font.get(), FontDescription{});
  links.AddLink("editor", "Make a new map");
  EXPECT_EQ(links.LblLink(3).ForeColor, 0x445566U);
}

TEST_F(QuickLinkTest, StoredPropertiesComeBackWithoutMarks) {
  const Ref<Picture> hand = HelpPicture();
  FontDescription small;
  small.size_points = 7;
  links.BackColor = 0x101010;
  links.ForeColor = 0x202020;
  links.Enabled = false;
  links.BackStyle = 0;
  links.BorderStyle = 1;
  links.NormalFont = Bold();
  links.LinkFont = small;
  links.MouseLinkIcon = hand;
  links.FontColor = 0x303030;
  links.LinkFontColor = 0x404040;
  links.Font = small;
  PropertyBag bag;
  links.WriteProperties(bag);
  for (const char* name : {"BackColor", "ForeColor", "Enabled", "BackStyle", "BorderStyle", "NormalFont", "LinkFont",
                           "MouseLinkIcon", "FontColor", "LinkFontColor", "Font"}) {
    EXPECT_TRUE(bag.Holds(name)) << name;
  }
  EXPECT_EQ(bag.Count(), 11U);

  QuickLink& copy = form->Add<QuickLink>("Copy");
  copy.PropertyChangedMark = [](std::string_view name) { ADD_FAILURE() << name; };
  copy.ReadProperties(bag);
  EXPECT_EQ(copy.BackColor, 0x101010U);
  EXPECT_EQ(copy.ForeColor, 0x202020U);
  EXPECT_FALSE(copy.Enabled);
  EXPECT_EQ(copy.BackStyle, 0);
  EXPECT_EQ(copy.BorderStyle, 1);
  EXPECT_EQ(copy.Label1.Font.get(), Bold());
  EXPECT_EQ(copy.LblLink(0).Font.get(), small);
  EXPECT_EQ(copy.LblLink(0).MouseIcon.get(), hand);
  EXPECT_EQ(copy.FontColor, 0x303030U);
  EXPECT_EQ(copy.LinkFontColor, 0x404040U);
  EXPECT_EQ(copy.Font.get(), small);
}

TEST_F(QuickLinkTest, EachLetMarksItsProperty) {
  std::string marks;
  links.PropertyChangedMark = [&](std::string_view name) { marks += std::string(name) + " "; };
  links.BackColor = 1U;
  links.ForeColor = 2U;
  links.Enabled = false;
  links.BackStyle = 0;
  links.BorderStyle = 1;
  links.NormalFont = Bold();
  links.LinkFont = Bold();
  links.MouseLinkIcon = Ref<Picture>();
  links.FontColor = 3U;
  links.LinkFontColor = 4U;
  EXPECT_EQ(marks,
            "BackColor ForeColor Enabled BackStyle BorderStyle NormalFont LinkFont MouseLinkIcon FontColor "
            "LinkFontColor ");
}

TEST_F(QuickLinkTest, MembersStandInOrder) {
  std::vector<std::string> names;
  for (const Member& row : links.Members().own) names.emplace_back(row.name);
  const std::vector<std::string> expected{"BackColor",  "ForeColor",  "Enabled",       "BackStyle", "BorderStyle",
                                          "NormalFont", "LinkFont",   "MouseLinkIcon", "FontColor", "LinkFontColor",
                                          "AddLink",    "CloseLabel", "ChStartup",     "LinkCount"};
  EXPECT_EQ(names, expected);
  int fore_colors = 0;
  for (const MemberInfo& member : links.ListMembers()) fore_colors += member.name == "ForeColor" ? 1 : 0;
  EXPECT_EQ(fore_colors, 1);
}

TEST_F(QuickLinkTest, TheLabelsAreThePanelsOwnAndNotTheForms) {
  AddThree();
  EXPECT_EQ(form->controls().size(), 1U);
  EXPECT_EQ(form->FindControl("LblLink", 2), nullptr);
  EXPECT_EQ(form->FindMember("LblClose"), kNoMember);
}

TEST_F(QuickLinkTest, ALinkThatIsAddedToAShownPanelReachesTheScreen) {
  form->Show();
  desktop.windowing().record_calls = true;
  links.AddLink("pack1", "Play");
  links.AddLink("pack2", "Change");
  int control_changes = 0;
  for (const PeerCall& call : desktop.windowing().calls) {
    control_changes += call.kind == PeerCall::Kind::kControlsChanged ? 1 : 0;
  }
  EXPECT_EQ(control_changes, 1);
}

TEST_F(QuickLinkTest, ALabelThatAScriptKeepsGoesDeadWithItsForm) {
  const Variant close = GetMember(links, "CloseLabel");
  form->EnsureLoaded();
  form->Unload();
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*close.object(), "Caption", "x"); }), error::kObjectRequired);
}

TEST_F(QuickLinkTest, TheKeyboardGoesFromTheFirstLinkToCloseWhileThePanelIsSeen) {
  form->Show();
  AddThree();
  const auto stops = [&] {
    std::string names;
    for (const Control* stop : form->TabOrder()) names += stop->Name() + std::to_string(stop->Index()) + " ";
    return names;
  };
  EXPECT_EQ(stops(), "LblLink0 LblLink1 LblLink2 ChShow-1 LblClose-1 ");
  links.Visible = false;
  EXPECT_EQ(stops(), "");
}

TEST_F(QuickLinkTest, AScriptDressesThePanelAndAddsLinks) {
  const auto engine = MakeScriptEngine();
  engine->SetLanguage("VBScript");
  engine->AddObject("Window", form);
  ASSERT_TRUE(
      engine->AddCode("With Window.QuickLinks\n"
                      "  .AddLink \"news\", \"Read the news\"\n  .CloseLabel.Caption = \"X\"\n"
                      "  .ChStartup.Visible = False\n  .LinkFont.Size = 11\n  .NormalFont.Italic = True\n"
                      "  Set .NormalFont = .LinkFont\n  .LinkFontColor = &HFF\nEnd With\n"
                      "Function Count()\n  Count = Window.QuickLinks.LinkCount\nEnd Function"))
      << engine->Error().Description;
  EXPECT_EQ(ToLong(engine->Run("Count", {})), 1);
  EXPECT_EQ(links.LblLink(0).Caption.get(), "Read the news");
  EXPECT_EQ(links.LblClose.Caption.get(), "X");
  EXPECT_FALSE(links.ChShow.Visible);
  EXPECT_EQ(links.LblLink(0).Font->size_points, 11);
  EXPECT_EQ(links.Label1.Font->size_points, 11);
  EXPECT_FALSE(links.Label1.Font->italic);
  EXPECT_EQ(links.LblLink(0).ForeColor, 0xFFU);
}

}  // namespace
}  // namespace kestrun
