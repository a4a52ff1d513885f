// The shell, the process list and the internet as a test or the command line lays them down.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/shell.h"

namespace kestrun {

struct ShellOpening {
  std::string operation;
  std::string file;
  std::string parameters;
  std::string directory;
  int show_command = 0;
  friend bool operator==(const ShellOpening&, const ShellOpening&) = default;
};

// Opens nothing: it keeps what it was asked to open.
class HeadlessShell final : public Shell {
 public:
  int Open(std::string_view operation, std::string_view file, std::string_view parameters, std::string_view directory,
           int show_command) override;
  bool WriteShortcut(std::string_view link, const Shortcut& shortcut) override;
  [[nodiscard]] std::string TemporaryFolder() override { return temporary_folder; }
  [[nodiscard]] std::string WindowsFolder() override { return windows_folder; }
  [[nodiscard]] std::string SystemFolder() override { return system_folder; }
  [[nodiscard]] std::string ShellFolder(int csidl) override;

  std::vector<ShellOpening> openings;
  // The links that were written, by their paths.
  std::map<std::string, Shortcut, std::less<>> shortcuts;
  bool refuses_shortcuts = false;
  int open_result = 33;  // the least number that means success
  std::string temporary_folder;
  std::string windows_folder;
  std::string system_folder;
  std::map<int, std::string> shell_folders;
};

class HeadlessProcesses final : public Processes {
 public:
  [[nodiscard]] std::vector<std::string> RunningNames() override;
  [[nodiscard]] std::vector<std::string> HoldersOf(std::string_view path) override;
  void EndProcess() override;

  std::vector<std::string> names;
  // The programs that have a file open, by its path.
  std::map<std::string, std::vector<std::string>, std::less<>> holders;
  // Where set, asked instead of `holders`.
  std::function<std::vector<std::string>(std::string_view path)> list_holders;
  // Where set, asked instead of `names`.
  std::function<std::vector<std::string>()> list;
  // How often the process was told to end.
  int end_count = 0;
  // What ends the process; where it is not set, only the count goes up.
  std::function<void()> end;
};

// What a request said, with a copy of its body.
struct SentRequest {
  std::string method;
  std::string url;
  HttpHeaders headers;
  std::string body;
  friend bool operator==(const SentRequest&, const SentRequest&) = default;
};

class HeadlessInternet final : public Internet {
 public:
  // Canned replies are written through this file system.
  explicit HeadlessInternet(std::function<FileSystem&()> files) : files_(std::move(files)) {}

  // A scheme of two or more letters, digits, "+", "-" or "." and a colon, so that "c:\x" is no URL.
  [[nodiscard]] bool IsUrl(std::string_view text) override;
  [[nodiscard]] bool IsConnected() override { return connected; }
  // A laid-down reply, or the file that a file:// URL names. Anything else is "object not found", a target that
  // cannot be written "download failure".
  [[nodiscard]] int DownloadToFile(std::string_view url, std::string_view path) override;
  // Exchanges over it get the laid-down answers, whatever the method; a URL without one cannot be reached.
  [[nodiscard]] std::unique_ptr<HttpSession> OpenSession() override;

  // What is behind this URL from now on, over http as an answer with status 200.
  void Reply(std::string url, std::string_view content);
  void ReplyWithFailure(std::string url, int error_number);

  // The answer for this URL from now on.
  void Answer(std::string url, HttpResponse response);

  static constexpr int kObjectNotFound = static_cast<int>(0x800C0006);
  static constexpr int kDownloadFailure = static_cast<int>(0x800C0008);

  bool connected = true;
  // Every URL that the system's own download was asked for, in order.
  std::vector<std::string> downloads;
  // Every request that was sent, in order.
  std::vector<SentRequest> requests;
  // Answers come in pieces of at most so many bytes; between two of them the receiver hears that it still waits.
  size_t piece_bytes = size_t{1} << 20;
  // The user presses Esc in every exchange once so many bytes of its body have arrived.
  std::optional<uint64_t> leave_after_bytes;
  // The user presses Esc in every exchange behind so many.
  std::optional<size_t> leave_after_requests;
  // Addresses whose server takes the request and never answers: in the background for ever, else until the time is up.
  std::set<std::string, std::less<>> silent;
  // Where set, opens the sessions in the place of the laid-down answers: real sockets, for those who ask for them.
  std::function<std::unique_ptr<HttpSession>()> transport;

 private:
  struct CannedReply {
    int error_number = 0;
    Bytes content;
  };
  class CannedExchange;
  class CannedSession;
  // Error 53 when there is no such file.
  [[nodiscard]] Bytes ContentOf(std::string_view url);

  std::function<FileSystem&()> files_;
  std::map<std::string, CannedReply, std::less<>> replies_;
  std::map<std::string, HttpResponse, std::less<>> answers_;
};

}  // namespace kestrun
