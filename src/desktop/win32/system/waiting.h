// The thread with the windows waits for something, and no window answers meanwhile.
#pragma once

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Posted to itself by a window that paints with its next message.
inline constexpr UINT kPaintSoon = WM_APP + 1;

// While it lives the mouse shows an hourglass, and what the user presses goes nowhere, neither now nor afterwards: it
// would answer the question that comes next, before anybody has seen it.
class Waiting {
 public:
  Waiting();
  ~Waiting();
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;

  // Paints what has changed on the windows, answers screen readers, and throws away what was pressed. True once Esc has
  // been.
  [[nodiscard]] bool PaintAndListen();

 private:
  static void Paint(UINT kind);
  static void AnswerReaders();
  void Listen(UINT first, UINT last);

  HCURSOR before_;
  HCURSOR hourglass_;
  bool escape_pressed_ = false;
};

}  // namespace kestrun
