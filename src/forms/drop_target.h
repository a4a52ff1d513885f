// Which control files were dropped on: for a form's FilesDropped handler.
#pragma once

#include "forms/control.h"

namespace kestrun {

// The control under the mouse while FilesDropped runs; null for the form itself, and at any other time.
[[nodiscard]] Control* DropTarget();

// For what tells a form of dropped files: the target for as long as the object lives.
class DropTargetScope {
 public:
  explicit DropTargetScope(Control* target);
  ~DropTargetScope();
  DropTargetScope(const DropTargetScope&) = delete;
  DropTargetScope& operator=(const DropTargetScope&) = delete;
};

}  // namespace kestrun
