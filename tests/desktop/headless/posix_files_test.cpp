#include "desktop/headless/posix_files.h"

#ifndef _WIN32

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "desktop/headless/file_descriptor.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"
#include "support/without_rights.h"

namespace kestrun {
namespace {

class PosixFilesTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.path() + "/" + std::string(name); }
  void Write(std::string_view name, std::string_view content) { files_.WriteAll(Path(name), AsBytes(content)); }
  [[nodiscard]] std::string Read(std::string_view name) { return std::string(AsChars(files_.ReadAll(Path(name)))); }
  [[nodiscard]] std::vector<std::string> Names(std::string_view folder = ".") {
    std::vector<std::string> names;
    for (const FolderEntry& entry : files_.List(Path(folder))) names.push_back(entry.name);
    return names;
  }
  [[nodiscard]] int OpenError(std::string_view name, OpenMode mode = OpenMode::kRead) {
    return ErrorNumberOf([&] { static_cast<void>(files_.Open(Path(name), mode)); });
  }

  TemporaryFolder folder_;
  PosixFileSystem files_;
};

TEST_F(PosixFilesTest, BackslashIsASeparator) {
  files_.MakeFolder(Path("maps"));
  files_.WriteAll(folder_.path() + "\\maps\\a.bms", AsBytes("map"));
  EXPECT_EQ(Read("maps/a.bms"), "map");
  EXPECT_EQ(Names("maps"), std::vector<std::string>{"a.bms"});
}

TEST_F(PosixFilesTest, NameInAnotherCaseIsFound) {
  files_.MakeFolder(Path("Delta Force"));
  Write("Delta Force/DFLW.PFF", "archive");
  EXPECT_EQ(AsChars(files_.ReadAll(folder_.path() + "\\delta FORCE\\dflw.pff")), "archive");
  EXPECT_TRUE(files_.Exists(Path("DELTA FORCE/Dflw.Pff")));
  EXPECT_TRUE(files_.IsFolder(Path("delta force")));
}

TEST_F(PosixFilesTest, NonAsciiNameInAnotherCaseIsFound) {
  Write("Карта é.bms", "map");
  EXPECT_EQ(Read("КАРТА É.BMS"), "map");
}

TEST_F(PosixFilesTest, ExactNameWinsOverAnotherCase) {
  Write("a.txt", "small");
  Write("b.txt", "");
  ASSERT_EQ(::rename(Path("b.txt").c_str(), Path("A.TXT").c_str()), 0);
  EXPECT_EQ(Read("a.txt"), "small");
  EXPECT_EQ(Read("A.TXT"), "");
}

TEST_F(PosixFilesTest, WritingUnderAnotherCaseChangesTheFileThatIsThere) {
  Write("PackIt.ini", "old");
  Write("packit.INI", "new");
  EXPECT_EQ(Names(), std::vector<std::string>{"PackIt.ini"});
  EXPECT_EQ(Read("PackIt.ini"), "new");
}

TEST_F(PosixFilesTest, NewFileInAFolderOfAnotherCaseKeepsItsOwnCase) {
  files_.MakeFolder(Path("Maps"));
  Write("mAPS/New.Bms", "map");
  EXPECT_EQ(Names("Maps"), std::vector<std::string>{"New.Bms"});
}

TEST_F(PosixFilesTest, DriveLetterLeadsToItsFolder) {
  files_.MapDrive('c', folder_.path());
  files_.WriteAll("C:\\game.txt", AsBytes("here"));
  EXPECT_EQ(Read("game.txt"), "here");
  EXPECT_TRUE(files_.Exists("c:/GAME.txt"));
}

TEST_F(PosixFilesTest, DriveWithoutAFolderIsAMissingPath) {
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(files_.Open("Q:\\a.txt", OpenMode::kRead)); }), error::kPathNotFound);
  EXPECT_FALSE(files_.Exists("Q:\\a.txt"));
  EXPECT_FALSE(files_.IsFolder("Q:\\"));
}

TEST_F(PosixFilesTest, EmptyPathIsAMissingPath) {
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(files_.Open("", OpenMode::kRead)); }), error::kPathNotFound);
  EXPECT_FALSE(files_.Exists(""));
}

