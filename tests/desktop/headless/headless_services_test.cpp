// Settings, registry, shell, processes, internet and clipboard of the headless platform.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class HeadlessServicesTest : public HeadlessTest {
 protected:
  HeadlessUserSettings& settings() { return desktop.user_settings(); }
  HeadlessRegistry& registry() { return desktop.registry(); }
  HeadlessInternet& internet() { return desktop.internet(); }
};

TEST_F(HeadlessServicesTest, UnsetSettingIsNothing) {
  EXPECT_EQ(settings().Get("Kes_Trun", "DEFAULT", "APP"), std::nullopt);
}

TEST_F(HeadlessServicesTest, SettingIsFoundInAnyCase) {
  settings().Save("Kes_Trun", "DEFAULT", "APP", "C:\\Kestrun");
  EXPECT_EQ(settings().Get("kes_trun", "Default", "app"), "C:\\Kestrun");
}

TEST_F(HeadlessServicesTest, ApplicationsThatDifferByALetterAreTwo) {
  settings().Save("Kes_Trn", "DEFAULT", "APP", "x");
  EXPECT_EQ(settings().Get("Kes_Trun", "DEFAULT", "APP"), std::nullopt);
}

TEST_F(HeadlessServicesTest, NamesDoNotRunIntoEachOther) {
  settings().Save("a", "bc", "d", "x");
  EXPECT_EQ(settings().Get("ab", "c", "d"), std::nullopt);
}

TEST_F(HeadlessServicesTest, DeletedSettingIsGoneAndCannotBeDeletedAgain) {
  settings().Save("a", "b", "c", "");
  EXPECT_EQ(settings().Get("a", "b", "c"), "");
  settings().Delete("A", "B", "C");
  EXPECT_EQ(settings().Get("a", "b", "c"), std::nullopt);
  try {
    settings().Delete("a", "b", "c");
    ADD_FAILURE() << "a missing setting was deleted";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), error::kInvalidProcedureCall);
  }
}

TEST_F(HeadlessServicesTest, RegistryValueIsFoundInAnyCase) {
  EXPECT_TRUE(registry().Write(RegistryRoot::kLocalMachine, "SOFTWARE\\Game", "Path", "C:\\game"));
  EXPECT_EQ(registry().Read(RegistryRoot::kLocalMachine, "software\\GAME", "PATH"), "C:\\game");
  EXPECT_EQ(registry().Read(RegistryRoot::kLocalMachine, "software\\GAME", ""), std::nullopt);
  EXPECT_EQ(registry().Read(RegistryRoot::kClassesRoot, "software\\GAME", "PATH"), std::nullopt);
}

TEST_F(HeadlessServicesTest, WritingAValueMakesTheKeysAboveIt) {
  EXPECT_TRUE(registry().Write(RegistryRoot::kClassesRoot, "Kestrun\\shell\\open", "", "x"));
  EXPECT_TRUE(registry().HasKey(RegistryRoot::kClassesRoot, "Kestrun"));
  EXPECT_TRUE(registry().HasKey(RegistryRoot::kClassesRoot, "Kestrun\\shell\\"));
  EXPECT_FALSE(registry().HasKey(RegistryRoot::kClassesRoot, "Kestrun\\sh"));
}

TEST_F(HeadlessServicesTest, KeyWithSubkeysIsNotDeleted) {
  EXPECT_TRUE(registry().Write(RegistryRoot::kClassesRoot, "Kestrun\\shell", "", "x"));
  EXPECT_TRUE(registry().Write(RegistryRoot::kClassesRoot, "Kestrun2", "", "x"));
  EXPECT_FALSE(registry().DeleteKey(RegistryRoot::kClassesRoot, "Kestrun"));
  EXPECT_TRUE(registry().DeleteKey(RegistryRoot::kClassesRoot, "Kestrun\\shell"));
  EXPECT_TRUE(registry().DeleteKey(RegistryRoot::kClassesRoot, "Kestrun"));
  EXPECT_FALSE(registry().DeleteKey(RegistryRoot::kClassesRoot, "Kestrun"));
  EXPECT_TRUE(registry().HasKey(RegistryRoot::kClassesRoot, "Kestrun2"));
}

TEST_F(HeadlessServicesTest, ClosedRootRefusesChangesButNotReads) {
  EXPECT_TRUE(registry().Write(RegistryRoot::kLocalMachine, "A", "", "x"));
  registry().CloseForWriting(RegistryRoot::kLocalMachine);
  EXPECT_FALSE(registry().Write(RegistryRoot::kLocalMachine, "A", "", "y"));
  EXPECT_FALSE(registry().DeleteKey(RegistryRoot::kLocalMachine, "A"));
  EXPECT_EQ(registry().Read(RegistryRoot::kLocalMachine, "A", ""), "x");
  EXPECT_TRUE(registry().Write(RegistryRoot::kCurrentUser, "A", "", "y"));
}

TEST_F(HeadlessServicesTest, ShellKeepsWhatItWasAskedToOpen) {
  EXPECT_GT(platform().shell().Open("open", "C:\\game.exe", "0", "C:\\", 1), 32);
  EXPECT_THAT(desktop.shell().openings, ElementsAre(ShellOpening{"open", "C:\\game.exe", "0", "C:\\", 1}));
}

TEST_F(HeadlessServicesTest, UnknownShellFolderIsEmpty) {
  desktop.shell().shell_folders[9] = "C:\\SendTo";
  EXPECT_EQ(platform().shell().ShellFolder(9), "C:\\SendTo");
  EXPECT_EQ(platform().shell().ShellFolder(10), "");
}

