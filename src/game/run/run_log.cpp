#include "game/run/run_log.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "base/calendar.h"
#include "base/text.h"
#include "base/text_file.h"
#include "platform/platform.h"
#include "program/settings.h"

namespace kestrun {
namespace {

std::string LineOf(const RunEvent& event) {
  const std::string time = MomentToSortableText(SplitDate(platform().clock().LocalDateTime()));
  const std::string row = event.row < 0 ? "" : "row " + std::to_string(event.row + 1);
  std::string line;
  for (const std::string& field : {time, row, std::string(RunResultText(event.kind)), event.map, event.reason}) {
    line += (line.empty() ? "" : "\t") + InOneLine(field);
  }
  return line + std::string(kCrLf);
}

// The lines of the newer half, at most half of what the file may hold, take the place of all in one step. The rest is
// not read: whatever wrote there, the file may be of any size.
void DropOlderHalf(const std::string& path) {
  FileSystem& files = platform().files();
  Bytes newer;
  {
    const std::unique_ptr<File> file = files.Open(path, OpenMode::kRead);
    const uint64_t size = file->Size();
    newer.resize(static_cast<size_t>(std::min(size - size / 2, kMostRunLogBytes / 2)));
    newer.resize(file->ReadAt(size - newer.size(), newer));
  }
  const std::string_view text = AsChars(newer);
  const size_t line = text.find('\n');
  const std::string kept = std::string(kUtf8Mark) + std::string(line == text.npos ? "" : text.substr(line + 1));
  files.WriteAllDurably(path, AsBytes(kept));
}

}  // namespace

std::string InOneLine(std::string_view text) {
  std::string line = ReplaceAll(text, kCrLf, " ");
  std::ranges::replace_if(
      line, [](char each) { return each == '\r' || each == '\n' || each == '\t'; }, ' ');
  return line;
}

const char* RunResultText(RunEvent::Kind kind) {
  static constexpr std::array kTexts{"started", "stopped", "inserted", "failed"};
  return kTexts[static_cast<size_t>(kind)];
}

void AppendToRunLog(const RunEvent& event) {
  FileSystem& files = platform().files();
  const std::string path = AppFile("autohost.log");
  std::string line = LineOf(event);
  const bool is_there = files.Exists(path);
  if (!is_there) line = std::string(kUtf8Mark) + line;
  if (is_there && files.Open(path, OpenMode::kRead)->Size() + line.size() > kMostRunLogBytes) DropOlderHalf(path);
  files.Append(path, AsBytes(line));
}

}  // namespace kestrun
