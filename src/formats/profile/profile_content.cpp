#include "formats/profile/profile_content.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/text.h"
#include "base/text_file.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {
namespace {

constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";

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

std::string_view MarkOf(ProfileEncoding encoding) {
  switch (encoding) {
    case ProfileEncoding::kUtf8: return kUtf8Mark;
    case ProfileEncoding::kUtf16LittleEndian: return kUtf16LittleEndianMark;
    case ProfileEncoding::kUtf16BigEndian: return kUtf16BigEndianMark;
    case ProfileEncoding::kCodePage:
    case ProfileEncoding::kUnmarkedUtf8: break;
  }
  return {};
}

Bytes Joined(std::string_view mark, std::string_view text) {
  Bytes bytes;
  bytes.reserve(mark.size() + text.size());
  bytes.insert(bytes.end(), mark.begin(), mark.end());
  bytes.insert(bytes.end(), text.begin(), text.end());
  return bytes;
}

}  // namespace

bool IsAscii(std::string_view text) {
  // Without an early way out, so that the compiler can look at many characters at once.
  unsigned char all = 0;
  for (const char c : text) all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
  return all < 0x80;
}

// Without an early way out, so that the compiler can look at many characters at once.
bool IsPlain(std::string_view text) {
  unsigned char all = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    all = static_cast<unsigned char>(all | byte | static_cast<unsigned char>(byte - 1));
  }
  return all < 0x80;
}

bool IsValidUtf8(std::string_view text) {
  for (size_t at = 0; at < text.size();) {
    const size_t length = Utf8Length(text.substr(at));
    if (length == 0) return false;
    at += length;
  }
  return true;
}

bool HoldsUtf8(std::string_view text) { return !IsAscii(text) && IsValidUtf8(text); }

bool HasLineBreak(std::string_view text) {
  return text.find('\n') != std::string_view::npos || text.find('\r') != std::string_view::npos;
}

ProfileEncoding DetectProfileEncoding(ByteView content) {
  const std::string_view chars = AsChars(content);
  if (StartsWith(chars, kUtf8Mark)) return ProfileEncoding::kUtf8;
  if (StartsWith(chars, kUtf16LittleEndianMark)) return ProfileEncoding::kUtf16LittleEndian;
  if (StartsWith(chars, kUtf16BigEndianMark)) return ProfileEncoding::kUtf16BigEndian;
  return HoldsUtf8(chars) ? ProfileEncoding::kUnmarkedUtf8 : ProfileEncoding::kCodePage;
}

std::string DecodeProfilePiece(ProfileEncoding encoding, std::string_view piece) {
  return encoding == ProfileEncoding::kCodePage && !IsAscii(piece) ? DecodeText(piece) : std::string(piece);
}

std::string EncodeProfilePiece(ProfileEncoding encoding, std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  if (encoding == ProfileEncoding::kCodePage) return EncodeText(utf8);
  // Through UTF-16 and back: one wrong byte would make a file without a mark a code page file.
  return encoding == ProfileEncoding::kUtf8 ? std::string(utf8) : ToUtf8(ToUtf16(utf8));
}

std::string ProfileValueOf(ProfileEncoding encoding, std::string_view value, size_t limit) {
  const std::string_view piece = WithoutQuotes(TrimProfileBlanks(CutAtNul(value)));
  return encoding == ProfileEncoding::kCodePage ? DecodeProfilePiece(encoding, piece.substr(0, limit))
                                                : CutToCodePageBytes(piece, limit);
}

std::string_view CutAtNul(std::string_view text) { return text.substr(0, text.find('\0')); }

ProfileContent::ProfileContent(ByteView content)
    : is_plain_(IsPlain(AsChars(content))),
      encoding_(is_plain_ ? ProfileEncoding::kCodePage : DetectProfileEncoding(content)) {
  switch (encoding_) {
    case ProfileEncoding::kCodePage:
    case ProfileEncoding::kUnmarkedUtf8: text_ = AsChars(content); return;
    case ProfileEncoding::kUtf8: text_ = AsChars(content).substr(kUtf8Mark.size()); return;
    default: break;
  }
  decoded_ = DecodeUtf16(content.subspan(2), encoding_ == ProfileEncoding::kUtf16BigEndian);
  text_ = decoded_;
}

Bytes ProfileBytes(ProfileEncoding encoding, std::string_view text) {
  if (encoding == ProfileEncoding::kCodePage && HoldsUtf8(text)) return Joined(kUtf8Mark, DecodeText(text));
  if (encoding != ProfileEncoding::kUtf16LittleEndian && encoding != ProfileEncoding::kUtf16BigEndian) {
    return Joined(MarkOf(encoding), text);
  }
  Bytes bytes = Joined(MarkOf(encoding), {});
  AppendUtf16(bytes, text, encoding == ProfileEncoding::kUtf16BigEndian);
  return bytes;
}

WantedProfileName::WantedProfileName(ProfileEncoding encoding, std::string_view utf8)
    : encoding_(encoding),
      encoded_(EncodeProfilePiece(encoding, TrimProfileBlanks(CutAtNul(utf8)))),
      is_ascii_(IsAscii(encoded_)) {
  if (!is_ascii_) decoded_ = DecodeProfilePiece(encoding, encoded_);
}

bool WantedProfileName::Matches(std::string_view name) const {
  if (is_ascii_) return EqualsNoAsciiCase(name, encoded_);
  return EqualsNoCase(DecodeProfilePiece(encoding_, name), decoded_);
}

bool WantedProfileName::MayBegin(std::string_view line) const {
  if (!is_ascii_ || encoded_.empty() || IsProfileBlank(line.front())) return true;
  const size_t length = encoded_.size();
  if (line.size() < length || LowerAscii(line[length - 1]) != LowerAscii(encoded_.back())) return false;
  return line.size() == length || line[length] == '=' || IsProfileBlank(line[length]);
}

bool CanBeFoundAgain(const std::string& section, const std::string& key) {
  if (HasLineBreak(section) || HasLineBreak(key)) return false;
  const ProfileLine section_line = ParseProfileLine("[" + section + "]");
  const std::string key_text = key + "=";
  const ProfileLine key_line = ParseProfileLine(key_text);
  return section_line.kind == ProfileLineKind::kSection && key_line.kind == ProfileLineKind::kKey &&
         key_line.name == key;
}

std::string_view LineEndOf(std::string_view text) {
  const size_t at = text.find_first_of("\r\n");
  if (at == std::string_view::npos) return kCrLf;
  return text.substr(at, text.substr(at, 2) == kCrLf ? 2 : 1);
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
