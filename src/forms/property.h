// Properties and events: the data that a control consists of. A property tells its control when it changes; the control
// tells the screen's peer, if there is one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace kestrun {

class Control;

// What changed, as a peer is told. One entry for every stored property that a peer can show.
enum class PropertyId : uint8_t {
  kNone,
  kLeft,
  kTop,
  kWidth,
  kHeight,
  kVisible,
  kEnabled,
  kCaption,
  kText,
  kValue,
  kToolTipText,
  kTag,
  kTabIndex,
  kTabStop,
  kFont,
  kForeColor,
  kBackColor,
  kBackStyle,
  kBorderStyle,
  kAppearance,
  kAlignment,
  kAutoSize,
  kWordWrap,
  kPicture,  // also the other pictures of a button, and what of them is see-through
  kStretch,
  kDefault,
  kCancel,
  kLocked,
  kMaxLength,
  kMultiLine,
  kPasswordChar,
  kScrollBars,
  kSelection,
  kListIndex,
  kMultiSelect,
  kSorted,
  kPath,
  kPattern,
  kInterval,
  kChecked,
  kWindowState,
  kMousePointer,
  kIcon,
  kBoxes,
  kStyle,
  kDrawing,  // what was drawn on a form or a picture box
  kCustom,
};

namespace internal {
// Out of line so that property.h does not need the control.
void NotifyPropertyChanged(Control& owner, PropertyId id);
}  // namespace internal

// One stored property. Assigning a different value stores it and tells the owner; assigning the same value does
// nothing.
template <class T>
class Property {
 public:
  Property(Control& owner, PropertyId id, T initial = T{}) : owner_(&owner), id_(id), value_(std::move(initial)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property& other) { return *this = other.value_; }

  Property& operator=(T value) {
    if (value_ == value) return *this;
    value_ = std::move(value);
    internal::NotifyPropertyChanged(*owner_, id_);
    return *this;
  }
  operator const T&() const { return value_; }
  [[nodiscard]] const T& get() const { return value_; }
  const T* operator->() const { return &value_; }

  // Stores without telling anyone: for a control that corrects its own value inside its change handler.
  void StoreQuietly(T value) { value_ = std::move(value); }

 private:
  Control* owner_;
  PropertyId id_;
  T value_;
};

// One event with at most one handler, as a window's own code writes it. Firing an event that has no handler does
// nothing.
template <class... Parameters>
class Event {
 public:
  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  template <class Handler>
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }
  explicit operator bool() const { return static_cast<bool>(handler_); }
  // Fires from logic: a failure of the handler reaches the caller.
  void operator()(Parameters... parameters) const {
    if (!handler_) return;
    const auto running = handler_;  // the handler may close its own window
    running(std::forward<Parameters>(parameters)...);
  }

 private:
  std::function<void(Parameters...)> handler_;
};

}  // namespace kestrun
