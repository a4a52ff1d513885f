// Styles in the languages of the script engines that the machine has: JScript on real windows.
#include "desktop/win32/com/active_script.h"

#include "desktop/win32/window_fixture.h"
#include "formats/pff/cls_pff.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "script/hosting_engine.h"
#include "styles/check/style_check.h"
#include "styles/cls_style.h"

namespace kestrun {
namespace {

class frmscripted final : public Form {
 public:
  static constexpr const char* kName = "frmscripted";
  frmscripted() : Form(kName) {
    Caption = "plain";
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    SetClientSize(3000, 1500);
    Command1.Move(150, 150, 1500, 600);
    Command1.Caption = "Button";
    Check1.Move(150, 900, 1500, 300);
    Check1.Value = 1;
  }
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CheckBox& Check1 = Add<CheckBox>("Check1");
};

const WindowRegistration registration(frmscripted::kName, [] { return MakeRef<frmscripted>(); });

class ActiveScriptTest : public RealWindowTest {
 protected:
  ActiveScriptTest() {
    InstallForeignScripts(&OpenActiveScript);
    form().Show();
    Pump();
    engine->SetLanguage("jscript");
  }
  ~ActiveScriptTest() override {
    engine = nullptr;
    InstallForeignScripts(nullptr);
  }
  static frmscripted& form() { return Window<frmscripted>(); }
  static Ref<Object> FormObject() { return Ref<Object>(&form()); }
  // Adds a module that must be without faults.
  void Add(const std::string& code) {
    EXPECT_TRUE(engine->AddCode(code)) << engine->Error().Description << " in " << engine->Error().Line;
  }
  void LoadForm(const std::string& body) {
    Add("function Form_Load(Form) {\r\n" + body + "\r\n}");
    engine->Error().Clear();
    engine->Run("Form_Load", {FormObject()});
  }

  std::unique_ptr<ScriptEngine> engine = MakeHostingEngine();
};

TEST_F(ActiveScriptTest, AScriptReadsAndSetsTheControlsOfAWindow) {
  LoadForm(
      "Form.Caption = Form.Name + ' ' + Form.Command1.Caption + ' ' + Form.Controls.Count;\r\n"
      "Form.Command1.BackColor = 0x302010; Form.Check1.Value = 2;");
  EXPECT_EQ(engine->Error().Number, 0) << engine->Error().Description;
  EXPECT_EQ(form().Caption.get(), "frmscripted Button 2");
  EXPECT_EQ(form().Command1.BackColor.get(), 0x302010U);
  EXPECT_EQ(form().Check1.Value.get(), 2);
  Pump();
  EXPECT_EQ(PixelAt(HandleOf(form().Command1), 10, 10), 0x302010U);
}

TEST_F(ActiveScriptTest, AStyleFileOfAScriptInJScriptSkinsAWindow) {
  const std::string path = platform.files().TruePath("jscript_test.stl");
  ClsPFF archive;
  archive.NewPffFile(path);
  archive.PackFile(AsBytes("language JScript\r\ndesigner somebody\r\ninclude main.js"), "assembly.txt");
  archive.PackFile(
      AsBytes("function Form_Load(Form) { Form.Caption = 'entries ' + PFF.PFFTotalFiles;"
              " System.Pause(1); }\r\n"
              "function Control_Load(Control, Form) { Form.Caption = Form.Caption + ' ' + Control.Name; }"),
      "main.js");
  archive.SavePffFile();
  const Ref<ClsStyle> style = MakeRef<ClsStyle>();
  style->InitStyle(path);
  style->FormLoad(form());
  EXPECT_EQ(form().Caption.get(), "entries 2 Command1 Check1");
  EXPECT_EQ(style->designer, "somebody");
  platform.files().Delete(path);
}

TEST_F(ActiveScriptTest, TheCheckOfAStyleInJScriptNamesTheLineThatIsToBlame) {
  const std::string path = platform.files().TruePath("jscript_check.stl");
  ClsPFF archive;
  archive.NewPffFile(path);
  archive.PackFile(AsBytes("language JScript\r\ninclude main.js"), "assembly.txt");
  archive.PackFile(AsBytes("function Form_Load(Form) {\r\n"
                           "  for (var i = 0; i < 3; i++) {\r\n"
                           "    Form.Command1.Left = 150 + i * 1000;\r\n"
                           "  }\r\n"
                           "  Form.NoSuchThing = 1;\r\n"
                           "}\r\n"
                           "function Control_Load(Control, Form) {}"),
                   "main.js");
  archive.SavePffFile();
  StyleCheckLimits limits;
  limits.windows = {frmscripted::kName};
  std::vector<std::string> lines;
  const StyleCheckResult result = CheckStyle(path, limits);
  for (const StyleFault& fault : result.faults) lines.push_back(LineOf(fault));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], "main.js(5): frmscripted: Script error 438: Object doesn't support this property or method.");
  EXPECT_EQ(lines[1], "main.js(3): frmscripted.Command1: The control reaches out of the window.");
  platform.files().Delete(path);
}

