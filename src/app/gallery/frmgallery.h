// One window with every kind of control in its states: what is looked at when controls are painted anew.
#pragma once

#include "controls/image_list/image_list.h"
#include "controls/list_box/mc_list_box.h"
#include "controls/progress_bar/progress_bar.h"
#include "controls/quick_link/quick_link.h"
#include "forms/form.h"

namespace kestrun {

class frmgallery final : public Form {
 public:
  static constexpr const char* kName = "frmgallery";
  frmgallery();

 private:
  McImageList& icons_ = Add<McImageList>("ImageList1");

  void AddPlainControls();
  void AddProgressBars();
  void AddLinks();
  void AddLists();
  // A list with a caption above it, in one cell of the grid of lists.
  McListBox& AddList(const char* caption, int column, int row);
};

}  // namespace kestrun
