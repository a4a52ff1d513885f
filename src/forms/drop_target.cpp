#include "forms/drop_target.h"

namespace kestrun {
namespace {

Ref<Control>& Target() {
  static Ref<Control> target;
  return target;
}

}  // namespace

Control* DropTarget() { return Target().get(); }

DropTargetScope::DropTargetScope(Control* target) { Target() = Ref<Control>(target); }

DropTargetScope::~DropTargetScope() { Target() = nullptr; }

}  // namespace kestrun
