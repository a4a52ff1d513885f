// The style editor: its tree, its code window, its panels.
#include "base/code_page.h"
#include "base/convert.h"
#include "forms/keys.h"
#include "styles/mod_style.h"
#include "styles/style_active.h"
#include "support/error_number.h"
#include "support/recorded_effects.h"
#include "windows/previews/frmlargeprev.h"
#include "windows/style_editor/editor_fixture.h"

namespace kestrun {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class FrmEditTest : public EditorTest {
 protected:
  ~FrmEditTest() override { ModStyle::Forget(); }
};

// ---- the tree ------------------------------------------------------------------------------------------------------

TEST_F(FrmEditTest, ANewProjectShowsItsManifestAlone) {
  editor().mnu_new.Click();
  EXPECT_THAT(Nodes(editor().TreeView),
              ElementsAre("PFF: New project.stl", "TEXT: Text files", "VBS: Modules", "PICTUREFOLDER: Images",
                          "SOUNDFOLDER: Sounds", "RES: Resources", "TEXT0: assembly.txt"));
  EXPECT_TRUE(editor().TreeView.FindNode("PFF")->Expanded());
  EXPECT_EQ(editor().project().WorkingFile(), ProgramPath("~$newstyle.stl"));
  EXPECT_EQ(editor().project().File(), "");
}

TEST_F(FrmEditTest, TheManifestOfANewProjectIsOneNulUntilItIsReplaced) {
  editor().LoadStyle("");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(ProgramPath("~$newstyle.stl")), ElementsAre(Pair("assembly.txt", std::string(1, '\0'))));
}

TEST_F(FrmEditTest, EntriesStandInTheFolderOfTheirExtensionInTheArchivesOrder) {
  const std::string path = MakeStyle("all.stl", {{"z.JPG", "1"},
                                                 {"b.vbs", "2"},
                                                 {"a.js", "3"},
                                                 {"assembly.txt", "4"},
                                                 {"noise.wav", "5"},
                                                 {"README", "6"},
                                                 {"what.xyz", "7"},
                                                 {"icon.ico", "8"}});
  editor().LoadStyle(path);
  EXPECT_THAT(
      Nodes(editor().TreeView),
      ElementsAre("PFF: all.stl", "TEXT: Text files", "VBS: Modules", "PICTUREFOLDER: Images", "SOUNDFOLDER: Sounds",
                  "RES: Resources", "0IMAGE: z.JPG", "1MOD: b.vbs", "2MOD: a.js", "3TEXT: assembly.txt",
                  "4SOUND: noise.wav", "5FILE: README", "6FILE: what.xyz", "7IMAGE: icon.ico"));
  const auto image = [&](const char* key) { return ToText(editor().TreeView.FindNode(key)->Image()); };
  EXPECT_EQ(image("PFF"), "1");
  EXPECT_EQ(image("VBS"), "4");
  EXPECT_EQ(image("3TEXT"), "1");
  EXPECT_EQ(image("1MOD"), "mod");
  EXPECT_EQ(image("0IMAGE"), "2");
  EXPECT_EQ(image("4SOUND"), "3");
  EXPECT_EQ(image("5FILE"), "5");
  EXPECT_EQ(editor().TreeView.FindNode("1MOD")->Parent()->Key(), "VBS");
}

TEST_F(FrmEditTest, AFileThatIsNotThereShowsTheManifestWithNothingBehindIt) {
  editor().LoadStyle(Path("nobody.stl"));
  EXPECT_THAT(Nodes(editor().TreeView), Contains("TEXT0: assembly.txt"));
  dialogs().ExpectBox("Error: Auto backup style script 1031\r\nNo pff file loaded.");
  OpenEntry("assembly.txt");
  EXPECT_EQ(editor().TxtCode.Tag.get(), "");
}

TEST_F(FrmEditTest, AnArchiveThatCannotBeReadClearsTheTreeWithoutAWord) {
  WriteFile(Path("broken.stl"), "this is no archive at all");
  editor().LoadStyle(Path("broken.stl"));
  EXPECT_THAT(Nodes(editor().TreeView), IsEmpty());
}