TEST_F(PosixFilesTest, PathWithANulIsABadName) {
  EXPECT_EQ(OpenError(std::string_view("a\0b", 3), OpenMode::kCreate), error::kBadFileName);
  EXPECT_FALSE(files_.Exists(Path(std::string_view("a\0b", 3))));
}

TEST_F(PosixFilesTest, NameThatIsTooLongIsABadName) {
  EXPECT_EQ(OpenError(std::string(300, 'x'), OpenMode::kCreate), error::kBadFileName);
}

TEST_F(PosixFilesTest, PathLongerThanWindowsAllowsWorks) {
  std::string path = folder_.path();
  for (int depth = 0; depth < 8; ++depth) {
    path += "\\" + std::string(100, 'f');
    files_.MakeFolder(path);
  }
  path += "\\é.txt";
  files_.WriteAll(path, AsBytes("deep"));
  EXPECT_EQ(AsChars(files_.ReadAll(path)), "deep");
}

TEST_F(PosixFilesTest, MissingFileIsToldApartFromMissingFolder) {
  EXPECT_EQ(OpenError("missing.txt"), error::kFileNotFound);
  EXPECT_EQ(OpenError("nowhere/missing.txt"), error::kPathNotFound);
  EXPECT_EQ(OpenError("nowhere/missing.txt", OpenMode::kCreate), error::kPathNotFound);
}

TEST_F(PosixFilesTest, FileInThePlaceOfAFolderIsAMissingPath) {
  Write("a.txt", "");
  EXPECT_EQ(OpenError("a.txt/b.txt"), error::kPathNotFound);
}

TEST_F(PosixFilesTest, FolderCannotBeOpenedAsAFile) {
  files_.MakeFolder(Path("sub"));
  EXPECT_EQ(OpenError("sub"), error::kPathFileAccess);
  EXPECT_EQ(OpenError("sub", OpenMode::kReadWrite), error::kPathFileAccess);
}

TEST_F(PosixFilesTest, PipeIsRefusedWithoutWaiting) {
  ASSERT_EQ(::mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(OpenError("pipe"), error::kPathFileAccess);
}

TEST_F(PosixFilesTest, RunningProgramCannotBeWritten) {
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(files_.Open("/proc/self/exe", OpenMode::kReadWrite)); }),
            error::kPermissionDenied);
}

TEST_F(PosixFilesTest, ReadOnlyFileCannotBeWrittenOrReplacedByACopy) {
  Write("old.bms", "old");
  Write("new.bms", "new");
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(Path("old.bms").c_str(), 0444), 0);
  {
    const WithoutRights user;
    EXPECT_EQ(OpenError("old.bms", OpenMode::kReadWrite), error::kPermissionDenied);
    EXPECT_EQ(OpenError("old.bms", OpenMode::kCreate), error::kPermissionDenied);
    EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("new.bms"), Path("old.bms")); }), error::kPermissionDenied);
  }
  EXPECT_EQ(Read("old.bms"), "old");
}

TEST_F(PosixFilesTest, AFileThatNobodyMayWriteIsMarkedReadOnly) {
  Write("old.bms", "old");
  EXPECT_FALSE(files_.IsReadOnly(Path("old.bms")));
  ASSERT_EQ(::chmod(Path("old.bms").c_str(), 0444), 0);
  EXPECT_TRUE(files_.IsReadOnly(Path("OLD.bms")));
  EXPECT_FALSE(files_.IsReadOnly(Path("none.bms")));
  EXPECT_FALSE(files_.IsReadOnly(folder_.path()));
}

TEST_F(PosixFilesTest, ReadOnlyFolderRefusesEveryChange) {
  Write("a", "x");
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0555), 0);
  {
    const WithoutRights user;
    EXPECT_EQ(OpenError("b", OpenMode::kCreate), error::kPermissionDenied);
    EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("a"), Path("b")); }), error::kPermissionDenied);
    EXPECT_EQ(ErrorNumberOf([&] { files_.Rename(Path("a"), Path("b")); }), error::kPermissionDenied);
    EXPECT_EQ(ErrorNumberOf([&] { files_.Delete(Path("a")); }), error::kPermissionDenied);
    EXPECT_EQ(ErrorNumberOf([&] { files_.MakeFolder(Path("sub")); }), error::kPermissionDenied);
  }
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
  EXPECT_EQ(Names(), std::vector<std::string>{"a"});
}

