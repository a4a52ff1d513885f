// Background work on a thread of its own, which is made when something is to be done for the first time.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "desktop/win32/system/handles.h"
#include "platform/background_work.h"

namespace kestrun {

class Win32Background final : public BackgroundWork {
 public:
  Win32Background();
  // Waits for the work that runs, which may be at the files of the platform. When that takes too long, as at a share
  // that is gone, the process ends here, with the exit code of its commands: its windows are closed, and nothing else
  // is left to do.
  ~Win32Background() override;
  Win32Background(const Win32Background&) = delete;
  Win32Background& operator=(const Win32Background&) = delete;

  void Run(std::function<void()> work, std::function<void()> done) override;

 private:
  struct Shared;
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second);
  static void RunThread(const std::shared_ptr<Shared>& shared);
  void RunFinished();

  std::shared_ptr<Shared> shared_;
  WindowHandle window_;
};

}  // namespace kestrun