TEST_F(FrmEditTest, TheListIsReadAgainWithItsFoldersAsTheyWere) {
  OpenSample();
  editor().TreeView.FindNode("VBS")->SetExpanded(true);
  editor().TreeView.FindNode("PFF")->SetText("a name of its own");
  editor().DeleteNumber(0);
  editor().mnu_refresh.Click();
  EXPECT_THAT(EntryTexts(), ElementsAre("main.vbs"));
  EXPECT_TRUE(editor().TreeView.FindNode("VBS")->Expanded());
  EXPECT_FALSE(editor().TreeView.FindNode("TEXT")->Expanded());
  EXPECT_EQ(editor().TreeView.FindNode("PFF")->Text(), "a name of its own");
}

TEST_F(FrmEditTest, AnEmptyTreeIsReadAgainUnderTheWorkingCopysName) {
  OpenSample();
  editor().TreeView.Clear();
  editor().RefreshList();
  EXPECT_EQ(editor().TreeView.FindNode("PFF")->Text(), "~$night.stl");
}

// ---- the code window -----------------------------------------------------------------------------------------------

TEST_F(FrmEditTest, ADoubleClickOnAModuleOpensItsText) {
  OpenSample();
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "old code");
  EXPECT_EQ(editor().Label3.Caption.get(), "Code Window main.vbs");
}

TEST_F(FrmEditTest, FillingTheBoxWithAnotherTextMarksItAsChanged) {
  OpenSample();
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Tag.get(), "main.vbs");
  editor().SaveStyleScript();
  EXPECT_EQ(editor().TxtCode.Tag.get(), Padded("main.vbs"));
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Tag.get(), Padded("main.vbs")) << "the same text is no change";
}

TEST_F(FrmEditTest, TypingMarksTheEntryAsChangedAndAFlushWritesItIntoTheWorkingCopyOnly) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  editor().SaveStyleScript();
  Type("new code");
  EXPECT_EQ(editor().TxtCode.Tag.get(), "main.vbs");
  editor().SaveStyleScript();
  EXPECT_EQ(editor().TxtCode.Tag.get(), Padded("main.vbs"));
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "new code")));
  EXPECT_THAT(ContentOf(path), Contains(Pair("main.vbs", "old code")));
}

TEST_F(FrmEditTest, OpeningAnotherEntryWritesTheFirstOne) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("new code");
  OpenEntry("assembly.txt");
  EXPECT_EQ(editor().TxtCode.Text.get(), "include main.vbs");
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "new code")));
}

TEST_F(FrmEditTest, AnEmptyTextIsStoredAsOneBlank) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("");
  editor().SaveStyleScript();
  EXPECT_EQ(editor().TxtCode.Text.get(), " ");
  // The entry keeps its place, and its length is that of the new text.
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", " ")));
}

TEST_F(FrmEditTest, ANulManifestIsWrittenBackUnchanged) {
  editor().LoadStyle("");
  OpenEntry("assembly.txt");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(ProgramPath("~$newstyle.stl")), ElementsAre(Pair("assembly.txt", std::string(1, '\0'))));
}

TEST_F(FrmEditTest, AnEntryWithMoreBehindAZeroIsShownAndCannotBeChanged) {
  const std::string wide("a\0b\0", 4);
  editor().LoadStyle(MakeStyle("wide.stl", {{"assembly.txt", "include main.vbs"}, {"main.vbs", wide}}));
  DoubleClick(editor().TreeView, "main.vbs");
  EXPECT_EQ(editor().Label3.Caption.get(), "Code Window main.vbs (no text: shown only)");
  EXPECT_TRUE(editor().TxtCode.Locked);
  EXPECT_EQ(editor().TxtCode.Tag.get(), "");
  DoubleClick(editor().TreeView, "assembly.txt");
  EXPECT_FALSE(editor().TxtCode.Locked);
  EXPECT_EQ(ContentOf(editor().project().WorkingFile()).back().second, wide);
}

TEST_F(FrmEditTest, ALongerTextIsAppendedAndTheProjectGrows) {
  const std::string path = MakeStyle("grow.stl", {{"assembly.txt", "short"}, {"main.vbs", "last entry"}});
  editor().LoadStyle(path);
  OpenEntry("assembly.txt");
  ClsPFF before;
  ASSERT_TRUE(before.LoadPff(WorkingCopy(path)));
  Type("a longer text than before");
  editor().SaveStyleScript();
  ClsPFF after;
  ASSERT_TRUE(after.LoadPff(WorkingCopy(path)));
  EXPECT_EQ(after.FileOffset(0), before.PFFTableOffset());
  EXPECT_EQ(after.PFFTableOffset(), before.PFFTableOffset() + 25);
  EXPECT_EQ(after.PFFTotalFiles(), 2);
}

