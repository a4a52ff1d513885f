#include "script/hosting_engine.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "base/member_rows.h"
#include "base/text.h"
#include "platform/foreign_scripts.h"
#include "script/javascript/loop_guards.h"

namespace kestrun {
namespace {

constexpr std::string_view kCannotBeStopped = "The script engine of this language cannot be stopped, and is not used.";
constexpr std::string_view kStopped = "The script ran longer than its time limit and was stopped";
constexpr std::string_view kBuiltInLanguage = "VBScript";
constexpr std::string_view kClockName = "KestrunClock";
constexpr std::string_view kClockCall = "KestrunClock.Check()";
// Code that is made while a script runs would have loops that nobody looks at.
constexpr std::string_view kNoMadeCode = "eval = void 0; Function.prototype.constructor = void 0; Function = void 0;";

// What loops ask: raises a failure when the time is up.
class ScriptClock final : public TableObject {
 public:
  explicit ScriptClock(std::function<void()> check) : check_(std::move(check)) {}
  void Check() { check_(); }
  [[nodiscard]] std::string TypeName() const override { return "ScriptClock"; }
  [[nodiscard]] const MemberTable& Members() const override {
    static constexpr Member kRows[]{MethodRow<&ScriptClock::Check>("Check")};
    static const MemberTable kTable{nullptr, kRows};
    return kTable;
  }

 private:
  std::function<void()> check_;
};

// A module as it was written, for the places of errors.
struct Module {
  std::string text;
  std::optional<GuardedSource> guarded;  // as the engine got it, where that differs
};

std::string LineOf(std::string_view text, int line) {
  for (; line > 1 && !text.empty(); --line) {
    const size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos) return {};
    text.remove_prefix(end + (text.substr(end).starts_with(kCrLf) ? kCrLf.size() : 1));
  }
  return std::string(text.substr(0, text.find_first_of("\r\n")));
}

// An engine of the machine with the modules that it was given.
class HostedLanguage {
 public:
  HostedLanguage(std::string_view language, int64_t timeout)
      : script_(RequireMaker()(language)), is_guarded_(!script_->CanBeStopped()) {
    if (is_guarded_ && !IsJavaScript(language)) Raise(error::kCannotCreateObject, std::string(kCannotBeStopped));
    script_->SetTimeout(timeout);
    if (!is_guarded_) return;
    script_->AddObject(kClockName, MakeRef<ScriptClock>([this] { script_->CheckTime(); }));
    AddGuarded(std::string(kNoMadeCode));
  }

  [[nodiscard]] ForeignScript& script() { return *script_; }
  [[nodiscard]] ScriptError AddCode(std::string_view text) {
    Module& module = modules_.emplace_back(Module{std::string(text), std::nullopt});
    if (is_guarded_) module.guarded.emplace(text, kClockCall);
    return Told(script_->AddCode(module.guarded ? module.guarded->text() : module.text));
  }
  [[nodiscard]] ScriptError Run(std::string_view name, const std::vector<Variant>& arguments, Variant& result) {
    return Told(script_->Run(name, arguments, result));
  }

 private:
  [[nodiscard]] static ForeignScriptMaker RequireMaker() {
    if (!ForeignScripts()) Raise(error::kCannotCreateObject, std::string(kNoSuchLanguage));
    return ForeignScripts();
  }
  void AddGuarded(std::string text) {
    modules_.push_back({std::move(text), std::nullopt});
    static_cast<void>(script_->AddCode(modules_.back().text));
  }
  [[nodiscard]] ScriptError Told(const std::optional<ForeignScriptFault>& fault) const;

  std::unique_ptr<ForeignScript> script_;
  bool is_guarded_;  // its loops ask for the time
  std::vector<Module> modules_;
};

ScriptError HostedLanguage::Told(const std::optional<ForeignScriptFault>& fault) const {
  if (!fault) return {};
  ScriptError told{fault->number, fault->line, fault->column, fault->description, {}, fault->source, -1};
  if (fault->is_time_up) {
    told.Number = kScriptTimedOut;
    told.Description = kStopped;
  }
  if (fault->line == 0 || fault->module < 0 || static_cast<size_t>(fault->module) >= modules_.size()) return told;
  const Module& module = modules_[static_cast<size_t>(fault->module)];
  told.Module = fault->module - (is_guarded_ ? 1 : 0);  // in front of the style's stands the program's own
  if (module.guarded) told.Column = module.guarded->OriginalColumn(fault->line, fault->column);
  told.Text = LineOf(module.text, fault->line);
  return told;
}

class HostingEngine final : public ScriptEngine {
 public:
  bool AllowUI() const override { return built_in_->AllowUI(); }
  void SetAllowUI(bool allow) override { built_in_->SetAllowUI(allow); }
  int64_t Timeout() const override { return built_in_->Timeout(); }
  void SetTimeout(int64_t milliseconds) override {
    built_in_->SetTimeout(milliseconds);
    if (hosted_) hosted_->script().SetTimeout(milliseconds);
  }
  const std::string& Language() const override { return language_; }
  void SetLanguage(std::string_view language) override;

