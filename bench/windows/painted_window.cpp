// Waits until a window of a class, and of a title unless that is "-", is painted; says when, in nanoseconds since 1970.
// Watches it for so many milliseconds more, says the longest that a message waited there, in nanoseconds, and ends the
// program that it belongs to. Says "ready" first: bench/start_up starts the program then.
#include <windows.h>

#include <algorithm>
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

// The longest that the window leaves a message without an answer.
uint64_t LongestPause(HWND window, DWORD watched_ms) {
  uint64_t longest = 0;
  const ULONGLONG end = GetTickCount64() + watched_ms;
  while (GetTickCount64() < end) {
    const uint64_t asked = Now();
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &answer);
    longest = std::max(longest, Now() - asked);
    Sleep(1);
  }
  return longest;
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
  if (count != 4) return 2;
  const wchar_t* title = std::wcscmp(words[2], L"-") == 0 ? nullptr : words[2];
  std::printf("ready\n");
  std::fflush(stdout);
  for (int attempt = 0; attempt < kTries; ++attempt) {
    const HWND window = FindWindowW(words[1], title);
    if (IsPainted(window)) {
      std::printf("%llu\n", static_cast<unsigned long long>(Now()));
      std::printf("%llu\n", static_cast<unsigned long long>(LongestPause(window, std::wcstoul(words[3], nullptr, 10))));
      std::fflush(stdout);
      EndProgramOf(window);
      return 0;
    }
    Sleep(2);
  }
  return 1;
}