TEST_F(PosixFilesTest, FullDiskIsReported) {
  const auto file = files_.Open("/dev/full", OpenMode::kReadWrite);
  EXPECT_EQ(ErrorNumberOf([&] { file->WriteAt(0, AsBytes("x")); }), error::kDiskFull);
}

TEST_F(PosixFilesTest, OutOfFileNumbersIsTooManyFiles) {
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  Write("a.txt", "");
  rlimit none = before;
  none.rlim_cur = 0;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
  const int number = OpenError("a.txt");
  ::setrlimit(RLIMIT_NOFILE, &before);
  EXPECT_EQ(number, error::kTooManyFiles);
}

TEST_F(PosixFilesTest, FileOverTheSizeLimitIsDiskFull) {
  const auto file = files_.Open(Path("big"), OpenMode::kCreate);
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  rlimit small = before;
  small.rlim_cur = 10;
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const int number = ErrorNumberOf([&] { file->WriteAt(0, AsBytes("more than ten bytes")); });
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(number, error::kDiskFull);
}

TEST_F(PosixFilesTest, ReadGivesLessOnlyAtTheEnd) {
  Write("a.txt", "0123456789");
  const auto file = files_.Open(Path("a.txt"), OpenMode::kRead);
  Bytes buffer(6);
  EXPECT_EQ(file->Size(), 10U);
  EXPECT_EQ(file->ReadAt(2, buffer), 6U);
  EXPECT_EQ(AsChars(buffer), "234567");
  EXPECT_EQ(file->ReadAt(7, buffer), 3U);
  EXPECT_EQ(AsChars(buffer).substr(0, 3), "789");
  EXPECT_EQ(file->ReadAt(10, buffer), 0U);
  EXPECT_EQ(file->ReadAt(1000, buffer), 0U);
}

TEST_F(PosixFilesTest, OffsetBeyondAnyFileIsRefused) {
  Write("a.txt", "x");
  const auto file = files_.Open(Path("a.txt"), OpenMode::kReadWrite);
  Bytes buffer(1);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(file->ReadAt(UINT64_MAX, buffer)); }), error::kInvalidProcedureCall);
  EXPECT_EQ(ErrorNumberOf([&] { file->WriteAt(UINT64_MAX, buffer); }), error::kInvalidProcedureCall);
}

TEST_F(PosixFilesTest, FileOpenedForReadingCannotBeWritten) {
  Write("a.txt", "old");
  const auto file = files_.Open(Path("a.txt"), OpenMode::kRead);
  EXPECT_NE(ErrorNumberOf([&] { file->WriteAt(0, AsBytes("new")); }), 0);
  EXPECT_EQ(Read("a.txt"), "old");
}

TEST_F(PosixFilesTest, WritingBehindTheEndExtendsTheFile) {
  const auto file = files_.Open(Path("a.txt"), OpenMode::kReadWrite);
  file->WriteAt(2, AsBytes("x"));
  file->Close();
  EXPECT_EQ(Read("a.txt"), std::string("\0\0x", 3));
}

TEST_F(PosixFilesTest, OpenForReadingAndWritingKeepsTheContent) {
  Write("a.txt", "0123");
  files_.Open(Path("a.txt"), OpenMode::kReadWrite)->WriteAt(1, AsBytes("x"));
  EXPECT_EQ(Read("a.txt"), "0x23");
}

TEST_F(PosixFilesTest, OpenForCreatingEmptiesTheFile) {
  Write("a.txt", "0123");
  static_cast<void>(files_.Open(Path("a.txt"), OpenMode::kCreate));
  EXPECT_EQ(Read("a.txt"), "");
}

