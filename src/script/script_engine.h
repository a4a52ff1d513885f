// The engine that runs a style's modules, as its host sees it. Failures are never thrown: they stand in Error.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/object.h"

namespace kestrun {

// The engine's last error; Number is 0 when there is none.
struct ScriptError {
  int32_t Number = 0;
  int Line = 0;    // within the module, from 1; 0 when the error has no place
  int Column = 0;  // from 1
  std::string Description;
  std::string Text;    // the source line at fault
  std::string Source;  // which stage found it
  int Module = -1;     // which of the modules that were added, from 0; -1 when the error has no place
  void Clear() { *this = {}; }
};

// A line of a module. Module counts as in ScriptError; -1 for no place.
struct ScriptPlace {
  int Module = -1;
  int Line = 0;
};

class ScriptEngine {
 public:
  virtual ~ScriptEngine() = default;

  // Whether scripts may raise their own dialogues. False at first.
  [[nodiscard]] virtual bool AllowUI() const = 0;
  virtual void SetAllowUI(bool allow) = 0;
  // How long one call into the engine may run, in milliseconds; -1 for ever. 10000 at first. A script that runs longer
  // is stopped, whatever it does, and Error gets kScriptTimedOut.
  [[nodiscard]] virtual int64_t Timeout() const = 0;
  virtual void SetTimeout(int64_t milliseconds) = 0;
  // Empty at first: AddCode fails until it is a language that the engine speaks.
  [[nodiscard]] virtual const std::string& Language() const = 0;
  virtual void SetLanguage(std::string_view language) = 0;

  // Makes an object globally visible to scripts. A script's own definition of the name replaces it.
  virtual void AddObject(std::string_view name, const Ref<Object>& object) = 0;
  // Compiles a module into the one global name space and runs its global statements. False when that failed.
  virtual bool AddCode(std::string_view text) = 0;
  // Calls a global procedure by name. Empty when that failed, and from a Sub. In a language that the engine does not
  // speak, or in none, there is no procedure: nothing happens, and Error stays as it is.
  virtual Variant Run(std::string_view name, std::vector<Variant> arguments) = 0;
  // For objects that hold a script up: called by one that a script has called, it does not return when the time is up.
  virtual void CheckTime() = 0;
  // For objects that a script calls: the line that calls. No place outside of such a call, and in a language of the
  // machine.
  [[nodiscard]] virtual ScriptPlace CallingPlace() const { return {}; }
  // Whether CallingPlace gives places in the present language.
  [[nodiscard]] virtual bool KnowsCallingPlace() const { return true; }

  [[nodiscard]] virtual ScriptError& Error() = 0;
};

// Error's number for a script that was stopped by its time limit.
inline constexpr int32_t kScriptTimedOut = -2147467260;

// The built-in engine, which speaks "VBScript".
[[nodiscard]] std::unique_ptr<ScriptEngine> MakeScriptEngine();

}  // namespace kestrun
