// The windows of the program by name: how a window is opened that may not be included from here. Each window registers
// its factory; one instance of each lives from its first use until it is closed.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/ref.h"
#include "forms/form.h"

namespace kestrun {

using WindowFactory = std::function<Ref<Form>()>;

// Registers a factory under the window's name. A static object of this type in the window's own file does it:
//   const WindowRegistration registration("FrmOverWrite", [] { return MakeRef<FrmOverWrite>(); });
class WindowRegistration {
 public:
  WindowRegistration(std::string name, WindowFactory factory);
};

// Takes a registration back and gives its factory, an empty one when there was none: for a window that is not there for
// the whole life of the process, such as a test's. An instance stays until it is closed.
WindowFactory UnregisterWindow(std::string_view name);

// Names of all registered windows, sorted.
[[nodiscard]] std::vector<std::string> RegisteredWindows();
[[nodiscard]] bool IsWindowRegistered(std::string_view name);

// The window's one instance, made and loaded on first use. Names compare without regard to case. Error 424 when no
// window of that name is registered.
[[nodiscard]] Form& WindowByName(std::string_view name);
// The same, but an instance that is made here is not loaded yet: for a caller that sets what the load handler looks at.
// Showing it loads it.
[[nodiscard]] Form& WindowBeforeLoad(std::string_view name);
// The instance if there is one at present, null otherwise; never makes one.
[[nodiscard]] Form* LoadedWindow(std::string_view name);
// All instances that exist at present.
[[nodiscard]] std::vector<Form*> LoadedWindows();

// The typed form of WindowByName; T::kName is the registered name.
template <class T>
[[nodiscard]] T& Window() {
  return static_cast<T&>(WindowByName(T::kName));
}

// Shows a window by name. False, and nothing happens, when no such window is registered.
bool ShowWindow(std::string_view name);
bool ShowWindowModal(std::string_view name);

// For as long as this lives the program has none of its windows: what is opened meanwhile are other instances, which
// are closed with it, and the windows from before are there again then.
class SeparateWindows {
 public:
  SeparateWindows();
  ~SeparateWindows();
  SeparateWindows(const SeparateWindows&) = delete;
  SeparateWindows& operator=(const SeparateWindows&) = delete;

 private:
  std::vector<Ref<Form>> instances_;
  bool ends_with_last_shown_;
};

// For Form::Unload: drops the registry's reference at the end of the present event, and ends the message loop when no
// window is left.
void WindowClosed(Form& form);

// From now on the message loop also ends with the last window that is shown: those that were loaded unseen are closed
// with it.
void EndWithLastShownWindow();

// Closes every instance without asking, in the order of their making. For the end of the process and of each test.
void CloseAllWindows();

}  // namespace kestrun