TEST_F(PosixFilesTest, AppendCreatesAndExtends) {
  files_.Append(Path("log"), AsBytes("one"));
  files_.Append(Path("log"), AsBytes("two"));
  EXPECT_EQ(Read("log"), "onetwo");
}

TEST_F(PosixFilesTest, CopyReplacesTheTargetWhole) {
  Write("new.bms", "new");
  Write("old.bms", "old and longer");
  files_.Copy(Path("new.bms"), Path("old.bms"));
  EXPECT_EQ(Read("old.bms"), "new");
  EXPECT_EQ(Names(), (std::vector<std::string>{"new.bms", "old.bms"}));
}

TEST_F(PosixFilesTest, CopyKeepsTheTimeOfTheSource) {
  Write("a", "x");
  files_.SetWriteTime(Path("a"), 126227808000000000);
  files_.Copy(Path("a"), Path("b"));
  struct stat status {};
  ASSERT_EQ(::stat(Path("b").c_str(), &status), 0);
  EXPECT_EQ(status.st_mtim.tv_sec, 978307200);
}

TEST_F(PosixFilesTest, CopyOfALargeFileIsWhole) {
  std::string content(600'001, 'x');
  for (size_t i = 0; i < content.size(); i += 1000) content[i] = static_cast<char>(i / 1000);
  Write("large", content);
  files_.Copy(Path("large"), Path("copy"));
  EXPECT_EQ(Read("copy"), content);
}

TEST_F(PosixFilesTest, CopyOfAMissingFileLeavesTheTarget) {
  Write("old.bms", "old");
  EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("missing"), Path("old.bms")); }), error::kFileNotFound);
  EXPECT_EQ(Read("old.bms"), "old");
}

TEST_F(PosixFilesTest, CopyThatRunsOutOfSpaceLeavesTheTargetAndNothingElse) {
  Write("new.bms", "more than ten bytes");
  Write("old.bms", "old");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  rlimit small = before;
  small.rlim_cur = 10;
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const int number = ErrorNumberOf([&] { files_.Copy(Path("new.bms"), Path("old.bms")); });
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(number, error::kDiskFull);
  EXPECT_EQ(Read("old.bms"), "old");
  EXPECT_EQ(Names(), (std::vector<std::string>{"new.bms", "old.bms"}));
}

TEST_F(PosixFilesTest, CopyOntoItselfIsRefused) {
  Write("a.bms", "map");
  EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("a.bms"), Path("A.BMS")); }), error::kPermissionDenied);
  EXPECT_EQ(Read("a.bms"), "map");
}

TEST_F(PosixFilesTest, CopyOfOrOntoAFolderIsRefused) {
  files_.MakeFolder(Path("sub"));
  Write("a", "x");
  EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("sub"), Path("b")); }), error::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("a"), Path("sub")); }), error::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { files_.Copy(Path("a"), Path("nowhere/b")); }), error::kPathNotFound);
}

