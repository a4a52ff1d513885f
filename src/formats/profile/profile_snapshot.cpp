#include "formats/profile/profile_snapshot.h"

#include <algorithm>

#include "formats/profile/numbered_line.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {
ProfileSnapshot::ProfileSnapshot(Bytes content) : content_(std::move(content)), profile_(content_) { TakeApart(); }

void ProfileSnapshot::TakeApart() {
  constexpr size_t kShortLine = 32;
  lines_.reserve(profile_.text().size() / kShortLine);
  sections_.push_back({{}, 0, 0});
  for (ProfileLineCursor cursor(profile_.text()); cursor.Next();) {
    const std::string_view text = cursor.line();
    const ProfileLine line = MayBeSectionLine(text) ? ParseProfileLine(text) : ProfileLine{};
    if (line.kind != ProfileLineKind::kSection) {
      lines_.push_back(text);
      continue;
    }
    sections_.back().end_line = lines_.size();
    sections_.push_back({line.name, lines_.size(), 0});
  }
  sections_.back().end_line = lines_.size();
}

std::span<const std::string_view> ProfileSnapshot::LinesOf(std::string_view section) const {
  const WantedProfileName wanted(profile_.encoding(), section);
  auto found = sections_.begin();
  if (!wanted.text().empty()) {
    found = std::find_if(found + 1, sections_.end(), [&](const Section& one) { return wanted.Matches(one.name); });
  }
  if (found == sections_.end()) return {};
  return std::span(lines_).subspan(found->first_line, found->end_line - found->first_line);
}

std::string_view ProfileSnapshot::TextOf(std::string_view value, size_t limit) {
  return profile_.is_plain() ? WithoutQuotes(value).substr(0, limit)
                             : Keep(ProfileValueOf(profile_.encoding(), value, limit));
}

std::optional<std::string> ProfileSnapshot::Value(std::string_view section, std::string_view key, size_t limit) const {
  const WantedProfileName wanted(profile_.encoding(), key);
  for (const std::string_view text : LinesOf(section)) {
    if (text.empty() || !wanted.MayBegin(text)) continue;
    const ProfileLine line = ParseProfileLine(text);
    if (line.kind != ProfileLineKind::kKey || !wanted.Matches(line.name)) continue;
    return line.has_value ? std::optional(ProfileValueOf(profile_.encoding(), line.value, limit)) : std::nullopt;
  }
  return std::nullopt;
}

std::vector<std::string_view> ProfileSnapshot::NumberedValues(std::string_view section, const NumberedKeys& keys,
                                                              size_t limit, std::string_view missing) {
  const std::string_view text_of_missing = Keep(std::string(missing));
  // Without data as long as no line of the key was met.
  std::vector<std::string_view> values(keys.count);
  for (const std::string_view text : LinesOf(section)) {
    const std::optional<NumberedLine> line = ParseNumberedLine(text, keys.prefix);
    if (!line || line->number < keys.first || line->number - keys.first >= keys.count) continue;
    std::string_view& value = values[static_cast<size_t>(line->number - keys.first)];
    if (!value.data()) value = line->has_value ? TextOf(line->value, limit) : text_of_missing;
  }
  for (std::string_view& value : values) {
    if (!value.data()) value = text_of_missing;
  }
  return values;
}

}  // namespace kestrun