TEST_F(FrmEditTest, ALongerTextOfTheLastEntryGrowsInItsPlace) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  ClsPFF before;
  ASSERT_TRUE(before.LoadPff(WorkingCopy(path)));
  Type("new and longer code");
  editor().SaveStyleScript();
  ClsPFF after;
  ASSERT_TRUE(after.LoadPff(WorkingCopy(path)));
  EXPECT_EQ(after.FileOffset("main.vbs"), before.FileOffset("main.vbs"));
  EXPECT_EQ(after.PFFTableOffset(), before.PFFTableOffset() + 11);
}

TEST_F(FrmEditTest, TextOutsideTheCodePageSaysSoAndKeepsWhatWasThere) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("'地図");
  const std::string warning =
      "The text of 'main.vbs' was not stored: a style has no character for '地'. Take it out and save again. The style "
      "still holds the text that was there before.";
  dialogs().ExpectBox(warning).WithIcon(BoxIcon::kWarning);
  editor().SaveStyleScript();
  EXPECT_EQ(editor().TxtCode.Text.get(), "'地図");
  EXPECT_EQ(editor().TxtCode.Tag.get(), "main.vbs");
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "old code")));
  dialogs().ExpectBox(warning);
  OpenEntry("assembly.txt");
  EXPECT_EQ(editor().TxtCode.Text.get(), "'地図") << "another entry would take its place";
  dialogs().ExpectBox(warning);
  editor().mnu_save.Click();
  EXPECT_THAT(ContentOf(path), Contains(Pair("main.vbs", "old code")));
}

TEST_F(FrmEditTest, LettersOfTheCodePageComeBackAsTheyWere) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("' Größe é €");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", EncodeText("' Größe é €"))));
  OpenEntry("assembly.txt");
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "' Größe é €");
}

TEST_F(FrmEditTest, WithoutAnOpenEntryNothingCanBeTyped) {
  EXPECT_TRUE(editor().TxtCode.Locked);
  OpenSample();
  EXPECT_TRUE(editor().TxtCode.Locked);
  DoubleClick(editor().TreeView, "main.vbs");
  EXPECT_FALSE(editor().TxtCode.Locked);
  editor().LoadStyle("");
  EXPECT_TRUE(editor().TxtCode.Locked);
}

// Writing lets events run.
TEST_F(FrmEditTest, AProjectThatIsOpenedWhileTheTextIsWrittenWaits) {
  const std::string path = OpenSample();
  DoubleClick(editor().TreeView, "main.vbs");
  Type("new code");
  desktop.clock().Post([] { editor().LoadStyle(""); });
  editor().SaveStyleScript();
  EXPECT_EQ(editor().project().File(), path);
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "new code")));
}

TEST_F(FrmEditTest, TheTabKeyInsertsFourBlanksAndIsSwallowed) {
  OpenSample();
  OpenEntry("main.vbs");
  editor().TxtCode.SelStart = 3;
  int code = key::kTab;
  editor().TxtCode.KeyDown(code, 0);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(editor().TxtCode.Text.get(), "old     code");
  EXPECT_EQ(editor().TxtCode.SelStart, 7);
  code = key::kTab;
  editor().TxtCode.KeyDown(code, shift::kShift);
  EXPECT_EQ(code, key::kTab) << "the way back to the other panes";
}

TEST_F(FrmEditTest, F6GoesFromPaneToPane) {
  editor().Show();
  editor().TreeView.SetFocus();
  std::vector<std::string> panes;
  for (int step = 0; step < 3; ++step) {
    int code = key::kF6;
    editor().KeyDown(code, 0);
    panes.push_back(editor().ActiveControl()->Name());
  }
  EXPECT_THAT(panes, ElementsAre("LstDebug", "TxtCode", "TreeView"));
}

TEST_F(FrmEditTest, TwoEntriesWithEqualNamesOpenTheFirst) {
  const std::string path = MakeStyle("twins.stl", {{"a.txt", "first"}, {"b.txt", "other"}});
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(path));
  archive.SetFileName(1, "a.txt");
  archive.SavePffFile();
  editor().LoadStyle(path);
  editor().TreeView.Select(editor().TreeView.FindNode("1TEXT"));
  editor().TreeView.DblClick();
  EXPECT_EQ(editor().TxtCode.Text.get(), "first");
}

