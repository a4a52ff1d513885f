#include "desktop/win32/com/active_script.h"

#include <utility>

#include "base/text.h"
#include "desktop/win32/com/active_script_site.h"
#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/com/bridge_failures.h"
#include "desktop/win32/com/object_bridge.h"
#include "desktop/win32/com/outgoing_arguments.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/ole_start.h"
#include "desktop/win32/system/wide_text.h"

// Needs the system's types.
#include <objsafe.h>

namespace kestrun {
namespace {

#ifdef _WIN64
using ScriptParser = IActiveScriptParse64;
#else
using ScriptParser = IActiveScriptParse32;
#endif
// Without these an engine is not used; the others are set where it knows them.
constexpr DWORD kLeastSafety = INTERFACESAFE_FOR_UNTRUSTED_DATA | INTERFACE_USES_SECURITY_MANAGER;
constexpr DWORD kWantedSafety = kLeastSafety | INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACE_USES_DISPEX;
constexpr std::string_view kNotSafe =
    "The script engine of this language does not keep scripts from files and components, and is not used.";
// The category of components that run script text.
constexpr const wchar_t* kScriptCategory = L"\\Implemented Categories\\{F0B7A1A2-9847-11CF-8F20-00805F2CD064}";

[[noreturn]] void RaiseNoEngine(std::string_view text) { Raise(error::kCannotCreateObject, std::string(text)); }

bool IsScriptEngine(const CLSID& class_id) {
  wchar_t text[40]{};
  KESTRUN_LATE(L"ole32.dll", StringFromGUID2)(class_id, text, 40);
  HKEY opened = nullptr;
  const std::wstring path = std::wstring(L"CLSID\\") + text + kScriptCategory;
  RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_QUERY_VALUE, &opened);
  return RegistryKey(opened).IsValid();
}

// The name of a language is a component's, and a style could name any component: only script engines are loaded.
ComOwner<IActiveScript> MakeEngine(std::string_view language) {
  StartOle();
  CLSID class_id{};
  ComOwner<IActiveScript> made;
  const bool is_found = SUCCEEDED(KESTRUN_LATE(L"ole32.dll", CLSIDFromProgID)(ToWide(language).c_str(), &class_id));
  if (!is_found || !IsScriptEngine(class_id)) RaiseNoEngine(kNoSuchLanguage);
  const HRESULT result = KESTRUN_LATE(L"ole32.dll", CoCreateInstance)(class_id, nullptr, CLSCTX_INPROC_SERVER,
                                                                      __uuidof(IActiveScript), made.ReceiveAny());
  if (FAILED(result)) RaiseNoEngine(std::string(kNoSuchLanguage) + std::string(kCrLf) + TextOfResult(result));
  return made;
}

// Makes the engine ask its site before it makes any object, and keep scripts from what it holds for unsafe itself.
bool MakeSafe(IActiveScript& engine) {
  ComOwner<IObjectSafety> safety;
  if (FAILED(engine.QueryInterface(IID_IObjectSafety, safety.ReceiveAny()))) return false;
  DWORD known = 0;
  DWORD present = 0;
  if (FAILED(safety->GetInterfaceSafetyOptions(__uuidof(ScriptParser), &known, &present))) return false;
  const DWORD wanted = kWantedSafety & known;
  return (wanted & kLeastSafety) == kLeastSafety &&
         SUCCEEDED(safety->SetInterfaceSafetyOptions(__uuidof(ScriptParser), wanted, wanted));
}

// Stops a script that runs too long: a timer of the system's own threads, for as long as this object lives.
class Watchdog {
 public:
  Watchdog(IActiveScript& engine, std::atomic<bool>& is_time_up, int64_t milliseconds)
      : engine_(engine), is_time_up_(is_time_up) {
    is_time_up_ = false;
    if (milliseconds < 0) return;
    CreateTimerQueueTimer(&timer_, nullptr, &Watchdog::Stop, this, static_cast<DWORD>(milliseconds), kRepeatMs, 0);
  }
  ~Watchdog() {
    if (timer_) DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE);
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  // A script may catch what stops it and go on: it is stopped again.
  static constexpr DWORD kRepeatMs = 250;
  static void CALLBACK Stop(void* watchdog, BOOLEAN) {
    auto& self = *static_cast<Watchdog*>(watchdog);
    self.is_time_up_ = true;
    EXCEPINFO reason{};
    reason.scode = E_ABORT;
    static_cast<void>(self.engine_.InterruptScriptThread(SCRIPTTHREADID_ALL, &reason, SCRIPTINTERRUPT_RAISEEXCEPTION));
  }

  IActiveScript& engine_;
  std::atomic<bool>& is_time_up_;
  HANDLE timer_ = nullptr;
};

class ActiveScript final : public ForeignScript {
 public:
  explicit ActiveScript(std::string_view language);
  ~ActiveScript() override;
  ActiveScript(const ActiveScript&) = delete;
  ActiveScript& operator=(const ActiveScript&) = delete;

