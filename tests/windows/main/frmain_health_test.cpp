// The health of the maps in the main window's list.
#include <gmock/gmock.h>

#include <algorithm>

#include "controls/list_box/list_items.h"
#include "desktop/headless/raster_canvas.h"
#include "formats/bms/bms_writer.h"
#include "windows/main/frmain_fixture.h"

namespace kestrun {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class MainHealthTest : public MainWindowTest {
 protected:
  MainHealthTest() {
    WriteFile(MapPath("Desert.bms"), MissionOf(0x200));  // deathmatch
    WriteFile(MapPath("Empty.bms"), "");
    WriteFile(MapPath("Oasis.bms"), MissionOf(0x1000));  // capture the flag
  }

  [[nodiscard]] static Bytes MissionOf(uint16_t game_types) {
    MissionFields fields;
    fields.game_types = game_types;
    return WriteMission(fields);
  }
  // What is painted of the list.
  [[nodiscard]] std::vector<std::string> Painted() {
    Main().ListBox.Resized({400, 200}, 96);
    RasterCanvas canvas({400, 200});
    Main().ListBox.Paint(canvas);
    return canvas.calls();
  }
  // What a screen reader calls the row, once its badge has come in.
  [[nodiscard]] std::string ReadersName(int row) {
    static_cast<void>(Main().ListBox.AccessibleChildName(row));
    RunPendingEvents();
    return Main().ListBox.AccessibleChildName(row);
  }
};

TEST_F(MainHealthTest, RowsAreThereAtOnceAndTheirBadgesComeInAfterwards) {
  MainOnMaps();
  EXPECT_THAT(Painted(), Not(Contains(HasSubstr("'bad'"))));
  RunPendingEvents();
  RunPendingEvents();
  const std::vector<std::string> painted = Painted();
  EXPECT_THAT(painted, Contains(HasSubstr("'doubtful'")));
  EXPECT_THAT(painted, Contains(HasSubstr("'bad'")));
  EXPECT_THAT(painted, Contains(HasSubstr("'good'")));
  EXPECT_EQ(std::count_if(painted.begin(), painted.end(),
                          [](const std::string& call) { return call.starts_with("Picture "); }),
            3);
}

TEST_F(MainHealthTest, AListThatWasJustFilledIsPaintedWithoutBadges) {
  MainOnMaps();
  static_cast<void>(ReadersName(1));
  EXPECT_THAT(Painted(), Contains(HasSubstr("'bad'")));
  Main().Text1.Text = Path("game");
  Main().Text1.Text = Path("maps");
  EXPECT_THAT(Painted(), Not(Contains(HasSubstr("'bad'"))));
  desktop.clock().AdvanceMs(500);
  EXPECT_THAT(Painted(), Contains(HasSubstr("'bad'")));
}

TEST_F(MainHealthTest, TheListsOwnTextsStayAsTheyAre) {
  MainOnMaps();
  static_cast<void>(Painted());
  RunPendingEvents();
  EXPECT_EQ(Rows(), "Desert.bms|Empty.bms|Oasis.bms|");
  EXPECT_EQ(Main().ListBox.ListIcon(0), ListItems::kNoIcon);
}

TEST_F(MainHealthTest, AScreenReaderHearsTheWordAndTheReasons) {
  MainOnMaps();
  EXPECT_EQ(ReadersName(0), "Desert.bms, doubtful, It is made for Deathmatch, not for Capture the flag.");
  EXPECT_EQ(ReadersName(1), "Empty.bms, bad, The file is empty.");
  EXPECT_EQ(ReadersName(2), "Oasis.bms, good");
}

TEST_F(MainHealthTest, AnotherChosenMissionMakesAnotherHealthWithoutReadingAgain) {
  MainOnMaps();
  static_cast<void>(ReadersName(0));
  Main().opdeath.Value = true;
  EXPECT_EQ(Main().ListBox.AccessibleChildName(0), "Desert.bms, good");
  Main().oprename.Value = true;
  Main().txtoutput.Text = "";
  EXPECT_EQ(Main().ListBox.AccessibleChildName(0),
            "Desert.bms, bad, No name is typed that the map is to be renamed to.");
}

TEST_F(MainHealthTest, TheStatusLineTellsTheReasonsOfTheSelectedMap) {
  MainOnMaps();
  static_cast<void>(ReadersName(1));
  ClickRow(1);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "Empty.bms is bad: The file is empty.");
}

TEST_F(MainHealthTest, RefreshLooksAtTheFilesAgain) {
  MainOnMaps();
  EXPECT_EQ(ReadersName(1), "Empty.bms, bad, The file is empty.");
  WriteFile(MapPath("Empty.bms"), MissionOf(0x1000));
  Main().Command6.Press();
  EXPECT_EQ(ReadersName(1), "Empty.bms, good");
}

TEST_F(MainHealthTest, AStyleCanPutOtherPicturesIn) {
  MainOnMaps();
  const auto picture = MakeRef<Picture>(1, 1, std::vector<uint32_t>{0xFF123456});
  Main().ImgBad.Picture = picture;
  EXPECT_FALSE(Main().ImgBad.Visible);
  static_cast<void>(ReadersName(1));
  Main().ListBox.Resized({400, 200}, 96);
  RasterCanvas canvas({400, 200});
  Main().ListBox.Paint(canvas);
  bool is_painted = false;
  for (int x = 300; x < 400; ++x) is_painted = is_painted || canvas.At(x, 33) == 0x123456;
  EXPECT_TRUE(is_painted);
}

}  // namespace
}  // namespace kestrun
