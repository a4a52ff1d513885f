#include <gtest/gtest.h>

#include "base/code_page.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/win32_platform.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

// The real services, in a temporary folder.
class Win32ServicesTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.path() + "\\" + std::string(name); }
  void Write(std::string_view path, std::string_view text) { files.WriteAll(path, AsBytes(text)); }
  [[nodiscard]] std::string Read(std::string_view path) { return std::string(AsChars(files.ReadAll(path))); }

  Win32FileSystem files;

 private:
  TemporaryFolder folder_;
};

TEST_F(Win32ServicesTest, FilesAreReadAndWrittenAtTheirPlace) {
  {
    const auto file = files.Open(Path("a.bin"), OpenMode::kReadWrite);
    file->WriteAt(3, AsBytes("def"));
    file->WriteAt(0, AsBytes("abc"));
    EXPECT_EQ(file->Size(), 6U);
    Bytes buffer(10);
    EXPECT_EQ(file->ReadAt(4, buffer), 2U);
    file->Close();
  }
  EXPECT_EQ(Read(Path("a.bin")), "abcdef");
}

TEST_F(Win32ServicesTest, TheReadOnlyMarkIsSeenAndTakenAway) {
  Write(Path("a.bms"), "map");
  EXPECT_FALSE(files.IsReadOnly(Path("a.bms")));
  ASSERT_TRUE(SetFileAttributesW(ToWide(Path("a.bms")).c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_TRUE(files.IsReadOnly(Path("a.bms")));
  files.ClearReadOnly(Path("a.bms"));
  EXPECT_FALSE(files.IsReadOnly(Path("a.bms")));
  EXPECT_FALSE(files.IsReadOnly(Path("none.bms")));
}

// A map whose badge is on its way, for one.
TEST_F(Win32ServicesTest, AFileThatIsReadCanBeRenamedAndRemoved) {
  Write(Path("a.bms"), "map");
  const auto open = files.Open(Path("a.bms"), OpenMode::kRead);
  files.Rename(Path("a.bms"), Path("b.bms"));
  EXPECT_FALSE(files.Exists(Path("a.bms")));
  Bytes bytes(3);
  EXPECT_EQ(open->ReadAt(0, bytes), 3U);
  EXPECT_EQ(AsChars(bytes), "map");
  files.Delete(Path("b.bms"));
}

TEST_F(Win32ServicesTest, AFileThatIsWrittenStays) {
  Write(Path("a.journal"), "old bytes");
  const auto open = files.Open(Path("a.journal"), OpenMode::kReadWrite);
  EXPECT_EQ(ErrorNumberOf([&] { files.Delete(Path("a.journal")); }), error::kPermissionDenied);
  EXPECT_EQ(ErrorNumberOf([&] { files.Rename(Path("a.journal"), Path("b")); }), error::kPermissionDenied);
  EXPECT_TRUE(files.Exists(Path("a.journal")));
}

// Where the system does not tell who has a file open, nobody is named; this process never is.
TEST_F(Win32ServicesTest, ThisProcessIsNotAmongTheHoldersOfItsFiles) {
  Write(Path("a.bms"), "map");
  const auto open = files.Open(Path("a.bms"), OpenMode::kRead);
  EXPECT_TRUE(Win32Processes().HoldersOf(Path("a.bms")).empty());
}

TEST_F(Win32ServicesTest, FaultsHaveTheNumbersOfTheLogic) {
  EXPECT_EQ(ErrorNumberOf([&] { return files.Open(Path("none"), OpenMode::kRead); }), error::kFileNotFound);
  EXPECT_EQ(ErrorNumberOf([&] { return files.Open(Path("none\\none"), OpenMode::kRead); }), error::kPathNotFound);
  files.MakeFolder(Path("folder"));
  EXPECT_EQ(ErrorNumberOf([&] { return files.Open(Path("folder"), OpenMode::kRead); }), error::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { files.MakeFolder(Path("folder")); }), error::kPathFileAccess);
  EXPECT_EQ(ErrorNumberOf([&] { return files.List(Path("none")); }), error::kPathNotFound);
}

TEST_F(Win32ServicesTest, AFileThatAnotherHandleHoldsIsDenied) {
  Write(Path("held"), "x");
  const FileHandle held(
      CreateFileW(ToWidePath(Path("held")).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held.IsValid());
  EXPECT_EQ(ErrorNumberOf([&] { return files.Open(Path("held"), OpenMode::kReadWrite); }), error::kPermissionDenied);
}

TEST_F(Win32ServicesTest, ACopyReplacesItsTargetAndAFailedOneLeavesIt) {
  Write(Path("from"), "new");
  Write(Path("to"), "old");
  files.Copy(Path("from"), Path("to"));
  EXPECT_EQ(Read(Path("to")), "new");
  EXPECT_EQ(ErrorNumberOf([&] { files.Copy(Path("none"), Path("to")); }), error::kFileNotFound);
  EXPECT_EQ(Read(Path("to")), "new");
  EXPECT_EQ(files.List(Path("")).size(), 2U);
}

// A file on its way to its name takes no name that is in use, and one that is not too long.
TEST_F(Win32ServicesTest, ACopyWritesOverNoOtherFileOfTheFolder) {
  const std::string long_name = std::string(251, 'x') + ".bms";
  Write(Path("from"), "new");
  for (const char* mine : {"to.new", "~kestrun1.tmp", "~kestrun2.tmp"}) Write(Path(mine), "the user's");
  files.Copy(Path("from"), Path("to"));
  files.Copy(Path("from"), Path(long_name));
  EXPECT_EQ(Read(Path("to")), "new");
  EXPECT_EQ(Read(Path(long_name)), "new");
  for (const char* mine : {"to.new", "~kestrun1.tmp", "~kestrun2.tmp"})
    EXPECT_EQ(Read(Path(mine)), "the user's") << mine;
  EXPECT_EQ(files.List(Path("")).size(), 6U);
  files.Delete(Path(long_name));
}

TEST_F(Win32ServicesTest, ACopyWithinACapitalIsTheSameFileAndStays) {
  Write(Path("Oasis.bms"), "BMS");
  Attempt([&] { files.Copy(Path("Oasis.bms"), Path("OASIS.BMS")); });
  EXPECT_EQ(Read(Path("oasis.bms")), "BMS");
  EXPECT_EQ(files.List(Path("")).size(), 1U);
}

TEST_F(Win32ServicesTest, AFolderOfThreeHundredCharactersWorks) {
  std::string folder = Path("deep");
  files.MakeFolder(folder);
  for (int level = 0; level < 6; ++level) {
    folder += "\\" + std::string(50, 'x');
    files.MakeFolder(folder);
  }
  Write(folder + "\\map.bms", "deep");
  EXPECT_EQ(Read(folder + "\\map.bms"), "deep");
  EXPECT_EQ(files.List(folder).size(), 1U);
  // The temporary folder's own clean-up does not know long paths.
  files.Delete(folder + "\\map.bms");
  for (int level = 0; level < 7; ++level) {
    files.RemoveFolder(folder);
    folder = folder.substr(0, folder.rfind('\\'));
  }
}

TEST_F(Win32ServicesTest, NamesComeSortedWithoutRegardToCase) {
  for (const char* name : {"b.bms", "A.bms", "Карта.bms", "c.bms"}) Write(Path(name), "x");
  const std::vector<FolderEntry> entries = files.List(Path(""));
  ASSERT_EQ(entries.size(), 4U);
  EXPECT_EQ(entries[0].name, "A.bms");
  EXPECT_EQ(entries[1].name, "b.bms");
  EXPECT_EQ(entries[3].name, "Карта.bms");
}

TEST_F(Win32ServicesTest, UserSettingsComeBackAndGo) {
  Win32UserSettings settings;
  settings.Save("KestrunTest", "section", "key", "Карта");
  EXPECT_EQ(settings.Get("KestrunTest", "section", "key"), "Карта");
  settings.Delete("KestrunTest", "section", "key");
  EXPECT_FALSE(settings.Get("KestrunTest", "section", "key"));
  EXPECT_EQ(ErrorNumberOf([&] { settings.Delete("KestrunTest", "section", "key"); }), error::kInvalidProcedureCall);
}

TEST_F(Win32ServicesTest, ARegistryKeyWithSubkeysIsNotDeleted) {
  Win32Registry registry;
  const auto root = RegistryRoot::kCurrentUser;
  EXPECT_TRUE(registry.Write(root, "Software\\KestrunTest\\below", "", "text"));
  EXPECT_EQ(registry.Read(root, "Software\\KestrunTest\\below", ""), "text");
  EXPECT_FALSE(registry.DeleteKey(root, "Software\\KestrunTest"));
  EXPECT_TRUE(registry.DeleteKey(root, "Software\\KestrunTest\\below"));
  EXPECT_TRUE(registry.DeleteKey(root, "Software\\KestrunTest"));
  EXPECT_FALSE(registry.DeleteKey(root, "Software\\KestrunTest"));
}

TEST_F(Win32ServicesTest, TheUrlTestIsThePlatforms) {
  Win32Internet internet;
  EXPECT_TRUE(internet.IsUrl("http://localhost/a.bms"));
  EXPECT_FALSE(internet.IsUrl("C:\\maps\\a.bms"));
  EXPECT_FALSE(internet.IsUrl("a.bms"));
}

class NoAnswer final : public HttpReceiver {
 public:
  bool TakeHead(int, const HttpHeaders&) override { return ADD_FAILURE() << "an answer", false; }
  bool TakePiece(ByteView) override { return false; }
};

// An Enter that was pressed while a map was fetched said yes to the question that came next, before it was seen.
TEST_F(Win32ServicesTest, WhatIsPressedWhileAServerIsWaitedForGoesNowhere) {
  MSG message{};
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the thread's queue
  for (const UINT pressed : {UINT{WM_KEYDOWN}, UINT{WM_CHAR}, UINT{WM_LBUTTONDOWN}, UINT{WM_APP}}) {
    PostThreadMessageW(GetCurrentThreadId(), pressed, VK_RETURN, 0);
  }
  NoAnswer receiver;
  const HttpRequest request{"GET", "no address", {}, {}};
  EXPECT_EQ(ErrorNumberOf([&] { Win32Internet().OpenSession()->Exchange(request, receiver); }),
            error::kAutomationError);
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE));
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_REMOVE));
}

