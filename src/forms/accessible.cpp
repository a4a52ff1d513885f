#include "forms/accessible.h"

namespace kestrun {

std::string Accessible::AccessibleChildName(int) const { return {}; }
bool Accessible::IsAccessibleChildSelected(int) const { return false; }
PixelRect Accessible::AccessibleChildArea(int) const { return {}; }

}  // namespace kestrun
