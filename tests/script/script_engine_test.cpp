#include "script/script_engine.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "base/text.h"
#include "script/script_runner.h"

namespace kestrun {
namespace {

class ScriptEngineTest : public testing::Test {
 protected:
  ScriptEngineTest() {
    engine_->SetLanguage("VBScript");
    engine_->AddObject("Host", recorder_);
  }
  std::string RunText(std::string_view name, std::vector<Variant> arguments = {}) {
    return ToText(engine_->Run(name, std::move(arguments)));
  }

  std::unique_ptr<ScriptEngine> engine_ = MakeScriptEngine();
  Ref<EchoRecorder> recorder_ = MakeRef<EchoRecorder>();
};

// A host's object with a field, an indexed property and a method that changes what it is passed; it can go away.
class Gadget final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Gadget"; }
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] const MemberTable& Members() const override {
    static constexpr Member kMembers[] = {
        {"Value", MemberKind::kReadWrite, 0, 0, [](Object& o, Arguments) { return Of(o).value; },
         [](Object& o, Arguments, const Variant& v) { Of(o).value = v; }},
        {"Item", MemberKind::kReadWrite, 1, 1, [](Object&, Arguments a) { return Variant("item " + ToText(a[0])); },
         [](Object& o, Arguments a, const Variant& v) { Of(o).value = Variant(ToText(a[0]) + "=" + ToText(v)); }},
        {"Swap", MemberKind::kMethod, 2, 2,
         [](Object&, Arguments a) {
           a[0].Swap(a[1]);
           return Variant();
         }},
        {"Fail", MemberKind::kMethod, 0, 0, [](Object&, Arguments) -> Variant { Raise(1030, "the host's own text"); }},
        {"FailWithResult", MemberKind::kMethod, 1, 1,
         [](Object&, Arguments a) -> Variant { throw HostError(ToLong(a[0])); }},
        {"FailInOwnWords", MemberKind::kMethod, 0, 0,
         [](Object&, Arguments) -> Variant {
           throw HostError(static_cast<int>(0x80004002), "own words", "Gadget", "gadget.chm", 10);
         }},
        {"Fixed", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) { return Variant("fixed"); }},
    };
    static const MemberTable kTable{nullptr, kMembers};
    return kTable;
  }
  static Gadget& Of(Object& object) { return static_cast<Gadget&>(object); }
  bool IsAlive() const override { return alive; }

  Variant value;
  bool alive = true;
};

TEST_F(ScriptEngineTest, AHostsResultCodeBecomesTheLanguagesNumber) {
  engine_->AddObject("Thing", MakeRef<Gadget>());
  engine_->AddCode(R"(
    On Error Resume Next
    For Each code In Array(&H80004002, &H8002000B, &H80030005, &H800A0009, &H80080008)
      Err.Clear
      Thing.FailWithResult code
      Host.Echo Err.Number, Err.Source, Err.Description
    Next)");
  EXPECT_EQ(recorder_->lines,
            (std::vector<std::string>{"430 Microsoft VBScript runtime error Class doesn't support Automation",
                                      "9 Microsoft VBScript runtime error Subscript out of range",
                                      "70 Microsoft VBScript runtime error Permission denied",
                                      "9 Microsoft VBScript runtime error Subscript out of range", "-2146959352  "}));
}

TEST_F(ScriptEngineTest, AHostThatDescribesItsFailureKeepsItsNumberAndItsHelp) {
  engine_->AddObject("Thing", MakeRef<Gadget>());
  engine_->AddCode(R"(
    On Error Resume Next
    Thing.FailInOwnWords
    Host.Echo Hex(Err.Number), Err.Source, Err.Description, Err.HelpFile, Err.HelpContext)");
  EXPECT_EQ(recorder_->lines, std::vector<std::string>{"80004002 Gadget own words gadget.chm 10"});
}

TEST_F(ScriptEngineTest, AnUncaughtResultCodeReachesTheHostAsTheLanguagesError) {
  engine_->AddObject("Thing", MakeRef<Gadget>());
  EXPECT_FALSE(engine_->AddCode("Thing.FailWithResult &H80004001"));
  EXPECT_EQ(engine_->Error().Number, 445);
  EXPECT_EQ(engine_->Error().Description, "Object doesn't support this action");
}

