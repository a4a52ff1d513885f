#include "desktop/headless/command_line_host.h"

#ifndef _WIN32

#include <ifaddrs.h>
#include <net/if.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/curl_http.h"
#include "platform/built_version.h"

namespace kestrun {
namespace {

namespace fs = std::filesystem;

// Shell folders by their CSIDL numbers, below the user's own folder.
constexpr std::pair<int, std::string_view> kHomeFolders[]{{0x00, "Desktop"}, {0x10, "Desktop"}, {0x05, "Documents"}};
// The shell's number for a file that no program is associated with.
constexpr int kNoAssociation = 31;

std::string Environment(const char* name, std::string fallback) {
  const char* const value = std::getenv(name);
  return value && *value ? std::string(value) : std::move(fallback);
}

std::string WithoutTrailingSlash(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string FileContent(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The kernel cuts a name at 15 characters; the first word of the command line has the rest.
std::string ProcessName(const fs::path& process) {
  std::string name = FileContent(process / "comm");
  if (!name.empty() && name.back() == '\n') name.pop_back();
  constexpr size_t kKernelLimit = 15;
  if (name.size() < kKernelLimit) return name;
  std::string command = FileContent(process / "cmdline");
  command.resize(std::min(command.find('\0'), command.size()));
  const std::string full_name = command.substr(command.find_last_of("/\\") + 1);
  return StartsWith(full_name, name) ? full_name : name;
}

bool HasNetworkInterface() {
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return false;
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(first, ::freeifaddrs);
  constexpr unsigned kAlive = IFF_UP | IFF_RUNNING;
  for (const ifaddrs* at = first; at; at = at->ifa_next) {
    const bool has_address =
        at->ifa_addr && (at->ifa_addr->sa_family == AF_INET || at->ifa_addr->sa_family == AF_INET6);
    if (has_address && (at->ifa_flags & kAlive) == kAlive && !(at->ifa_flags & IFF_LOOPBACK)) return true;
  }
  return false;
}

// Local time in days since 1899-12-30.
double SystemDateTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  constexpr double kDaysFrom1899To1970 = 25569;
  constexpr double kSecondsPerDay = 86400;
  return kDaysFrom1899To1970 + static_cast<double>(now + local.tm_gmtoff) / kSecondsPerDay;
}

void PrintQuestion(const UnexpectedQuestion& question) {
  std::string line = question.kind == QuestionKind::kModalWindow ? "The window " + question.text + " needs a desktop."
                                                                 : ReplaceAll(question.text, kCrLf, "\n");
  if (line.empty() || line.back() != '\n') line += '\n';
  std::fputs(line.c_str(), stderr);
}

// The folders of /proc that are processes.
std::vector<fs::path> ProcessFolders() {
  std::vector<fs::path> folders;
  std::error_code failure;
  for (fs::directory_iterator entry("/proc", failure), end; !failure && entry != end; entry.increment(failure)) {
    const std::string number = entry->path().filename().string();
    if (number.find_first_not_of("0123456789") == std::string::npos) folders.push_back(entry->path());
  }
  return folders;
}

// A process of another user shows none of its files.
bool HasOpen(const fs::path& process, const fs::path& file) {
  std::error_code failure;
  for (fs::directory_iterator entry(process / "fd", failure), end; !failure && entry != end; entry.increment(failure)) {
    std::error_code gone;
    if (fs::read_symlink(entry->path(), gone) == file) return true;
  }
  return false;
}

}  // namespace

std::vector<std::string> ListFileHolders(const std::string& native_path) {
  std::vector<std::string> names;
  std::error_code failure;
  const fs::path file = fs::canonical(native_path, failure);
  if (failure) return names;
  const fs::path self = fs::read_symlink("/proc/self", failure);
  for (const fs::path& process : ProcessFolders()) {
    if (process.filename() != self && HasOpen(process, file)) names.push_back(ProcessName(process));
  }
  return names;
}

std::vector<std::string> ListSystemProcesses() {
  std::vector<std::string> names;
  for (const fs::path& process : ProcessFolders()) {
    std::string name = ProcessName(process);
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

CommandLineHost::CommandLineHost(std::string command_line) {
  platform_.program().command_line = std::move(command_line);
  platform_.program().version = BuiltVersion();
  NameFolders();
  platform_.processes().list = ListSystemProcesses;
  platform_.processes().list_holders = [this](std::string_view path) {
    std::vector<std::string> names;
    Attempt([&] { names = ListFileHolders(files_.NativePath(path)); });
    return names;
  };
  platform_.processes().end = [] {
    std::fflush(nullptr);
    std::_Exit(0);
  };
  platform_.internet().connected = HasNetworkInterface();
  platform_.internet().transport = OpenCurlSession;
  platform_.shell().open_result = kNoAssociation;
  platform_.clock().SetLocalDateTime(SystemDateTime());
  platform_.OnUnexpected(PrintQuestion);
  // Its time is virtual and passes only while somebody sleeps: here that takes as long as it says.
  static constexpr uint32_t kTickMs = 10;
  static_cast<void>(
      platform_.clock().StartTimer(kTickMs, [] { std::this_thread::sleep_for(std::chrono::milliseconds(kTickMs)); }));
}

void CommandLineHost::NameFolders() {
  std::error_code failure;
  const fs::path program = fs::read_symlink("/proc/self/exe", failure);
  platform_.program().folder = failure ? files_.CurrentFolder() : program.parent_path().string();
  if (!failure) platform_.program().exe_name = program.stem().string();

  HeadlessShell& shell = platform_.shell();
  shell.temporary_folder = WithoutTrailingSlash(Environment("TMPDIR", "/tmp"));
  const std::string home = WithoutTrailingSlash(Environment("HOME", "/"));
  for (const auto& [csidl, name] : kHomeFolders) shell.shell_folders[csidl] = home + "/" + std::string(name);

  files_.MapDrive('Z', "/");
  const std::string drive_c = Environment("WINEPREFIX", home + "/.wine") + "/drive_c";
  if (!fs::is_directory(drive_c, failure)) return;
  files_.MapDrive('C', drive_c);
  shell.windows_folder = drive_c + "/windows";
  shell.system_folder = drive_c + "/windows/system32";
}

}  // namespace kestrun

#endif  // _WIN32