TEST_F(PosixFilesTest, CopyOntoALinkReplacesWhatItPointsAt) {
  Write("real", "old");
  Write("new", "new");
  ASSERT_EQ(::symlink("real", Path("link").c_str()), 0);
  files_.Copy(Path("new"), Path("link"));
  EXPECT_EQ(Read("real"), "new");
  struct stat status {};
  ASSERT_EQ(::lstat(Path("link").c_str(), &status), 0);
  EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST_F(PosixFilesTest, DeletedFileIsGone) {
  Write("a", "");
  files_.Delete(Path("A"));
  EXPECT_FALSE(files_.Exists(Path("a")));
  EXPECT_EQ(ErrorNumberOf([&] { files_.Delete(Path("a")); }), error::kFileNotFound);
}

TEST_F(PosixFilesTest, FolderIsNotDeletedAsAFile) {
  files_.MakeFolder(Path("sub"));
  EXPECT_EQ(ErrorNumberOf([&] { files_.Delete(Path("sub")); }), error::kPathFileAccess);
  EXPECT_TRUE(files_.IsFolder(Path("sub")));
}

TEST_F(PosixFilesTest, RenameRefusesAnExistingTarget) {
  Write("a", "one");
  Write("b", "two");
  EXPECT_EQ(ErrorNumberOf([&] { files_.Rename(Path("a"), Path("b")); }), error::kFileAlreadyExists);
  EXPECT_EQ(ErrorNumberOf([&] { files_.Rename(Path("a"), Path("B")); }), error::kFileAlreadyExists);
  EXPECT_EQ(ErrorNumberOf([&] { files_.Rename(Path("a"), Path("a")); }), error::kFileAlreadyExists);
  EXPECT_EQ(Read("b"), "two");
}

TEST_F(PosixFilesTest, RenameChangesOnlyTheCase) {
  Write("map.bms", "map");
  files_.Rename(Path("map.bms"), Path("MAP.bms"));
  EXPECT_EQ(Names(), std::vector<std::string>{"MAP.bms"});
}

TEST_F(PosixFilesTest, RenameOfAMissingFileOrIntoAMissingFolderFails) {
  Write("a", "");
  EXPECT_EQ(ErrorNumberOf([&] { files_.Rename(Path("missing"), Path("b")); }), error::kFileNotFound);
  EXPECT_EQ(ErrorNumberOf([&] { files_.Rename(Path("a"), Path("nowhere/b")); }), error::kPathNotFound);
  EXPECT_TRUE(files_.Exists(Path("a")));
}

TEST_F(PosixFilesTest, ReplacePutsOneFileInThePlaceOfAnother) {
  Write("new", "new");
  Write("old", "old");
  files_.Replace(Path("new"), Path("OLD"));
  EXPECT_EQ(Names(), std::vector<std::string>{"old"});
  EXPECT_EQ(Read("old"), "new");
}

TEST_F(PosixFilesTest, FolderIsMadeOnlyOnceAndOnlyOneLevel) {
  files_.MakeFolder(Path("sub"));
  EXPECT_EQ(ErrorNumberOf([&] { files_.MakeFolder(Path("SUB")); }), error::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { files_.MakeFolder(Path("a/b")); }), error::kPathNotFound);
}

TEST_F(PosixFilesTest, OnlyAnEmptyFolderIsRemoved) {
  files_.MakeFolder(Path("sub"));
  Write("sub/a", "");
  EXPECT_EQ(ErrorNumberOf([&] { files_.RemoveFolder(Path("sub")); }), error::kPathFileAccess);
  files_.Delete(Path("sub/a"));
  files_.RemoveFolder(Path("sub"));
  EXPECT_FALSE(files_.Exists(Path("sub")));
  EXPECT_EQ(ErrorNumberOf([&] { files_.RemoveFolder(Path("sub")); }), error::kPathNotFound);
}

TEST_F(PosixFilesTest, ListIsSortedWithoutRegardToCase) {
  Write("b.bms", "12345");
  Write("A.bms", "");
  Write("C.bms", "");
  files_.MakeFolder(Path("aa"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"A.bms", "aa", "b.bms", "C.bms"}));
  const auto entries = files_.List(folder_.path());
  EXPECT_TRUE(entries[1].is_folder);
  EXPECT_FALSE(entries[2].is_folder);
  EXPECT_EQ(entries[2].size, 5U);
}

TEST_F(PosixFilesTest, NameWithABackslashIsNotListed) {
  const FileDescriptor odd(::open((folder_.path() + "/a\\b").c_str(), O_CREAT | O_WRONLY, 0600));
  ASSERT_TRUE(odd.IsOpen());
  EXPECT_TRUE(Names().empty());
}

TEST_F(PosixFilesTest, DanglingLinkIsListedButDoesNotExist) {
  ASSERT_EQ(::symlink("nothing", Path("link").c_str()), 0);
  EXPECT_EQ(Names(), std::vector<std::string>{"link"});
  EXPECT_FALSE(files_.Exists(Path("link")));
}

TEST_F(PosixFilesTest, MissingFolderAndFileCannotBeListed) {
  Write("a", "");
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(files_.List(Path("nowhere"))); }), error::kPathNotFound);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(files_.List(Path("a"))); }), error::kPathNotFound);
}

