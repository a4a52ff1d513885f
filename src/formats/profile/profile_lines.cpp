#include "formats/profile/profile_lines.h"

#include <algorithm>

namespace kestrun {
namespace {

bool IsProfileBlank(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\x1A'; }

ProfileLine ParseKeyLine(std::string_view line) {
  const size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {ProfileLineKind::kKey, line, {}, false};
  return {ProfileLineKind::kKey, TrimProfileBlanks(line.substr(0, equals)), TrimProfileBlanks(line.substr(equals + 1)),
          true};
}

}  // namespace

std::string_view TrimProfileBlanks(std::string_view text) {
  while (!text.empty() && IsProfileBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsProfileBlank(text.back())) text.remove_suffix(1);
  return text;
}

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

bool ProfileLineCursor::Next() {
  if (next_ >= text_.size()) return false;
  begin_ = next_;
  end_ = std::min(Find('\n', line_feed_), Find('\r', carriage_return_));
  searched_ = true;
  const bool is_pair = end_ == carriage_return_ && line_feed_ == end_ + 1 && line_feed_ < text_.size();
  next_ = std::min(end_ + (is_pair ? 2 : 1), text_.size());
  return true;
}

}  // namespace kestrun
