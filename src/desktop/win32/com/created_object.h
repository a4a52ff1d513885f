// Objects that are made from the name of their class.
#pragma once

#include <string>

#include "base/object.h"

namespace kestrun {

// Makes an object from a class identifier, with or without its braces, or a program identifier. Error 429 when that is
// not possible; its text says why where the system knows, and which kestrun.exe to use for a component that is there
// for the other kind of program only. Error 430 for an object without automation.
[[nodiscard]] Ref<Object> CreateObjectOfClass(const std::string& id);

}  // namespace kestrun