TEST_F(Win32ServicesTest, TheProcessListHoldsThisProcess) {
  Win32Program program;
  const std::string own = program.ExeName() + ".exe";
  const std::vector<std::string> names = Win32Processes().RunningNames();
  EXPECT_TRUE(
      std::any_of(names.begin(), names.end(), [&own](const std::string& name) { return EqualsNoCase(name, own); }));
}

TEST_F(Win32ServicesTest, TheClipboardKeepsText) {
  Win32Clipboard clipboard;
  clipboard.SetText("first\nКарта");
  EXPECT_EQ(clipboard.Text(), "first\r\nКарта");
}

TEST_F(Win32ServicesTest, AClipboardThatAnotherWindowKeepsOpenIsAnError) {
  Win32Clipboard clipboard;
  clipboard.SetText("before");
  const HWND keeper = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_TRUE(OpenClipboard(keeper));
  EXPECT_EQ(ErrorOf([&] { clipboard.SetText("after"); }), "521: Can't open Clipboard");
  CloseClipboard();
  DestroyWindow(keeper);
  EXPECT_EQ(clipboard.Text(), "before");
}

TEST_F(Win32ServicesTest, TheClockFiresTimersAndPostedTasksInTheMessageLoop) {
  Win32Clock clock;
  int ticks = 0;
  bool posted = false;
  const TimerId timer = clock.StartTimer(10, [&] { ++ticks; });
  clock.Post([&] { posted = true; });
  const uint64_t limit = clock.NowMs() + 5000;
  while (ticks < 2 && clock.NowMs() < limit) clock.RunPendingEvents();
  clock.StopTimer(timer);
  EXPECT_TRUE(posted);
  EXPECT_GE(ticks, 2);
}

