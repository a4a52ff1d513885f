#include "forms/active_form.h"

#include <algorithm>

#include "forms/window_registry.h"

namespace kestrun {
namespace {

const Form*& Noted() {
  static const Form* noted = nullptr;
  return noted;
}

}  // namespace

// A form that has gone is none of the loaded ones, and only compared.
Form* ActiveForm() {
  const std::vector<Form*> loaded = LoadedWindows();
  const auto found = std::find(loaded.begin(), loaded.end(), Noted());
  return found != loaded.end() && (*found)->IsShown() ? *found : nullptr;
}

void NoteActivated(Form& form) { Noted() = &form; }

}  // namespace kestrun