TEST_F(HeadlessServicesTest, ProcessesAreThoseLaidDown) {
  desktop.processes().names = {"explorer.exe", "DFLWDEM.exe"};
  EXPECT_THAT(platform().processes().RunningNames(), ElementsAre("explorer.exe", "DFLWDEM.exe"));
}

TEST_F(HeadlessServicesTest, EndOfTheProcessIsOnlyNoted) {
  platform().processes().EndProcess();
  EXPECT_EQ(desktop.processes().end_count, 1);
}

TEST_F(HeadlessServicesTest, ClipboardGivesBackItsText) {
  platform().clipboard().SetText("Карта");
  EXPECT_EQ(platform().clipboard().Text(), "Карта");
}

TEST_F(HeadlessServicesTest, SchemeAndColonMakeAUrl) {
  for (const char* url : {"http://example.org/a.bms", "HTTPS://x", "ftp://x", "mailto:someone", "file:///c:/a",
                          "ab:", "svn+ssh://x", "kestrun://-options", "x-y.z1:rest"})
    EXPECT_TRUE(internet().IsUrl(url)) << url;
}

TEST_F(HeadlessServicesTest, PathOrTextIsNoUrl) {
  for (const char* text : {"", "c:\\maps\\a.bms", "c:/a", "a.bms", "www.example.org/a.bms", "//server/share",
                           "\\\\s\\s", ":x", " http://x", "ht tp://x", "http", "é:x", "-pack \"a\" \"b\" \"http://x\""})
    EXPECT_FALSE(internet().IsUrl(text)) << text;
}

TEST_F(HeadlessServicesTest, DownloadWritesTheLaidDownReply) {
  internet().Reply("http://x/a.bms", "map");
  EXPECT_EQ(platform().internet().DownloadToFile("http://x/a.bms", Path("a.bms")), 0);
  EXPECT_EQ(ReadFile(Path("a.bms")), "map");
  EXPECT_THAT(internet().downloads, ElementsAre("http://x/a.bms"));
}

TEST_F(HeadlessServicesTest, DownloadOfAnUnknownUrlFailsAndWritesNothing) {
  EXPECT_EQ(internet().DownloadToFile("http://x/a.bms", Path("a.bms")), HeadlessInternet::kObjectNotFound);
  EXPECT_FALSE(FileIsThere(Path("a.bms")));
}

TEST_F(HeadlessServicesTest, DownloadFailsWithTheLaidDownNumber) {
  internet().ReplyWithFailure("http://x/a.bms", 12007);
  EXPECT_EQ(internet().DownloadToFile("http://x/a.bms", Path("a.bms")), 12007);
  EXPECT_FALSE(FileIsThere(Path("a.bms")));
}

TEST_F(HeadlessServicesTest, DownloadIntoAMissingFolderFails) {
  internet().Reply("http://x/a.bms", "map");
  EXPECT_EQ(internet().DownloadToFile("http://x/a.bms", Path("nowhere\\a.bms")), HeadlessInternet::kDownloadFailure);
}

// Keeps an answer.
class Keeper final : public HttpReceiver {
 public:
  bool TakeHead(int status, const HttpHeaders& headers) override {
    response = {status, headers, {}};
    return true;
  }
  bool TakePiece(ByteView piece) override {
    response.body.insert(response.body.end(), piece.begin(), piece.end());
    return true;
  }
  void StillWaiting(bool user_leaves) override { events += user_leaves ? "leaves " : "waits "; }
  HttpResponse response;
  std::string events;
};

TEST_F(HeadlessServicesTest, RequestsGetWhatIsLaidDown) {
  internet().Answer("http://x/", {404, {{"A", "b"}}, {1, 2, 3}});
  internet().piece_bytes = 2;
  internet().leave_after_bytes = 3;
  const Bytes body{'h', 'i'};
  Keeper keeper;
  platform().internet().OpenSession()->Exchange({"PUT", "http://x/", {{"C", "d"}}, body}, keeper);
  EXPECT_EQ(keeper.response.status, 404);
  EXPECT_EQ(keeper.response.Header("a"), "b");
  EXPECT_EQ(keeper.response.body, (Bytes{1, 2, 3}));
  EXPECT_EQ(keeper.events, "waits waits leaves ");
  EXPECT_THAT(internet().requests, ElementsAre(SentRequest{"PUT", "http://x/", {{"C", "d"}}, "hi"}));
}

TEST_F(HeadlessServicesTest, AUrlWithoutAnAnswerCannotBeReached) {
  Keeper keeper;
  EXPECT_EQ(ErrorOf([&] {
              internet().OpenSession()->Exchange({"GET", "http://x/", {}, {}}, keeper);
              return 0;
            }),
            "440: The server cannot be reached.");
  EXPECT_THAT(internet().requests, testing::SizeIs(1));
}

TEST_F(HeadlessServicesTest, FileUrlIsReadFromDisk) {
  WriteFile(Path("my map.bms"), "map");
  const std::string folder = ReplaceAll(Folder(), "\\", "/");
  const std::string url = "file://" + std::string(folder.front() == '/' ? "" : "/") + folder + "/my%20map.bms";
  EXPECT_EQ(internet().DownloadToFile(url, Path("copy.bms")), 0);
  EXPECT_EQ(ReadFile(Path("copy.bms")), "map");
}

}  // namespace
}  // namespace kestrun
