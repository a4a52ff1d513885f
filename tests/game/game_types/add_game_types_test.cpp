#include "game/game_types/add_game_types.h"

#include "base/runtime_error.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class AddGameTypesTest : public HeadlessTest {
 protected:
  // A file whose bytes tell their places, and whose word at 122 is that.
  void MakeMap(size_t size, uint32_t word) {
    Bytes map(size);
    for (size_t at = 0; at < size; ++at) map[at] = static_cast<uint8_t>(at);
    if (size >= 126) StoreU32(map, 122, word);
    WriteFile(map_, map);
  }
  [[nodiscard]] uint32_t Word() { return LoadU32(native_files.ReadAll(map_), 122); }
  std::string map_ = Path("a.bms");
};

TEST_F(AddGameTypesTest, FlagsAreAddedAndTheUpperHalfStaysAsItWas) {
  MakeMap(200, 0xABCD0200);
  AddGameTypes(map_, 8192 | 128);
  EXPECT_EQ(Word(), 0xABCD2280u);
}

TEST_F(AddGameTypesTest, NothingButTheWordChangesAndASecondRunChangesNothing) {
  MakeMap(200, 512);
  AddGameTypes(map_, 1024);
  const std::string once = ReadFile(map_);
  AddGameTypes(map_, 1024);
  EXPECT_EQ(ReadFile(map_), once);
  MakeMap(200, 512 | 1024);
  EXPECT_EQ(ReadFile(map_), once);
}

TEST_F(AddGameTypesTest, AShorterFileGrowsToThePlaceOfTheWord) {
  MakeMap(123, 0);
  AddGameTypes(map_, 256);
  EXPECT_EQ(ReadFile(map_).size(), 126u);
  EXPECT_EQ(Word(), 256u | 122u);
}

TEST_F(AddGameTypesTest, AMissingFileIsNotMade) {
  EXPECT_EQ(ErrorNumberOf([&] {
              AddGameTypes(map_, 256);
              return 0;
            }),
            error::kFileNotFound);
  EXPECT_FALSE(FileIsThere(map_));
}

}  // namespace
}  // namespace kestrun
