// The simulated game as a process of its own, for tests that reach into it. It ends with this object.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/windows_api.h"
#include "formats/bms/bms_writer.h"
#include "game/simulated/simulated_build.h"
#include "support/headless_fixture.h"

namespace kestrun {

inline constexpr DWORD kPatienceMs = 30'000;

// Waits for a condition: false when it does not come true in half a minute.
[[nodiscard]] inline bool WaitFor(const std::function<bool()>& condition) {
  const ULONGLONG end = GetTickCount64() + kPatienceMs;
  while (!condition()) {
    if (GetTickCount64() > end) return false;
    ::Sleep(10);
  }
  return true;
}

struct ProcessTraits {
  using Handle = HANDLE;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using ProcessHandle = UniqueHandle<ProcessTraits>;

// A program in the folder above that of the tests.
[[nodiscard]] inline std::string ProgramBesideTests(std::string_view name) {
  std::wstring path(32'768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  const std::string tests(FolderPart(FromWide(path)));
  return std::string(FolderPart(tests)) + "\\" + std::string(name);
}

[[nodiscard]] inline ProcessHandle StartProcess(std::wstring command, SECURITY_ATTRIBUTES* security = nullptr) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(nullptr, command.data(), security, nullptr, FALSE, 0, nullptr, nullptr, &start, &made)) return {};
  CloseHandle(made.hThread);
  return ProcessHandle(made.hProcess);
}

// At once, and waits until it is gone. Nothing where there is none.
inline void EndProcess(const ProcessHandle& process) {
  if (!process.IsValid()) return;
  TerminateProcess(process.get(), 1);
  WaitForSingleObject(process.get(), kPatienceMs);
}

class GameProcess {
 public:
  // A game of that row of SimulatedBuilds with more words for its command line, in a folder of its own whose loose file
  // its first round plays. Other processes get the rights that the security attributes leave them.
  explicit GameProcess(size_t build, const std::string& words = "", SECURITY_ATTRIBUTES* security = nullptr)
      : GameProcess(build, words + " -pause 100", std::make_shared<TemporaryFolder>(), security) {}

  // In a folder that is there, and stays.
  GameProcess(size_t build, const std::string& words, std::shared_ptr<TemporaryFolder> folder,
              SECURITY_ATTRIBUTES* security = nullptr)
      : folder_(std::move(folder)), title_(ToWide(SimulatedBuilds()[build].title)) {
    if (!Win32FileSystem().Exists(Path("D08M03.BMS"))) WriteLooseFile();
    std::wstring command = ToWide("\"" + ProgramBesideTests("kestrun_game.exe") + "\" -build " + std::to_string(build) +
                                  " -folder \"" + folder_->path() + "\" -log \"" + Path("game.log") + "\" " + words);
    process_ = StartProcess(command, security);
    is_there_ = process_.IsValid() && WaitFor([this] { return window() != nullptr && IsWindowVisible(window()); });
  }
  ~GameProcess() { Kill(); }
  GameProcess(const GameProcess&) = delete;
  GameProcess& operator=(const GameProcess&) = delete;

  [[nodiscard]] bool IsThere() const { return is_there_; }
  [[nodiscard]] DWORD Id() const { return GetProcessId(process_.get()); }
  [[nodiscard]] HWND window() const { return FindWindowW(nullptr, title_.c_str()); }
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_->path() + "\\" + std::string(name); }
  [[nodiscard]] bool HasEnded() const { return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0; }

  void Kill() { EndProcess(process_); }

  // True once the log holds the text.
  [[nodiscard]] bool Logs(std::string_view text) const {
    return WaitFor([&] { return Log().find(text) != std::string::npos; });
  }
  [[nodiscard]] std::string Log() const {
    std::string log;
    Attempt([&] { log = AsChars(Win32FileSystem().ReadAll(Path("game.log"))); });
    return log;
  }

 private:
  void WriteLooseFile() const {
    MissionFields fields;
    fields.mission_name = "Oasis";
    Win32FileSystem().WriteAll(Path("D08M03.BMS"), WriteMission(fields));
  }

  std::shared_ptr<TemporaryFolder> folder_;
  std::wstring title_;
  ProcessHandle process_;
  bool is_there_ = false;
};

}  // namespace kestrun
