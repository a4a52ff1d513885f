#include "forms/combo_box.h"
#include "base/convert.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/form.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class ComboBoxTest : public HeadlessTest {
 protected:
  ComboBoxTest() {
    for (const char* row : {"Desert", "Harbour", "Oasis"}) combo.AddItem(row);
    combo.Click = [this] { ++clicks; };
    combo.Change = [this] { ++changes; };
  }
  Ref<Form> form = MakeRef<Form>("frmcombo");
  ComboBox& combo = form->Add<ComboBox>("Combo1");
  int clicks = 0;
  int changes = 0;
};

TEST_F(ComboBoxTest, AChosenRowIsTheText) {
  combo.ListIndex = 1;
  EXPECT_EQ(combo.Text.get(), "Harbour");
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 0);
}

TEST_F(ComboBoxTest, TypedTextIsNoRowUnlessOneHasIt) {
  combo.ListIndex = 1;
  combo.Text = std::string("Har");
  EXPECT_EQ(combo.ListIndex, -1);
  combo.Text = std::string("oasis");
  EXPECT_EQ(combo.ListIndex, 2);
  EXPECT_EQ(changes, 2);
}

TEST_F(ComboBoxTest, AListWithoutTypingTakesOnlyTheTextOfARow) {
  combo.Style = static_cast<int>(ComboStyle::kList);
  combo.Text = std::string("Oasis");
  EXPECT_EQ(combo.ListIndex, 2);
  try {
    combo.Text = std::string("Mars");
    FAIL();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 383);
    EXPECT_EQ(failure.description(), "Property is read-only");
  }
  EXPECT_EQ(combo.Text.get(), "Oasis");
}

TEST_F(ComboBoxTest, RowsCarryNumbersAndTheNewestIsKnown) {
  combo.Sorted = true;
  combo.AddItem("Gorge");
  EXPECT_EQ(combo.NewIndex(), 1);
  combo.SetItemData(1, 77);
  EXPECT_EQ(ToLong(GetMember(combo, "ItemData", {1})), 77);
  combo.RemoveItem(0);
  EXPECT_EQ(combo.ItemData(0), 77);
}

TEST_F(ComboBoxTest, SelectedTextIsReplaced) {
  combo.Text = std::string("put map in");
  combo.SelStart = 4;
  combo.SelLength = 3;
  EXPECT_EQ(combo.SelText(), "map");
  combo.SetSelText("zip");
  EXPECT_EQ(combo.Text.get(), "put zip in");
  EXPECT_EQ(combo.SelStart, 7);
}

}  // namespace
}  // namespace kestrun
