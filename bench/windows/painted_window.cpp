// Waits until a window of a class, and of a title unless that is "-", is painted; says when, in nanoseconds since 1970,
// and ends the program that it belongs to. Says "ready" first: bench/start_up starts the program then.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cwchar>

namespace {

constexpr int kTries = 10'000;
constexpr DWORD kPatienceMs = 20'000;
constexpr uint64_t kEpoch1970 = 116'444'736'000'000'000;  // in units of 100 ns since 1601

// Shown, and its thread answers again: what it painted at once has been painted.
bool IsPainted(HWND window) {
  DWORD_PTR answer = 0;
  return window && IsWindowVisible(window) &&
         SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &answer) != 0;
}

uint64_t Now() {
  FILETIME now{};
  GetSystemTimePreciseAsFileTime(&now);
  return (((uint64_t{now.dwHighDateTime} << 32) | now.dwLowDateTime) - kEpoch1970) * 100;
}

void EndProgramOf(HWND window) {
  DWORD process_id = 0;
  GetWindowThreadProcessId(window, &process_id);
  const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process_id);
  TerminateProcess(process, 0);
  WaitForSingleObject(process, kPatienceMs);
  CloseHandle(process);
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count != 3) return 2;
  const wchar_t* title = std::wcscmp(words[2], L"-") == 0 ? nullptr : words[2];
  std::printf("ready\n");
  std::fflush(stdout);
  for (int attempt = 0; attempt < kTries; ++attempt) {
    const HWND window = FindWindowW(words[1], title);
    if (IsPainted(window)) {
      std::printf("%llu\n", static_cast<unsigned long long>(Now()));
      std::fflush(stdout);
      EndProgramOf(window);
      return 0;
    }
    Sleep(2);
  }
  return 1;
}
