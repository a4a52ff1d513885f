#include "program/style_guard.h"

#include <optional>
#include <string>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "program/settings.h"
#include "program/window_kit/ask.h"

namespace kestrun {
namespace {

constexpr int kStartsBeforeQuestion = 2;

// Of this process: nothing before a style was wanted and behind its start.
std::optional<bool>& Answer() {
  static std::optional<bool> answer;
  return answer;
}

int CountBrokenStarts() {
  int count = 0;
  Attempt([&] { count = TextToLong(ReadSetting(setting::kStyleStarts)); });
  return count;
}

void StoreBrokenStarts(int count) {
  Attempt([&] { WriteSetting(setting::kStyleStarts, std::to_string(count)); });
}

bool GoesWithoutStyle() {
  const std::string line_break(kCrLf);
  return AskYesNo(
      "The last two starts of Kestrun ended before its main window was there. The style (skin) may be the "
      "reason." +
          line_break + "Do you want to start without the style this time?",
      BoxIcon::kQuestion);
}

}  // namespace

bool MayStartWithStyle() {
  if (Answer()) return *Answer();
  const int broken = CountBrokenStarts();
  Answer() = broken < kStartsBeforeQuestion || !GoesWithoutStyle();
  StoreBrokenStarts(*Answer() ? broken + 1 : 0);
  return *Answer();
}

void NoteStartWithStyle() {
  if (Answer() == true) StoreBrokenStarts(0);
  Answer().reset();
}

}  // namespace kestrun
