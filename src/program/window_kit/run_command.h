// How the commands of the map windows end when they fail: reported, and the window goes on.
#pragma once

#include <exception>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>

#include "forms/property.h"
#include "program/show_error.h"

namespace kestrun {

// The context is ShowError's.
template <class Command>
void RunCommand(Command&& command, const std::string& context = "") {
  try {
    std::forward<Command>(command)();
  } catch (const std::exception&) {
    ShowError(context);
  }
}

// The same command behind several controls.
inline void SetCommand(std::initializer_list<Event<>*> events, const std::function<void()>& command) {
  for (Event<>* event : events) *event = [command] { RunCommand(command); };
}

}  // namespace kestrun
