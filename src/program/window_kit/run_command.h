// What becomes of a failure. Attempt (base/runtime_error.h) skips it; RunCommand tells it, with a context where the
// user would not know otherwise what has failed. Either way the program goes on.
#pragma once

#include <exception>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

#include "base/runtime_error.h"
#include "forms/property.h"
#include "platform/failure_box.h"

namespace kestrun {

// Gives true when the command ran through. Context and icon are those of the failure box.
template <class Command>
bool RunCommand(Command&& command, const std::string& context = "", BoxIcon icon = BoxIcon::kNone) {
  try {
    std::forward<Command>(command)();
    return true;
  } catch (const std::exception&) {
    ShowFailureBox(context, icon);
    return false;
  }
}

// The same command behind several controls.
inline void SetCommand(std::initializer_list<Event<>*> events, const std::function<void()>& command) {
  for (Event<>* event : events) *event = [command] { RunCommand(command); };
}

// One whose failure ends it without a word.
inline void SetSilentCommand(Event<>& event, const std::function<void()>& command) {
  event = [command] { Attempt(command); };
}

}  // namespace kestrun
