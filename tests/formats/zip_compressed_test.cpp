// Compressed members through UnPack: whole, damaged and cut.
#include <filesystem>

#include "formats/inflate_stream.h"
#include "formats/zip_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Last = DeflateStream::Last;

constexpr uint16_t kDeflated = 8;
constexpr uint16_t kDeflated64 = 9;

// Says of the stream that it is the text, truly or not.
ZipMember Compressed(const std::string& name, const Bytes& stream, std::string_view text, uint16_t method = kDeflated) {
  ZipMember member{name, std::string(AsChars(stream))};
  member.method = method;
  member.crc = ReferenceCrc(text);
  member.uncompressed_size = static_cast<uint32_t>(text.size());
  return member;
}

Bytes Deflated(std::string_view text) {
  return DeflateStream().Header(Last::kYes, 1).Literals(text).EndOfBlock().bytes();
}

// Without followers each byte stands as it is.
Bytes Reduced(std::string_view text) {
  BitWriter bits;
  for (int set = 0; set < 256; ++set) bits.Number(0, 6);
  for (const char one : text) bits.Number(static_cast<uint8_t>(one), 8);
  return bits.bytes();
}

class ZipCompressedTest : public ZipTest {
 protected:
  // Where the system tells: how many files the program has open.
  static size_t OpenFiles() {
    const std::filesystem::path descriptors("/proc/self/fd");
    if (!std::filesystem::exists(descriptors)) return 0;
    const auto entries = std::filesystem::directory_iterator(descriptors);
    return static_cast<size_t>(std::distance(begin(entries), end(entries)));
  }
};

TEST_F(ZipCompressedTest, ADeflatedMemberIsWrittenWithoutAWord) {
  LoadZip({Compressed("alpha.bms", Deflated("BMS alpha"), "BMS alpha")});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS alpha");
}

TEST_F(ZipCompressedTest, ADeflatedMemberOfNothingIsAnEmptyFileWithoutAWord) {
  LoadZip({Compressed("empty.bms", Deflated(""), "")});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_TRUE(IsThere("empty.bms"));
  EXPECT_EQ(Extracted("empty.bms"), "");
}

TEST_F(ZipCompressedTest, ALongRunOfDeflate64IsWrittenWithoutAWord) {
  DeflateStream stream;
  stream.Header(Last::kYes, 1).Literals("BMS.").Symbol(285).bits().Number(50000 - 3, 16);
  stream.Distance(0).EndOfBlock();
  const std::string text = "BMS." + std::string(50000, '.');
  LoadZip({Compressed("alpha.bms", stream.bytes(), text, kDeflated64)});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_TRUE(Extracted("alpha.bms") == text);
}

// ---- damaged -----------------------------------------------------------------------------------------------------

TEST_F(ZipCompressedTest, ADamagedDeflatedMemberIsToldByItsChecksumAndLeavesAFile) {
  LoadZip({Compressed("alpha.bms", Deflated("BMS alphb"), "BMS alpha")});
  ExpectBox("CRC calculation failed");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS alphb");
}

TEST_F(ZipCompressedTest, ADeflatedMemberCutShortIsToldByItsSizeToo) {
  const Bytes cut = DeflateStream().Header(Last::kYes, 1).Literals("BMS al").bytes();
  LoadZip({Compressed("alpha.bms", cut, "BMS alpha")});
  ExpectBox("CRC calculation failed");
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS al");
}

TEST_F(ZipCompressedTest, AShortMemberWithTheChecksumOfWhatCameIsToldByItsSizeAlone) {
  ZipMember member = Compressed("alpha.bms", Deflated("BMS al"), "BMS al");
  member.uncompressed_size = 9;
  LoadZip({member});
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS al");
}

TEST_F(ZipCompressedTest, ABlockOfTypeThreeLeavesWhatCameBeforeAndTheStatusAlone) {
  DeflateStream stream;
  stream.Header(Last::kNo, 1).Literals("BMS").EndOfBlock().Header(Last::kYes, 3);
  LoadZip({Compressed("alpha.bms", stream.bytes(), "BMS alpha"), {"beta.bms", "BMS"}});
  ExpectBox("CRC calculation failed");
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS");
  EXPECT_EQ(Extracted("beta.bms"), "BMS");
}

