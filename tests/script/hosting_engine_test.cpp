// Which engine a module goes to by its language; the machine's engines are played.
#include "script/hosting_engine.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "platform/foreign_scripts.h"

namespace kestrun {
namespace {

// Writes down what it is asked for, and fails as it is told.
struct Played {
  std::vector<std::string> notes;
  bool can_be_stopped = true;
  std::optional<ForeignScriptFault> fault;
};
Played* played = nullptr;

class PlayedScript final : public ForeignScript {
 public:
  bool CanBeStopped() const override { return played->can_be_stopped; }
  void SetTimeout(int64_t milliseconds) override { Note("timeout " + std::to_string(milliseconds)); }
  void CheckTime() override { Note("check"); }
  void AddObject(std::string_view name, const Ref<Object>& object) override {
    Note("object " + std::string(name) + " " + object->TypeName());
  }
  std::optional<ForeignScriptFault> AddCode(std::string_view text) override {
    Note("code " + std::string(text));
    return played->fault;
  }
  std::optional<ForeignScriptFault> Run(std::string_view name, const std::vector<Variant>& arguments,
                                        Variant& result) override {
    Note("run " + std::string(name) + " " + std::to_string(arguments.size()));
    result = Variant("done");
    return played->fault;
  }

 private:
  static void Note(std::string what) { played->notes.push_back(std::move(what)); }
};

std::unique_ptr<ForeignScript> Open(std::string_view language) {
  if (language == "missing") Raise(error::kCannotCreateObject, "No such engine here.");
  return std::make_unique<PlayedScript>();
}

class HostingEngineTest : public testing::Test {
 protected:
  HostingEngineTest() {
    played = &play;
    InstallForeignScripts(&Open);
  }
  ~HostingEngineTest() override { InstallForeignScripts(nullptr); }

