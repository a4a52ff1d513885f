#include "maps/upload/map_comments.h"

#include "base/text.h"

namespace kestrun {
namespace {

constexpr std::string_view kCommentsMark = "[COMMENTS]";
constexpr std::string_view kAddonsMark = "[ADDONS]";

// The next line, without its end, which is taken off the text with it.
std::string_view TakeLine(std::string_view& text) {
  const size_t end = text.find_first_of(kCrLf);
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(line.size());
  if (StartsWith(text, kCrLf)) {
    text.remove_prefix(kCrLf.size());
  } else if (!text.empty()) {
    text.remove_prefix(1);
  }
  return line;
}

}  // namespace

MapComments SplitComments(std::string_view text) {
  MapComments split;
  std::string* part = &split.comments;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line == kAddonsMark) {
      part = &split.addons;
    } else if (line != kCommentsMark) {
      part->append(line).append(kCrLf);
    }
  }
  return split;
}

size_t CharacterCount(std::string_view text) { return ToUtf16(text).size(); }

}  // namespace kestrun
