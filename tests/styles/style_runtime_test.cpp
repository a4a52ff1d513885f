// A style at work on windows: which subs are called with what, in which order, and what becomes of errors.
#include <map>

#include "styles/style_fixture.h"

namespace kestrun {
namespace {

class StyleRuntimeTest : public StyleTest {};

TEST_F(StyleRuntimeTest, FormLoadComesFirstThenEachControlWithItsForm) {
  ModStyle::LoadStyleFile(
      MakeScriptStyle("Sub Form_Load(Form) : Form.Caption = \"form \" & Form.Name : End Sub\r\n"
                      "Sub Control_Load(Control, Form)\r\n"
                      "Form.Caption = Form.Caption & \", \" & Control.Name\r\nEnd Sub"));
  EXPECT_EQ(CaptionAfterStyle(), "form frmsmall, lblone, tmrtwo, mnu_three");
}

TEST_F(StyleRuntimeTest, ScriptsFindTheFiveObjectsByName) {
  WearScript(
      "Form.Caption = TypeName(System) & \" \" & TypeName(Screen) & \" \" & TypeName(App) & \" \" & "
      "TypeName(Clipboard) & \" \" & TypeName(PFF) & \" \" & PFF.PFFTotalFiles");
  EXPECT_EQ(CaptionAfterStyle(), "ClsSystem Screen App Clipboard ClsPFF 2");
}

TEST_F(StyleRuntimeTest, ScriptsMayRaiseTheirOwnDialogues) {
  WearScript("MsgBox \"Hello from the skin\"");
  desktop.dialogs().ExpectBox("Hello from the skin");
  ModStyle::FormLoadStyle(*form);
}

TEST_F(StyleRuntimeTest, AWindowIsSkinnedAgainEachTimeThatItLoads) {
  WearScript("Form.Caption = Form.Caption & \"x\"");
  ModStyle::FormLoadStyle(*form);
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(form->Caption.get(), "xx");
}

TEST_F(StyleRuntimeTest, AnErrorInASubIsToldWithAnEmptyFileNameAndTheOtherControlsFollow) {
  ModStyle::LoadStyleFile(
      MakeScriptStyle("Sub Form_Load(Form)\r\n  x = 1 / 0\r\nEnd Sub\r\n"
                      "Sub Control_Load(Control, Form)\r\nControl.Tag = \"seen\"\r\nEnd Sub"));
  ExpectScriptError(ScriptErrorText("", 2, 3, 11, "Division by zero", "  x = 1 / 0"));
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(form->lblone.Tag.get(), "seen");
  EXPECT_EQ(form->mnu_three.Tag.get(), "seen");
  EXPECT_TRUE(StyleActive());
}

TEST_F(StyleRuntimeTest, CancelSwitchesTheStyleOffAndTheRestOfTheWindowStillRuns) {
  ModStyle::LoadStyleFile(
      MakeScriptStyle("Sub Form_Load(Form)\r\nx = 1 / 0\r\nEnd Sub\r\n"
                      "Sub Control_Load(Control, Form)\r\nControl.Tag = \"seen\"\r\nEnd Sub"));
  ExpectScriptError(ScriptErrorText("", 2, 1, 11, "Division by zero", "x = 1 / 0"), BoxAnswer::kCancel);
  ModStyle::FormLoadStyle(*form);
  EXPECT_EQ(form->mnu_three.Tag.get(), "seen");
  EXPECT_FALSE(StyleActive());
  EXPECT_TRUE(ModStyle::CurrentStyle());
}

TEST_F(StyleRuntimeTest, AStyleWithoutControlLoadIsToldOncePerControl) {
  ModStyle::LoadStyleFile(MakeScriptStyle("Sub Form_Load(Form) : End Sub"));
  for (size_t at = 0; at < form->controls().size(); ++at) {
    ExpectScriptError(ScriptErrorText("", 0, 0, 13, "Type mismatch: 'Control_Load'", ""));
  }
  ModStyle::FormLoadStyle(*form);
}

TEST_F(StyleRuntimeTest, ControlsThatAScriptAddsAreNotHandedOverInThatRound) {
  ModStyle::LoadStyleFile(
      MakeScriptStyle("Sub Form_Load(Form) : End Sub\r\n"
                      "Sub Control_Load(Control, Form)\r\nForm.Caption = Form.Caption & \"+\"\r\n"
                      "If Control.Name = \"lblone\" Then Form.Controls.Add \"VB.Label\", \"lblnew\"\r\nEnd Sub"));
  EXPECT_EQ(CaptionAfterStyle(), "+++");
  EXPECT_TRUE(form->FindControl("lblnew"));
}

TEST_F(StyleRuntimeTest, AScriptMayCloseTheWindowThatItSkins) {
  WearScript("Form.Hide");
  form->Show();
  ModStyle::FormLoadStyle(*form);
  EXPECT_FALSE(form->IsShown());
}

// ---- the windows ---------------------------------------------------------------------------------------------------

// When the style reaches each window, in milliseconds behind its showing: 0 for one that applies it while it loads.
class StyleRoutesTest : public StyleTest {
 protected:
  StyleRoutesTest() {
    TellGameFolder();
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nDFVERSION=0\r\n");
    InstallStyleRuntime(
        {[] { return true; },
         {},
         [this](Form& window) { applied[window.Name()].push_back(desktop.clock().NowMs() - shown_ms); }});
  }
  ~StyleRoutesTest() override { ModStyle::Install(); }