  void AddObject(std::string_view name, const Ref<Object>& object) override {
    built_in_->AddObject(name, object);
    if (hosted_) hosted_->script().AddObject(name, object);
  }
  bool AddCode(std::string_view text) override {
    (IsBuiltIn() ? built_in_modules_ : hosted_modules_).push_back(modules_++);
    if (!IsBuiltIn()) return Take(hosted_ ? hosted_->AddCode(text) : missing_);
    const ErrorOfBuiltIn error(*this);
    return built_in_->AddCode(text);
  }
  Variant Run(std::string_view name, std::vector<Variant> arguments) override {
    if (IsBuiltIn()) {
      const ErrorOfBuiltIn error(*this);
      return built_in_->Run(name, std::move(arguments));
    }
    Variant result;
    if (hosted_) static_cast<void>(Take(hosted_->Run(name, arguments, result)));
    return result;
  }
  void CheckTime() override {
    if (hosted_ && !IsBuiltIn()) return hosted_->script().CheckTime();
    built_in_->CheckTime();
  }
  [[nodiscard]] ScriptPlace CallingPlace() const override {
    if (!IsBuiltIn()) return {};
    const ScriptPlace place = built_in_->CallingPlace();
    return {NumberIn(built_in_modules_, place.Module), place.Line};
  }
  [[nodiscard]] bool KnowsCallingPlace() const override { return IsBuiltIn(); }
  ScriptError& Error() override { return built_in_->Error(); }

 private:
  [[nodiscard]] bool IsBuiltIn() const { return language_.empty() || EqualsNoCase(language_, kBuiltInLanguage); }
  // An engine counts its own modules only, its host those of all languages.
  [[nodiscard]] static int NumberIn(const std::vector<int>& modules, int own) {
    return own >= 0 && static_cast<size_t>(own) < modules.size() ? modules[static_cast<size_t>(own)] : -1;
  }
  // A call into the built-in engine: its error gets the number that its module has here; without an error the one of
  // before stays.
  class ErrorOfBuiltIn {
   public:
    explicit ErrorOfBuiltIn(HostingEngine& engine)
        : engine_(engine), before_(std::exchange(engine.Error(), ScriptError{})) {}
    ~ErrorOfBuiltIn() {
      ScriptError& error = engine_.Error();
      if (error.Number == 0) {
        error = std::move(before_);
      } else {
        error.Module = NumberIn(engine_.built_in_modules_, error.Module);
      }
    }
    ErrorOfBuiltIn(const ErrorOfBuiltIn&) = delete;
    ErrorOfBuiltIn& operator=(const ErrorOfBuiltIn&) = delete;

   private:
    HostingEngine& engine_;
    ScriptError before_;
  };
  // False for a failure, which stands in Error then.
  bool Take(ScriptError failure) {
    if (failure.Number == 0) return true;
    failure.Module = NumberIn(hosted_modules_, failure.Module);
    Error() = std::move(failure);
    return false;
  }

  std::unique_ptr<ScriptEngine> built_in_ = MakeScriptEngine();
  std::string language_;
  std::string hosted_language_;
  std::unique_ptr<HostedLanguage> hosted_;  // null where the machine has none for the language
  ScriptError missing_;                     // why
  // The modules of each, by the number among all that were added.
  std::vector<int> built_in_modules_;
  std::vector<int> hosted_modules_;
  int modules_ = 0;
};

// Another language starts anew: its engine knows nothing of the modules before.
void HostingEngine::SetLanguage(std::string_view language) {
  language_ = language;
  if (IsBuiltIn()) return built_in_->SetLanguage(language);
  if (hosted_ && EqualsNoCase(hosted_language_, language)) return;
  hosted_ = nullptr;
  hosted_modules_.clear();
  hosted_language_ = language;
  try {
    hosted_ = std::make_unique<HostedLanguage>(language, Timeout());
  } catch (const RuntimeError& failure) {
    missing_ = {failure.number(), 0, 0, failure.description(), {}, {}, -1};
  }
}

}  // namespace

std::unique_ptr<ScriptEngine> MakeHostingEngine() { return std::make_unique<HostingEngine>(); }

}  // namespace kestrun
