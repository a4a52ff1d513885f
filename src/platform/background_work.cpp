#include "platform/background_work.h"

#include <utility>

#include "platform/platform.h"

namespace kestrun {
namespace {

BackgroundWork*& Installed() {
  static BackgroundWork* background = nullptr;
  return background;
}

}  // namespace

BackgroundWork* InstallBackgroundWork(BackgroundWork* background) { return std::exchange(Installed(), background); }

void RunInBackground(std::function<void()> work, std::function<void()> done) {
  if (Installed()) return Installed()->Run(std::move(work), std::move(done));
  platform().clock().Post([work = std::move(work), done = std::move(done)] {
    work();
    done();
  });
}

}  // namespace kestrun