  std::vector<uint64_t> MomentsOf(const std::string& name) {
    CloseAllWindows();
    applied.clear();
    shown_ms = desktop.clock().NowMs();
    WindowByName(name).Show();
    // All styles are on by then, and no window has begun its own work.
    desktop.clock().AdvanceMs(900);
    return applied[name];
  }

  std::map<std::string, std::vector<uint64_t>> applied;
  uint64_t shown_ms = 0;
};

TEST_F(StyleRoutesTest, EachWindowAppliesTheStyleOnceByItsRoute) {
  const std::map<std::string, uint64_t> routes{
      {"frmain", 0},       {"frmhelp", 0},       {"frmputlist", 0},     {"frmchat", 0},           {"frmname", 0},
      {"frmzip", 0},       {"frmdwnlhelp", 0},   {"FrmUpdate", 0},      {"FrmCenter", 0},         {"frmLargeprev", 100},
      {"frmoptions", 20},  {"frmopenmap", 55},   {"frmaddmessage", 50}, {"frmaddprogram", 50},    {"Frmdfversion", 50},
      {"frmmapupd", 50},   {"frmpicture", 50},   {"FrmOverWrite", 50},  {"FrmpictureSelect", 50}, {"FrmAddinMngr", 100},
      {"frmmapinfo", 200}, {"FrmGameType", 500}, {"frmrestore", 200}};
  for (const std::string& name : RegisteredWindows()) {
    const auto row = routes.find(name);
    if (row == routes.end()) continue;
    EXPECT_EQ(MomentsOf(name), std::vector<uint64_t>{row->second}) << name;
  }
}

TEST_F(StyleRoutesTest, TheEditorNeverAppliesAStyle) {
  for (const std::string name : {"FrmEdit", "FrmEditCheck", "FrmEditSelectFile"}) {
    if (!IsWindowRegistered(name)) continue;
    EXPECT_TRUE(MomentsOf(name).empty()) << name;
  }
}

// Writes down each call that it gets on the clipboard, which scripts can reach.
constexpr const char* kGoldenModule =
    "Sub Note(text) : Clipboard.SetText Clipboard.GetText() & text & vbLf : End Sub\r\n"
    "Sub Form_Load(Form) : Note \"Form_Load \" & Form.Name : End Sub\r\n"
    "Sub Control_Load(Control, Form)\r\n"
    "  index = -1\r\n"
    "  On Error Resume Next\r\n"
    "  index = Control.Index\r\n"
    "  On Error GoTo 0\r\n"
    "  Note \"Control_Load \" & Form.Name & \".\" & Control.Name & \" \" & index\r\n"
    "End Sub";

class GoldenStyleTest : public StyleTest {
 protected:
  GoldenStyleTest() {
    TellGameFolder();
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nDFVERSION=0\r\n");
    ModStyle::LoadStyleFile(MakeScriptStyle(kGoldenModule));
  }

  [[nodiscard]] static std::string CallsFor(const Form& window) {
    std::string calls = "Form_Load " + window.Name() + "\n";
    for (const Ref<Control>& control : window.controls()) {
      calls += "Control_Load " + window.Name() + "." + control->Name() + " " + std::to_string(control->Index()) + "\n";
    }
    return calls;
  }
};

TEST_F(GoldenStyleTest, GetsEachWindowOnceAndEachOfItsControlsInTheFormsOrder) {
  int windows = 0;
  for (const std::string& name : RegisteredWindows()) {
    if (name == "frmsplash" || name.starts_with("FrmEdit")) continue;
    CloseAllWindows();
    desktop.clipboard().text.clear();
    Form& window = WindowByName(name);
    const std::string expected = CallsFor(window);
    window.Show();
    desktop.clock().AdvanceMs(900);
    EXPECT_EQ(desktop.clipboard().text, expected) << name;
    ++windows;
  }
  EXPECT_GE(windows, 10);
}

TEST_F(GoldenStyleTest, TheMainWindowHandsOverAllItsMenusTimersAndLabels) {
  Form& window = WindowByName("frmain");
  const std::string calls = desktop.clipboard().text;
  EXPECT_EQ(calls, CallsFor(window));
  for (const char* line : {"frmain.mnu_line 14\n", "frmain.TmrQuickLinks -1\n", "frmain.lblfolder -1\n"}) {
    EXPECT_NE(calls.find(line), std::string::npos) << line;
  }
}

}  // namespace
}  // namespace kestrun
