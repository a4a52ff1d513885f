// What counts as a whole Windows program: each header that lies, and each end that is cut off.
#include "formats/pe/program_file.h"

#include "support/headless_fixture.h"
#include "support/program_bytes.h"

namespace kestrun {
namespace {

// Where the fields of ProgramBytes stand.
constexpr size_t kPeHeader = 64;
constexpr size_t kSectionCount = kPeHeader + 6;
constexpr size_t kOptionalSize = kPeHeader + 20;
constexpr size_t kCharacteristics = kPeHeader + 22;
constexpr size_t kOptional = kPeHeader + 24;
constexpr size_t kSignature64 = kOptional + 144;
constexpr size_t kSection = kOptional + 240;

class ProgramFileTest : public HeadlessTest {
 protected:
  bool IsWhole(const std::string& bytes) {
    WriteFile(Path("a.exe"), bytes);
    return IsWholeWindowsProgram(*native_files.Open(Path("a.exe"), OpenMode::kRead));
  }
  // A whole program with one number of another value.
  bool IsWholeWith(size_t at, uint32_t number, size_t count) {
    std::string bytes = ProgramBytes();
    internal::PutNumber(bytes, at, number, count);
    return IsWhole(bytes);
  }
};

TEST_F(ProgramFileTest, AProgramIsWhole) { EXPECT_TRUE(IsWhole(ProgramBytes())); }

TEST_F(ProgramFileTest, ALibraryIsNoProgram) { EXPECT_FALSE(IsWhole(LibraryBytes())); }

TEST_F(ProgramFileTest, WhatCannotBeExecutedIsNoProgram) { EXPECT_FALSE(IsWholeWith(kCharacteristics, 0x0020, 2)); }

TEST_F(ProgramFileTest, AnythingElseIsNoProgram) {
  EXPECT_FALSE(IsWhole(""));
  EXPECT_FALSE(IsWhole("MZ"));
  EXPECT_FALSE(IsWhole("<html>not found</html>" + std::string(4000, ' ')));
  EXPECT_FALSE(IsWholeWith(0, 0x4D5A, 2));  // "ZM"
}

TEST_F(ProgramFileTest, AnOldProgramWithoutTheNewHeaderIsNone) {
  EXPECT_FALSE(IsWholeWith(kPeHeader, 0x454E, 4));  // "NE"
}

TEST_F(ProgramFileTest, AHeaderBehindTheFilesEndIsRefused) {
  EXPECT_FALSE(IsWholeWith(60, 3072, 4));
  EXPECT_FALSE(IsWholeWith(60, 0xFFFFFFFF, 4));
}

TEST_F(ProgramFileTest, EveryEndThatIsCutOffIsNoticed) {
  const std::string whole = ProgramBytes();
  for (const size_t bytes :
       {size_t{63}, size_t{64}, kOptional - 1, kOptional, kSection, kSection + 39, size_t{512}, whole.size() - 1}) {
    EXPECT_FALSE(IsWhole(whole.substr(0, bytes))) << bytes;
  }
  EXPECT_TRUE(IsWhole(whole + "appended"));
}

TEST_F(ProgramFileTest, ThereIsAtLeastOneSectionAndNoMoreThan96) {
  EXPECT_FALSE(IsWholeWith(kSectionCount, 0, 2));
  EXPECT_TRUE(IsWholeWith(kSectionCount, 5, 2));  // the rest of the table is empty
  EXPECT_FALSE(IsWholeWith(kSectionCount, 97, 2));
}

TEST_F(ProgramFileTest, ASectionThatEndsBehindTheFileIsNoticed) {
  EXPECT_FALSE(IsWholeWith(kSection + 16, 2561, 4));
  EXPECT_FALSE(IsWholeWith(kSection + 20, 0xFFFFFFFF, 4));
  EXPECT_TRUE(IsWholeWith(kSection + 16, 0, 4)) << "one without bytes in the file may say anything of its place";
}

TEST_F(ProgramFileTest, TheSignatureIsPartOfTheProgram) {
  std::string bytes = ProgramBytes();
  internal::PutNumber(bytes, kSignature64, 3072, 4);
  internal::PutNumber(bytes, kSignature64 + 4, 100, 4);
  EXPECT_FALSE(IsWhole(bytes));
  EXPECT_FALSE(IsWhole(bytes + std::string(99, 's')));
  EXPECT_TRUE(IsWhole(bytes + std::string(100, 's')));
}

TEST_F(ProgramFileTest, TheSignatureOfA32BitProgramStandsElsewhere) {
  std::string bytes = ProgramBytes();
  internal::PutNumber(bytes, kOptional, 0x10B, 2);
  EXPECT_TRUE(IsWhole(bytes));
  internal::PutNumber(bytes, kOptional + 128, 3072, 4);
  internal::PutNumber(bytes, kOptional + 132, 1, 4);
  EXPECT_FALSE(IsWhole(bytes));
}

TEST_F(ProgramFileTest, AnOptionalHeaderOfAnotherKindIsRefused) { EXPECT_FALSE(IsWholeWith(kOptional, 0x107, 2)); }

TEST_F(ProgramFileTest, AShortOptionalHeaderTellsOfNoSignature) {
  // The section table stands right behind the two bytes of the kind.
  std::string bytes = ProgramBytes();
  internal::PutNumber(bytes, kOptionalSize, 2, 2);
  internal::PutNumber(bytes, kOptional + 2 + 16, 2560, 4);
  internal::PutNumber(bytes, kOptional + 2 + 20, 512, 4);
  EXPECT_TRUE(IsWhole(bytes));
  internal::PutNumber(bytes, kOptional + 2 + 20, 513, 4);
  EXPECT_FALSE(IsWhole(bytes));
}

}  // namespace
}  // namespace kestrun