TEST_F(ZipCompressedTest, ABlockOfTypeThreeAtTheStartLeavesAnEmptyFile) {
  LoadZip({Compressed("alpha.bms", DeflateStream().Header(Last::kYes, 3).bytes(), "BMS alpha")});
  ExpectBox("CRC error");
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_TRUE(IsThere("alpha.bms"));
  EXPECT_EQ(Extracted("alpha.bms"), "");
}

TEST_F(ZipCompressedTest, AMemberWhoseCodesCannotBeBuiltIsWrittenAsItIsStored) {
  std::vector<uint8_t> literals(257, 0);
  literals['x'] = 1;
  literals['y'] = 1;
  literals[256] = 1;
  const Bytes stream = DeflateStream().Codes(Last::kYes, literals, {0}).bytes();
  LoadZip({Compressed("alpha.bms", stream, "BMS alpha")});
  ExpectBox("Error in tree creation (Static)");
  ExpectBox("CRC calculation failed");
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), AsChars(stream));
}

TEST_F(ZipCompressedTest, AStreamThatLeavesItsBuffersReachesTheCallerAndTheArchiveIsClosed) {
  DeflateStream far;
  far.Header(Last::kYes, 1).Literals("BMS").Match(257, 0, 0, 10).EndOfBlock();
  LoadZip({{"alpha.bms", "BMS"}, Compressed("beta.bms", far.bytes(), "BMSBMS"), {"gamma.bms", "BMS"}});
  const size_t open_before = OpenFiles();
  EXPECT_EQ(ErrorNumberOf([&] { return UnPackAll(); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(OpenFiles(), open_before);
  EXPECT_THAT(OutEntries(), ElementsAre("alpha.bms"));
  // An open file could not be removed on Windows.
  native_files.Delete(zip_path);
  EXPECT_FALSE(FileIsThere(zip_path));
}

TEST_F(ZipCompressedTest, AMemberThatGivesMoreThanAnnouncedReachesTheCaller) {
  ZipMember member = Compressed("alpha.bms", Deflated("BMS alpha"), "BMS alpha");
  member.uncompressed_size = 5;
  LoadZip({member});
  EXPECT_EQ(ErrorNumberOf([&] { return UnPackAll(); }), error::kSubscriptOutOfRange);
  EXPECT_THAT(OutEntries(), IsEmpty());
}

TEST_F(ZipCompressedTest, AnAnnouncedSizeOfFourGigabytesIsOnlyAWrongSize) {
  ZipMember member = Compressed("alpha.bms", Deflated("BMS alpha"), "BMS alpha");
  member.uncompressed_size = 0xFFFFFFFF;
  LoadZip({member});
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS alpha");
}

// ---- reduced -----------------------------------------------------------------------------------------------------

TEST_F(ZipCompressedTest, AReducedMemberGivesNoFileAndItsStatus) {
  std::vector<ZipMember> members;
  for (const uint16_t method : {2, 3, 4, 5}) {
    members.push_back(Compressed("whole" + std::to_string(method), Reduced("BMS alpha"), "BMS alpha", method));
    members.push_back(Compressed("cut" + std::to_string(method), Reduced("BMS al"), "BMS alpha", method));
  }
  LoadZip(members);
  for (int32_t member = 1; member <= 8; member += 2) {
    EXPECT_EQ(UnPackOnly(member), 0) << member;
    EXPECT_EQ(UnPackOnly(member + 1), -1) << member;
  }
  EXPECT_FALSE(FileIsThere(out));
}

TEST_F(ZipCompressedTest, MembersBehindAReducedOneAreWritten) {
  LoadZip({Compressed("reduced.bms", Reduced("BMS"), "BMS", 2), {"beta.bms", "BMS beta"}});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
}

}  // namespace
}  // namespace kestrun