TEST_F(ScriptEngineTest, ModulesInUtf16AreReadWhenTheyHaveTheirMark) {
  const std::string text = "Host.Echo \"\xC3\xA4\", 1";
  std::string little = "\xFF\xFE";
  std::string big = "\xFE\xFF";
  for (const char16_t unit : ToUtf16(text)) {
    little += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    big += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
  }
  EXPECT_TRUE(engine_->AddCode(little));
  EXPECT_TRUE(engine_->AddCode(big));
  EXPECT_TRUE(engine_->AddCode("\xEF\xBB\xBF" + text));
  EXPECT_EQ(recorder_->lines, (std::vector<std::string>{"\xC3\xA4 1", "\xC3\xA4 1", "\xC3\xA4 1"}));
}

TEST_F(ScriptEngineTest, AConstantOfAnEarlierModuleIsNotDefinedAgain) {
  EXPECT_TRUE(engine_->AddCode("Const answer = 42"));
  EXPECT_FALSE(engine_->AddCode("x = 1\nConst answer = 43"));
  EXPECT_EQ(engine_->Error().Number, 1041);
  EXPECT_EQ(engine_->Error().Line, 2);
  EXPECT_EQ(engine_->Error().Column, 7);
}

TEST_F(ScriptEngineTest, TheScriptsLocaleEndsWhereTheHostBegins) {
  engine_->AddCode("SetLocale 1031\nHost.Echo 1.5, CStr(1.5)\nFunction F : F = CStr(2.5) : End Function");
  EXPECT_EQ(recorder_->lines, std::vector<std::string>{"1.5 1,5"});
  EXPECT_EQ(RunText("F"), "2,5");
  EXPECT_EQ(ToText(Variant(1.5)), "1.5");
}

TEST_F(ScriptEngineTest, WithoutALanguageAddCodeFails) {
  const auto engine = MakeScriptEngine();
  EXPECT_FALSE(engine->AddCode("x = 1"));
  EXPECT_EQ(engine->Error().Number, 429);
  EXPECT_EQ(engine->Error().Description, "A script engine for the specified language can not be created.");
}

TEST_F(ScriptEngineTest, LanguageIsKnownInAnyCase) {
  engine_->SetLanguage("vbscript");
  EXPECT_TRUE(engine_->AddCode("x = 1"));
  EXPECT_EQ(engine_->Language(), "vbscript");
}

TEST_F(ScriptEngineTest, SyntaxErrorGivesItsPlaceAndLine) {
  EXPECT_FALSE(engine_->AddCode("Sub A\r\nEnd Sub\r\n  x = 1 +\r\n"));
  const ScriptError& error = engine_->Error();
  EXPECT_EQ(error.Number, 1023);
  EXPECT_EQ(error.Line, 3);
  EXPECT_EQ(error.Column, 10);
  EXPECT_EQ(error.Description, "Expected expression");
  EXPECT_EQ(error.Text, "  x = 1 +");
  EXPECT_EQ(error.Source, "Microsoft VBScript compilation error");
}

TEST_F(ScriptEngineTest, AnUnterminatedTextEndsAtItsLine) {
  EXPECT_FALSE(engine_->AddCode("x = \"abc\r\ny = 1"));
  EXPECT_EQ(engine_->Error().Number, 1033);
  EXPECT_EQ(engine_->Error().Line, 1);
  EXPECT_EQ(engine_->Error().Column, 9);
  EXPECT_EQ(engine_->Error().Description, "Unterminated string constant");
}

TEST_F(ScriptEngineTest, RuntimeErrorGivesItsPlaceAndLine) {
  ASSERT_TRUE(engine_->AddCode("Sub A(n)\n  Dim x\n  x = 1 / n\nEnd Sub\n"));
  engine_->Run("A", {0});
  const ScriptError& error = engine_->Error();
  EXPECT_EQ(error.Number, 11);
  EXPECT_EQ(error.Line, 3);
  EXPECT_EQ(error.Column, 3);
  EXPECT_EQ(error.Description, "Division by zero");
  EXPECT_EQ(error.Text, "  x = 1 / n");
  EXPECT_EQ(error.Source, "Microsoft VBScript runtime error");
}

