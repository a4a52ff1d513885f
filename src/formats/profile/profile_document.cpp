#include "formats/profile/profile_document.h"

#include <algorithm>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {
namespace {

std::string LowerKey(std::string_view name) {
  std::string lower(name);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerAscii);
  return lower;
}

bool IsEncodable(std::string_view utf8) { return IsAscii(utf8) || !FirstUnencodable(utf8); }

}  // namespace

ProfileDocument::ProfileDocument(ByteView content) { TakeApart(content); }

void ProfileDocument::TakeApart(ByteView content) {
  const ProfileContent profile(content);
  encoding_ = profile.encoding();
  const std::string_view text = Keep(std::string(profile.text()));
  line_end_ = LineEndOf(text);
  sections_.emplace_back();
  for (ProfileLineCursor cursor(text); cursor.Next();) {
    const Line line{cursor.line(), text.substr(cursor.end(), cursor.next() - cursor.end())};
    const ProfileLine parsed = ParseProfileLine(line.text);
    if (parsed.kind == ProfileLineKind::kSection) {
      sections_.emplace_back();
      sections_.back().name = parsed.name;
    }
    AddLine(sections_.back(), line);
  }
}

// A line that was set may read as more than one, or as a section, from then on.
void ProfileDocument::TakeApartAgain(ByteView content) {
  *this = ProfileDocument(content);
  has_changed_ = true;
}

void ProfileDocument::AddLine(Section& section, const Line& line) {
  Count(line.text, 1);
  const ProfileLine parsed = ParseProfileLine(line.text);
  if (parsed.kind == ProfileLineKind::kKey) section.keys.try_emplace(LowerKey(parsed.name), section.lines.size());
  section.lines.push_back(line);
  if (parsed.kind != ProfileLineKind::kBlank) section.filled = section.lines.size();
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
  if (wanted.is_ascii()) {
    const auto found = section.keys.find(LowerKey(wanted.text()));
    return found == section.keys.end() ? nullptr : &section.lines[found->second];
  }
  const auto found = std::find_if(section.lines.begin(), section.lines.end(), [&](const Line& line) {
    const ProfileLine parsed = ParseProfileLine(line.text);
    return parsed.kind == ProfileLineKind::kKey && wanted.Matches(parsed.name);
  });
  return found == section.lines.end() ? nullptr : &*found;
}

std::string_view ProfileDocument::Keep(std::string text) { return texts_.emplace_back(std::move(text)); }

void ProfileDocument::EndLastLine() {
  const auto last =
      std::find_if(sections_.rbegin(), sections_.rend(), [](const Section& section) { return !section.lines.empty(); });
  if (last != sections_.rend() && last->lines.back().end.empty()) last->lines.back().end = line_end_;
}

void ProfileDocument::Insert(Section& section, std::string_view text) {
  if (section.filled > 0 && section.lines[section.filled - 1].end.empty()) EndLastLine();
  Count(text, 1);
  section.keys.try_emplace(LowerKey(ParseProfileLine(text).name), section.filled);
  section.lines.insert(section.lines.begin() + static_cast<std::ptrdiff_t>(section.filled), {text, line_end_});
  ++section.filled;
}

void ProfileDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
  const bool fits =
      encoding_ != ProfileEncoding::kCodePage || (IsEncodable(section) && IsEncodable(key) && IsEncodable(value));
  const ProfileEncoding fitting = fits ? encoding_ : ProfileEncoding::kUtf8;
  const WantedProfileName wanted_section(fitting, section);
  const WantedProfileName wanted_key(fitting, key);
  if (!CanBeFoundAgain(wanted_section.text(), wanted_key.text())) return;
  if (!fits) TakeApartAgain(ProfileBytes(ProfileEncoding::kUtf8, DecodeText(AsChars(ToBytes()))));
  const std::string new_value = EncodeProfilePiece(encoding_, CutAtNul(value));
  Section* target = FindSection(wanted_section);
  Line* line = target ? FindKey(*target, wanted_key) : nullptr;
  std::string_view name = wanted_key.text();
  if (line) {
    const ProfileLine present = ParseProfileLine(line->text);
    if (present.has_value && present.value == new_value) return;
    name = present.name;
  }
  const std::string_view text = Keep(std::string(name) + "=" + new_value);
  if (line) {
    Count(line->text, -1);
    Count(text, 1);
    line->text = text;
  } else if (target) {
    Insert(*target, text);
  } else {
    EndLastLine();
    sections_.emplace_back();
    const std::string_view header = Keep("[" + wanted_section.text() + "]");
    sections_.back().name = ParseProfileLine(header).name;
    AddLine(sections_.back(), {header, line_end_});
    Insert(sections_.back(), text);
  }
  has_changed_ = true;
  FollowEncoding(text, new_value.find_first_of("\r\n") != std::string::npos);
}

void ProfileDocument::FollowEncoding(std::string_view set_line, bool has_line_break) {
  const bool reads_otherwise = has_line_break || ParseProfileLine(set_line).kind != ProfileLineKind::kKey;
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
