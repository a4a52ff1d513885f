// How the commands of the map windows end when they fail: reported without a context, and the window goes on.
#pragma once

#include <exception>
#include <functional>
#include <initializer_list>
#include <utility>

#include "forms/property.h"
#include "frame/show_error.h"

namespace kestrun {

template <class Command>
void RunCommand(Command&& command) {
  try {
    std::forward<Command>(command)();
  } catch (const std::exception&) {
    ShowError("");
  }
}

// The same command behind several controls.
inline void SetCommand(std::initializer_list<Event<>*> events, const std::function<void()>& command) {
  for (Event<>* event : events) *event = [command] { RunCommand(command); };
}

}  // namespace kestrun
