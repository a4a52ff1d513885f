#include "program/start_mode.h"

namespace kestrun {
namespace {

bool safe_mode = false;

}  // namespace

bool SafeMode() { return safe_mode; }

void SetSafeMode(bool on) { safe_mode = on; }

}  // namespace kestrun
