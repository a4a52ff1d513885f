#include "formats/profile/profile_document.h"

#include <algorithm>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"
#include "formats/profile/numbered_line.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {
namespace {

bool IsEncodable(std::string_view utf8) { return IsAscii(utf8) || !FirstUnencodable(utf8); }

}  // namespace

ProfileDocument::ProfileDocument(ByteView content) { TakeApart(content); }

void ProfileDocument::TakeApart(ByteView content) {
  const ProfileContent profile(content);
  encoding_ = profile.encoding();
  const std::string_view text = Keep({profile.text()});
  line_end_ = LineEndOf(text);
  sections_.emplace_back();
  for (ProfileLineCursor cursor(text); cursor.Next();) {
    const Line line{cursor.line(), text.substr(cursor.end(), cursor.next() - cursor.end())};
    const ProfileLine parsed = MayBeSectionLine(line.text) ? ParseProfileLine(line.text) : ProfileLine{};
    if (parsed.kind == ProfileLineKind::kSection) {
      sections_.emplace_back();
      sections_.back().name = parsed.name;
    }
    if (!profile.is_plain()) Count(line.text, 1);
    AddLine(sections_.back(), line);
  }
}

// A line that was set may read as more than one, or as a section, from then on.
void ProfileDocument::TakeApartAgain(ByteView content) {
  const int times = times_taken_apart_;
  *this = ProfileDocument(content);
  has_changed_ = true;
  times_taken_apart_ = times + 1;
}

void ProfileDocument::AddLine(Section& section, const Line& line) {
  section.lines.push_back(line);
  if (!TrimProfileBlanks(line.text).empty()) section.filled = section.lines.size();
}

void ProfileDocument::Count(std::string_view line, int change) {
  if (IsAscii(line)) return;
  (IsValidUtf8(line) ? wide_lines_ : invalid_lines_) += change;
}

ProfileDocument::Section* ProfileDocument::FindSection(const WantedProfileName& wanted) {
  if (wanted.text().empty()) return &sections_.front();
  const auto found = std::find_if(sections_.begin() + 1, sections_.end(),
                                  [&](const Section& section) { return wanted.Matches(section.name); });
  return found == sections_.end() ? nullptr : &*found;
}

ProfileDocument::Line* ProfileDocument::FindKey(Section& section, const WantedProfileName& wanted) {
  const auto found = std::find_if(section.lines.begin(), section.lines.end(), [&](const Line& line) {
    if (line.text.empty() || !wanted.MayBegin(line.text)) return false;
    const ProfileLine parsed = ParseProfileLine(line.text);
    return parsed.kind == ProfileLineKind::kKey && wanted.Matches(parsed.name);
  });
  return found == section.lines.end() ? nullptr : &*found;
}

std::string_view ProfileDocument::Keep(std::initializer_list<std::string_view> parts) {
  constexpr size_t kBlock = 1 << 16;
  size_t size = 0;
  for (const std::string_view part : parts) size += part.size();
  // A block that has to grow would move the texts that it holds.
  if (texts_.empty() || texts_.back().capacity() - texts_.back().size() < size) {
    texts_.emplace_back().reserve(std::max(size, kBlock));
  }
  std::string& block = texts_.back();
  const size_t begin = block.size();
  for (const std::string_view part : parts) block += part;
  return std::string_view(block).substr(begin);
}

void ProfileDocument::EndLastLine() {
  const auto last =
      std::find_if(sections_.rbegin(), sections_.rend(), [](const Section& section) { return !section.lines.empty(); });
  if (last != sections_.rend() && last->lines.back().end.empty()) last->lines.back().end = line_end_;
}

void ProfileDocument::Insert(Section& section, std::string_view text) {
  if (section.filled > 0 && section.lines[section.filled - 1].end.empty()) EndLastLine();
  section.lines.insert(section.lines.begin() + static_cast<std::ptrdiff_t>(section.filled), {text, line_end_});
  ++section.filled;
}

bool ProfileDocument::HoldsText(std::string_view utf8) const {
  return encoding_ != ProfileEncoding::kCodePage || IsEncodable(utf8);
}

void ProfileDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
  const bool fits = HoldsText(section) && HoldsText(key) && HoldsText(value);
  const ProfileEncoding fitting = fits ? encoding_ : ProfileEncoding::kUtf8;
  const WantedProfileName wanted_section(fitting, section);
  const WantedProfileName wanted_key(fitting, key);
  if (!CanBeFoundAgain(wanted_section.text(), wanted_key.text())) return;
  if (!fits) TakeApartAgain(ProfileBytes(ProfileEncoding::kUtf8, DecodeText(AsChars(ToBytes()))));
  Section* target = FindSection(wanted_section);
  Line* const line = target ? FindKey(*target, wanted_key) : nullptr;
  if (!target) {
    EndLastLine();
    target = &sections_.emplace_back();
    const std::string_view header = Keep({"[", wanted_section.text(), "]"});
    target->name = ParseProfileLine(header).name;
    Count(header, 1);
    AddLine(*target, {header, line_end_});
  }
  Store(*target, line, wanted_key.text(), EncodeProfilePiece(encoding_, CutAtNul(value)), false);
}

std::vector<size_t> ProfileDocument::NumberedLines(const Section& section, const ProfileRows& rows) {
  std::vector<size_t> lines(rows.values.size());
  for (size_t at = 0; at < section.lines.size(); ++at) {
    const std::optional<NumberedLine> line = ParseNumberedLine(section.lines[at].text, rows.prefix);
    if (line && line->number < lines.size() && lines[line->number] == 0) lines[line->number] = at + 1;
  }
  return lines;
}

void ProfileDocument::SetRows(const ProfileRows& rows) {
  for (size_t row = 0; row < rows.values.size();) row = SetRowsFrom(rows, row);
}

size_t ProfileDocument::SetRowsFrom(const ProfileRows& rows, size_t row) {
  const auto key = [&](size_t number) { return std::string(rows.prefix) + std::to_string(number); };
  Set(rows.section, key(row), rows.values[row]);
  ++row;
  Section* const target = FindSection(WantedProfileName(encoding_, rows.section));
  if (!target) return row;
  const int times_taken_apart = times_taken_apart_;
  const std::vector<size_t> lines = NumberedLines(*target, rows);
  for (; row < rows.values.size(); ++row) {
    const std::string_view value = rows.values[row];
    const bool is_plain = IsPlain(value);
    if (!is_plain && !HoldsText(value)) return row;
    Line* const line = lines[row] == 0 ? nullptr : &target->lines[lines[row] - 1];
    const std::string encoded = is_plain ? std::string() : EncodeProfilePiece(encoding_, CutAtNul(value));
    Store(*target, line, line ? std::string() : key(row), is_plain ? value : encoded, is_plain);
    if (times_taken_apart_ != times_taken_apart) return row + 1;
  }
  return row;
}

void ProfileDocument::Store(Section& section, Line* line, std::string_view key, std::string_view value, bool is_plain) {
  if (line) {
    const ProfileLine present = ParseProfileLine(line->text);
    if (present.has_value && present.value == value) return;
    key = present.name;
  }
  const std::string_view text = Keep({key, "=", value});
  if (line) {
    if (wide_lines_ > 0 || invalid_lines_ > 0) Count(line->text, -1);
    line->text = text;
  } else {
    Insert(section, text);
  }
  if (!is_plain) Count(text, 1);
  has_changed_ = true;
  FollowEncoding(text, HasLineBreak(value));
}

void ProfileDocument::FollowEncoding(std::string_view set_line, bool has_line_break) {
  const bool may_read_otherwise = MayBeSectionLine(set_line) || set_line.front() == ';';
  const bool reads_otherwise =
      has_line_break || (may_read_otherwise && ParseProfileLine(set_line).kind != ProfileLineKind::kKey);
  const bool passes_for_utf8 = encoding_ == ProfileEncoding::kCodePage && wide_lines_ > 0 && invalid_lines_ == 0;
  if (reads_otherwise || passes_for_utf8) {
    TakeApartAgain(ToBytes());
  } else if (encoding_ == ProfileEncoding::kUnmarkedUtf8 && wide_lines_ == 0) {
    encoding_ = ProfileEncoding::kCodePage;  // nothing but ASCII is left
  }
}

Bytes ProfileDocument::ToBytes() const {
  size_t size = 0;
  for (const Section& section : sections_) {
    for (const Line& line : section.lines) size += line.text.size() + line.end.size();
  }
  std::string text;
  text.reserve(size);
  for (const Section& section : sections_) {
    for (const Line& line : section.lines) text.append(line.text).append(line.end);
  }
  return ProfileBytes(encoding_, text);
}

}  // namespace kestrun
