// The built-in engine behind ScriptEngine: names, modules, budgets and the error in flight.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/local_forms.h"
#include "script/vbscript/engine/err_object.h"
#include "script/vbscript/engine/procedure_reference.h"
#include "script/vbscript/engine/program.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/runtime/context.h"
#include "script/vbscript/syntax/compile_error.h"

namespace kestrun::vbs {

class ClassInstance;

// Number and text under which a host hears of it.
inline constexpr int kTimeLimitNumber = -2147467260;  // E_ABORT
inline constexpr std::string_view kTimeLimitText = "The script ran longer than its time limit and was stopped";

// The time is up. No handler of a script or of a host's catch for errors sees it.
struct TimeLimitReached {};

struct Limits {
  int64_t timeout_ms = -1;  // none when negative
  size_t memory_bytes = size_t{512} * 1024 * 1024;
  size_t text_units = size_t{64} * 1024 * 1024;
  // What the time is read from; a test gives one that goes by readings.
  std::chrono::steady_clock::time_point (*now)() = &std::chrono::steady_clock::now;
};

// A module that does not compile, with its error's place.
struct ModuleError {
  int number = 0;
  SourcePlace place;
  std::string line;
};

// What went wrong, in the words for a host; number 0 for nothing.
struct ErrorReport {
  int number = 0;
  SourcePlace place;
  std::string description;
  std::string line;
  std::string source;
  int module = -1;  // its number; -1 when it has none
};

class Engine final : public RuntimeContext {
 public:
  Engine();
  ~Engine() override;

  // Parses a module's text; throws ModuleError.
  [[nodiscard]] std::shared_ptr<Module> Parse(std::string_view text, bool as_expression = false);
  // Makes the module's procedures, classes and declared names known. Throws ModuleError for a second class or constant
  // of a name.
  void Define(const std::shared_ptr<Module>& module);
  // Define, then the global code.
  void Load(const std::shared_ptr<Module>& module);
  void AddObject(std::string_view name, const Variant& object);

  // The script statements and functions of these names. Text that is no program raises its compile error's number.
  void ExecuteText(const Variant& text, bool global);
  [[nodiscard]] Variant EvaluateText(const Variant& text);
  [[nodiscard]] Variant MakeProcedureReference(const Variant& name);
  // Error 506 for an unknown class; 500 in a module whose names must be declared.
  [[nodiscard]] Variant MakeObject(NameId class_name, bool explicit_names);

  // Calls a global procedure; error 13 when there is none of the name.
  Variant CallGlobal(std::string_view name, Arguments arguments);
  // Runs an action of the host on this engine and tells how it ended.
  ErrorReport Report(const std::function<void()>& action);

  // Calls from hosts, and from objects that hosts may hold.
  Variant Call(Procedure& procedure, ClassInstance* self, Arguments arguments);
  void Terminate(ClassInstance& instance) noexcept;
  [[nodiscard]] Variant FieldValue(const Variant& field, Arguments arguments);
  void StoreField(Variant& field, Arguments arguments, const Variant& value, bool set);

  // Starts the clock for the outermost of nested activities.
  class Activity;
  void CheckTime();

  [[nodiscard]] bool stopping() const { return stopping_; }

  // RuntimeContext.
  void Charge(uint64_t steps) override { machine_.Charge(steps); }
  void ChargeMemory(size_t bytes) override {
    if (bytes > limits_.memory_bytes || LiveBytes::Total() > limits_.memory_bytes - bytes) RaiseOutOfMemory();
  }
  [[nodiscard]] size_t memory_left() const override {
    const size_t used = LiveBytes::Total();
    return used > limits_.memory_bytes ? 0 : limits_.memory_bytes - used;
  }
  [[nodiscard]] size_t most_text_units() const override { return limits_.text_units; }
  [[nodiscard]] bool allow_ui() const override { return allow_ui_; }
  [[nodiscard]] int locale() const override { return locale_; }
  void set_locale(int locale) override;
  [[nodiscard]] uint32_t& random_state() override { return random_state_; }

  void set_allow_ui(bool allow) { allow_ui_ = allow; }
  [[nodiscard]] Limits& limits() { return limits_; }
  [[nodiscard]] NameTable& names() { return names_; }
  [[nodiscard]] GlobalScope& globals() { return globals_; }
  [[nodiscard]] Machine& machine() { return machine_; }
  [[nodiscard]] const Machine& machine() const { return machine_; }
  [[nodiscard]] ErrObject& err() { return *err_; }
  // What Me means outside of classes.
  [[nodiscard]] Object& global_object() { return *global_object_; }

 private:
  friend class ClassInstance;

  [[noreturn]] static void RaiseOutOfMemory();
  ErrorReport ReportInWords(const std::function<void()>& action);
  // Throws CompileError.
  void ParseInto(Module& module, bool as_expression);
  [[nodiscard]] std::string SourceOf(const Variant& text);
  [[nodiscard]] std::shared_ptr<Module> ParseExecuted(const Variant& text, bool as_expression);
  // A class or a constant is defined once, and keeps its name to itself. Throws ModuleError.
  void RefuseRedefinitions(const Module& module);
  void DefineExecuted(const std::shared_ptr<Module>& module);
  void DefineClass(const std::shared_ptr<Module>& module, const ClassTree& tree);
  void AddMethod(ClassDefinition& definition, const std::shared_ptr<Module>& module, const ProcedureTree& tree);
  void ReleaseEverything();
  void Retire(ClassInstance& instance);

  NameTable names_;
  GlobalScope globals_;
  Limits limits_;
  Machine machine_;
  Ref<ErrObject> err_;
  std::shared_ptr<EngineLink> link_;
  Ref<Object> global_object_;
  ClassInstance* living_ = nullptr;
  std::chrono::steady_clock::time_point deadline_;
  int activities_ = 0;
  bool stopping_ = false;
  bool allow_ui_ = false;
  int locale_ = kEnglishUnitedStates;
  uint32_t random_state_ = kFirstRandomState;
};

class Engine::Activity {
 public:
  explicit Activity(Engine& engine);
  ~Activity() { --engine_.activities_; }
  Activity(const Activity&) = delete;
  Activity& operator=(const Activity&) = delete;

 private:
  Engine& engine_;
  const LocalFormsScope forms_;
};

}  // namespace kestrun::vbs
