// Style files and their manifest: which files make a style, which lines of assembly.txt count, and what is said of
// those that do not.
#include "styles/style_fixture.h"

namespace kestrun {
namespace {

class StyleFileTest : public StyleTest {
 protected:
  const ClsStyle& Current() { return *ModStyle::CurrentStyle(); }
  void LoadManifest(const std::string& manifest) { ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", manifest}})); }
};

TEST_F(StyleFileTest, AMissingFileIsToldAndChangesNothing) {
  desktop.dialogs().ExpectBox("unable to load " + Path("none.stl"));
  ModStyle::LoadStyleFile(Path("none.stl"));
  EXPECT_FALSE(ModStyle::CurrentStyle());
  EXPECT_FALSE(StyleActive());
}

TEST_F(StyleFileTest, AMissingFileLeavesTheCurrentStyle) {
  LoadManifest("designer fox");
  const ClsStyle* before = ModStyle::CurrentStyle().get();
  desktop.dialogs().ExpectBox("unable to load " + Path("none.stl"));
  ModStyle::LoadStyleFile(Path("none.stl"));
  EXPECT_EQ(ModStyle::CurrentStyle().get(), before);
  EXPECT_TRUE(StyleActive());
}

TEST_F(StyleFileTest, AFileThatIsNoArchiveIsToldAndTheStyleStaysInactive) {
  WriteFile(Path("broken.stl"), "no archive");
  desktop.dialogs().ExpectBox("Unable to open " + Path("broken.stl"));
  ModStyle::LoadStyleFile(Path("broken.stl"));
  EXPECT_TRUE(ModStyle::CurrentStyle());
  EXPECT_FALSE(StyleActive());
}

TEST_F(StyleFileTest, ABrokenFileAfterAGoodOneLeavesAnEmptyStyleThatIsStillActive) {
  WearScript("Form.Caption = \"skinned\"");
  EXPECT_EQ(CaptionAfterStyle(), "skinned");
  WriteFile(Path("broken.stl"), "no archive");
  desktop.dialogs().ExpectBox("Unable to open " + Path("broken.stl"));
  ModStyle::LoadStyleFile(Path("broken.stl"));
  EXPECT_TRUE(StyleActive());
  EXPECT_EQ(CaptionAfterStyle(), "");
}

TEST_F(StyleFileTest, WithoutAManifestTheUserIsWarnedAndTheStyleIsActiveWithoutCode) {
  desktop.dialogs().ExpectBox("Warning assembly.txt file not found");
  ModStyle::LoadStyleFile(MakeStyle({{"main.vbs", "Sub Form_Load(Form) : Form.Caption = \"x\" : End Sub"}}));
  EXPECT_TRUE(StyleActive());
  EXPECT_EQ(CaptionAfterStyle(), "");
}

TEST_F(StyleFileTest, AnEmptyManifestEndsTheLoadWithoutAWord) {
  LoadManifest("");
  EXPECT_TRUE(ModStyle::CurrentStyle());
  EXPECT_FALSE(StyleActive());
}

TEST_F(StyleFileTest, AManifestOfOneZeroByteIsAStyleWithoutCode) {
  LoadManifest(std::string(1, '\0'));
  EXPECT_TRUE(StyleActive());
}

TEST_F(StyleFileTest, AManifestOfCommentsAloneIsAValidStyleWithoutCode) {
  LoadManifest("//options\r\n\r\n//nothing here");
  EXPECT_TRUE(StyleActive());
  EXPECT_EQ(CaptionAfterStyle(), "");
  EXPECT_EQ(Current().designer, "");
}

TEST_F(StyleFileTest, TheManifestIsFoundInAnyCaseAndItsLinesAreReadInSmallLetters) {
  ModStyle::LoadStyleFile(MakeStyle({{"Assembly.TXT",
                                      "DESIGNER Desert Fox\r\nSiteLink HTTP://Skins.Example\r\nLANGUAGE VBScript\r\n"
                                      "VERSION 1.9.2B\r\nINCLUDE MAIN.VBS"},
                                     {"main.vbs",
                                      "Sub Form_Load(Form) : Form.Caption = \"Kept As Written\" : End Sub\r\n"
                                      "Sub Control_Load(Control, Form) : End Sub"}}));
  EXPECT_EQ(Current().designer, "desert fox");
  EXPECT_EQ(Current().sitelink, "http://skins.example");
  EXPECT_EQ(Current().version, "1.9.2b");
  EXPECT_EQ(CaptionAfterStyle(), "Kept As Written");
}

TEST_F(StyleFileTest, TheIdentityReachesTheWindowsWhileTheStyleIsActive) {
  LoadManifest("designer fox\r\nsitelink skins.example\r\nversion 1.9.2");
  EXPECT_EQ(CurrentStyleIdentity().designer, "fox");
  EXPECT_EQ(CurrentStyleIdentity().site, "skins.example");
  EXPECT_EQ(CurrentStyleIdentity().version, "1.9.2");
  SetStyleActive(false);
  EXPECT_EQ(CurrentStyleIdentity().designer, "");
}

TEST_F(StyleFileTest, AWordWithoutABlankBehindItIsNoDirective) {
  LoadManifest("designer first\r\ndesigner\r\nincludemain.vbs\r\nversion");
  EXPECT_EQ(Current().designer, "first");
  EXPECT_EQ(Current().version, "");
}

TEST_F(StyleFileTest, AWordWithOneBlankAloneHasAnEmptyValue) {
  LoadManifest("designer first\r\ndesigner ");
  EXPECT_EQ(Current().designer, "");
}

TEST_F(StyleFileTest, ALineThatBeginsWithABlankOrATabIsPassedOver) {
  LoadManifest(" designer blank\r\n\tdesigner tab");
  EXPECT_EQ(Current().designer, "");
}

TEST_F(StyleFileTest, BlanksAroundAnIncludedNameDoNoHarmAndAreKeptInOtherValues) {
  ModStyle::LoadStyleFile(
      MakeStyle({{"assembly.txt", "language VBScript\r\ninclude   main.vbs  \r\nversion  2\r\ndesigner fox "},
                 {"main.vbs",
                  "Sub Form_Load(Form) : Form.Caption = \"x\" : End Sub\r\n"
                  "Sub Control_Load(Control, Form) : End Sub"}}));
  EXPECT_EQ(Current().version, " 2");
  EXPECT_EQ(Current().designer, "fox ");
  EXPECT_EQ(CaptionAfterStyle(), "x");
}

TEST_F(StyleFileTest, ALaterLineOverwritesAnEarlierOne) {
  LoadManifest("version 1\r\nversion 2\r\ndesigner a\r\ndesigner b");
  EXPECT_EQ(Current().version, "2");
  EXPECT_EQ(Current().designer, "b");
}

TEST_F(StyleFileTest, BareLineFeedsMakeOneLineOfWhichTheFirstWordCounts) {
  LoadManifest("designer fox\nversion 3");
  EXPECT_EQ(Current().designer, "fox\nversion 3");
  EXPECT_EQ(Current().version, "");
}

TEST_F(StyleFileTest, TextIsReadByTheCodePage) {
  LoadManifest("designer J\xFCrgen");
  EXPECT_EQ(Current().designer, "jürgen");
}

TEST_F(StyleFileTest, AMissingModuleIsToldAndTheNextLineIsRead) {
  ExpectScriptError(ScriptErrorText("N/A", 0, 0, 0, "Including the file lost.vbs failed!", ""));
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", "language VBScript\r\ninclude lost.vbs\r\ndesigner fox"}}));
  EXPECT_EQ(Current().designer, "fox");
  EXPECT_TRUE(StyleActive());
}

TEST_F(StyleFileTest, AModuleOfNoBytesIsPassedOverWithoutAWord) {
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", "language VBScript\r\ninclude empty.vbs"}, {"empty.vbs", ""}}));
  EXPECT_TRUE(StyleActive());
}

TEST_F(StyleFileTest, CancelWhileModulesAreAddedHasNoLastingEffect) {
  ExpectScriptError(ScriptErrorText("N/A", 0, 0, 0, "Including the file lost.vbs failed!", ""), BoxAnswer::kCancel);
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", "include lost.vbs"}}));
  EXPECT_TRUE(StyleActive());
}

TEST_F(StyleFileTest, AnErrorBehindTheLoadedArchiveIsToldAndTheStyleGoesOn) {
  const Ref<ClsStyle> style = MakeRef<ClsStyle>(&MakeHostingEngine, [](ClsPFF& archive, const std::string& file) {
    EXPECT_TRUE(archive.LoadPff(file));
    Raise(error::kDeviceIo);
    return true;
  });
  desktop.dialogs().ExpectBox("Error loading PFF");
  style->InitStyle(
      MakeScriptStyle("Sub Form_Load(Form)\r\nForm.Caption = \"on\"\r\nEnd Sub\r\n"
                      "Sub Control_Load(Control, Form)\r\nEnd Sub"));
  EXPECT_TRUE(StyleActive());
  style->FormLoad(*form);
  EXPECT_EQ(form->Caption.get(), "on");
}

TEST_F(StyleFileTest, ASyntaxErrorIsToldWithItsModuleAndPlace) {
  ExpectScriptError(ScriptErrorText("main.vbs", 2, 10, 1023, "Expected expression", "  x = 1 +"));
  ModStyle::LoadStyleFile(MakeScriptStyle("y = 1\r\n  x = 1 +\r\n"));
}

TEST_F(StyleFileTest, WithoutALanguageEachIncludeIsToldThroughTheDialogue) {
  const std::string text =
      ScriptErrorText("main.vbs", 0, 0, 429, "A script engine for the specified language can not be created.", "");
  ExpectScriptError(text);
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", "include main.vbs"}, {"main.vbs", "x = 1"}}));
  EXPECT_EQ(CaptionAfterStyle(), "");
}

TEST_F(StyleFileTest, TheLanguageCountsForTheModulesBehindItOnly) {
  const std::string text =
      ScriptErrorText("main.vbs", 0, 0, 429, "A script engine for the specified language can not be created.", "");
  ExpectScriptError(text);
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", "include main.vbs\r\nlanguage VBScript\r\ninclude two.vbs"},
                                     {"main.vbs", "x = 1"},
                                     {"two.vbs",
                                      "Sub Form_Load(Form) : Form.Caption = \"two\" : End Sub\r\n"
                                      "Sub Control_Load(Control, Form) : End Sub"}}));
  EXPECT_EQ(CaptionAfterStyle(), "two");
}

