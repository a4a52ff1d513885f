#include "script/vbscript/engine/engine.h"

#include <new>

#include "base/convert.h"
#include "base/text.h"
#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/engine/class_instance.h"
#include "script/vbscript/engine/global_object.h"
#include "script/vbscript/runtime/builtins.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/locale.h"
#include "script/vbscript/syntax/parser.h"

namespace kestrun::vbs {
namespace {

// Short enough to stand in a text's object: telling of it takes no memory.
constexpr const char* kShortOutOfMemory = "Out of memory";

// Literals have the English (United States) form in every locale.
double ReadDateLiteral(RuntimeContext& context, std::string_view text) {
  const LocalFormsScope english(nullptr);
  static const Builtin* const kConversion = FindBuiltin("CDate");
  if (!kConversion) RaiseScript(error::kTypeMismatch);
  Variant argument(text);
  return kConversion->call(context, {&argument, 1}).real();
}

ModuleError ErrorIn(const Module& module, const CompileError& error) {
  return {error.number, module.source.PlaceOf(error.position), module.source.LineAt(error.position)};
}

// The text of a script to execute, of an object its default member's. Error 13 for everything else.
Variant CodeOf(const Variant& argument) {
  Variant code = PlainValue(argument);
  if (!code.Is(VarType::kString)) RaiseScript(error::kTypeMismatch);
  return code;
}

bool IsHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }

// A pair of surrogates that two pieces share goes with the first.
void AppendPiece(std::string& source, std::u16string_view units, size_t from, size_t to) {
  if (from > 0 && IsHighSurrogate(units[from - 1])) ++from;
  if (to < units.size() && IsHighSurrogate(units[to - 1])) ++to;
  if (from < to) source += ToUtf8(units.substr(from, to - from));
}

std::vector<int32_t> BoundsOf(const DeclaredVariable& variable) {
  return {variable.bounds.begin(), variable.bounds.end()};
}

}  // namespace

Engine::Activity::Activity(Engine& engine) : engine_(engine), forms_(FormsOf(engine.locale_).conversions) {
  if (engine_.activities_++ > 0) return;
  engine_.stopping_ = false;
  engine_.machine_.ResetFuel();
  engine_.deadline_ = engine_.limits_.now() + std::chrono::milliseconds(engine_.limits_.timeout_ms);
}

Engine::Engine()
    : machine_(*this),
      err_(MakeRef<ErrObject>()),
      link_(std::make_shared<EngineLink>(EngineLink{this})),
      global_object_(MakeRef<GlobalObject>(link_)) {}

Engine::~Engine() {
  ReleaseEverything();
  link_->engine = nullptr;
}

// Variables go first, with their objects' Class_Terminate; then the objects that hold each other.
void Engine::ReleaseEverything() {
  const Activity activity(*this);
  globals_.Clear(false);
  while (living_ && !stopping_) {
    const Ref<ClassInstance> last(living_);
    if (!living_->terminated_ && living_->definition_->terminate) {
      living_->terminated_ = true;
      Terminate(*last);
    }
    for (size_t field = 0; field < last->definition().fields.size(); ++field) last->fields()[field].Clear();
    if (last->references() > 1) Retire(*last);
  }
  while (living_) {
    const Ref<ClassInstance> last(living_);
    Retire(*last);
  }
}

// Takes an object that somebody still holds out of the list of the living.
void Engine::Retire(ClassInstance& instance) {
  living_ = instance.next_;
  if (living_) living_->previous_ = nullptr;
  instance.Detach();
}

void Engine::CheckTime() {
  if (limits_.timeout_ms < 0 || limits_.now() < deadline_) return;
  stopping_ = true;
  throw TimeLimitReached{};
}

// Acts at once, and whenever the engine runs: hosts keep their own forms.
void Engine::set_locale(int locale) {
  locale_ = locale;
  UseForms(FormsOf(locale).conversions);
}