TEST_F(ScriptEngineTest, AnArrayWithoutBoundsHasNoElementForNoIndex) {
  const auto engine = MakeScriptEngine();
  engine->SetLanguage("VBScript");
  EXPECT_FALSE(engine->AddCode("Dim a()\nx = a()"));
  EXPECT_EQ(engine->Error().Number, 9);
}

TEST_F(ScriptEngineTest, ClearForgetsTheError) {
  engine_->AddCode("x = ");
  engine_->Error().Clear();
  EXPECT_EQ(engine_->Error().Number, 0);
  EXPECT_EQ(engine_->Error().Text, "");
}

TEST_F(ScriptEngineTest, LinesCountWithinEachModule) {
  ASSERT_TRUE(engine_->AddCode("\n\n\nSub A\nB\nEnd Sub"));
  ASSERT_TRUE(engine_->AddCode("Sub B\nErr.Raise 77\nEnd Sub"));
  engine_->Run("A", {});
  EXPECT_EQ(engine_->Error().Line, 2);
  EXPECT_EQ(engine_->Error().Text, "Err.Raise 77");
}

TEST_F(ScriptEngineTest, ModulesShareOneNameSpace) {
  ASSERT_TRUE(engine_->AddCode("Dim shared\nshared = 1\nFunction One : One = Two() + shared : End Function"));
  ASSERT_TRUE(engine_->AddCode("Function Two : shared = shared + 1 : Two = 10 : End Function"));
  EXPECT_EQ(RunText("One"), "12");
}

TEST_F(ScriptEngineTest, LaterDefinitionsReplaceEarlierOnes) {
  ASSERT_TRUE(engine_->AddCode("Function F : F = 1 : End Function\nFunction G : G = F() : End Function"));
  EXPECT_EQ(RunText("G"), "1");
  ASSERT_TRUE(engine_->AddCode("Function F : F = 2 : End Function"));
  EXPECT_EQ(RunText("G"), "2");
}

TEST_F(ScriptEngineTest, AVariableCanBecomeAProcedureAndAProcedureAVariable) {
  ASSERT_TRUE(engine_->AddCode("Dim n : n = 5\nFunction Show : Show = n & \"!\" : End Function"));
  EXPECT_EQ(RunText("Show"), "5!");
  ASSERT_TRUE(engine_->AddCode("Function n : n = \"called\" : End Function"));
  EXPECT_EQ(RunText("Show"), "called!");
  ASSERT_TRUE(engine_->AddCode("Dim n : n = 6"));
  EXPECT_EQ(RunText("Show"), "6!");
}

TEST_F(ScriptEngineTest, RunOfAMissingProcedureIsAnError) {
  EXPECT_TRUE(engine_->Run("Form_Load", {}).Is(VarType::kEmpty));
  EXPECT_EQ(engine_->Error().Number, 13);
  EXPECT_EQ(engine_->Error().Description, "Type mismatch: 'Form_Load'");
}

TEST_F(ScriptEngineTest, RunWithTheWrongNumberOfArguments) {
  ASSERT_TRUE(engine_->AddCode("Sub S(a)\nEnd Sub"));
  engine_->Run("S", {});
  EXPECT_EQ(engine_->Error().Number, 450);
}

TEST_F(ScriptEngineTest, RunFindsNamesInAnyCase) {
  ASSERT_TRUE(engine_->AddCode("Function Add(a, b)\nAdd = a + b\nEnd Function"));
  EXPECT_EQ(RunText("ADD", {2, 3}), "5");
}

TEST_F(ScriptEngineTest, HostObjectsAreReachedByName) {
  const Ref<Gadget> gadget = MakeRef<Gadget>();
  engine_->AddObject("Gadget", gadget);
  ASSERT_TRUE(
      engine_->AddCode("gadget.value = 5\nGadget.Value = GADGET.Value + 1\nHost.Echo Gadget, Gadget.Item(3)\n"
                       "Gadget.Item(\"a\") = \"b\"\nHost.Echo Gadget.Value, Gadget.Fixed, TypeName(Gadget)"))
      << engine_->Error().Description;
  EXPECT_EQ(recorder_->lines, (std::vector<std::string>{"6 item 3", "a=b fixed Gadget"}));
}