TEST_F(StyleFileTest, TwoLinesForOneModuleAddItsCodeTwice) {
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt",
                                      "language VBScript\r\ninclude n.vbs\r\ninclude n.vbs\r\n"
                                      "include main.vbs"},
                                     {"n.vbs", "n = n + 1"},
                                     {"main.vbs",
                                      "Sub Form_Load(Form) : Form.Caption = n : End Sub\r\n"
                                      "Sub Control_Load(Control, Form) : End Sub"}}));
  EXPECT_EQ(CaptionAfterStyle(), "2");
}

TEST_F(StyleFileTest, AllModulesShareOneSpaceOfNames) {
  ModStyle::LoadStyleFile(MakeStyle({{"assembly.txt", "language VBScript\r\ninclude a.vbs\r\ninclude b.vbs"},
                                     {"a.vbs", "Sub Form_Load(Form) : Form.Caption = Greeting() : End Sub"},
                                     {"b.vbs",
                                      "Function Greeting : Greeting = \"from b\" : End Function\r\n"
                                      "Sub Control_Load(Control, Form) : End Sub"}}));
  EXPECT_EQ(CaptionAfterStyle(), "from b");
}

TEST_F(StyleFileTest, CodeOutsideOfSubsRunsBeforeTheObjectsAreThere) {
  ExpectScriptError(ScriptErrorText("main.vbs", 1, 1, 424, "Object required", "System.DrawIt"));
  ModStyle::LoadStyleFile(MakeScriptStyle("System.DrawIt"));
}

TEST_F(StyleFileTest, ALaterLoadTakesThePlaceOfTheStyle) {
  WearScript("Form.Caption = \"one\"");
  const Ref<ClsStyle> first = ModStyle::CurrentStyle();
  WearScript("Form.Caption = \"two\"");
  EXPECT_NE(ModStyle::CurrentStyle(), first);
  EXPECT_EQ(first->references(), 1U);
  EXPECT_EQ(CaptionAfterStyle(), "two");
}

}  // namespace
}  // namespace kestrun
