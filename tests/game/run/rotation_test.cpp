#include "game/run/rotation.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

TEST(RotationTest, AMapIsCalledByItsFileWithoutFolderAndEnding) {
  EXPECT_EQ(PlainMapName("C:\\maps\\Harbour at night.bms"), "Harbour at night");
  EXPECT_EQ(PlainMapName("http://host/maps/desert.v2.bms"), "desert.v2");
  EXPECT_EQ(PlainMapName("plain"), "plain");
  EXPECT_EQ(PlainMapName(""), "");
}

TEST(RotationTest, TheTimeLeftHasTwoDigitsOfSeconds) {
  EXPECT_EQ(TimeLeftText("4", "5"), "4:05");
  EXPECT_EQ(TimeLeftText("15", "58"), "15:58");
}

}  // namespace
}  // namespace kestrun