TEST_F(PosixFilesTest, WriteTimeCountsFrom1601) {
  Write("a", "");
  files_.SetWriteTime(Path("a"), 116444736000000000 + 15'000'000);
  struct stat status {};
  ASSERT_EQ(::stat(Path("a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mtim.tv_sec, 1);
  EXPECT_EQ(status.st_mtim.tv_nsec, 500'000'000);
  EXPECT_EQ(ErrorNumberOf([&] { files_.SetWriteTime(Path("b"), 0); }), error::kFileNotFound);
}

TEST_F(PosixFilesTest, LocalTimesAreThoseOfTheClockOnTheWall) {
  Write("a", "");
  constexpr uint64_t kNoonOf1970 = 116444736000000000 + uint64_t{12 * 3600} * 10'000'000;
  constexpr uint64_t kDay = uint64_t{24 * 3600} * 10'000'000;
  files_.SetLocalTimes(Path("a"), {kNoonOf1970, kNoonOf1970 + 2 * kDay, kNoonOf1970 + kDay});
  struct stat status {};
  ASSERT_EQ(::stat(Path("a").c_str(), &status), 0);
  tm written{};
  ::localtime_r(&status.st_mtim.tv_sec, &written);
  EXPECT_EQ(written.tm_mday, 2);
  EXPECT_EQ(written.tm_hour, 12);
  tm read{};
  ::localtime_r(&status.st_atim.tv_sec, &read);
  EXPECT_EQ(read.tm_mday, 3);
  EXPECT_EQ(read.tm_hour, 12);
  EXPECT_EQ(ErrorNumberOf([&] { files_.SetLocalTimes(Path("b"), {}); }), error::kFileNotFound);
}

TEST_F(PosixFilesTest, CurrentFolderIsThere) { EXPECT_TRUE(files_.IsFolder(files_.CurrentFolder())); }

TEST_F(PosixFilesTest, FileWithoutATellableSizeReadsAsEmpty) {
  // /proc files tell a size of 0 and then have content: only what the size says is read.
  EXPECT_TRUE(files_.ReadAll("/proc/self/status").empty());
}

int NewDescriptor() { return ::open("/dev/null", O_RDONLY | O_CLOEXEC); }
bool IsOpen(int descriptor) { return ::fcntl(descriptor, F_GETFD) != -1; }

TEST(FileDescriptorTest, ClosesAtTheEndOfItsLife) {
  const int number = NewDescriptor();
  { const FileDescriptor owner(number); }
  EXPECT_FALSE(IsOpen(number));
}

TEST(FileDescriptorTest, OverwriteClosesTheOldOne) {
  const int first = NewDescriptor();
  const int second = NewDescriptor();
  FileDescriptor owner(first);
  owner = FileDescriptor(second);
  EXPECT_FALSE(IsOpen(first));
  EXPECT_TRUE(IsOpen(second));
  EXPECT_EQ(owner.get(), second);
}

TEST(FileDescriptorTest, MoveOntoItselfKeepsIt) {
  FileDescriptor owner(NewDescriptor());
  FileDescriptor& same = owner;
  owner = std::move(same);
  EXPECT_TRUE(IsOpen(owner.get()));
}

TEST(FileDescriptorTest, ReleaseGivesItAway) {
  FileDescriptor owner(NewDescriptor());
  const int number = owner.Release();
  EXPECT_FALSE(owner.IsOpen());
  owner = FileDescriptor();
  EXPECT_TRUE(IsOpen(number));
  ::close(number);
}

TEST_F(PosixFilesTest, RoomThatIsReservedLeavesTheFileAsItIs) {
  Write("a.pff", "archive");
  const auto file = files_.Open(Path("a.pff"), OpenMode::kReadWrite);
  file->Reserve(100'000);
  struct stat status {};
  ASSERT_EQ(::stat(Path("a.pff").c_str(), &status), 0);
  EXPECT_GE(status.st_blocks * 512, 100'000);
  EXPECT_EQ(Read("a.pff").substr(0, 7), "archive");
}

TEST_F(PosixFilesTest, RoomThatIsNotThereIsAFullDisk) {
  Write("a.pff", "archive");
  const auto file = files_.Open(Path("a.pff"), OpenMode::kReadWrite);
  struct stat before {};
  ASSERT_EQ(::stat(Path("a.pff").c_str(), &before), 0);
  EXPECT_EQ(ErrorNumberOf([&] { file->Reserve(uint64_t{1} << 43); }), error::kDiskFull);
  struct stat after {};
  ASSERT_EQ(::stat(Path("a.pff").c_str(), &after), 0);
  EXPECT_EQ(after.st_blocks, before.st_blocks) << "nothing of the disk stays taken";
  EXPECT_EQ(Read("a.pff"), "archive");
}

TEST_F(PosixFilesTest, ATurnIsForOneAtATime) {
  auto first = files_.TryLock(Path("a.lock"), "kestrun");
  ASSERT_TRUE(first);
  EXPECT_FALSE(files_.TryLock(Path("a.lock"), "other"));
  const LockHolder holder = files_.ReadLockHolder(Path("a.lock"));
  EXPECT_EQ(holder.process, static_cast<uint32_t>(::getpid()));
  EXPECT_EQ(holder.program, "kestrun");
  first.reset();
  EXPECT_FALSE(files_.Exists(Path("a.lock")));
  EXPECT_TRUE(files_.TryLock(Path("a.lock"), "other"));
}

TEST_F(PosixFilesTest, ATurnEndsWithItsProcess) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const auto lock = files_.TryLock(Path("a.lock"), "child");
    static_cast<void>(::write(pipe[1], lock ? "y" : "n", 1));
    for (;;) ::pause();
  }
  char taken = 'n';
  ASSERT_EQ(::read(pipe[0], &taken, 1), 1);
  EXPECT_EQ(taken, 'y');
  EXPECT_FALSE(files_.TryLock(Path("a.lock"), "parent"));
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(files_.TryLock(Path("a.lock"), "parent"));
  ::close(pipe[0]);
  ::close(pipe[1]);
}

TEST_F(PosixFilesTest, ATurnInAFolderThatIsNotThereIsAMissingPath) {
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(files_.TryLock(Path("none/a.lock"), "kestrun")); }),
            error::kPathNotFound);
}

