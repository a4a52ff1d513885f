// What a screen reader asks of a control that the system knows nothing about.
#pragma once

#include <string>

#include "platform/pixels.h"

namespace kestrun {

class Control;

// The words of the label that stands right before the control in the tab order, or of the option whose text the control
// takes; empty without one.
[[nodiscard]] std::string WordsBefore(const Control& control);
// What a screen reader calls a control that has no text of its own, such as a text box: the words before it, else its
// tip.
[[nodiscard]] std::string ReadersName(const Control& control);

class Accessible {
 public:
  enum class Role { kPanel, kList, kProgressBar, kLink };

  [[nodiscard]] virtual Role AccessibleRole() const = 0;
  [[nodiscard]] virtual std::string AccessibleName() const = 0;
  // What it shows, such as "50%"; empty for a control that shows no value.
  [[nodiscard]] virtual std::string AccessibleValue() const { return {}; }
  // Rows of a list with their text and selection.
  [[nodiscard]] virtual int AccessibleChildCount() const { return 0; }
  [[nodiscard]] virtual std::string AccessibleChildName(int child) const;
  [[nodiscard]] virtual bool IsAccessibleChildSelected(int child) const;
  // The row that the keys work on; -1 when it is the control itself.
  [[nodiscard]] virtual int AccessibleFocusedChild() const { return -1; }
  // The row's place in the client area; empty when it is out of sight.
  [[nodiscard]] virtual PixelRect AccessibleChildArea(int child) const;

 protected:
  ~Accessible() = default;
};

}  // namespace kestrun