  bool CanBeStopped() const override { return can_be_stopped_; }
  void SetTimeout(int64_t milliseconds) override { timeout_ = milliseconds; }
  void CheckTime() override {
    if (site_->is_time_up()) Raise(error::kInvalidProcedureCall);
  }
  void AddObject(std::string_view name, const Ref<Object>& object) override;
  std::optional<ForeignScriptFault> AddCode(std::string_view text) override;
  std::optional<ForeignScriptFault> Run(std::string_view name, const std::vector<Variant>& arguments,
                                        Variant& result) override;

 private:
  // Runs a call of the engine within the time limit, and gives what went wrong. A call within a call shares its time.
  template <class Action>
  std::optional<ForeignScriptFault> Watched(Action&& action);
  HRESULT Invoke(IDispatch& scripts, std::string_view name, const std::vector<Variant>& arguments, Variant& result,
                 EXCEPINFO& told);

  ComOwner<IActiveScript> engine_;
  ComOwner<ScriptParser> parser_;
  ComOwner<ActiveScriptSite> site_;
  bool can_be_stopped_ = false;
  int64_t timeout_ = -1;
  int modules_ = 0;
  int depth_ = 0;  // of calls that run
};

ActiveScript::ActiveScript(std::string_view language) : engine_(MakeEngine(language)) {
  if (!MakeSafe(*engine_.get())) RaiseNoEngine(kNotSafe);
  site_ = ComOwner<ActiveScriptSite>::Share(new ActiveScriptSite);
  const bool is_ready = SUCCEEDED(engine_->QueryInterface(__uuidof(ScriptParser), parser_.ReceiveAny())) &&
                        SUCCEEDED(engine_->SetScriptSite(site_.get())) && SUCCEEDED(parser_->InitNew()) &&
                        SUCCEEDED(engine_->SetScriptState(SCRIPTSTATE_CONNECTED));
  if (!is_ready) RaiseNoEngine(kNoSuchLanguage);
  // An engine that knows no interruption says so to anybody at any time.
  const EXCEPINFO nothing{};
  can_be_stopped_ = engine_->InterruptScriptThread(SCRIPTTHREADID_BASE, &nothing, 0) != E_NOTIMPL;
}

ActiveScript::~ActiveScript() {
  engine_->Close();
  site_->Clear();
}

template <class Action>
std::optional<ForeignScriptFault> ActiveScript::Watched(Action&& action) {
  static_cast<void>(site_->TakeFault());
  std::optional<Watchdog> watchdog;
  if (depth_ == 0) watchdog.emplace(*engine_.get(), site_->is_time_up(), timeout_);
  ++depth_;
  EXCEPINFO told{};
  const HRESULT result = action(told);
  --depth_;
  std::optional<ForeignScriptFault> fault = site_->TakeFault();
  if (FAILED(result) && !fault) fault = FaultOf(result, told);
  if (fault && site_->is_time_up()) fault->is_time_up = true;
  return fault;
}

void ActiveScript::AddObject(std::string_view name, const Ref<Object>& object) {
  const std::wstring wide = ToWide(name);
  site_->AddObject(wide, object);
  engine_->AddNamedItem(wide.c_str(), SCRIPTITEM_ISVISIBLE);
}

std::optional<ForeignScriptFault> ActiveScript::AddCode(std::string_view text) {
  const auto module = static_cast<DWORD>(modules_++);
  return Watched([&](EXCEPINFO& told) {
    return parser_->ParseScriptText(ToWide(text).c_str(), nullptr, nullptr, nullptr, module, 0, SCRIPTTEXT_ISVISIBLE,
                                    nullptr, &told);
  });
}

HRESULT ActiveScript::Invoke(IDispatch& scripts, std::string_view name, const std::vector<Variant>& arguments,
                             Variant& result, EXCEPINFO& told) {
  std::wstring wide = ToWide(name);
  LPOLESTR names = wide.data();
  DISPID member = DISPID_UNKNOWN;
  const HRESULT found = scripts.GetIDsOfNames(GUID{}, &names, 1, LOCALE_USER_DEFAULT, &member);
  if (FAILED(found)) return found;
  std::vector<Variant> values = arguments;
  OutgoingArguments given(values, nullptr);
  AutomationValue answer;
  const HRESULT called =
      scripts.Invoke(member, GUID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, given.get(), &answer.get(), &told, nullptr);
  if (SUCCEEDED(called)) result = FromAutomation(answer.get());
  return called;
}

std::optional<ForeignScriptFault> ActiveScript::Run(std::string_view name, const std::vector<Variant>& arguments,
                                                    Variant& result) {
  ComOwner<IDispatch> scripts;
  if (FAILED(engine_->GetScriptDispatch(nullptr, scripts.Receive()))) return std::nullopt;
  return Watched([&](EXCEPINFO& told) { return Invoke(*scripts.get(), name, arguments, result, told); });
}

}  // namespace

std::unique_ptr<ForeignScript> OpenActiveScript(std::string_view language) {
  return std::make_unique<ActiveScript>(language);
}

}  // namespace kestrun
