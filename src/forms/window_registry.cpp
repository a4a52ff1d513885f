#include "forms/window_registry.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

struct LessNoCase {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const { return CompareNoCase(left, right) < 0; }
};

using FactoryMap = std::map<std::string, WindowFactory, LessNoCase>;

// Filled by static objects before main, hence made on first use.
FactoryMap& Factories() {
  static FactoryMap factories;
  return factories;
}

std::vector<Ref<Form>>& Instances() {
  static std::vector<Ref<Form>> instances;
  return instances;
}

bool ends_with_last_shown = false;

// A window that was loaded for its procedures and that nobody can see and close must not keep the process. Posted,
// since a routine that closes one window may be about to show the next.
void EndUnlessShown() {
  const auto is_shown = [](const Ref<Form>& form) { return form->IsShown(); };
  if (!ends_with_last_shown || std::any_of(Instances().begin(), Instances().end(), is_shown)) return;
  CloseAllWindows();
  platform().windowing().Quit();
}

}  // namespace

WindowRegistration::WindowRegistration(std::string name, WindowFactory factory) {
  Factories().insert_or_assign(std::move(name), std::move(factory));
}

WindowFactory UnregisterWindow(std::string_view name) {
  const auto found = Factories().find(name);
  if (found == Factories().end()) return {};
  WindowFactory factory = std::move(found->second);
  Factories().erase(found);
  return factory;
}

std::vector<std::string> RegisteredWindows() {
  std::vector<std::string> names;
  for (const auto& [name, factory] : Factories()) names.push_back(name);
  return names;
}

bool IsWindowRegistered(std::string_view name) { return Factories().contains(name); }

Form& WindowBeforeLoad(std::string_view name) {
  if (Form* existing = LoadedWindow(name)) return *existing;
  const auto factory = Factories().find(name);
  if (factory == Factories().end()) Raise(error::kObjectRequired);
  Instances().push_back(factory->second());
  return *Instances().back();
}

Form& WindowByName(std::string_view name) {
  const Ref<Form> form(&WindowBeforeLoad(name));
  form->EnsureLoaded();
  return *form;
}

Form* LoadedWindow(std::string_view name) {
  const auto found = std::find_if(Instances().begin(), Instances().end(),
                                  [name](const Ref<Form>& form) { return EqualsNoCase(form->Name(), name); });
  return found == Instances().end() ? nullptr : found->get();
}

std::vector<Form*> LoadedWindows() {
  std::vector<Form*> forms;
  for (const Ref<Form>& form : Instances()) forms.push_back(form.get());
  return forms;
}

bool ShowWindow(std::string_view name) {
  if (!IsWindowRegistered(name)) return false;
  WindowByName(name).Show();
  return true;
}

bool ShowWindowModal(std::string_view name) {
  if (!IsWindowRegistered(name)) return false;
  WindowByName(name).ShowModal();
  return true;
}

void WindowClosed(Form& form) {
  const auto found = std::find(Instances().begin(), Instances().end(), Ref<Form>(&form));
  if (found == Instances().end()) return;
  platform().clock().Post([closed = *found] {});
  Instances().erase(found);
  if (Instances().empty()) platform().windowing().Quit();
  if (ends_with_last_shown) platform().clock().Post(EndUnlessShown);
}

void EndWithLastShownWindow() { ends_with_last_shown = true; }

SeparateWindows::SeparateWindows()
    : instances_(std::exchange(Instances(), {})), ends_with_last_shown_(std::exchange(ends_with_last_shown, false)) {}

SeparateWindows::~SeparateWindows() {
  CloseAllWindows();
  Instances() = std::move(instances_);
  ends_with_last_shown = ends_with_last_shown_;
}

void CloseAllWindows() {
  ends_with_last_shown = false;
  while (!Instances().empty()) {
    const Ref<Form> form = Instances().back();
    form->Hide();
    std::erase(Instances(), form);
  }
}

}  // namespace kestrun
