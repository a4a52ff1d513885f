#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "formats/profile/profile_file.h"
#include "support/failing_files.h"
#include "support/forwarding_files.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr const char* kContent = "[a]\r\nj=1\r\nk=old\r\n";

// Every file refuses to be opened for writing, as one with the read-only mark does.
class ReadOnlyFiles final : public ForwardingFiles {
 public:
  explicit ReadOnlyFiles(FileSystem& files, std::string path) : ForwardingFiles(files), path_(std::move(path)) {}
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    if (path == path_ && mode != OpenMode::kRead) Raise(error::kPermissionDenied);
    return files().Open(path, mode);
  }

 private:
  std::string path_;
};

class ProfileFileTest : public HeadlessTest {
 protected:
  [[nodiscard]] size_t FileCount() { return native_files.List(Path("program")).size(); }
  std::string ini_ = ProgramPath("packit.ini");
};

TEST_F(ProfileFileTest, AMissingFileHasNoKeysAndTheFirstWriteCreatesIt) {
  EXPECT_EQ(ReadProfileValue(ini_, "a", "k"), std::nullopt);
  EXPECT_TRUE(WriteProfileValue(ini_, "a", "k", "v"));
  EXPECT_EQ(ReadFile(ini_), "[a]\r\nk=v\r\n");
  EXPECT_EQ(ReadProfileValue(ini_, "a", "k"), "v");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ProfileFileTest, AFolderInThePlaceOfTheFileIsNoFaultAndStays) {
  native_files.MakeFolder(ini_);
  EXPECT_EQ(ReadProfileValue(ini_, "a", "k"), std::nullopt);
  EXPECT_FALSE(WriteProfileValue(ini_, "a", "k", "v"));
  EXPECT_TRUE(native_files.IsFolder(ini_));
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ProfileFileTest, AMissingFolderIsNotCreated) {
  EXPECT_FALSE(WriteProfileValue(Path("nowhere\\packit.ini"), "a", "k", "v"));
  EXPECT_FALSE(FileIsThere(Path("nowhere")));
}

TEST_F(ProfileFileTest, AReadOnlyFileStaysAsItIs) {
  WriteFile(ini_, kContent);
  ReadOnlyFiles files(native_files, ini_);
  desktop.UseFiles(files);
  EXPECT_FALSE(WriteProfileValue(ini_, "a", "k", "new"));
  EXPECT_EQ(ReadFile(ini_), kContent);
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ProfileFileTest, WhereverAWriteFailsTheOldFileIsIntactAndNothingElseIsLeft) {
  int failures = 0;
  for (bool failed = true; failed; ++failures) {
    WriteFile(ini_, kContent);
    FailingFiles files(native_files, failures);
    desktop.UseFiles(files);
    const bool written = WriteProfileValue(ini_, "a", "k", "new");
    failed = files.HasFailed();
    EXPECT_EQ(written, !failed);
    EXPECT_EQ(ReadFile(ini_), failed ? kContent : "[a]\r\nj=1\r\nk=new\r\n") << "failure at call " << failures;
    EXPECT_EQ(FileCount(), 1u) << "failure at call " << failures;
  }
  // Opening, size, reading, the new file's opening, writing and closing, and the replacement: each has failed once.
  EXPECT_EQ(failures, 8);
}

TEST_F(ProfileFileTest, AnUnchangedValueDoesNotTouchTheFile) {
  WriteFile(ini_, kContent);
  FailingFiles files(native_files, 3);  // enough to open and read the file
  desktop.UseFiles(files);
  EXPECT_TRUE(WriteProfileValue(ini_, "a", "k", "old"));
  EXPECT_FALSE(files.HasFailed());
}

TEST_F(ProfileFileTest, AValueIsCutAtTwoHundredAndFiftyFourBytes) {
  WriteProfileValue(ini_, "a", "k", std::string(300, 'x'));
  EXPECT_EQ(ReadProfileValue(ini_, "a", "k"), std::string(254, 'x'));
  EXPECT_EQ(ReadFile(ini_), "[a]\r\nk=" + std::string(300, 'x') + "\r\n");
}

TEST_F(ProfileFileTest, ADefaultIsCutAndLosesTheBlanksAtItsEnd) {
  EXPECT_EQ(ShapeProfileDefault("  d  "), "  d");
  EXPECT_EQ(ShapeProfileDefault("'d'"), "'d'");
  EXPECT_EQ(ShapeProfileDefault(""), "");
  EXPECT_EQ(ShapeProfileDefault("   "), "");
  EXPECT_EQ(ShapeProfileDefault(std::string(300, 'x')), std::string(254, 'x'));
  EXPECT_EQ(ShapeProfileDefault("C:\\Карты 地図 é😀"), "C:\\Карты 地図 é😀");
}

TEST_F(ProfileFileTest, ATextBeyondTheCodePageTurnsTheFileToUtf8AndEverythingReadsAsBefore) {
  const std::string path = Path("packit.ini");
  WriteFile(path, "[launcher]\r\nOLD=caf\xE9\r\n");
  EXPECT_TRUE(WriteProfileValue(path, "FOLDERS", "DFLW", "C:\\Карты 地図 é😀"));
  EXPECT_EQ(ReadProfileValue(path, "FOLDERS", "DFLW"), "C:\\Карты 地図 é😀");
  EXPECT_EQ(ReadProfileValue(path, "launcher", "OLD"), "café");
  EXPECT_TRUE(ReadFile(path).starts_with("\xEF\xBB\xBF"));
}

}  // namespace
}  // namespace kestrun