// ---- pictures, sounds, anything else -------------------------------------------------------------------------------

TEST_F(FrmEditTest, APictureThatCannotBeDecodedShowsAnEmptyPreview) {
  editor().LoadStyle(MakeStyle("pictures.stl", {{"broken.bmp", "no picture"}}));
  desktop.windowing().ExpectModal("frmLargeprev", [](Form& form) {
    EXPECT_FALSE(static_cast<frmLargeprev&>(form).Picture1.Picture.get());
    form.Unload();
  });
  OpenEntry("broken.bmp");
}

TEST_F(FrmEditTest, AnEntryThatIsNeitherTextNorPictureNorSoundOpensNothing) {
  editor().LoadStyle(MakeStyle("other.stl", {{"data.bin", "bytes"}}));
  OpenEntry("data.bin");
  OpenEntry("Resources");
  OpenEntry("other.stl");
  EXPECT_EQ(editor().TxtCode.Tag.get(), "");
}

TEST_F(FrmEditTest, ASoundThatIsNoneIsNotPlayed) {
  RecordedEffects effects;
  editor().LoadStyle(MakeStyle("sounds.stl", {{"noise.wav", "no sound"}}));
  OpenEntry("noise.wav");
  EXPECT_THAT(effects.started_sounds, IsEmpty());
}

TEST_F(FrmEditTest, ASoundIsPlayedAsItStandsInTheStyle) {
  const std::string wave(
      "RIFF\x26\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x8\0data\2\0\0\0\x80\x80", 46);
  RecordedEffects effects;
  editor().LoadStyle(MakeStyle("sounds.stl", {{"noise.wav", wave}}));
  OpenEntry("noise.wav");
  ASSERT_EQ(effects.started_sounds.size(), 1U);
  EXPECT_EQ(AsChars(effects.started_sounds.front()), wave);
}

// ---- lines that end in LF alone ------------------------------------------------------------------------------------

TEST_F(FrmEditTest, AModuleWithBareLineFeedsKeepsThemWhenItIsTypedInto) {
  const std::string path = MakeStyle("bare.stl", {{"main.vbs", "one\ntwo\nthree"}, {"last.txt", "end"}});
  editor().LoadStyle(path);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "one\r\ntwo\r\nthree");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "one\ntwo\nthree")));
  Type("one\r\ntwo\r\nmore\r\nthree");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "one\ntwo\nmore\nthree")));
}

TEST_F(FrmEditTest, TheTabKeyFindsItsPlaceBehindBareLineFeeds) {
  editor().LoadStyle(MakeStyle("bare.stl", {{"main.vbs", "one\ntwo\nthree"}}));
  OpenEntry("main.vbs");
  editor().TxtCode.SelStart = 10;  // in front of "three", as the box counts
  int key_code = key::kTab;
  editor().TxtCode.KeyDown(key_code, 0);
  EXPECT_EQ(editor().TxtCode.Text.get(), "one\r\ntwo\r\n    three");
}

TEST_F(FrmEditTest, AModuleWhoseLinesEndInSeveralWaysIsWrittenBackUnchangedUntilItIsTypedInto) {
  const std::string path = MakeStyle("mixed.stl", {{"main.vbs", "one\ntwo\r\nthree\rfour"}, {"last.txt", "end"}});
  editor().LoadStyle(path);
  OpenEntry("main.vbs");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "one\ntwo\r\nthree\rfour")));
  Type("one\r\ntwo");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "one\r\ntwo")));
}

// ---- the debug panel -----------------------------------------------------------------------------------------------

TEST_F(FrmEditTest, TheDebugPanelListsTheProgramsWindows) {
  EXPECT_THAT(
      Nodes(editor().LstDebug),
      ElementsAre("KESTRUN: Kestrun", "FORMSFOLDER: Forms", "FrmAddinMngr: frmAddinMngr",
                  "frmaddmessage: frmaddmessage", "frmaddprogram: frmaddprogram", "frmchat: frmchat", "frmain: frmain",
                  "Frmdfversion: frmdfversion", "frmhelp: frmhelp", "frmlargeprev: frmlargeprev",
                  "frmmapinfo: frmmapinfo", "frmmapupd: frmmapupd", "frmname: frmname", "frmopenmap: frmopenmap",
                  "frmoptions: frmoptions", "FrmOverWrite: FrmOverWrite", "frmpicture: frmpicture",
                  "frmputlist: frmputlist", "frmsplash: frmsplash", "FrmUpdate: frmUpdate", "frmzip: frmzip",
                  "frmcenter: frmCenter", "frmpictureselect: frmpictureSelect", "FrmGameType: FrmGameType"));
  EXPECT_EQ(ToText(editor().LstDebug.FindNode("KESTRUN")->Image()), "7");
  EXPECT_EQ(ToText(editor().LstDebug.FindNode("FORMSFOLDER")->Image()), "4");
  EXPECT_EQ(ToText(editor().LstDebug.FindNode("frmain")->Image()), "6");
}

