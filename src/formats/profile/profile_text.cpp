#include "formats/profile/profile_text.h"

#include "base/text.h"
#include "formats/profile/profile_content.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {
namespace {

// Where a key stands, or where it would have to go.
struct KeyPlace {
  bool has_section = false;
  bool has_key = false;
  ProfileLine line;        // the key's line
  size_t line_begin = 0;   // of the key's line
  size_t line_end = 0;     // of the key's line, without its line end
  size_t section_end = 0;  // behind the last line of the section that is not blank
};

// Lines before the first section belong to the section whose name is empty.
KeyPlace FindKey(std::string_view text, const WantedProfileName& section, const WantedProfileName& key) {
  KeyPlace place;
  place.has_section = section.text().empty();
  for (ProfileLineCursor cursor(text); cursor.Next();) {
    const std::string_view raw = cursor.line();
    if (raw.empty()) continue;
    // Most lines need no closer look: outside the section only section lines count, inside it section and key lines.
    const bool may_be_section = MayBeSectionLine(raw);
    if (!may_be_section && !place.has_section) continue;
    if (!may_be_section && !key.MayBegin(raw)) {
      place.section_end = cursor.next();
      continue;
    }
    const ProfileLine line = ParseProfileLine(raw);
    if (line.kind == ProfileLineKind::kSection) {
      if (place.has_section) return place;
      place.has_section = section.Matches(line.name);
    }
    if (!place.has_section || line.kind == ProfileLineKind::kBlank) continue;
    place.section_end = cursor.next();
    if (line.kind != ProfileLineKind::kKey || !key.Matches(line.name)) continue;
    place.has_key = true;
    place.line = line;
    place.line_begin = cursor.begin();
    place.line_end = cursor.end();
    return place;
  }
  return place;
}

std::string WithLinesAt(std::string_view text, size_t at, const std::string& section_line,
                        const std::string& key_line) {
  const std::string_view line_end = LineEndOf(text);
  std::string result(text.substr(0, at));
  if (!result.empty() && result.back() != '\n' && result.back() != '\r') result += line_end;
  if (!section_line.empty()) result.append(section_line).append(line_end);
  result.append(key_line).append(line_end);
  return result.append(text.substr(at));
}

}  // namespace

std::optional<std::string> FindProfileValue(ByteView content, std::string_view section, std::string_view key,
                                            size_t limit) {
  const ProfileContent profile(content);
  const ProfileEncoding encoding = profile.encoding();
  const KeyPlace place =
      FindKey(profile.text(), WantedProfileName(encoding, section), WantedProfileName(encoding, key));
  if (!place.has_key || !place.line.has_value) return std::nullopt;
  return ProfileValueOf(encoding, place.line.value, limit);
}

std::optional<Bytes> WithProfileValue(ByteView content, std::string_view section, std::string_view key,
                                      std::string_view value) {
  const ProfileContent profile(content);
  const ProfileEncoding encoding = profile.encoding();
  const WantedProfileName wanted_section(encoding, section);
  const WantedProfileName wanted_key(encoding, key);
  if (!CanBeFoundAgain(wanted_section.text(), wanted_key.text())) return std::nullopt;
  const std::string_view text = profile.text();
  const KeyPlace place = FindKey(text, wanted_section, wanted_key);
  const std::string new_value = EncodeProfilePiece(encoding, CutAtNul(value));
  if (place.has_key) {
    if (place.line.has_value && place.line.value == new_value) return std::nullopt;
    std::string changed(text.substr(0, place.line_begin));
    changed.append(place.line.name).append("=").append(new_value).append(text.substr(place.line_end));
    return ProfileBytes(encoding, changed);
  }
  const std::string key_line = wanted_key.text() + "=" + new_value;
  if (place.has_section) return ProfileBytes(encoding, WithLinesAt(text, place.section_end, "", key_line));
  return ProfileBytes(encoding, WithLinesAt(text, text.size(), "[" + wanted_section.text() + "]", key_line));
}

}  // namespace kestrun
