// A picture at its full size. Who opens the window hands it the picture and gives it its size.
#pragma once

#include "forms/form.h"
#include "forms/picture_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"

namespace kestrun {

class frmLargeprev final : public Form {
 public:
  static constexpr const char* kName = window_name::kLargePreview;
  frmLargeprev();

  PictureBox& Picture1 = Add<PictureBox>("Picture1");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;
};

}  // namespace kestrun
