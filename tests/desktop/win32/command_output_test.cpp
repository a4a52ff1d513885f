// Lines of a command on a real console and in a pipe.
#include "desktop/win32/system/command_output.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "desktop/win32/game_process.h"

namespace kestrun {
namespace {

// Letters of several scripts, which no code page of a console holds together.
constexpr const char* kLine = "Карты 地図 é";

TEST(CommandOutputTest, APipeGetsUtf8) {
  HANDLE read_end = nullptr;
  HANDLE write_end = nullptr;
  ASSERT_TRUE(CreatePipe(&read_end, &write_end, nullptr, 0));
  const ProcessHandle reader(read_end);
  const ProcessHandle writer(write_end);
  WriteLineTo(write_end, kLine);
  std::array<char, 100> bytes{};
  DWORD count = 0;
  ASSERT_TRUE(ReadFile(read_end, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
  EXPECT_EQ(std::string(bytes.data(), count), std::string(kLine) + "\r\n");
}

TEST(CommandOutputTest, AConsoleGetsCharactersWhateverItsCodePage) {
  // A console of its own: the one that the tests were started from may be no more than a terminal. What the tests print
  // goes where it went before.
  const std::array<DWORD, 3> streams{STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
  std::array<HANDLE, 3> handles{};
  for (size_t at = 0; at < streams.size(); ++at) handles[at] = GetStdHandle(streams[at]);
  FreeConsole();
  ASSERT_TRUE(AllocConsole());
  const ProcessHandle screen(CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                       nullptr, CONSOLE_TEXTMODE_BUFFER, nullptr));
  ASSERT_NE(screen.get(), INVALID_HANDLE_VALUE);
  const UINT before = GetConsoleOutputCP();
  SetConsoleOutputCP(437);
  WriteLineTo(screen.get(), "Карты é");
  std::wstring row(7, L'\0');
  DWORD count = 0;
  ASSERT_TRUE(ReadConsoleOutputCharacterW(screen.get(), row.data(), static_cast<DWORD>(row.size()), {0, 0}, &count));
  EXPECT_EQ(FromWide(row), "Карты é");
  CONSOLE_SCREEN_BUFFER_INFO state{};
  ASSERT_TRUE(GetConsoleScreenBufferInfo(screen.get(), &state));
  EXPECT_EQ(state.dwCursorPosition.X, 0);
  EXPECT_EQ(state.dwCursorPosition.Y, 1);
  SetConsoleOutputCP(before);
  FreeConsole();
  for (size_t at = 0; at < streams.size(); ++at) SetStdHandle(streams[at], handles[at]);
}

}  // namespace
}  // namespace kestrun
