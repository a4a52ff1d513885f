// What the controls share whose designer's work is stored with the window: properties that act at every assignment, the
// mark that a stored property has changed, and fonts in a property bag.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "forms/control.h"
#include "forms/member_rows.h"
#include "forms/property_bag.h"

namespace kestrun {

// A property whose every assignment counts, that of the present value too: the control acts on it each time.
template <class T>
class LetProperty {
 public:
  LetProperty(T initial, std::function<void()> on_let) : value_(std::move(initial)), on_let_(std::move(on_let)) {}
  LetProperty(const LetProperty&) = delete;
  LetProperty& operator=(const LetProperty& other) { return *this = other.value_; }

  LetProperty& operator=(T value) {
    value_ = std::move(value);
    on_let_();
    return *this;
  }
  operator const T&() const { return value_; }
  [[nodiscard]] const T& get() const { return value_; }

  // Stores without any effect: for a control that corrects its own value.
  void StoreQuietly(T value) { value_ = std::move(value); }

 private:
  T value_;
  std::function<void()> on_let_;
};

namespace internal {

template <class C, class T>
struct MemberPointer<LetProperty<T> C::*> {
  using Class = C;
  using Value = T;
};

}  // namespace internal

// Beside Control in the bases of a control with stored properties.
class StoredControl {
 public:
  // A stored property was assigned and has to be written again; names it.
  Event<std::string_view> PropertyChangedMark;

 protected:
  ~StoredControl() = default;
  void MarkChanged(std::string_view name) const {
    if (!is_reading_) PropertyChangedMark(name);
  }

  // While stored properties are read back nothing is marked: they are what is stored.
  class Reading {
   public:
    explicit Reading(StoredControl& control) : control_(control) { control_.is_reading_ = true; }
    ~Reading() { control_.is_reading_ = false; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

   private:
    StoredControl& control_;
  };

 private:
  bool is_reading_ = false;
};

// A font as a property bag holds it: one line of text, "Tahoma;8.25;bold;italic".
[[nodiscard]] Variant StoredFont(const FontDescription& font);
// Back from that line, or from a font object. Error 13 for any other value.
[[nodiscard]] FontDescription FontFrom(const Variant& value);
// The font of what the control stands in, which is the default of a control's own.
[[nodiscard]] FontDescription ContainerFont(const Control& control);

// Colours as a property bag holds them.
[[nodiscard]] inline Variant StoredColor(Color color) { return VariantTraits<Color>::To(color); }
[[nodiscard]] inline Color ColorFrom(const Variant& value) { return VariantTraits<Color>::From(value); }

// The row of a control's own font: reads as a font object, and takes another's font.
Variant GetFont(Object& control, Arguments arguments);
void PutFont(Object& control, Arguments arguments, const Variant& value);
constexpr Member FontRow(std::string_view name) { return {name, MemberKind::kReadWrite, 0, 0, &GetFont, &PutFont}; }

}  // namespace kestrun
