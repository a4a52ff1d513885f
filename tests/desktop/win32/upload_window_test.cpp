// The uploader on the screen, worked by real clicks and keys, over the system's own way to the web: only the site's
// place is another, a real web server on this machine.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/text.h"
#include "desktop/win32/window_fixture.h"
#include "formats/bms/bms_writer.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "support/mapping_center.h"
#include "support/zip_builder.h"
#include "windows/upload/frmcenter.h"

namespace kestrun {
namespace {

constexpr int kPatienceMs = 20'000;
const std::string kPicture = "\xFF\xD8\xFF picture \x80\x81\x8D\xA0";

// The program's platform with the site's requests led to this machine.
class MovedSitePlatform final : public Platform {
 public:
  MovedSitePlatform(Platform& real, const MappingCenter& center) : real_(real), internet_(real.internet(), center) {}

  [[nodiscard]] FileSystem& files() override { return real_.files(); }
  [[nodiscard]] Program& program() override { return real_.program(); }
  [[nodiscard]] UserSettings& user_settings() override { return real_.user_settings(); }
  [[nodiscard]] Registry& registry() override { return real_.registry(); }
  [[nodiscard]] Shell& shell() override { return real_.shell(); }
  [[nodiscard]] Processes& processes() override { return real_.processes(); }
  [[nodiscard]] Internet& internet() override { return internet_; }
  [[nodiscard]] Dialogs& dialogs() override { return real_.dialogs(); }
  [[nodiscard]] Clipboard& clipboard() override { return real_.clipboard(); }
  [[nodiscard]] Pictures& pictures() override { return real_.pictures(); }
  [[nodiscard]] Clock& clock() override { return real_.clock(); }
  [[nodiscard]] Windowing& windowing() override { return real_.windowing(); }
  [[nodiscard]] RunningGames& running_games() override { return real_.running_games(); }

 private:
  class MovedInternet final : public Internet {
   public:
    MovedInternet(Internet& real, const MappingCenter& center) : real_(real), center_(center) {}
    bool IsUrl(std::string_view text) override { return real_.IsUrl(text); }
    bool IsConnected() override { return real_.IsConnected(); }
    int DownloadToFile(std::string_view url, std::string_view path) override { return real_.DownloadToFile(url, path); }
    std::unique_ptr<HttpSession> OpenSession() override { return center_.OpenSession(real_.OpenSession()); }

   private:
    Internet& real_;
    const MappingCenter& center_;
  };

  Platform& real_;
  MovedInternet internet_;
};

class UploadOnScreenTest : public RealWindowTest {
 protected:
  UploadOnScreenTest() {
    const std::string temporary = platform.shell().TemporaryFolder();
    folder =
        temporary + (temporary.ends_with('\\') ? "" : "\\") + "kestrun upload " + std::to_string(GetCurrentProcessId());
    platform.files().MakeFolder(folder);
    WriteSetting(setting::kUploadFolder, folder);
    WriteSetting(setting::kUploadUser, "neo");
    WriteSetting(setting::kUploadPassword, "sesame");
    WriteSetting(setting::kUploadSavePassword, "1");
  }
  ~UploadOnScreenTest() override {
    CloseAllWindows();
    for (const FolderEntry& entry : platform.files().List(folder)) platform.files().Delete(folder + "\\" + entry.name);
    platform.files().RemoveFolder(folder);
    platform.files().Delete(AppFile("packit.ini"));
  }

  void PutMap(const std::string& name) {
    MissionFields mission;
    mission.mission_name = name;
    mission.designer = "Trinity";
    mission.game_types = 0x1000;
    const std::string zip = BuildZip({{name + ".bms", std::string(AsChars(WriteMission(mission)))}});
    platform.files().WriteAll(folder + "\\" + name + ".zip", AsBytes(zip));
    platform.files().WriteAll(folder + "\\" + name + ".jpg", AsBytes(kPicture));
    platform.files().WriteAll(folder + "\\" + name + ".txt", AsBytes("[COMMENTS]\r\nA map.\r\n[ADDONS]\r\nNone.\r\n"));
  }
  FrmCenter& Open() {
    static_cast<void>(ShowWindow(window_name::kUploader));
    Pump();
    return Window<FrmCenter>();
  }
  static void Click(Control& button) { SendMessageW(HandleOf(button), BM_CLICK, 0, 0); }
  // The lines behind the first, which tells the time.
  static std::wstring ShownLog(FrmCenter& window) {
    const std::wstring log = TextOf(HandleOf(window.txtLog));
    return log.substr(std::min(log.size(), log.find(L'\n') + 1));
  }

