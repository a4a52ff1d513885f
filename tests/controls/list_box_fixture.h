// A list of 200 by 110 pixels with five rows of 22 on a form, and a canvas to paint it on.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/image_list/image_list.h"
#include "controls/list_box/mc_list_box.h"
#include "desktop/headless/raster_canvas.h"
#include "forms/form.h"
#include "forms/keys.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {

class frmlist final : public Form {
 public:
  frmlist() : Form("frmlist") {}

  McListBox& ListBox1 = Add<McListBox>("ListBox1");
  McImageList& ImageList1 = Add<McImageList>("ImageList1");
};

class ListBoxTest : public HeadlessTest {
 protected:
  ListBoxTest() {
    form->Show();
    list.Resized({200, 110}, 96);
    list.SelChange = [this] { events.emplace_back("SelChange " + std::to_string(list.ListIndex())); };
    list.MouseClick = [this] { events.emplace_back("MouseClick"); };
    list.DbClick = [this] { events.emplace_back("DbClick"); };
    list.MouseEnter = [this] { events.emplace_back("MouseEnter"); };
    list.MouseLeave = [this] { events.emplace_back("MouseLeave"); };
    list.PropertyChangedMark = [this](std::string_view name) { marks.emplace_back(name); };
  }
  ~ListBoxTest() override { form->Unload(); }

  void Fill(int count) {
    for (int row = 0; row < count; ++row) list.AddItem("row " + std::to_string(row));
    list.Refresh();
  }
  [[nodiscard]] std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int row = 0; row < list.ListCount(); ++row) rows.push_back(list.List(row));
    return rows;
  }
  [[nodiscard]] std::vector<int> Selected() const {
    std::vector<int> rows;
    for (int n = 0; n < list.SelCount(); ++n) rows.push_back(list.SelItem(n));
    return rows;
  }
  // Pixels of a row's middle, of the rows as they are 22 high.
  [[nodiscard]] static int MiddleOf(int row) { return row * 22 + 11; }
  void Press(int row, int shift_state = 0) { list.OnMouseDown(mouse::kLeft, shift_state, 50, MiddleOf(row)); }
  void Release(int row, int shift_state = 0) { list.OnMouseUp(mouse::kLeft, shift_state, 50, MiddleOf(row)); }
  void Click(int row, int shift_state = 0) {
    Press(row, shift_state);
    Release(row, shift_state);
  }
  void DragTo(int row, int shift_state = 0) { list.OnMouseMove(mouse::kLeft, shift_state, 50, MiddleOf(row)); }
  void Key(int code, int shift_state = 0) { list.OnKeyDown(code, shift_state); }
  std::vector<std::string> Painted() {
    canvas.ForgetCalls();
    list.Paint(canvas);
    return canvas.calls();
  }
  // The calls that begin with the word.
  std::vector<std::string> Painted(const std::string& word) {
    std::vector<std::string> chosen;
    for (const std::string& call : Painted()) {
      if (StartsWith(call, word + " ")) chosen.push_back(call);
    }
    return chosen;
  }

  Ref<frmlist> form = MakeRef<frmlist>();
  McListBox& list = form->ListBox1;
  RasterCanvas canvas{{200, 110}};
  std::vector<std::string> events;
  std::vector<std::string> marks;
};

}  // namespace kestrun
