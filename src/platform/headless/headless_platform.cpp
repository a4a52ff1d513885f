#include "platform/headless/headless_platform.h"

namespace kestrun {

void HeadlessPlatform::OnUnexpected(const UnexpectedHandler& handler) {
  dialogs_.on_unexpected = handler;
  windowing_.on_unexpected = handler;
}

}  // namespace kestrun
