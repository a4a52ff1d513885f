#include "formats/profile/profile_lines.h"

#include <algorithm>
#include <cstdint>

namespace kestrun {
namespace {

// Without an early way out, so that the compiler can look at many characters at once.
bool HasLoneReturn(std::string_view text) {
  if (text.empty()) return false;
  const char* const chars = text.data();
  uint8_t lone = text.back() == '\r' ? 1 : 0;
  for (size_t i = 1; i < text.size(); ++i) {
    lone = static_cast<uint8_t>(lone | ((chars[i - 1] == '\r') & (chars[i] != '\n')));
  }
  return lone != 0;
}

ProfileLine ParseKeyLine(std::string_view line) {
  const size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {ProfileLineKind::kKey, line, {}, false};
  return {ProfileLineKind::kKey, TrimProfileBlanks(line.substr(0, equals)), TrimProfileBlanks(line.substr(equals + 1)),
          true};
}

}  // namespace

ProfileLine ParseProfileLine(std::string_view line) {
  const std::string_view text = TrimProfileBlanks(line);
  if (text.empty()) return {};
  if (text.front() == ';') return {ProfileLineKind::kComment, {}, {}, false};
  const size_t closing = text.front() == '[' ? text.rfind(']') : std::string_view::npos;
  if (closing == std::string_view::npos) return ParseKeyLine(text);
  return {ProfileLineKind::kSection, TrimProfileBlanks(text.substr(1, closing - 1)), {}, false};
}

size_t ProfileLineCursor::Find(char wanted, size_t& known) const {
  if (searched_ && known >= next_) return known;
  known = std::min(text_.find(wanted, next_), text_.size());
  return known;
}

void ProfileLineCursor::FindMixedLineEnd() {
  end_ = std::min(Find('\n', line_feed_), Find('\r', carriage_return_));
  searched_ = true;
  const bool is_pair = end_ == carriage_return_ && line_feed_ == end_ + 1 && line_feed_ < text_.size();
  next_ = std::min(end_ + (is_pair ? 2 : 1), text_.size());
}

ProfileLineCursor::ProfileLineCursor(std::string_view text) : text_(text), has_lone_return_(HasLoneReturn(text)) {}

}  // namespace kestrun
