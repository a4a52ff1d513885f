#include "script/script_engine.h"

#include <functional>

#include "base/text.h"
#include "platform/foreign_scripts.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun {
namespace {

constexpr std::string_view kBuiltInLanguage = "VBScript";
constexpr int64_t kFirstTimeout = 10000;

class BuiltInEngine final : public ScriptEngine {
 public:
  BuiltInEngine() { engine_.limits().timeout_ms = kFirstTimeout; }

  bool AllowUI() const override { return engine_.allow_ui(); }
  void SetAllowUI(bool allow) override { engine_.set_allow_ui(allow); }
  int64_t Timeout() const override { return timeout_; }
  void SetTimeout(int64_t milliseconds) override {
    timeout_ = milliseconds;
    engine_.limits().timeout_ms = milliseconds;
  }
  const std::string& Language() const override { return language_; }
  void SetLanguage(std::string_view language) override { language_ = language; }

  void AddObject(std::string_view name, const Ref<Object>& object) override { engine_.AddObject(name, object); }
  bool AddCode(std::string_view text) override;
  Variant Run(std::string_view name, std::vector<Variant> arguments) override;
  void CheckTime() override { engine_.CheckTime(); }
  ScriptPlace CallingPlace() const override;
  ScriptError& Error() override { return error_; }

 private:
  template <class Action>
  bool Guard(Action&& action);
  [[nodiscard]] bool SpeaksLanguage() const { return EqualsNoCase(language_, kBuiltInLanguage); }

  vbs::Engine engine_;
  std::string language_;
  int64_t timeout_ = kFirstTimeout;
  ScriptError error_;
  int modules_ = 0;
};

template <class Action>
bool BuiltInEngine::Guard(Action&& action) {
  vbs::ErrorReport report = engine_.Report(std::ref(action));  // by reference: keeping a copy would take memory
  if (report.number == 0) return true;
  error_ = {report.number,          report.place.line,        report.place.column, std::move(report.description),
            std::move(report.line), std::move(report.source), report.module};
  return false;
}

bool BuiltInEngine::AddCode(std::string_view text) {
  const int number = modules_++;
  if (!SpeaksLanguage()) {
    error_ = {error::kCannotCreateObject, 0, 0, std::string(kNoSuchLanguage), {}, {}, -1};
    return false;
  }
  const bool is_added = Guard([&] {
    const std::shared_ptr<vbs::Module> module = engine_.Parse(text);
    module->number = number;
    engine_.Load(module);
  });
  // What does not compile is no module yet.
  if (!is_added && error_.Module < 0 && error_.Line > 0) error_.Module = number;
  return is_added;
}

ScriptPlace BuiltInEngine::CallingPlace() const {
  const vbs::ErrorPlace place = engine_.machine().CallingPlace();
  if (!place.module || place.module->number < 0) return {};
  return {place.module->number, place.module->source.PlaceOf(place.position).line};
}

Variant BuiltInEngine::Run(std::string_view name, std::vector<Variant> arguments) {
  Variant result;
  if (!SpeaksLanguage()) return result;
  Guard([&] { result = engine_.CallGlobal(name, arguments); });
  return result;
}

}  // namespace

std::unique_ptr<ScriptEngine> MakeScriptEngine() { return std::make_unique<BuiltInEngine>(); }

}  // namespace kestrun