  Played play;
  std::unique_ptr<ScriptEngine> engine = MakeHostingEngine();
};

TEST_F(HostingEngineTest, VbscriptGoesToTheBuiltInEngine) {
  engine->SetLanguage("vbscript");
  EXPECT_TRUE(engine->AddCode("Function Two()\nTwo = 2\nEnd Function"));
  EXPECT_EQ(ToText(engine->Run("Two", {})), "2");
  EXPECT_TRUE(play.notes.empty());
}

TEST_F(HostingEngineTest, AnotherLanguageGoesToTheMachinesEngineWithTheTimeLimit) {
  engine->SetTimeout(500);
  engine->SetLanguage("jscript");
  EXPECT_TRUE(engine->AddCode("while (a) b;"));
  EXPECT_EQ(ToText(engine->Run("Form_Load", {Variant(1)})), "done");
  engine->CheckTime();
  EXPECT_EQ(play.notes, (std::vector<std::string>{"timeout 500", "code while (a) b;", "run Form_Load 1", "check"}));
}

TEST_F(HostingEngineTest, AnEngineThatCannotBeStoppedGetsLoopsThatAskForTheTime) {
  play.can_be_stopped = false;
  engine->SetLanguage("jscript");
  EXPECT_TRUE(engine->AddCode("while (a) b;"));
  ASSERT_EQ(play.notes.size(), 4U);
  EXPECT_EQ(play.notes[1], "object KestrunClock ScriptClock");
  EXPECT_EQ(play.notes[3], "code while (KestrunClock.Check(),a) b;");
}

TEST_F(HostingEngineTest, AnEngineThatCannotBeStoppedAndIsNoJavaScriptIsNotUsed) {
  play.can_be_stopped = false;
  engine->SetLanguage("perlscript");
  EXPECT_FALSE(engine->AddCode("1"));
  EXPECT_EQ(engine->Error().Number, error::kCannotCreateObject);
  EXPECT_EQ(engine->Error().Description, "The script engine of this language cannot be stopped, and is not used.");
}

TEST_F(HostingEngineTest, AMissingEngineIsToldForEachModuleAndRunsNothing) {
  engine->SetLanguage("missing");
  EXPECT_FALSE(engine->AddCode("1"));
  EXPECT_EQ(engine->Error().Description, "No such engine here.");
  engine->Error().Clear();
  EXPECT_TRUE(engine->Run("Form_Load", {}).Is(VarType::kEmpty));
  EXPECT_EQ(engine->Error().Number, 0);
}

TEST_F(HostingEngineTest, AMachineWithoutEnginesSaysSo) {
  InstallForeignScripts(nullptr);
  engine->SetLanguage("jscript");
  EXPECT_FALSE(engine->AddCode("1"));
  EXPECT_EQ(engine->Error().Number, error::kCannotCreateObject);
  EXPECT_EQ(engine->Error().Description, "A script engine for the specified language can not be created.");
}

TEST_F(HostingEngineTest, ModulesOfTwoLanguagesAreCountedTogether) {
  engine->SetLanguage("vbscript");
  EXPECT_TRUE(engine->AddCode("one = 1"));
  engine->SetLanguage("jscript");
  play.fault = ForeignScriptFault{.number = 1002, .module = 0, .line = 1, .column = 1, .description = "Syntax error"};
  EXPECT_FALSE(engine->AddCode("two = = 2"));
  EXPECT_EQ(engine->Error().Module, 1);
  engine->Error().Clear();
  engine->SetLanguage("vbscript");
  EXPECT_TRUE(engine->AddCode("Sub Fail\nErr.Raise 1001\nEnd Sub"));
  engine->Run("Fail", {});
  EXPECT_EQ(engine->Error().Number, 1001);
  EXPECT_EQ(engine->Error().Module, 2);
  EXPECT_EQ(engine->Error().Line, 2);
}

TEST_F(HostingEngineTest, AnErrorThatNobodyHasTakenStaysBehindARunWithoutOne) {
  engine->SetLanguage("vbscript");
  EXPECT_TRUE(engine->AddCode("one = 1"));
  EXPECT_FALSE(engine->AddCode("two = = 2"));
  EXPECT_TRUE(engine->AddCode("Sub Nothing_Wrong\nEnd Sub"));
  engine->Run("Nothing_Wrong", {});
  EXPECT_EQ(engine->Error().Module, 1);
  EXPECT_EQ(engine->Error().Line, 1);
}

TEST_F(HostingEngineTest, AFaultIsToldWithThePlaceAndTheLineOfItsModule) {
  engine->SetLanguage("jscript");
  EXPECT_TRUE(engine->AddCode("first"));
  play.fault = ForeignScriptFault{.number = 438, .module = 1, .line = 2, .column = 3, .description = "No such member"};
  EXPECT_FALSE(engine->AddCode("one\r\ntwo here\r\nthree"));
  EXPECT_EQ(engine->Error().Number, 438);
  EXPECT_EQ(engine->Error().Line, 2);
  EXPECT_EQ(engine->Error().Column, 3);
  EXPECT_EQ(engine->Error().Text, "two here");
  EXPECT_EQ(engine->Error().Description, "No such member");
}

TEST_F(HostingEngineTest, TheColumnOfAFaultIsTheSourcesWhereLoopsAskForTheTime) {
  play.can_be_stopped = false;
  engine->SetLanguage("jscript");
  play.fault = ForeignScriptFault{.number = 1, .module = 1, .line = 1, .column = 29};
  EXPECT_FALSE(engine->AddCode("while (a) b;"));
  EXPECT_EQ(engine->Error().Column, 8);
  EXPECT_EQ(engine->Error().Text, "while (a) b;");
}

TEST_F(HostingEngineTest, AScriptThatWasStoppedIsToldAsOne) {
  engine->SetLanguage("jscript");
  play.fault = ForeignScriptFault{.number = 5, .description = "whatever", .is_time_up = true};
  engine->Run("Form_Load", {});
  EXPECT_EQ(engine->Error().Number, kScriptTimedOut);
  EXPECT_EQ(engine->Error().Description, "The script ran longer than its time limit and was stopped");
}

}  // namespace
}  // namespace kestrun