void Engine::RaiseOutOfMemory() { RaiseScript(error::kOutOfMemory); }

std::shared_ptr<Module> Engine::Parse(std::string_view text, bool as_expression) {
  const Activity activity(*this);
  auto module = std::make_shared<Module>(text);
  try {
    ParseInto(*module, as_expression);
  } catch (const CompileError& error) {
    throw ErrorIn(*module, error);
  }
  return module;
}

void Engine::RefuseRedefinitions(const Module& module) {
  const auto refuse = [&](uint32_t position) {
    throw ErrorIn(module, CompileError{compile_error::kNameRedefined, position});
  };
  for (const auto& tree : module.classes) {
    const GlobalEntry& entry = globals_.Entry(tree->name);
    if (entry.kind == GlobalKind::kClass || entry.kind == GlobalKind::kConstant) refuse(tree->position);
  }
  for (const ConstStatement* constant : module.constants) {
    const GlobalKind kind = globals_.Entry(constant->name).kind;
    if (kind != GlobalKind::kUnbound && kind != GlobalKind::kObject) refuse(constant->position);
  }
  for (const DeclaredVariable& variable : module.variables) {
    const GlobalKind kind = globals_.Entry(variable.name).kind;
    if (kind == GlobalKind::kClass || kind == GlobalKind::kConstant) refuse(variable.position);
  }
}

void Engine::ParseInto(Module& module, bool as_expression) {
  constexpr uint64_t kStepsPerText = 64;  // what even the shortest text takes to be parsed and compiled
  ChargeMemory(0);
  Charge(kStepsPerText);
  Parser parser(module, names_, [this](std::string_view date) { return ReadDateLiteral(*this, date); });
  parser.OnProgress([this](size_t tokens) {
    Charge(tokens);
    ChargeMemory(0);
  });
  if (as_expression) {
    parser.ParseEvaluation();
  } else {
    parser.ParseModule();
  }
  module.CountBytes();
  ChargeMemory(0);
}

void Engine::Define(const std::shared_ptr<Module>& module) {
  RefuseRedefinitions(*module);
  for (const auto& tree : module->procedures) {
    globals_.DefineProcedure(tree->name, MakeRef<Procedure>(module, *tree, nullptr));
  }
  for (const auto& tree : module->classes) DefineClass(module, *tree);
  for (const DeclaredVariable& variable : module->variables) globals_.DefineVariable(variable.name);
  for (const ConstStatement* constant : module->constants) {
    globals_.DefineValue(constant->name, GlobalKind::kConstant, ConstantValue(*module, *constant));
  }
}

void Engine::DefineClass(const std::shared_ptr<Module>& module, const ClassTree& tree) {
  Ref<ClassDefinition> definition = MakeRef<ClassDefinition>();
  definition->name = tree.name;
  definition->spelling = names_.Spelling(tree.name);
  definition->module = module;
  for (const DeclaredVariable& field : tree.fields) {
    ClassMember& member = definition->MemberFor(field.name);
    member.is_field = true;
    member.is_public = field.is_public;
    member.field = static_cast<uint32_t>(definition->fields.size());
    definition->fields.push_back(field);
  }
  for (const auto& procedure : tree.procedures) AddMethod(*definition, module, *procedure);
  globals_.DefineClass(tree.name, std::move(definition));
}

void Engine::AddMethod(ClassDefinition& definition, const std::shared_ptr<Module>& module, const ProcedureTree& tree) {
  Ref<Procedure> procedure = MakeRef<Procedure>(module, tree, &definition);
  ClassMember& member = definition.MemberFor(tree.name);
  member.is_public = tree.is_public;
  if (tree.is_default) definition.default_member = definition.FindMember(tree.name);
  const std::string name = FoldName(names_.Spelling(tree.name));
  if (tree.kind == ProcedureKind::kSub && name == "class_initialize") definition.initialize = procedure;
  if (tree.kind == ProcedureKind::kSub && name == "class_terminate") definition.terminate = procedure;
  switch (tree.kind) {
    case ProcedureKind::kPropertyLet: member.let = std::move(procedure); break;
    case ProcedureKind::kPropertySet: member.set = std::move(procedure); break;
    default: member.get = std::move(procedure);
  }
}

