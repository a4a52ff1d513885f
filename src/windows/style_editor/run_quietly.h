// How the style editor's commands end.
#pragma once

#include <exception>
#include <utility>

#include "platform/failure_box.h"
#include "platform/file_error.h"

namespace kestrun {

// What the user broke off, or what cannot be done without a project, ends without a word. A failure that is about a
// file is told: the user could not know otherwise why nothing has happened.
template <class Command>
void RunQuietly(Command&& command) {
  try {
    std::forward<Command>(command)();
  } catch (const FileError&) {
    ShowFailureBox("", BoxIcon::kNone);
  } catch (const std::exception&) {
    // The command has ended, which is all.
  }
}

}  // namespace kestrun