TEST_F(ScriptEngineTest, AHostMethodChangesTheVariablesItIsPassed) {
  engine_->AddObject("Gadget", MakeRef<Gadget>());
  ASSERT_TRUE(
      engine_->AddCode("Dim a(1), b\na(0) = 1 : b = 2\nGadget.Swap a(0), b\nHost.Echo a(0), b\n"
                       "Gadget.Swap (b), (b)\nHost.Echo b"));
  EXPECT_EQ(recorder_->lines, (std::vector<std::string>{"2 1", "1"}));
}

TEST_F(ScriptEngineTest, AHostsErrorReachesTheScript) {
  engine_->AddObject("Gadget", MakeRef<Gadget>());
  ASSERT_TRUE(engine_->AddCode("On Error Resume Next\nGadget.Fail\nHost.Echo Err.Number, Err.Description"));
  EXPECT_EQ(recorder_->lines, (std::vector<std::string>{"1030 the host's own text"}));
}

TEST_F(ScriptEngineTest, UnknownAndReadOnlyMembersOfHosts) {
  engine_->AddObject("Gadget", MakeRef<Gadget>());
  ASSERT_TRUE(
      engine_->AddCode("On Error Resume Next\nGadget.Nope\nHost.Echo Err.Number\nErr.Clear\nGadget.Fixed = 1\n"
                       "Host.Echo Err.Number\nErr.Clear\nGadget.Item\nHost.Echo Err.Number"));
  EXPECT_EQ(recorder_->lines, (std::vector<std::string>{"438", "383", "450"}));
}

TEST_F(ScriptEngineTest, AHostObjectThatHasGoneAwayGivesError424) {
  const Ref<Gadget> gadget = MakeRef<Gadget>();
  engine_->AddObject("Gadget", gadget);
  ASSERT_TRUE(engine_->AddCode("Dim kept\nSet kept = Gadget\nSub Touch\nkept.Value = 1\nEnd Sub"));
  gadget->alive = false;
  engine_->Run("Touch", {});
  EXPECT_EQ(engine_->Error().Number, 424);
  EXPECT_EQ(engine_->Error().Line, 4);
}

TEST_F(ScriptEngineTest, AnObjectOfAScriptsClassIsAnObjectForTheHost) {
  ASSERT_TRUE(
      engine_->AddCode("Class C\nPublic V\nPrivate P\nPublic Function Twice(n)\nTwice = n * 2 + V\nEnd Function\n"
                       "Public Property Let W(x)\nV = x\nEnd Property\nEnd Class\n"
                       "Function Make\nSet Make = New C\nEnd Function"));
  const Variant made = engine_->Run("Make", {});
  ASSERT_TRUE(made.Is(VarType::kObject));
  Object& object = *made.object();
  EXPECT_EQ(object.TypeName(), "C");
  PutMember(object, "v", 5);
  EXPECT_EQ(ToText(CallMember(object, "Twice", {4})), "13");
  PutMember(object, "W", 7);
  EXPECT_EQ(ToText(GetMember(object, "V")), "7");
  EXPECT_EQ(object.FindMember("P"), kNoMember);
  EXPECT_EQ(object.ListMembers().size(), 3U);
}

TEST_F(ScriptEngineTest, AnObjectThatOutlivesItsEngineGivesError424) {
  ASSERT_TRUE(
      engine_->AddCode("Class C\nPublic V\nEnd Class\nFunction Make\nSet Make = New C\nEnd Function\n"
                       "Function Reference\nSet Reference = GetRef(\"Make\")\nEnd Function"));
  const Variant object = engine_->Run("Make", {});
  const Variant reference = engine_->Run("Reference", {});
  engine_.reset();
  try {
    static_cast<void>(GetMember(*object.object(), "V"));
    FAIL() << "the engine is gone";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 424);
  }
  EXPECT_THROW(static_cast<void>(reference.object()->Get(0, {})), RuntimeError);
}

TEST_F(ScriptEngineTest, TheTimeLimitStopsLoops) {
  engine_->SetTimeout(50);
  EXPECT_FALSE(engine_->AddCode("Do\nLoop"));
  EXPECT_EQ(engine_->Error().Number, kScriptTimedOut);
}

TEST_F(ScriptEngineTest, TheTimeLimitCannotBePassedOver) {
  engine_->SetTimeout(50);
  EXPECT_FALSE(engine_->AddCode("On Error Resume Next\nDo\nx = 1 / 0\nLoop\nHost.Echo \"never\""));
  EXPECT_EQ(engine_->Error().Number, kScriptTimedOut);
  EXPECT_TRUE(recorder_->lines.empty());
}