  std::string folder;
  MappingCenter center;
  MovedSitePlatform moved{platform, center};
  PlatformInstallation moved_installation{moved};
};

TEST_F(UploadOnScreenTest, TheMapsOfAFolderAreSentByAClick) {
  for (const char* name : {"Arena", "Desert", "Oasis"}) PutMap(name);
  FrmCenter& window = Open();
  EXPECT_EQ(TextOf(HandleOf(window.TxtDir)), std::wstring(folder.begin(), folder.end()));
  Click(window.Command1);
  ASSERT_EQ(center.Taken().size(), 3U);
  EXPECT_EQ(center.Taken()[2]["mapname"], "Oasis");
  EXPECT_EQ(center.Taken()[2]["user"], "neo");
  EXPECT_EQ(center.Taken()[2]["pwd"], "sesame");
  EXPECT_EQ(center.Taken()[2]["image"], kPicture);
  EXPECT_EQ(AsBytes(center.Taken()[2]["map"]).size(), platform.files().ReadAll(folder + "\\Oasis.zip").size());
  EXPECT_TRUE(center.Faults().empty());
  EXPECT_EQ(ShownLog(window),
            L"Checking files ...\r\n3 files checked no missing screen shots.\r\nOK\r\nUploading files ...\r\n"
            L"UPLOADING Arena.zip\r\nSERVER RESPONS:\r\n[UPLOAD SUCCESS] Thank you.\r\n"
            L"UPLOADING Desert.zip\r\nSERVER RESPONS:\r\n[UPLOAD SUCCESS] Thank you.\r\n"
            L"UPLOADING Oasis.zip\r\nSERVER RESPONS:\r\n[UPLOAD SUCCESS] Thank you.\r\n");
  EXPECT_EQ(TextOf(HandleOf(window.txtstatus)), L"3 of 3 maps uploaded.");
  EXPECT_TRUE(IsWindowEnabled(HandleOf(window.Command1)));
  EXPECT_FALSE(IsWindowEnabled(HandleOf(window.CmdCancel)));
}

TEST_F(UploadOnScreenTest, AServerThatDiesInTheMiddleIsLoggedAndTheWindowGoesOn) {
  for (const char* name : {"Arena", "Desert", "Oasis"}) PutMap(name);
  center.uploads_until_death = 1;
  FrmCenter& window = Open();
  Click(window.Command1);
  EXPECT_EQ(center.Taken().size(), 1U);
  EXPECT_EQ(TextOf(HandleOf(window.txtstatus)), L"1 of 3 maps uploaded.");
  EXPECT_NE(ShownLog(window).find(L"UPLOADING Oasis.zip\r\n"), std::wstring::npos);
  EXPECT_TRUE(IsWindowEnabled(HandleOf(window.Command1)));
}

// While the server thinks about the first map the user clicks on Cancel: nothing behind it is sent.
TEST_F(UploadOnScreenTest, CancelEndsTheRunBehindTheMapThatIsBeingSent) {
  for (const char* name : {"Arena", "Desert", "Oasis"}) PutMap(name);
  FrmCenter& window = Open();
  const HWND cancel = HandleOf(window.CmdCancel);
  center.answer = [cancel](const TakenMap&) {
    SendMessageW(cancel, BM_CLICK, 0, 0);
    return std::string(MappingCenter::kTaken);
  };
  Click(window.Command1);
  EXPECT_EQ(center.Taken().size(), 1U);
  EXPECT_EQ(TextOf(HandleOf(window.txtstatus)), L"1 of 3 maps uploaded.");
}

// The server never answers before the key has done its work.
TEST_F(UploadOnScreenTest, EscLeavesAServerThatIsSilent) {
  for (const char* name : {"Arena", "Oasis"}) PutMap(name);
  FrmCenter& window = Open();
  const HWND list = HandleOf(window.FileMaps);
  const HWND start = HandleOf(window.Command1);
  center.answer = [list, start](const TakenMap&) {
    PostMessageW(list, WM_KEYDOWN, VK_ESCAPE, 0);
    // The window may be closed by the time that this looks.
    const auto goes_on = [start] { return IsWindow(start) && !IsWindowEnabled(start); };
    for (int waited_ms = 0; waited_ms < kPatienceMs && goes_on(); waited_ms += 10) Sleep(10);
    return std::string(MappingCenter::kTaken);
  };
  Click(window.Command1);
  EXPECT_EQ(TextOf(HandleOf(window.txtstatus)), L"0 of 2 maps uploaded.");
  EXPECT_TRUE(IsWindowEnabled(start));
}

}  // namespace
}  // namespace kestrun