void Engine::Load(const std::shared_ptr<Module>& module) {
  const Activity activity(*this);
  Define(module);
  machine_.RunGlobal(*module);
}

void Engine::AddObject(std::string_view name, const Variant& object) {
  globals_.DefineValue(names_.Intern(name), GlobalKind::kObject, object);
}

// The place of a compile error is nobody's business here: the statement that executes the text is at fault.
std::shared_ptr<Module> Engine::ParseExecuted(const Variant& text, bool as_expression) {
  auto module = std::make_shared<Module>(SourceOf(text));
  try {
    ParseInto(*module, as_expression);
  } catch (const CompileError& error) {
    RaiseScript(error.number);
  }
  return module;
}

// UTF-8 of a text that may be long.
std::string Engine::SourceOf(const Variant& text) {
  const Variant value = ToTextValue(text);
  const std::u16string_view units = value.text();
  ChargeMemory(LiveBytes::Block(units.size() * 2));
  std::string source;
  ByPieces(*this, units.size(), [&](size_t from, size_t to) { AppendPiece(source, units, from, to); });
  return source;
}

// Inside a running script a second definition is an error like others.
void Engine::DefineExecuted(const std::shared_ptr<Module>& module) {
  try {
    Define(module);
  } catch (const ModuleError& error) {
    RaiseScript(error.number);
  }
}

void Engine::ExecuteText(const Variant& text, bool global) {
  const std::shared_ptr<Module> module = ParseExecuted(CodeOf(text), false);
  if (global || !machine_.InProcedure()) {
    DefineExecuted(module);
    machine_.RunGlobal(*module);
    return;
  }
  for (const auto& tree : module->procedures) {
    globals_.DefineProcedure(tree->name, MakeRef<Procedure>(module, *tree, nullptr));
  }
  for (const auto& tree : module->classes) DefineClass(module, *tree);
  machine_.RunInside(*module);
}

Variant Engine::EvaluateText(const Variant& text) {
  Variant code = text.Is(VarType::kObject) && !text.object() ? text : PlainValue(text);
  if (!code.Is(VarType::kString)) return code;
  const std::shared_ptr<Module> module = ParseExecuted(code, true);
  return machine_.InProcedure() ? machine_.RunInside(*module) : machine_.EvaluateGlobal(*module);
}

Variant Engine::MakeProcedureReference(const Variant& name) {
  const NameId number = names_.Find(ToText(CodeOf(name)));
  if (number == kNoName || globals_.Entry(number).kind != GlobalKind::kProcedure) {
    RaiseScript(error::kInvalidProcedureCall);
  }
  return Variant(MakeRef<ProcedureReference>(link_, globals_.Entry(number).procedure));
}

Variant Engine::MakeObject(NameId class_name, bool explicit_names) {
  // The language's own class counts even when a script has one of its name.
  const Ref<Object> own = CreateScriptObject(names_.Spelling(class_name), *this);
  if (own) return Variant(own);
  const GlobalEntry& entry = globals_.Entry(class_name);
  if (!entry.definition) {
    throw NamedError(explicit_names ? error::kUndefinedVariable : error::kClassNotDefined, names_.Spelling(class_name));
  }
  const Ref<ClassDefinition> definition = entry.definition;
  ChargeMemory(sizeof(ClassInstance) + definition->fields.size() * sizeof(Variant));
  Charge(1 + definition->fields.size() / kElementsPerStep);
  const Ref<ClassInstance> instance = MakeRef<ClassInstance>(*this, definition);
  for (size_t field = 0; field < definition->fields.size(); ++field) {
    const DeclaredVariable& declared = definition->fields[field];
    if (declared.is_array) instance->fields()[field] = machine_.NewArray(BoundsOf(declared));
  }
  if (definition->initialize) machine_.Invoke(*definition->initialize, instance.get(), {});
  return Variant(instance);
}

