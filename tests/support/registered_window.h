// Windows that stand for others while a test runs.
#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "forms/window_registry.h"

namespace kestrun {

// No window of this name is registered as long as the object lives; what was there before is there again behind it.
class WithoutWindow {
 public:
  explicit WithoutWindow(std::string name) : name_(std::move(name)), before_(UnregisterWindow(name_)) {}
  ~WithoutWindow() {
    UnregisterWindow(name_);
    if (before_) static_cast<void>(WindowRegistration(name_, before_));
  }
  WithoutWindow(const WithoutWindow&) = delete;
  WithoutWindow& operator=(const WithoutWindow&) = delete;

 private:
  std::string name_;
  WindowFactory before_;
};

// A window of class T under this name as long as the object lives, in the place of one that is registered before. T is
// made without arguments, or from the name.
template <class T>
class StandInWindow : public WithoutWindow {
 public:
  explicit StandInWindow(const std::string& name) : WithoutWindow(name) {
    static_cast<void>(WindowRegistration(name, [name]() -> Ref<Form> {
      if constexpr (std::is_default_constructible_v<T>) {
        return MakeRef<T>();
      } else {
        return MakeRef<T>(name);
      }
    }));
  }
};

}  // namespace kestrun