TEST_F(FrmEditTest, ADoubleClickOnAWindowOpensItAndListsItsControls) {
  DoubleClick(editor().LstDebug, "frmaddprogram");
  ASSERT_TRUE(LoadedWindow("frmaddprogram"));
  EXPECT_TRUE(LoadedWindow("frmaddprogram")->IsShown());
  EXPECT_FALSE(LoadedWindow("frmaddprogram")->IsModal());
  const TreeNode* first = editor().LstDebug.FindNode("frmaddprogram")->Child();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->Text(), LoadedWindow("frmaddprogram")->controls().front()->Name());
  EXPECT_EQ(first->Key(), "frmaddprogram." + first->Text());
  EXPECT_EQ(ToText(first->Image()), "4");
}

TEST_F(FrmEditTest, AnElementOfAControlArrayIsListedWithItsIndex) {
  DoubleClick(editor().LstDebug, "FrmGameType");
  const Form& window = *LoadedWindow("FrmGameType");
  const auto& controls = window.controls();
  const auto element =
      std::find_if(controls.begin(), controls.end(), [](const auto& one) { return one->Index() >= 0; });
  ASSERT_NE(element, controls.end());
  const std::string text = (*element)->Name() + "[" + std::to_string((*element)->Index()) + "]";
  ASSERT_TRUE(editor().LstDebug.FindNode("FrmGameType." + text));
  EXPECT_EQ(editor().LstDebug.FindNode("FrmGameType." + text)->Text(), text);
}

TEST_F(FrmEditTest, ASecondDoubleClickAddsNothingNew) {
  DoubleClick(editor().LstDebug, "frmaddprogram");
  const size_t nodes = editor().LstDebug.nodes().size();
  DoubleClick(editor().LstDebug, "frmaddprogram");
  EXPECT_EQ(editor().LstDebug.nodes().size(), nodes);
}

TEST_F(FrmEditTest, TheAssistantIsATextThatOpensNothing) {
  editor().LstDebug.AddChild(nullptr, "X", "frmassistant");
  DoubleClick(editor().LstDebug, "frmassistant");
  EXPECT_EQ(editor().LstDebug.FindNode("X")->Children(), 0);
}

TEST_F(FrmEditTest, TheSplashWindowIsShownWithoutStartingTheProgramAgain) {
  editor().Show();
  desktop.program().command_line = "-edit nobody.stl";
  DoubleClick(editor().LstDebug, "frmsplash");
  ASSERT_TRUE(LoadedWindow("frmsplash"));
  EXPECT_TRUE(LoadedWindow("frmsplash")->IsShown());
  static_cast<Label&>(*LoadedWindow("frmsplash")->FindControl("Label2")).Click();
  EXPECT_FALSE(LoadedWindow("frmsplash"));
}

TEST_F(FrmEditTest, ATestRunMakesTheUnsavedProjectTheCurrentStyle) {
  ModStyle::Install();  // tests before this one may have taken it away
  const std::string path = MakeStyle(
      "try.stl", {{"assembly.txt", "designer one\r\nlanguage VBScript\r\ninclude main.vbs"}, {"main.vbs", "x = 1"}});
  editor().LoadStyle(path);
  OpenEntry("assembly.txt");
  Type("designer two\r\nlanguage VBScript\r\ninclude main.vbs");
  editor().mnu_load.Click();
  EXPECT_TRUE(IsStyleActive());
  EXPECT_EQ(ModStyle::CurrentStyle()->designer, "two");
  EXPECT_THAT(ContentOf(path), Contains(Pair("assembly.txt", testing::StartsWith("designer one"))));
}

