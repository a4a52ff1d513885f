// What the add-in of the tests does with the window that it was handed.
#pragma once

#include "support/late_bound.h"

namespace tour {

// Reads every public field and every control by name, uses each road into the window, and notes what it saw. Afterwards
// a timer looks at the window until that is closed, and notes the failure that it then gets. Throws a Failure when a
// call fails that should not.
void TakeTour(const late_bound::Reference& window, IDispatch& self);

// Lets go of what the tour keeps: for a program that stops using COM before it ends.
void ForgetWindow();
// True once that timer has seen the window's end.
[[nodiscard]] bool HasSeenTheEnd();

}  // namespace tour
