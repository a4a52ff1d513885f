// -checklist "file.lst" name: the check of a list without its window.
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

struct CheckOrder {
  std::string file;
  std::string mission;  // that the maps would go in as; empty when none is named
};

std::string WithoutQuotes(std::string_view text) {
  const std::string_view plain = TrimBlanks(text);
  const bool is_quoted = plain.size() >= 2 && plain.front() == '"' && plain.back() == '"';
  return std::string(is_quoted ? plain.substr(1, plain.size() - 2) : plain);
}

// What stands behind the word: a list with or without quotes around it, which may have blanks in it either way, and
// behind it the name of a mission.
CheckOrder OrderOf(const std::string& command) {
  const std::string rest(TrimBlanks(std::string_view(command).substr(kWord.size())));
  constexpr std::string_view kEnding = ".lst";
  size_t end = rest.starts_with('"') ? rest.find('"', 1) : ToLower(rest).find(std::string(kEnding) + " ");
  if (end == std::string::npos || FileExists(rest)) return {WithoutQuotes(rest), {}};
  end += rest.starts_with('"') ? 1 : kEnding.size();
  return {WithoutQuotes(std::string_view(rest).substr(0, end)), WithoutQuotes(std::string_view(rest).substr(end))};
}

// As the auto host's window: one of its two missions, the first choice of which is capture the flag, or a name of the
// user's own. A list file holds none of it.
MapUse UseOfLists(const std::string& mission) {
  if (mission.empty()) return {MapPlace::kPlayList, kCaptureTheFlagMission};
  const bool is_stock = EqualsNoCase(mission, kCaptureTheFlagMission) || EqualsNoCase(mission, kDeathmatchMission);
  return {MapPlace::kPlayList, mission, !is_stock};
}

ListReport CheckListFile(const CheckOrder& order) {
  if (!FileExists(order.file)) throw FileError(error::kFileNotFound, order.file);
  const MapList list(order.file);
  ListCheck check(order.file, {list.rows().begin(), list.rows().end()}, UseOfLists(order.mission));
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

std::string WithFullStop(const std::string& sentence) { return sentence.ends_with('.') ? sentence : sentence + "."; }

// A list that cannot be read is told in a line, as a map that would fail is.
void Check(const std::string& command) {
  SetExitCode(kExitBad);
  const CheckOrder order = OrderOf(command);
  Attempt(
      [&] { Say(CheckListFile(order)); },
      [&](const RuntimeError& failure) { WriteCommandLine(order.file + ": " + WithFullStop(failure.description())); });
}

struct Installation {
  Installation() { InstallListCheck(&Check); }
};
const Installation installation;

}  // namespace
}  // namespace kestrun
