// -checklist "file.lst": the check of a list without its window.
#include "base/runtime_error.h"
#include "base/text.h"
#include "game/lists/map_list_file.h"
#include "maps/health/list_check.h"
#include "maps/put/mission_name.h"
#include "platform/command_result.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "program/check_list_hook.h"
#include "program/command_log.h"
#include "program/path_text.h"

namespace kestrun {
namespace {

constexpr std::string_view kWord = "-checklist";
constexpr uint32_t kLookAfterMs = 10;
constexpr int kExitBad = 1;

// The text behind the word, with or without quotes around it.
std::string ListFileOf(const std::string& command) {
  const std::string rest(TrimBlanks(std::string_view(command).substr(kWord.size())));
  return rest.size() >= 2 && rest.front() == '"' && rest.back() == '"' ? rest.substr(1, rest.size() - 2) : rest;
}

// The window's own choice when it opens: the file holds none.
MapUse UseOfLists() { return {MapPlace::kPlayList, kCaptureTheFlagMission}; }

ListReport CheckListFile(const std::string& file) {
  if (!FileExists(file)) throw FileError(error::kFileNotFound, file);
  const MapList list(file);
  ListCheck check(file, {list.rows().begin(), list.rows().end()}, UseOfLists());
  while (check.Advance()) {
    RunPendingEvents();
    if (check.IsWaiting()) Sleep(kLookAfterMs);
  }
  return check.Report();
}

std::string WithoutLastLineEnd(std::string text) {
  if (text.ends_with(kCrLf)) text.resize(text.size() - kCrLf.size());
  return text;
}

void Say(const ListReport& report) {
  for (const std::string& line : Split(WithoutLastLineEnd(ReportText(report)), kCrLf)) WriteCommandLine(line);
  SetExitCode(report.IsBad() ? kExitBad : 0);
  Attempt([&] { AppendToLog(report.list + " checked ~>" + CountText(report)); });
}

// A list that cannot be read is told in a line, as a map that would fail is.
void Check(const std::string& command) {
  SetExitCode(kExitBad);
  const std::string file = ListFileOf(command);
  Attempt([&] { Say(CheckListFile(file)); },
          [&](const RuntimeError& failure) { WriteCommandLine(file + ": " + failure.description() + "."); });
}

struct Installation {
  Installation() { InstallListCheck(&Check); }
};
const Installation installation;

}  // namespace
}  // namespace kestrun
