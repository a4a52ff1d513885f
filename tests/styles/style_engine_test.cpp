// What a style asks of its script engine, and the time that its scripts may take.
#include <chrono>

#include "styles/style_fixture.h"

namespace kestrun {
namespace {

// The built-in engine with a short time limit, writing down what it is asked for.
class NotedEngine final : public ScriptEngine {
 public:
  explicit NotedEngine(std::vector<std::string>& notes) : notes_(notes) {}
  bool AllowUI() const override { return engine_->AllowUI(); }
  void SetAllowUI(bool allow) override {
    notes_.push_back(allow ? "AllowUI True" : "AllowUI False");
    engine_->SetAllowUI(allow);
  }
  int64_t Timeout() const override { return engine_->Timeout(); }
  void SetTimeout(int64_t milliseconds) override {
    notes_.push_back("Timeout " + std::to_string(milliseconds));
    engine_->SetTimeout(60);
  }
  const std::string& Language() const override { return engine_->Language(); }
  void SetLanguage(std::string_view language) override {
    notes_.push_back("Language " + std::string(language));
    engine_->SetLanguage(language);
  }
  void AddObject(std::string_view name, const Ref<Object>& object) override {
    notes_.push_back("AddObject " + std::string(name) + " " + object->TypeName());
    engine_->AddObject(name, object);
  }
  bool AddCode(std::string_view text) override {
    notes_.push_back("AddCode " + std::string(text.substr(0, 4)));
    return engine_->AddCode(text);
  }
  Variant Run(std::string_view name, std::vector<Variant> arguments) override {
    return engine_->Run(name, std::move(arguments));
  }
  void CheckTime() override { engine_->CheckTime(); }
  ScriptError& Error() override { return engine_->Error(); }

 private:
  std::unique_ptr<ScriptEngine> engine_ = MakeScriptEngine();
  std::vector<std::string>& notes_;
};

class StyleEngineTest : public StyleTest {
 protected:
  void Wear(const std::string& form_load, const std::string& control_load) {
    style->InitStyle(MakeScriptStyle("Sub Form_Load(Form)\r\n" + form_load +
                                     "\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\n" + control_load +
                                     "\r\nEnd Sub"));
  }
  static constexpr const char* kStopped = "The script ran longer than its time limit and was stopped";

  std::vector<std::string> notes;
  Ref<ClsStyle> style = MakeRef<ClsStyle>([this] { return std::make_unique<NotedEngine>(notes); });
};

TEST_F(StyleEngineTest, IsSetUpThenGetsTheModulesAndThenTheObjectsInTheirOrder) {
  style->InitStyle(MakeStyle({{"assembly.txt", "language VBScript\r\ninclude a.vbs\r\ninclude b.vbs"},
                              {"a.vbs", "a = 1"},
                              {"b.vbs", "b = 1"}}));
  EXPECT_EQ(notes, (std::vector<std::string>{"AllowUI True", "Timeout 10000", "Language vbscript",
                                             "AddCode a = ", "AddCode b = ", "AddObject System ClsSystem",
                                             "AddObject Screen Screen", "AddObject App App",
                                             "AddObject Clipboard Clipboard", "AddObject PFF ClsPFF"}));
}

TEST_F(StyleEngineTest, ThatCannotBeMadeIsToldAndLeavesTheStyleInactive) {
  const Ref<ClsStyle> broken =
      MakeRef<ClsStyle>([]() -> std::unique_ptr<ScriptEngine> { Raise(error::kCannotCreateObject); });
  desktop.dialogs().ExpectBox("Error: Errors loading Style file: 429\r\nActiveX component can't create object");
  broken->InitStyle(MakeScriptStyle(""));
  EXPECT_FALSE(StyleActive());
  broken->FormLoad(*form);
}

TEST_F(StyleEngineTest, AScriptThatNeverReturnsIsStoppedAndOkGoesOnWithTheControls) {
  Wear("Do : Loop", "Control.Tag = \"seen\"");
  ExpectScriptError(ScriptErrorText("", 0, 0, kScriptTimedOut, kStopped, ""));
  style->FormLoad(*form);
  EXPECT_EQ(form->mnu_three.Tag.get(), "seen");
}

// Each control's script would take its whole time again: a window of a hundred controls would be out of reach for long.
TEST_F(StyleEngineTest, CancelAfterAScriptWasStoppedLeavesTheRestOfTheWindowAlone) {
  Wear("Form.Tag = \"seen\"", "Do : Loop");
  ExpectScriptError(ScriptErrorText("", 0, 0, kScriptTimedOut, kStopped, ""), BoxAnswer::kCancel);
  style->FormLoad(*form);
  EXPECT_EQ(form->Tag.get(), "seen");
  EXPECT_FALSE(StyleActive());
}

TEST_F(StyleEngineTest, WhoeverWaitsForAWindowMayLeaveTheRestOfItsControls) {
  Wear("Form.Tag = \"seen\"", "Form.Tag = Form.Tag & \" \" & Control.Name");
  int asked = 0;
  style->GoesOn = [&asked] { return ++asked < 2; };
  style->FormLoad(*form);
  EXPECT_EQ(form->Tag.get(), "seen " + form->controls().front()->Name());
}

TEST_F(StyleEngineTest, ALoopThatLetsTheMessageLoopRunIsStoppedAsWell) {
  Wear("Do\r\nSystem.DrawIt\r\nLoop", "");
  ExpectScriptError(ScriptErrorText("", 0, 0, kScriptTimedOut, kStopped, ""));
  style->FormLoad(*form);
}

}  // namespace
}  // namespace kestrun
