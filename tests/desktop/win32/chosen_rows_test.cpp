// A list of which several rows can be chosen, in a real window.
#include "desktop/win32/window_fixture.h"
#include "forms/list_box.h"

namespace kestrun {
namespace {

constexpr int kRows = 300;

class frmchosen final : public Form {
 public:
  frmchosen() : Form("frmchosen") {
    list.MultiSelect = 2;
    list.MarkMeaning = "plays now";
    for (int row = 0; row < kRows; ++row) list.AddItem("row " + std::to_string(row));
  }
  ListBox& list = Add<ListBox>("list");
};
const WindowRegistration registration("frmchosen", [] { return MakeRef<frmchosen>(); });

class ChosenRowsTest : public RealWindowTest {
 protected:
  ChosenRowsTest() : list(static_cast<frmchosen&>(WindowByName("frmchosen")).list) {
    list.Move(0, 0, 3000, 1500);
    list.form()->Show();
    Pump();
  }
  void Choose(bool (*is_chosen)(int row)) {
    for (int row = 0; row < kRows; ++row) list.SetSelected(row, is_chosen(row));
    Pump();
  }
  [[nodiscard]] LRESULT Ask(UINT message, int row = 0) const {
    return SendMessageW(HandleOf(list), message, static_cast<WPARAM>(row), 0);
  }
  void ExpectShown() {
    for (int row = 0; row < kRows; ++row) EXPECT_EQ(Ask(LB_GETSEL, row) > 0, list.Selected(row)) << row;
  }

  ListBox& list;
};

TEST_F(ChosenRowsTest, AllRowsAreChosenAndFreedAgain) {
  Choose([](int) { return true; });
  EXPECT_EQ(Ask(LB_GETSELCOUNT), kRows);
  Choose([](int) { return false; });
  EXPECT_EQ(Ask(LB_GETSELCOUNT), 0);
}

TEST_F(ChosenRowsTest, RowsHereAndThereAreChosenEachForItself) {
  Choose([](int row) { return row % 7 < 3; });
  ExpectShown();
  Choose([](int row) { return row % 5 == 0; });
  ExpectShown();
}

TEST_F(ChosenRowsTest, AChoiceDoesNotScrollTheList) {
  SendMessageW(HandleOf(list), LB_SETTOPINDEX, 40, 0);
  Choose([](int row) { return row != 2; });
  EXPECT_EQ(Ask(LB_GETTOPINDEX), 40);
}

}  // namespace
}  // namespace kestrun