// The style is worn before the editor is made, and another window takes it.
TEST_F(FrmEditTest, TheEditorTakesNoStyle) {
  ModStyle::Install();
  const Color before = editor().BackColor;
  CloseAllWindows();
  ModStyle::LoadStyleFile(MakeStyle("red.stl", {{"assembly.txt", "language VBScript\r\ninclude main.vbs"},
                                                {"main.vbs",
                                                 "sub Form_Load(Form)\r\nForm.BackColor = 255\r\nend sub\r\n"
                                                 "sub Control_Load(Control, Form)\r\nend sub"}}));
  ASSERT_TRUE(IsStyleActive());
  EXPECT_EQ(WindowByName("frmhelp").BackColor.get(), 255U);
  for (const char* name : {"FrmEdit", "FrmEditSelectFile", "FrmEditCheck"}) {
    Form& window = WindowByName(name);
    window.Show();
    desktop.clock().AdvanceMs(1000);
    EXPECT_EQ(window.BackColor.get(), before) << name;
  }
}

// ---- the tips ------------------------------------------------------------------------------------------------------

TEST_F(FrmEditTest, TheTipsTakeTheirRoomFromTheCodeWindow) {
  FrmEdit& window = editor();
  const auto bottom = [](const Control& control) { return control.Top + control.Height; };
  EXPECT_FALSE(window.txthelp.Visible);
  EXPECT_EQ(bottom(window.TxtCode), bottom(window.txthelp));
  window.mnu_showtips.Click();
  EXPECT_TRUE(window.txthelp.Visible);
  EXPECT_TRUE(window.LblHelp.Visible);
  EXPECT_EQ(bottom(window.TxtCode), window.LblHelp.Top.get());
  window.mnu_showtips.Click();
  EXPECT_FALSE(window.LblHelp.Visible);
  EXPECT_EQ(bottom(window.TxtCode), bottom(window.txthelp));
}

TEST_F(FrmEditTest, TheTipsShowAWholeProject) {
  const std::string text = editor().txthelp.Text;
  for (const char* line :
       {"Some default tips:\r\n",
        "All projects need an assembly.txt file this contains default information about designer, included code files",
        "Examole how assembly.txt should look:\r\n//options\r\n\r\ndesigner ", "language VBScript\r\nversion 1.9.2\r\n",
        "//includes include as many files as you want. here i included the code file (module) main.vbs\r\n\r\n"
        "include main.vbs\r\n",
        "How the main.vbs code file should look:\r\nsub Form_load (Form)\r\n"
        "'this sub will be run when a form loads Form is the entire form object\r\n",
        "sub Control_Load(Control, Form)\r\n'this sub will be run when a control on a form loads\r\n"
        "'control is the entire usercontrol, form the form object\r\n"}) {
    EXPECT_THAT(text, testing::HasSubstr(line));
  }
}

TEST_F(FrmEditTest, ItsNamesAndWordsAreThose) {
  FrmEdit& window = editor();
  EXPECT_EQ(window.Caption.get(), "Kestrun - Editor V1.1");
  EXPECT_EQ(window.TreeView.ToolTipText.get(),
            "Project Explorer: All code files, images, ... can be found here. Click a file to edit it, a image to view "
            "it, sound file to here it.");
  EXPECT_EQ(window.LstDebug.ToolTipText.get(),
            "Debug Panel: Dbl click a form to show it. First click 'Debug' => 'load style' to see the changes.");
  EXPECT_EQ(window.TxtCode.ToolTipText.get(), "The Code window: code files and text files can be edited here.");
  EXPECT_EQ(window.LblHelp.Caption.get(), "Help");
  EXPECT_EQ(window.mnu_addnew.Items().size(), 2u);
  EXPECT_EQ(window.mnu_addnew.Parent(), &window.mnu_add);
  EXPECT_EQ(window.mnu_delete.Caption.get(), "De&lete");
  window.LoadMenuIcons();
  EXPECT_TRUE(window.mnu_load.Picture.get());
}

TEST_F(FrmEditTest, WithoutAProjectItsCommandsEndQuietly) {
  FrmEdit& window = editor();
  for (MenuItem* item : {&window.mnu_save, &window.mnu_saveas, &window.mnu_refresh, &window.mnu_addimage,
                         &window.mnu_newMod, &window.mnu_deletefile, &window.mnu_load}) {
    EXPECT_FALSE(item->Enabled) << item->Name();
    item->Click();
  }
  OpenSample();
  EXPECT_TRUE(window.mnu_save.Enabled);
}

}  // namespace
}  // namespace kestrun
