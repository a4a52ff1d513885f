// The auto host window over a game folder and a folder of three maps.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "program/frame_fixture.h"
#include "support/registered_window.h"
#include "windows/auto_host/frmputlist.h"

namespace kestrun {

class AutoHostTest : public FrameTest {
 protected:
  AutoHostTest() {
    TellGameFolder();
    for (const char* name : {"Arena.bms", "Desert.bms", "Oasis.bms"})
      WriteFile(MapPath(name), std::string("map ") + name);
    WriteFile(MapPath("notes.txt"), "no map");
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nPATHLIST=" + Path("maps") + "\r\n");
  }

  frmputlist& Host() { return Window<frmputlist>(); }

  // The play list, row texts joined.
  [[nodiscard]] std::string Rows() {
    std::string rows;
    for (int row = 0; row < Host().lstmaps.ListCount(); ++row) rows += Host().lstmaps.List(row) + "|";
    return rows;
  }
  void AddRows(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) Host().lstmaps.AddItem(text);
  }
  void Select(const std::vector<int>& rows, int current) {
    Host().lstmaps.ListIndex = current;
    for (int row = 0; row < Host().lstmaps.ListCount(); ++row) Host().lstmaps.SetSelected(row, false);
    for (const int row : rows) Host().lstmaps.SetSelected(row, true);
  }
  [[nodiscard]] std::vector<int> Selected() {
    std::vector<int> rows;
    for (int row = 0; row < Host().lstmaps.ListCount(); ++row) {
      if (Host().lstmaps.Selected(row)) rows.push_back(row);
    }
    return rows;
  }
  void ExpectQuestion(const std::string& text, BoxAnswer answer) {
    desktop.dialogs().ExpectBox(text, answer).WithButtons(BoxButtons::kYesNo);
  }
  void PressKey(Control& control, int key, int shift_state = 0) { control.KeyDown(key, shift_state); }
};

}  // namespace kestrun
