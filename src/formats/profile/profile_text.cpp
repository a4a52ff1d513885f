#include "formats/profile/profile_text.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/text.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Length of the UTF-8 character that begins there; 0 when none does (RFC 3629, 4).
size_t Utf8Length(std::string_view text) {
  const auto byte = [text](size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0; };
  const auto continues = [&byte](size_t at) { return (byte(at) & 0xC0) == 0x80; };
  const int first = byte(0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4 || !continues(1)) return 0;
  if (first < 0xE0) return 2;
  if (first < 0xF0) {
    const bool is_long = first == 0xE0 && byte(1) < 0xA0;
    const bool is_surrogate = first == 0xED && byte(1) > 0x9F;
    return continues(2) && !is_long && !is_surrogate ? 3 : 0;
  }
  const bool is_out_of_range = (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F);
  return continues(2) && continues(3) && !is_out_of_range ? 4 : 0;
}

// Bytes above 127 that all form UTF-8, at least once.
bool HoldsUtf8(std::string_view text) {
  bool has_wide = false;
  for (size_t at = 0; at < text.size();) {
    const size_t length = Utf8Length(text.substr(at));
    if (length == 0) return false;
    has_wide = has_wide || length > 1;
    at += length;
  }
  return has_wide;
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

bool EqualsNoAsciiCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                   [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::string DecodeUtf16(ByteView bytes, bool is_big_endian) {
  std::u16string units(bytes.size() / 2, u'\0');
  for (size_t i = 0; i < units.size(); ++i) {
    const uint16_t unit = LoadU16(bytes, 2 * i);
    units[i] = static_cast<char16_t>(is_big_endian ? unit >> 8 | (unit & 0xFF) << 8 : unit);
  }
  return ToUtf8(units);
}

void AppendUtf16(Bytes& bytes, std::string_view utf8, bool is_big_endian) {
  for (const char16_t unit : ToUtf16(utf8)) {
    const auto low = static_cast<uint8_t>(unit);
    const auto high = static_cast<uint8_t>(unit >> 8);
    bytes.push_back(is_big_endian ? high : low);
    bytes.push_back(is_big_endian ? low : high);
  }
}

// The content as text whose blanks, brackets, "=" and line ends are single bytes: code page bytes as they stand, or
// UTF-8 where the file says that it holds Unicode.
class ProfileContent {
 public:
  explicit ProfileContent(ByteView content) : encoding_(DetectProfileEncoding(content)) {
    switch (encoding_) {
      case ProfileEncoding::kCodePage:
      case ProfileEncoding::kUnmarkedUtf8: text_ = AsChars(content); return;
      case ProfileEncoding::kUtf8: text_ = AsChars(content).substr(kUtf8Mark.size()); return;
      default: break;
    }
    decoded_ = DecodeUtf16(content.subspan(2), encoding_ == ProfileEncoding::kUtf16BigEndian);
    text_ = decoded_;
  }
  ProfileContent(const ProfileContent&) = delete;
  ProfileContent& operator=(const ProfileContent&) = delete;

  [[nodiscard]] std::string_view text() const { return text_; }
  [[nodiscard]] std::string Decode(std::string_view piece) const {
    return encoding_ == ProfileEncoding::kCodePage ? DecodeText(piece) : std::string(piece);
  }
  [[nodiscard]] std::string Encode(std::string_view utf8) const {
    if (encoding_ == ProfileEncoding::kCodePage) return EncodeText(utf8);
    // Through UTF-16 and back: one wrong byte would make a file without a mark a code page file.
    return encoding_ == ProfileEncoding::kUnmarkedUtf8 ? ToUtf8(ToUtf16(utf8)) : std::string(utf8);
  }
  [[nodiscard]] std::string DecodeCut(std::string_view piece, size_t limit) const {
    return encoding_ == ProfileEncoding::kCodePage ? DecodeText(piece.substr(0, limit))
                                                   : CutToCodePageBytes(piece, limit);
  }

  // A new text in the encoding of this one, mark included.
  [[nodiscard]] Bytes ToBytes(std::string_view text) const {
    if (encoding_ == ProfileEncoding::kCodePage && HoldsUtf8(text)) return Joined(kUtf8Mark, DecodeText(text));
    if (encoding_ != ProfileEncoding::kUtf16LittleEndian && encoding_ != ProfileEncoding::kUtf16BigEndian) {
      return Joined(Mark(), text);
    }
    Bytes bytes = Joined(Mark(), {});
    AppendUtf16(bytes, text, encoding_ == ProfileEncoding::kUtf16BigEndian);
    return bytes;
  }

 private:
  [[nodiscard]] static Bytes Joined(std::string_view mark, std::string_view text) {
    Bytes bytes(mark.begin(), mark.end());
    bytes.insert(bytes.end(), text.begin(), text.end());
    return bytes;
  }

  [[nodiscard]] std::string_view Mark() const {
    switch (encoding_) {
      case ProfileEncoding::kUtf8: return kUtf8Mark;
      case ProfileEncoding::kUtf16LittleEndian: return kUtf16LittleEndianMark;
      case ProfileEncoding::kUtf16BigEndian: return kUtf16BigEndianMark;
      case ProfileEncoding::kCodePage:
      case ProfileEncoding::kUnmarkedUtf8: break;
    }
    return {};
  }

  ProfileEncoding encoding_;
  std::string decoded_;
  std::string_view text_;
};

std::string_view CutAtNul(std::string_view text) { return text.substr(0, text.find('\0')); }

// A section or key name that is looked for, without regard to case.
class WantedName {
 public:
  WantedName(const ProfileContent& content, std::string_view utf8)
      : content_(content), encoded_(content.Encode(TrimProfileBlanks(CutAtNul(utf8)))), is_ascii_(IsAscii(encoded_)) {
    if (!is_ascii_) decoded_ = content.Decode(encoded_);
  }

  // In the encoding of the content.
  [[nodiscard]] const std::string& text() const { return encoded_; }
  [[nodiscard]] bool Matches(std::string_view name) const {
    if (is_ascii_) return EqualsNoAsciiCase(name, encoded_);
    return EqualsNoCase(content_.Decode(name), decoded_);
  }
  // False for a line that begins neither with this name nor with a blank: it cannot be the key's. The last letter tells
  // numbered keys apart at once.
  [[nodiscard]] bool MayBegin(std::string_view line) const {
    if (!is_ascii_ || encoded_.empty() || IsProfileBlank(line.front())) return true;
    const size_t length = encoded_.size();
    if (line.size() < length || LowerAscii(line[length - 1]) != LowerAscii(encoded_.back())) return false;
    return line.size() == length || line[length] == '=' || IsProfileBlank(line[length]);
  }

 private:
  const ProfileContent& content_;
  std::string encoded_;
  bool is_ascii_;
  std::string decoded_;
};

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

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
KeyPlace FindKey(std::string_view text, const WantedName& section, const WantedName& key) {
  KeyPlace place;
  place.has_section = section.text().empty();
  for (ProfileLineCursor cursor(text); cursor.Next();) {
    const std::string_view raw = cursor.line();
    if (raw.empty()) continue;
    // Most lines need no closer look: outside the section only section lines count, inside it section and key lines.
    const bool may_be_section = raw.front() == '[' || IsProfileBlank(raw.front());
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

// The line end that the text uses; CR LF for a text that has none yet.
std::string_view LineEndOf(std::string_view text) {
  const size_t at = text.find_first_of("\r\n");
  if (at == std::string_view::npos) return kCrLf;
  return text.substr(at, text.substr(at, 2) == kCrLf ? 2 : 1);
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

bool HasLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

bool CanBeFoundAgain(const std::string& section, const std::string& key) {
  if (HasLineBreak(section) || HasLineBreak(key)) return false;
  const ProfileLine section_line = ParseProfileLine("[" + section + "]");
  const std::string key_text = key + "=";
  const ProfileLine key_line = ParseProfileLine(key_text);
  return section_line.kind == ProfileLineKind::kSection && key_line.kind == ProfileLineKind::kKey &&
         key_line.name == key;
}

}  // namespace

ProfileEncoding DetectProfileEncoding(ByteView content) {
  const std::string_view chars = AsChars(content);
  if (StartsWith(chars, kUtf8Mark)) return ProfileEncoding::kUtf8;
  if (StartsWith(chars, kUtf16LittleEndianMark)) return ProfileEncoding::kUtf16LittleEndian;
  if (StartsWith(chars, kUtf16BigEndianMark)) return ProfileEncoding::kUtf16BigEndian;
  return HoldsUtf8(chars) ? ProfileEncoding::kUnmarkedUtf8 : ProfileEncoding::kCodePage;
}

std::optional<std::string> FindProfileValue(ByteView content, std::string_view section, std::string_view key,
                                            size_t limit) {
  const ProfileContent profile(content);
  const KeyPlace place = FindKey(profile.text(), WantedName(profile, section), WantedName(profile, key));
  if (!place.has_key || !place.line.has_value) return std::nullopt;
  const std::string_view value = TrimProfileBlanks(CutAtNul(place.line.value));
  return profile.DecodeCut(WithoutQuotes(value), limit);
}

std::optional<Bytes> WithProfileValue(ByteView content, std::string_view section, std::string_view key,
                                      std::string_view value) {
  const ProfileContent profile(content);
  const WantedName wanted_section(profile, section);
  const WantedName wanted_key(profile, key);
  if (!CanBeFoundAgain(wanted_section.text(), wanted_key.text())) return std::nullopt;
  const std::string_view text = profile.text();
  const KeyPlace place = FindKey(text, wanted_section, wanted_key);
  const std::string new_value = profile.Encode(CutAtNul(value));
  if (place.has_key) {
    if (place.line.has_value && place.line.value == new_value) return std::nullopt;
    std::string changed(text.substr(0, place.line_begin));
    changed.append(place.line.name).append("=").append(new_value).append(text.substr(place.line_end));
    return profile.ToBytes(changed);
  }
  const std::string key_line = wanted_key.text() + "=" + new_value;
  if (place.has_section) return profile.ToBytes(WithLinesAt(text, place.section_end, "", key_line));
  return profile.ToBytes(WithLinesAt(text, text.size(), "[" + wanted_section.text() + "]", key_line));
}

std::string CutToCodePageBytes(std::string_view utf8, size_t limit) {
  // No character of UTF-8 takes more bytes in a code page than it takes here.
  if (utf8.size() <= limit) return std::string(utf8);
  size_t used = 0;
  size_t position = 0;
  while (position < utf8.size()) {
    const size_t begin = position;
    static_cast<void>(NextCodePoint(utf8, position));
    used += EncodeText(utf8.substr(begin, position - begin)).size();
    if (used > limit) return std::string(utf8.substr(0, begin));
  }
  return std::string(utf8);
}

}  // namespace kestrun