TEST_F(ScriptEngineTest, TheTimeLimitStopsRecursionTextAndBuiltins) {
  engine_->SetTimeout(50);
  EXPECT_FALSE(engine_->AddCode("Function F(n)\nIf n > 0 Then F = F(n - 1) + F(n - 1)\nEnd Function\nF 100"));
  EXPECT_EQ(engine_->Error().Number, kScriptTimedOut);
  EXPECT_FALSE(engine_->AddCode("Execute \"While True\" & vbLf & \"Wend\""));
  EXPECT_EQ(engine_->Error().Number, kScriptTimedOut);
  EXPECT_FALSE(engine_->AddCode("s = String(100000, \"a\")\nDo\nt = Replace(s, \"a\", \"bb\")\nLoop"));
  EXPECT_EQ(engine_->Error().Number, kScriptTimedOut);
}

TEST_F(ScriptEngineTest, TheEngineWorksOnAfterATimeout) {
  engine_->SetTimeout(50);
  EXPECT_FALSE(engine_->AddCode("Function F\nDo\nLoop\nEnd Function\nFunction G\nG = 7\nEnd Function\nF"));
  EXPECT_EQ(RunText("G"), "7");
}

TEST_F(ScriptEngineTest, TextAndMemoryBudgets) {
  EXPECT_FALSE(engine_->AddCode("s = \"x\"\nDo\ns = s & s\nLoop"));
  EXPECT_EQ(engine_->Error().Number, 14);
  engine_->Error().Clear();
  EXPECT_FALSE(engine_->AddCode("ReDim a(2000000000)"));
  EXPECT_EQ(engine_->Error().Number, 7);
}

TEST_F(ScriptEngineTest, DepthBudgetHoldsThroughHostCalls) {
  EXPECT_FALSE(
      engine_->AddCode("Class C\nPublic Default Property Get P\nP = Me + 1\nEnd Property\nEnd Class\n"
                       "Set o = New C\nx = o + 1"));
  EXPECT_EQ(engine_->Error().Number, 28);
}

TEST_F(ScriptEngineTest, HostileNestingIsAnErrorOfTheModule) {
  const std::string deep(200000, '(');
  EXPECT_FALSE(engine_->AddCode("x = " + deep));
  EXPECT_EQ(engine_->Error().Number, 1001);
  std::string blocks;
  for (int i = 0; i < 20000; ++i) blocks += "If True Then\n";
  EXPECT_FALSE(engine_->AddCode(blocks));
  EXPECT_EQ(engine_->Error().Number, 1001);
}

TEST_F(ScriptEngineTest, LongChainsOfOperatorsAreNoNesting) {
  std::string sum = "x = 0";
  for (int i = 0; i < 20000; ++i) sum += " + 1";
  EXPECT_TRUE(engine_->AddCode(sum + "\nHost.Echo x"));
  EXPECT_EQ(recorder_->lines, (std::vector<std::string>{"20000"}));
}

TEST_F(ScriptEngineTest, AddObjectAfterTheModuleIsSeenByItsProcedures) {
  ASSERT_TRUE(engine_->AddCode("Sub Form_Load(form)\nGadget.Value = form.Value\nEnd Sub"));
  const Ref<Gadget> gadget = MakeRef<Gadget>();
  const Ref<Gadget> form = MakeRef<Gadget>();
  form->value = Variant("from the form");
  engine_->AddObject("Gadget", gadget);
  engine_->Run("Form_Load", {form});
  EXPECT_EQ(engine_->Error().Number, 0);
  EXPECT_EQ(ToText(gadget->value), "from the form");
}

TEST_F(ScriptEngineTest, ErrorNamesWhatItIsAbout) {
  EXPECT_FALSE(engine_->AddCode("Option Explicit\nnope = 1"));
  EXPECT_EQ(engine_->Error().Description, "Variable is undefined: 'nope'");
  EXPECT_FALSE(engine_->AddCode("Host.NoSuchMember 1"));
  EXPECT_EQ(engine_->Error().Description, "Object doesn't support this property or method: 'NoSuchMember'");
}

}  // namespace
}  // namespace kestrun
