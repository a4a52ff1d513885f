// The simulated game as a process of its own, for tests that reach into it. It ends with this object.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/windows_api.h"
#include "formats/bms/bms_writer.h"
#include "game/simulated/simulated_build.h"
#include "support/headless_fixture.h"

namespace kestrun {

class GameProcess {
 public:
  // A game of that row of SimulatedBuilds with more words for its command line. Its first round plays a loose file.
  // Other processes get the rights that the security attributes leave them.
  explicit GameProcess(size_t build, const std::string& words = "", SECURITY_ATTRIBUTES* security = nullptr)
      : title_(ToWide(SimulatedBuilds()[build].title)) {
    MissionFields fields;
    fields.mission_name = "Oasis";
    Win32FileSystem().WriteAll(Path("D08M03.BMS"), WriteMission(fields));
    std::wstring command = ToWide("\"" + ProgramPath() + "\" -build " + std::to_string(build) + " -folder \"" +
                                  folder_.path() + "\" -log \"" + Path("game.log") + "\" -pause 100 " + words);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(nullptr, command.data(), security, nullptr, FALSE, 0, nullptr, nullptr, &start, &made)) return;
    process_.Reset(made.hProcess);
    CloseHandle(made.hThread);
    id_ = made.dwProcessId;
    is_there_ = WaitFor([this] { return window() != nullptr && IsWindowVisible(window()); });
  }
  ~GameProcess() { Kill(); }
  GameProcess(const GameProcess&) = delete;
  GameProcess& operator=(const GameProcess&) = delete;

  [[nodiscard]] bool IsThere() const { return is_there_; }
  [[nodiscard]] DWORD Id() const { return id_; }
  [[nodiscard]] HWND window() const { return FindWindowW(nullptr, title_.c_str()); }
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.path() + "\\" + std::string(name); }
  [[nodiscard]] bool HasEnded() const { return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0; }

  void Kill() {
    if (!process_.IsValid()) return;
    TerminateProcess(process_.get(), 1);
    WaitForSingleObject(process_.get(), kPatienceMs);
  }

  // True once the log holds the text.
  [[nodiscard]] bool Logs(std::string_view text) const {
    return WaitFor([&] { return Log().find(text) != std::string::npos; });
  }
  [[nodiscard]] std::string Log() const {
    std::string log;
    Attempt([&] { log = AsChars(Win32FileSystem().ReadAll(Path("game.log"))); });
    return log;
  }

  // Waits for a condition: false when it does not come true in half a minute.
  [[nodiscard]] static bool WaitFor(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + kPatienceMs;
    while (!condition()) {
      if (GetTickCount64() > end) return false;
      ::Sleep(10);
    }
    return true;
  }

 private:
  struct ProcessTraits {
    using Handle = HANDLE;
    static Handle Empty() { return nullptr; }
    static void Close(Handle handle) { CloseHandle(handle); }
  };
  static constexpr DWORD kPatienceMs = 30'000;

  // Beside the folder of the tests.
  static std::string ProgramPath() {
    std::wstring path(32'768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::string tests(FolderPart(FromWide(path)));
    return std::string(FolderPart(tests)) + "\\kestrun_game.exe";
  }

  TemporaryFolder folder_;
  std::wstring title_;
  UniqueHandle<ProcessTraits> process_;
  DWORD id_ = 0;
  bool is_there_ = false;
};

}  // namespace kestrun