TEST_F(Win32ServicesTest, TheSystemCodePageHasNoBestFit) {
  const SystemCodePage page;
  EXPECT_EQ(page.Decode(page.Encode("plain text")), "plain text");
  EXPECT_EQ(page.Encode("地"), "?");
}

// A setting of Windows makes UTF-8 the page of the system.
TEST_F(Win32ServicesTest, ASystemCodePageThatIsUtf8HoldsEveryCharacter) {
  const SystemCodePage page(CP_UTF8);
  EXPECT_EQ(page.Encode("é 地図 😀"), "é 地図 😀");
  EXPECT_EQ(page.Decode("é 地図 😀"), "é 地図 😀");
}

TEST_F(Win32ServicesTest, ATurnIsForOneAtATime) {
  auto first = files.TryLock(Path("a.lock"), "kestrun");
  ASSERT_TRUE(first);
  EXPECT_FALSE(files.TryLock(Path("a.lock"), "other"));
  const LockHolder holder = files.ReadLockHolder(Path("a.lock"));
  EXPECT_EQ(holder.process, GetCurrentProcessId());
  EXPECT_EQ(holder.program, "kestrun");
  first.reset();
  EXPECT_FALSE(files.Exists(Path("a.lock")));
  EXPECT_TRUE(files.TryLock(Path("a.lock"), "other"));
}

TEST_F(Win32ServicesTest, ContentIsReplacedWhole) {
  Write(Path("index"), "old and longer");
  files.WriteAllDurably(Path("index"), AsBytes("new"));
  EXPECT_EQ(Read(Path("index")), "new");
  EXPECT_FALSE(files.Exists(Path("index.new")));
}

TEST_F(Win32ServicesTest, RoomIsReservedAndAFileCut) {
  Write(Path("a.pff"), "archive");
  const auto file = files.Open(Path("a.pff"), OpenMode::kReadWrite);
  file->Reserve(100'000);
  file->Flush();
  file->Truncate(4);
  EXPECT_EQ(file->Size(), 4U);
  EXPECT_EQ(Read(Path("a.pff")), "arch");
}

TEST_F(Win32ServicesTest, AFileHasOneTruePath) {
  Write(Path("Dflw.pff"), "archive");
  const std::string folder = files.TruePath(Path("."));
  EXPECT_EQ(files.TruePath(Path("new.stl")), folder + "\\new.stl");
  EXPECT_TRUE(files.Exists(files.TruePath(Path("dflw.PFF"))));
}

}  // namespace
}  // namespace kestrun
