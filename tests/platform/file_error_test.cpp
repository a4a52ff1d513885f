// What a box says about a failure of the file system: which file, what is in the way, what to do.
#include "platform/file_error.h"

#include <gtest/gtest.h>

#include "platform/failure_box.h"
#include "support/failing_files.h"
#include "support/forwarding_files.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

// A disk on which one file is marked read-only.
class MarkedFiles final : public ForwardingFiles {
 public:
  MarkedFiles(FileSystem& files, std::string path) : ForwardingFiles(files), path_(std::move(path)) {}
  bool IsReadOnly(std::string_view path) override { return path == path_; }

 private:
  std::string path_;
};

class FileErrorTest : public HeadlessTest {
 protected:
  // What a box tells when the statement fails.
  template <class Statement>
  [[nodiscard]] std::string Told(Statement&& statement) {
    try {
      statement();
    } catch (const std::exception&) {
      const RuntimeError failure = ExplainedError();
      return std::to_string(failure.number()) + ": " + failure.description();
    }
    return "(no failure)";
  }
  [[nodiscard]] std::string ToldFor(int number, const std::string& path) {
    return Told([&] { throw FileError(number, path); });
  }
};

TEST_F(FileErrorTest, AMissingFileIsNamed) {
  EXPECT_EQ(Told([&] { static_cast<void>(platform().files().ReadAll(Path("none.bms"))); }),
            "53: File not found: " + Path("none.bms") +
                "\r\nIt is not there any more, or its name is misspelled. Check the name and the folder.");
}

TEST_F(FileErrorTest, AMissingFolderIsNamed) {
  EXPECT_EQ(Told([&] { platform().files().WriteAll(Path("nowhere\\a.bms"), {}); }),
            "76: Path not found: " + Path("nowhere\\a.bms") +
                "\r\nThere is no such folder. Check its name, and that its disk is connected.");
}

TEST_F(FileErrorTest, AFullDiskNamesTheFileThatFoundNoRoom) {
  FailingFiles files(native_files, 1);
  desktop.UseFiles(files);
  EXPECT_EQ(Told([&] { platform().files().WriteAll(Path("a.bms"), AsBytes("map")); }),
            "61: Disk full: " + Path("a.bms") + "\r\nMake room on this disk, then try again.");
}

TEST_F(FileErrorTest, AFileThatAnotherProgramHasOpenNamesTheProgram) {
  desktop.processes().holders[Path("dflw.pff")] = {"Dflwdem.exe", "pack.exe"};
  for (const int number : {error::kPermissionDenied, error::kPathFileAccess, error::kFileAlreadyOpen}) {
    EXPECT_EQ(ToldFor(number, Path("dflw.pff")),
              std::to_string(number) + ": " + std::string(StandardErrorText(number)) + ": " + Path("dflw.pff") +
                  "\r\nIt is open in Dflwdem.exe, pack.exe. Close that program, then try again.");
  }
}

TEST_F(FileErrorTest, AFileThatIsMarkedReadOnlySaysSo) {
  MarkedFiles files(native_files, Path("dflw.pff"));
  desktop.UseFiles(files);
  EXPECT_EQ(ToldFor(70, Path("dflw.pff")),
            "70: Permission denied: " + Path("dflw.pff") +
                "\r\nIt is marked read-only. Take that mark away in its properties, then try again.");
}

TEST_F(FileErrorTest, WithoutAReasonFromTheSystemTheUsualOnesAreSaid) {
  WriteFile(Path("dflw.pff"), "archive");
  EXPECT_EQ(
      ToldFor(70, Path("dflw.pff")),
      "70: Permission denied: " + Path("dflw.pff") +
          "\r\nYou may not change it: another program has it open, or you lack the rights. Close the game and other "
          "programs that use it, or choose a folder of your own.");
}

TEST_F(FileErrorTest, AFolderInThePlaceOfAFileSaysSo) {
  EXPECT_EQ(ToldFor(75, Path("program")),
            "75: Path/File access error: " + Path("program") + "\r\nIt is a folder, not a file. Choose another name.");
}

TEST_F(FileErrorTest, ANameThatNoDiskTakesSaysHowLongItIs) {
  const std::string path = Path(std::string(300, 'x') + ".bms");
  EXPECT_EQ(ToldFor(52, path),
            "52: Bad file name or number: " + path +
                "\r\nThe name is too long: it has 304 characters, and no more than 255 are possible. "
                "Choose a shorter one.");
}

TEST_F(FileErrorTest, AnEmptyFileSaysSo) {
  EXPECT_EQ(Told([&] { RaiseEmptyFile(Path("a.bms")); }),
            "9: The file is empty: " + Path("a.bms") + "\r\nChoose another file, or get this one again.");
}

TEST_F(FileErrorTest, OfTwoFilesTheMissingOneIsNamedElseTheOneThatIsWritten) {
  WriteFile(Path("a.bms"), "map");
  EXPECT_TRUE(StartsWith(Told([&] { platform().files().Copy(Path("none.bms"), Path("b.bms")); }),
                         "53: File not found: " + Path("none.bms")));
  EXPECT_TRUE(StartsWith(Told([&] { platform().files().Copy(Path("a.bms"), Path("nowhere\\b.bms")); }),
                         "76: Path not found: " + Path("nowhere\\b.bms")));
}

TEST_F(FileErrorTest, ASentenceThatNamesTheFileIsNotRepeated) {
  EXPECT_EQ(Told([&] { throw FileError(RuntimeError(1033, "There is no " + Path("a.bms") + "."), Path("a.bms")); }),
            "1033: There is no " + Path("a.bms") +
                ".\r\nIt is not there any more, or its name is misspelled. Check the name and the folder.");
}

TEST_F(FileErrorTest, OtherFailuresAreToldAsTheyAre) {
  EXPECT_EQ(Told([] { Raise(13); }), "13: Type mismatch");
  EXPECT_EQ(Told([] { Raise(1030, "No room"); }), "1030: No room");
}

TEST_F(FileErrorTest, TheBoxHasContextNumberAndDescription) {
  desktop.dialogs()
      .ExpectBox("Error: Saving 9\r\nThe file is empty: a.bms\r\nChoose another file, or get this one again.")
      .WithIcon(BoxIcon::kCritical);
  try {
    RaiseEmptyFile("a.bms");
  } catch (const RuntimeError&) {
    ShowFailureBox("Saving ", BoxIcon::kCritical);
  }
}

}  // namespace
}  // namespace kestrun
