#include "styles/style_active.h"

namespace kestrun {
namespace {

bool is_active = false;

}  // namespace

bool IsStyleActive() { return is_active; }

void SetStyleActive(bool active) { is_active = active; }

}  // namespace kestrun
