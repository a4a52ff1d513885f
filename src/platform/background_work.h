// Reading that may take long, such as from a slow network, without holding the windows up.
#pragma once

#include <functional>

namespace kestrun {

class BackgroundWork {
 public:
  virtual ~BackgroundWork() = default;
  // Runs `work` away from the windows' thread, one after the other in their order, and behind each `done` in a later
  // pass of the message loop. `work` may use the files of the platform and what is its own, nothing else, and raises
  // nothing. What still waits when the program ends is dropped.
  virtual void Run(std::function<void()> work, std::function<void()> done) = 0;
};

// Null takes the installed one away. It must outlive its use. Gives the one that was installed before.
BackgroundWork* InstallBackgroundWork(BackgroundWork* background);

// Where none is installed, as in tests and on the command line, both run in the next pass of the message loop.
void RunInBackground(std::function<void()> work, std::function<void()> done);

}  // namespace kestrun
