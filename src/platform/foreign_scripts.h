// Script engines that the machine has installed, for languages that the program does not speak itself.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/object.h"

namespace kestrun {

// Text of error 429 for a language that nobody has an engine for.
inline constexpr std::string_view kNoSuchLanguage = "A script engine for the specified language can not be created.";

// Why a call into an engine ended early.
struct ForeignScriptFault {
  int32_t number = 0;
  int module = -1;  // which of the modules it is in, from 0 in the order of their adding; -1 for none
  int line = 0;     // from 1; 0 when the fault has no place
  int column = 0;   // from 1
  std::string description = {};
  std::string source = {};  // who raised it
  bool is_time_up = false;  // the script was stopped by its time limit
};

// One engine of a language with its modules. It reaches the objects that it is given and no other: it can create none,
// and open no file.
class ForeignScript {
 public:
  virtual ~ForeignScript() = default;
  // False for an engine that cannot be stopped while it runs: its scripts have to ask for the time by themselves.
  [[nodiscard]] virtual bool CanBeStopped() const = 0;
  // How long one call may run, in milliseconds; -1 for ever.
  virtual void SetTimeout(int64_t milliseconds) = 0;
  // Raises a failure when the time of the call that runs is up.
  virtual void CheckTime() = 0;
  // Makes an object globally visible under a name.
  virtual void AddObject(std::string_view name, const Ref<Object>& object) = 0;
  // Compiles a module into the one global name space and runs its global statements.
  [[nodiscard]] virtual std::optional<ForeignScriptFault> AddCode(std::string_view text) = 0;
  // Calls a global procedure by name.
  [[nodiscard]] virtual std::optional<ForeignScriptFault> Run(std::string_view name,
                                                              const std::vector<Variant>& arguments,
                                                              Variant& result) = 0;
};

// Gives an engine for a language. Error 429 with a sentence when the machine has none, or none that can be kept from
// files and components.
using ForeignScriptMaker = std::unique_ptr<ForeignScript> (*)(std::string_view language);
// Who gives engines; null, as at first, for a machine without any.
void InstallForeignScripts(ForeignScriptMaker maker);
[[nodiscard]] ForeignScriptMaker ForeignScripts();

}  // namespace kestrun
