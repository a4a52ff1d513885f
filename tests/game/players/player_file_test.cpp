// The names in the game's save file: which bytes they are, and that no other byte ever changes.
#include "game/players/player_file.h"

#include <gtest/gtest.h>

#include <random>

#include "base/code_page.h"
#include "support/headless_fixture.h"
#include "support/simulated_disk.h"

namespace kestrun {
namespace {

constexpr size_t kOffsets[]{12, 2076, 4140, 6204, 8268};
constexpr size_t kFileBytes = 12 + 5 * 2064;
constexpr const char* kPath = "C:\\game\\dflwplyr.sav";

Bytes RandomBytes(std::mt19937& random, size_t count) {
  Bytes bytes(count);
  for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
  return bytes;
}

// Letters of the code page, 0 to 15 of them.
std::string RandomName(std::mt19937& random) {
  static const std::vector<std::string> letters{"a", "Z", "0", " ", "é", "ß", "€", "ÿ", "[", "~", "©"};
  std::string name;
  for (size_t left = random() % 16; left > 0; --left) name += letters[random() % letters.size()];
  return name;
}

// `after` with the bytes of `before` in all that a save of these names writes.
Bytes WithFieldsOf(const Bytes& before, Bytes after, const PlayerNames& names) {
  for (size_t player = 0; player < kPlayerCount; ++player) {
    const auto begin = static_cast<std::ptrdiff_t>(kOffsets[player]);
    const auto count = static_cast<std::ptrdiff_t>(CodePointCount(names[player]) + 2);
    std::copy_n(before.begin() + begin, count, after.begin() + begin);
  }
  return after;
}

class PlayerFileTest : public HeadlessTest {
 protected:
  [[nodiscard]] std::string SaveFile() const { return Path("dflwplyr.sav"); }
  Bytes Save(const PlayerNames& names) {
    WritePlayerFile(SaveFile(), names);
    return native_files.ReadAll(SaveFile());
  }
};

TEST_F(PlayerFileTest, NamesLieAtTheirPlacesAndEndAtTheFirstZeroByte) {
  Bytes file(kFileBytes, 'x');
  for (size_t player = 0; player < kPlayerCount; ++player) {
    const std::string field = "Name" + std::to_string(player) + '\0';
    std::ranges::copy(AsBytes(field), file.begin() + static_cast<std::ptrdiff_t>(kOffsets[player]));
  }
  WriteFile(SaveFile(), file);
  EXPECT_EQ(ReadPlayerFile(SaveFile()), (PlayerNames{"Name0", "Name1", "Name2", "Name3", "Name4"}));
}

TEST_F(PlayerFileTest, ANameOfFifteenCharactersFillsTheFieldAndItsZeroBytesLieBehind) {
  WriteFile(SaveFile(), Bytes(kFileBytes, 'x'));
  const Bytes saved = Save({"ABCDEFGHIJKLMNO", "", "", "", ""});
  EXPECT_EQ(AsChars(saved).substr(12, 18), std::string("ABCDEFGHIJKLMNO\0\0x", 18));
  EXPECT_EQ(ReadPlayerFile(SaveFile())[0], "ABCDEFGHIJKLMNO");
}

TEST_F(PlayerFileTest, OfALongerNameOnlyFifteenCharactersAreWritten) {
  WriteFile(SaveFile(), Bytes(kFileBytes, 'x'));
  const Bytes saved = Save({"", "", "", "", "ABCDEFGHIJKLMNOPQ"});
  EXPECT_EQ(AsChars(saved).substr(8268, 18), std::string("ABCDEFGHIJKLMNO\0\0x", 18));
}

TEST_F(PlayerFileTest, AnEmptyNameIsTwoZeroBytesAndTheRestOfALongerOneStays) {
  WriteFile(SaveFile(), Bytes(kFileBytes, 'x'));
  static_cast<void>(Save({"Commander", "", "", "", ""}));
  const Bytes saved = Save({"", "", "", "", ""});
  EXPECT_EQ(AsChars(saved).substr(12, 12), std::string("\0\0mmander\0\0x", 12));
  EXPECT_EQ(ReadPlayerFile(SaveFile())[0], "");
}

TEST_F(PlayerFileTest, CharactersAbove127AreSingleBytesAndOthersBecomeAQuestionMark) {
  WriteFile(SaveFile(), Bytes(kFileBytes, 'x'));
  const Bytes saved = Save({"é€ÿ", "地a図", "", "", ""});
  EXPECT_EQ(AsChars(saved).substr(12, 5), std::string("\xE9\x80\xFF\0\0", 5));
  EXPECT_EQ(AsChars(saved).substr(2076, 5), std::string("?a?\0\0", 5));
  EXPECT_EQ(ReadPlayerFile(SaveFile())[0], "é€ÿ");
}

TEST_F(PlayerFileTest, AFolderWithoutTheFileGetsOneThatHoldsOnlyNames) {
  EXPECT_EQ(Save({"a", "b", "c", "d", "ABCDEFGHIJKLMNO"}).size(), 8285U);
  EXPECT_EQ(ReadPlayerFile(SaveFile()), (PlayerNames{"a", "b", "c", "d", "ABCDEFGHIJKLMNO"}));
}

TEST_F(PlayerFileTest, AFileThatIsCutOffHasEmptyNamesBehindItsEnd) {
  WriteFile(SaveFile(), std::string(12, 'x') + "Neo");
  EXPECT_EQ(ReadPlayerFile(SaveFile()), (PlayerNames{"Neo", "", "", "", ""}));
  WriteFile(SaveFile(), std::string());
  EXPECT_EQ(ReadPlayerFile(SaveFile()), PlayerNames());
}

TEST_F(PlayerFileTest, AThousandRandomSavesChangeNothingButTheNameFields) {
  std::mt19937 random(20);
  SimulatedDisk disk;
  disk.Put(kPath, RandomBytes(random, kFileBytes + 77));
  desktop.UseFiles(disk);
  for (int round = 0; round < 1000; ++round) {
    const Bytes before = *disk.Content(kPath);
    PlayerNames names;
    for (std::string& name : names) name = RandomName(random);
    WritePlayerFile(kPath, names);
    const Bytes after = *disk.Content(kPath);
    ASSERT_EQ(after.size(), before.size());
    ASSERT_TRUE(WithFieldsOf(before, after, names) == before) << "round " << round;
    ASSERT_EQ(ReadPlayerFile(kPath), names) << "round " << round;
    ASSERT_TRUE(after == WithPlayerNames(before, names));
  }
  desktop.UseFiles(native_files);
}

TEST_F(PlayerFileTest, AFailureOrAKillAtAnyWriteNeverShortensTheFileOrTouchesOtherBytes) {
  std::mt19937 random(21);
  const Bytes before = RandomBytes(random, kFileBytes);
  const PlayerNames names{"ABCDEFGHIJKLMNO", "b", "", "Dora", "Ed"};
  for (const Fault fault : {Fault::kFailure, Fault::kKill}) {
    int call = 0;
    for (bool has_happened = true; has_happened; ++call) {
      SimulatedDisk disk;
      disk.Put(kPath, before);
      desktop.UseFiles(disk);
      disk.Arm(fault, call);
      try {
        WritePlayerFile(kPath, names);
      } catch (const ProcessEnded&) {
        EXPECT_EQ(fault, Fault::kKill);
      } catch (const RuntimeError&) {
        EXPECT_EQ(fault, Fault::kFailure);
      }
      has_happened = disk.HasHappened();
      const Bytes after = *disk.Content(kPath);
      ASSERT_EQ(after.size(), before.size());
      EXPECT_TRUE(WithFieldsOf(before, after, names) == before) << "call " << call;
    }
    EXPECT_GE(call, 6) << "one call opens the file and each name is one";
  }
  desktop.UseFiles(native_files);
}

}  // namespace
}  // namespace kestrun