TEST_F(PosixFilesTest, ContentIsReplacedWhole) {
  Write("index", "old and longer");
  files_.WriteAllDurably(Path("index"), AsBytes("new"));
  EXPECT_EQ(Read("index"), "new");
  EXPECT_EQ(Names(), std::vector<std::string>{"index"});
}

TEST_F(PosixFilesTest, AllPathsOfAFileHaveOneTruePath) {
  files_.MakeFolder(Path("Game"));
  Write("Game/Dflw.pff", "archive");
  ASSERT_EQ(::symlink("Game", Path("link").c_str()), 0);
  const std::string real = files_.TruePath(Path("Game/Dflw.pff"));
  EXPECT_EQ(files_.TruePath(Path("GAME/dflw.PFF")), real);
  EXPECT_EQ(files_.TruePath(folder_.path() + "\\link\\DFLW.pff"), real);
  EXPECT_EQ(files_.TruePath(Path("link/new.stl")), files_.TruePath(Path("Game")) + "/new.stl");
}

TEST_F(PosixFilesTest, NamesInALargeFolderAreFoundInAnyCaseWhoeverMakesThem) {
  for (int at = 0; at < 400; ++at) Write("FILE" + std::to_string(at) + ".BMS", "x");
  EXPECT_TRUE(files_.Exists(Path("file399.bms")));
  EXPECT_FALSE(files_.Exists(Path("new.bms")));
  Write("NEW.BMS", "made here");
  EXPECT_EQ(Read("new.bms"), "made here");
  { const FileDescriptor other(::open(Path("OTHER.BMS").c_str(), O_CREAT | O_WRONLY, 0600)); }
  EXPECT_TRUE(files_.Exists(Path("other.bms")));
  files_.Delete(Path("new.bms"));
  EXPECT_FALSE(files_.Exists(Path("new.bms")));
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
