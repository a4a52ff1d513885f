#include "formats/zip/zip_texts.h"

#include <gmock/gmock.h>

#include "base/calendar.h"

namespace kestrun::zip {
namespace {

using testing::ElementsAre;

TEST(ZipTextsTest, EachMethodHasItsText) {
  std::vector<std::string> texts;
  for (uint16_t method = 0; method <= 13; ++method) texts.emplace_back(MethodText(method));
  EXPECT_THAT(texts, ElementsAre("No Compression", "Shrunk", "Reduce Factor 1", "Reduce Factor 2", "Reduce Factor 3",
                                 "Reduce Factor 4", "Imploded", "Tokenized", "Deflated", "Enhanced Deflating",
                                 "PKWARE Imploding", "Reserved", "BZip2", "Unknown"));
  EXPECT_EQ(MethodText(0xFFFF), "Unknown");
}

TEST(ZipTextsTest, EachSystemHasItsText) {
  std::vector<std::string> texts;
  for (unsigned system = 0; system <= 19; ++system) texts.emplace_back(SystemText(static_cast<uint16_t>(system << 8)));
  EXPECT_THAT(texts, ElementsAre("MS-DOS and OS/2 (FAT / VFAT / FAT32 file systems)", "Amiga", "2 - OpenVMS", "UNIX",
                                 "VM/CMS", "Atari ST", "OS/2 H.P.F.S.", "Macintosh", "Z-System", "CP/M", "Windows NTFS",
                                 "MVS (OS/390 - Z/OS)", "VSE", "Acorn Risc", "VFAT", "Alternate MVS", "BeOS", "Tandem",
                                 "OS/400", "UnKnown"));
  EXPECT_EQ(SystemText(0xFFFF), "UnKnown");
}

TEST(ZipTextsTest, TheSystemIsTheHighByteTheVersionTheLowOne) {
  EXPECT_EQ(SystemText(0x0314), "UNIX");
  EXPECT_EQ(VersionText(0x0314), "2.0");
  EXPECT_EQ(VersionText(0), "0.0");
  EXPECT_EQ(VersionText(63), "6.3");
  EXPECT_EQ(VersionText(255), "25.5");
}

TEST(ZipTextsTest, ADosMomentIsADate) {
  const uint16_t date = (44 << 9) | (2 << 5) | 29;
  const uint16_t time = (23 << 11) | (59 << 5) | 29;
  EXPECT_EQ(DateToText(DosDateTime(date, time)), "2/29/2024 11:59:58 PM");
  EXPECT_EQ(DosFileTime(date, time), 133537247980000000U);
}

TEST(ZipTextsTest, FieldsBeyondTheirRangeCarryOverInADate) {
  EXPECT_EQ(DateToText(DosDateTime(0, 0)), "11/30/1979");
  EXPECT_EQ(DateToText(DosDateTime((1 << 5) | 31, 31 << 11)), "2/1/1980 7:00:00 AM");
}

TEST(ZipTextsTest, FieldsBeyondTheirRangeAreNoFileTime) {
  const uint16_t first = (1 << 5) | 1;
  EXPECT_NE(DosFileTime(first, 0), 0U);
  EXPECT_EQ(DosFileTime(1, 0), 0U);              // month 0
  EXPECT_EQ(DosFileTime((13 << 5) | 1, 0), 0U);  // month 13
  EXPECT_EQ(DosFileTime(1 << 5, 0), 0U);         // day 0
  EXPECT_EQ(DosFileTime((2 << 5) | 30, 0), 0U);  // 30 February
  EXPECT_EQ(DosFileTime(first, 24 << 11), 0U);   // hour 24
  EXPECT_EQ(DosFileTime(first, 60 << 5), 0U);    // minute 60
  EXPECT_EQ(DosFileTime(first, 30), 0U);         // second 60
}

}  // namespace
}  // namespace kestrun::zip
