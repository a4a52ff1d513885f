#include "desktop/win32/system/ole_start.h"

#include "desktop/win32/system/late_call.h"

namespace kestrun {

void StartOle() {
  static const HRESULT started = KESTRUN_LATE(L"ole32.dll", OleInitialize)(nullptr);
  static_cast<void>(started);
}

}  // namespace kestrun
