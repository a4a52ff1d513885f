#include "desktop/headless/command_line_host.h"

#ifndef _WIN32

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "forms/form.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// Sets an environment variable for as long as it lives.
class EnvironmentValue {
 public:
  EnvironmentValue(const char* name, const std::string& value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    ::setenv(name, value.c_str(), 1);
  }
  ~EnvironmentValue() {
    if (before_) {
      ::setenv(name_, before_->c_str(), 1);
    } else {
      ::unsetenv(name_);
    }
  }
  EnvironmentValue(const EnvironmentValue&) = delete;
  EnvironmentValue& operator=(const EnvironmentValue&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(CommandLineHostTest, KnowsItsFolderNameAndCommandLine) {
  CommandLineHost host("-pack \"a\"");
  const auto self = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(host.platform().program().Folder(), self.parent_path().string());
  EXPECT_EQ(host.platform().program().ExeName(), "test_headless");
  EXPECT_EQ(host.platform().program().CommandLine(), "-pack \"a\"");
}

TEST(CommandLineHostTest, TemporaryFolderComesFromTheEnvironment) {
  const EnvironmentValue folder("TMPDIR", "/var/tmp/");
  EXPECT_EQ(CommandLineHost("").platform().shell().TemporaryFolder(), "/var/tmp");
}

TEST(CommandLineHostTest, TemporaryFolderIsTmpByDefault) {
  const EnvironmentValue folder("TMPDIR", "");
  EXPECT_EQ(CommandLineHost("").platform().shell().TemporaryFolder(), "/tmp");
}

TEST(CommandLineHostTest, DriveCIsTheWinePrefixAndZTheRoot) {
  const TemporaryFolder prefix;
  std::filesystem::create_directories(prefix.path() + "/drive_c/windows");
  const EnvironmentValue wine("WINEPREFIX", prefix.path());
  CommandLineHost host("");
  EXPECT_TRUE(host.platform().files().IsFolder("C:\\WINDOWS"));
  EXPECT_TRUE(host.platform().files().IsFolder("Z:\\tmp"));
  EXPECT_TRUE(host.platform().files().IsFolder(host.platform().shell().WindowsFolder()));
}

TEST(CommandLineHostTest, DriveCIsMissingWithoutAWinePrefix) {
  const TemporaryFolder prefix;
  const EnvironmentValue wine("WINEPREFIX", prefix.path());
  EXPECT_FALSE(CommandLineHost("").platform().files().Exists("C:\\"));
}

TEST(CommandLineHostTest, BoxPrintsItsTextAndTakesTheSafeAnswer) {
  CommandLineHost host("");
  testing::internal::CaptureStderr();
  EXPECT_EQ(host.platform().dialogs().ShowMessage({"First\r\nSecond", "", BoxButtons::kYesNo, BoxIcon::kNone, 1}),
            BoxAnswer::kNo);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "First\nSecond\n");
}

TEST(CommandLineHostTest, ModalWindowSaysThatItNeedsADesktop) {
  CommandLineHost host("");
  const PlatformInstallation installation(host.platform());
  testing::internal::CaptureStderr();
  MakeRef<Form>("FrmOverWrite")->ShowModal();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "The window FrmOverWrite needs a desktop.\n");
  host.platform().clock().Clear();
}

TEST(CommandLineHostTest, RunningProcessIsListedByItsName) {
  ASSERT_EQ(::prctl(PR_SET_NAME, "DFLWDEM.exe"), 0);
  CommandLineHost host("");
  EXPECT_THAT(host.platform().processes().RunningNames(), Contains("DFLWDEM.exe"));
  ::prctl(PR_SET_NAME, "test_headless");
}

TEST(CommandLineHostTest, NameThatTheKernelCutsIsCompletedFromTheCommandLine) {
  // The command line of this process begins with the test program's path, whose name has 13 characters: a name that
  // is cut and does not begin it stays as the kernel gives it.
  ASSERT_EQ(::prctl(PR_SET_NAME, "fifteen-letters"), 0);
  EXPECT_THAT(ListSystemProcesses(), Contains("fifteen-letters"));
  ::prctl(PR_SET_NAME, "test_headless");
}

// Another process, of this name, that has a file open until it is told to end.
class HoldingProcess {
 public:
  HoldingProcess(const char* name, const std::string& path) {
    int ready[2];
    if (::pipe(ready) != 0) return;
    child_ = ::fork();
    if (child_ == 0) {
      ::prctl(PR_SET_NAME, name);
      static_cast<void>(::open(path.c_str(), O_RDONLY));
      static_cast<void>(::write(ready[1], "x", 1));
      for (;;) ::pause();
    }
    char sign = 0;
    static_cast<void>(::read(ready[0], &sign, 1));
    ::close(ready[0]);
    ::close(ready[1]);
  }
  ~HoldingProcess() {
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  HoldingProcess(const HoldingProcess&) = delete;
  HoldingProcess& operator=(const HoldingProcess&) = delete;

 private:
  pid_t child_ = -1;
};

TEST(CommandLineHostTest, TheProgramsThatHaveAFileOpenAreNamed) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/dflw.pff";
  CommandLineHost host("");
  host.platform().files().WriteAll(path, AsBytes("archive"));
  const auto own = host.platform().files().Open(path, OpenMode::kRead);
  EXPECT_THAT(host.platform().processes().HoldersOf(path), IsEmpty());
  const HoldingProcess game("DFLWDEM.exe", path);
  EXPECT_THAT(host.platform().processes().HoldersOf(folder.path() + "\\DFLW.PFF"), ElementsAre("DFLWDEM.exe"));
  EXPECT_THAT(host.platform().processes().HoldersOf(folder.path() + "/none"), IsEmpty());
}

TEST(CommandLineHostTest, NothingCanBeOpenedWithoutAShell) {
  EXPECT_LE(CommandLineHost("").platform().shell().Open("open", "a.txt", "", "", 1), 32);
}

TEST(CommandLineHostTest, DateIsToday) {
  const double days = CommandLineHost("").platform().clock().LocalDateTime();
  EXPECT_NEAR(days, 25569 + static_cast<double>(std::time(nullptr)) / 86400, 1);
}

using CommandLineHostDeathTest = testing::Test;

TEST(CommandLineHostDeathTest, EndOfTheProcessIsAtOnceAndClean) {
  EXPECT_EXIT(CommandLineHost("").platform().processes().EndProcess(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