// What an object's end runs may fail, but has nobody to fail to.
void Engine::Terminate(ClassInstance& instance) noexcept {
  try {
    Call(*instance.definition_->terminate, &instance, {});
  } catch (...) {
    err_->Clear();
  }
}

// The way in for hosts. The time limit's fault ends here when nothing of the engine is under way outside.
Variant Engine::Call(Procedure& procedure, ClassInstance* self, Arguments arguments) {
  const Activity activity(*this);
  try {
    Variant result = machine_.Invoke(procedure, self, arguments);
    ChargeReading(*this, result);
    return result;
  } catch (const TimeLimitReached&) {
    if (activities_ > 1) throw;
    throw RuntimeError(kTimeLimitNumber, std::string(kTimeLimitText));
  }
}

Variant Engine::CallGlobal(std::string_view name, Arguments arguments) {
  const NameId number = names_.Find(name);
  if (number == kNoName || globals_.Entry(number).kind != GlobalKind::kProcedure) {
    throw NamedError(error::kTypeMismatch, std::string(name));
  }
  const Ref<Procedure> procedure = globals_.Entry(number).procedure;
  const Activity activity(*this);
  return machine_.Invoke(*procedure, nullptr, arguments);
}

// Memory may be short as well where the failure is put into words.
ErrorReport Engine::Report(const std::function<void()>& action) {
  try {
    return ReportInWords(action);
  } catch (const std::bad_alloc&) {
    ErrorReport report;
    report.number = error::kOutOfMemory;
    report.description = kShortOutOfMemory;
    return report;
  }
}

ErrorReport Engine::ReportInWords(const std::function<void()>& action) {
  const Activity activity(*this);
  try {
    action();
    return {};
  } catch (const ModuleError& error) {
    return {error.number,
            error.place,
            std::string(ScriptErrorText(error.number)),
            error.line,
            std::string(kCompileErrorSource),
            -1};
  } catch (const PlacedError& error) {
    const std::string about = error.name().empty() ? "" : ": '" + error.name() + "'";
    const SourceText* source = error.place().module ? &error.place().module->source : nullptr;
    const uint32_t at = error.place().position;
    return {error.number(),
            source ? source->PlaceOf(at) : SourcePlace{},
            error.description() + about,
            source ? source->LineAt(at) : std::string(),
            err_->source,
            source ? error.place().module->number : -1};
  } catch (const NamedError& error) {
    return {
        error.number(), {}, error.description() + ": '" + error.name() + "'", {}, std::string(kRuntimeErrorSource), -1};
  } catch (const TimeLimitReached&) {
    return {kTimeLimitNumber, {}, std::string(kTimeLimitText), {}, std::string(kRuntimeErrorSource), -1};
  } catch (const std::exception&) {
    const RuntimeError error = CurrentError();
    return {error.number(), {}, error.description(), {}, std::string(kRuntimeErrorSource), -1};
  }
}

Variant Engine::FieldValue(const Variant& field, Arguments arguments) {
  Variant value = arguments.empty() ? field : machine_.IndexedValue(field, arguments);
  ChargeReading(*this, value);
  return value;
}

void Engine::StoreField(Variant& field, Arguments arguments, const Variant& value, bool set) {
  if (!arguments.empty()) return machine_.StoreIndexed(field, arguments, value, set);
  // The value may lie in what the field lets go.
  const Variant stored(value);  // NOLINT(performance-unnecessary-copy-initialization)
  if (set) {
    field = stored;
  } else {
    machine_.Let(field, stored);
  }
}

}  // namespace kestrun::vbs