TEST_F(ActiveScriptTest, ASyntaxErrorHasItsPlace) {
  EXPECT_FALSE(engine->AddCode("var a = 1;\r\nvar b = = 2;\r\n"));
  EXPECT_EQ(engine->Error().Line, 2);
  EXPECT_EQ(engine->Error().Column, 9);
  EXPECT_EQ(engine->Error().Text, "var b = = 2;");
  EXPECT_FALSE(engine->Error().Description.empty());
}

TEST_F(ActiveScriptTest, AnErrorOfASecondModuleHasItsPlaceThere) {
  Add("// nothing here\r\n\r\n");
  LoadForm("var a = 1;\r\n  Form.NoSuchThing();");
  EXPECT_EQ(engine->Error().Line, 3);
  EXPECT_EQ(engine->Error().Text, "  Form.NoSuchThing();");
  EXPECT_EQ(engine->Error().Number, 438);
}

TEST_F(ActiveScriptTest, AnErrorOfAMemberHasItsOwnText) {
  LoadForm("Form.Command1.Name = 'other';");
  EXPECT_EQ(engine->Error().Number, 383);
  EXPECT_EQ(engine->Error().Description, "Property is read-only");
}

TEST_F(ActiveScriptTest, AMissingProcedureIsTold) {
  Add("var a = 1;");
  engine->Run("Control_Load", {FormObject()});
  EXPECT_NE(engine->Error().Number, 0);
}

TEST_F(ActiveScriptTest, NoEndlessLoopRunsOn) {
  engine->SetTimeout(200);
  for (const char* loop :
       {"while (true) ;", "for (;;) { }", "do { } while (true);", "for (var i = 0; true; ) i++;",
        "while (true) { try { while (true) ; } catch (e) { } }", "if (/\\/*\"while\\(/.test('a')) return; while(1);",
        "function f(n) { return n < 1 ? 1 : f(n - 1) + f(n - 1); } f(60);"}) {
    engine->SetLanguage("");
    engine->SetLanguage("jscript");
    LoadForm(loop);
    EXPECT_EQ(engine->Error().Number, kScriptTimedOut) << loop;
    EXPECT_EQ(engine->Error().Description, "The script ran longer than its time limit and was stopped");
    engine->Error().Clear();
    Add("function Later(Form) { Form.Caption = 'later'; }");
    engine->Run("Later", {FormObject()});
    EXPECT_EQ(form().Caption.get(), "later") << loop;
  }
}

TEST_F(ActiveScriptTest, ALoopInMadeCodeDoesNotRunOnEither) {
  engine->SetTimeout(200);
  for (const char* made : {"eval('while (true) ;');", "(new Function('while (true) ;'))();",
                           "((function() { }).constructor('while (true) ;'))();"}) {
    LoadForm(made);
    EXPECT_NE(engine->Error().Number, 0) << made;
  }
}

TEST_F(ActiveScriptTest, EveryDoorIsClosed) {
  for (const char* door :
       {"new ActiveXObject('WScript.Shell')", "new ActiveXObject('Scripting.FileSystemObject')",
        "new ActiveXObject('MSXML2.XMLHTTP')", "new ActiveXObject('Shell.Application')",
        "new ActiveXObject('htmlfile')", "GetObject('winmgmts:')", "GetObject('c:\\\\windows\\\\win.ini')",
        "new Enumerator(new ActiveXObject('Scripting.Dictionary'))", "new Enumerator(GetObject('winmgmts:'))",
        "WScript.CreateObject('WScript.Shell')"}) {
    form().Caption = "closed";
    LoadForm(std::string("var got = ") + door + ";\r\nForm.Caption = 'open ' + got;");
    EXPECT_NE(engine->Error().Number, 0) << door;
    EXPECT_EQ(form().Caption.get(), "closed") << door;
  }
}

TEST_F(ActiveScriptTest, ItsOwnCollectionsCanBeWalked) {
  LoadForm(
      "Form.Caption = '';\r\n"
      "for (var all = new Enumerator(Form.Controls); !all.atEnd(); all.moveNext())"
      " Form.Caption = Form.Caption + all.item().Name + '.';");
  EXPECT_EQ(engine->Error().Number, 0) << engine->Error().Description;
  EXPECT_EQ(form().Caption.get(), "Command1.Check1.");
}

// A language is named as components are: nothing else than a script engine may be made of it.
TEST_F(ActiveScriptTest, ALanguageThatTheMachineLacksIsTold) {
  for (const char* language : {"perlscript", "shell.application", "htmlfile", "scripting.filesystemobject", ""}) {
    engine->SetLanguage(language);
    EXPECT_FALSE(engine->AddCode("a = 1")) << language;
    EXPECT_EQ(engine->Error().Number, 429);
    EXPECT_EQ(engine->Error().Description, "A script engine for the specified language can not be created.");
    engine->Error().Clear();
  }
}

}  // namespace
}  // namespace kestrun
