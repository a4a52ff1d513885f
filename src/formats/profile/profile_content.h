// The bytes of a profile file as text, and names and values on their way between that text and UTF-8.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "formats/profile/profile_text.h"

namespace kestrun {

// Bytes above 127 that all form UTF-8, at least once. Line by line the same: no character reaches over a line end.
[[nodiscard]] bool HoldsUtf8(std::string_view text);
[[nodiscard]] bool IsAscii(std::string_view text);
// ASCII without a NUL, and so the same in a code page and in UTF-8.
[[nodiscard]] bool IsPlain(std::string_view text);
// Whether all bytes form UTF-8; true of a text without any above 127.
[[nodiscard]] bool IsValidUtf8(std::string_view text);

[[nodiscard]] constexpr char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }
// Without regard to the case of ASCII letters; in the header, since long lists are compared line by line.
[[nodiscard]] constexpr bool EqualsNoAsciiCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}
[[nodiscard]] bool HasLineBreak(std::string_view text);

// A piece of a content's text, to UTF-8 and back.
[[nodiscard]] std::string DecodeProfilePiece(ProfileEncoding encoding, std::string_view piece);
[[nodiscard]] std::string EncodeProfilePiece(ProfileEncoding encoding, std::string_view utf8);

// What a read gives for the text behind a "=": without blanks and quotes, at most `limit` code page bytes, as UTF-8.
[[nodiscard]] std::string ProfileValueOf(ProfileEncoding encoding, std::string_view value, size_t limit);
// Without the quotes around it, if it has any.
[[nodiscard]] constexpr std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}
// What a write puts behind it.
[[nodiscard]] std::string_view CutAtNul(std::string_view text);

// The content as text whose blanks, brackets, "=" and line ends are single bytes: code page bytes as they stand, or
// UTF-8 where the file says that it holds Unicode.
class ProfileContent {
 public:
  explicit ProfileContent(ByteView content);
  ProfileContent(const ProfileContent&) = delete;
  ProfileContent& operator=(const ProfileContent&) = delete;

  [[nodiscard]] ProfileEncoding encoding() const { return encoding_; }
  [[nodiscard]] std::string_view text() const { return text_; }
  // ASCII without a zero: the text of a line is what its bytes say.
  [[nodiscard]] bool is_plain() const { return is_plain_; }

 private:
  bool is_plain_;
  ProfileEncoding encoding_;
  std::string decoded_;
  std::string_view text_;
};

// A text as the bytes of a file in that encoding, mark included.
[[nodiscard]] Bytes ProfileBytes(ProfileEncoding encoding, std::string_view text);

// A section or key name that is looked for, without regard to case.
class WantedProfileName {
 public:
  WantedProfileName(ProfileEncoding encoding, std::string_view utf8);

  // In the encoding of the content.
  [[nodiscard]] const std::string& text() const { return encoded_; }
  [[nodiscard]] bool Matches(std::string_view name) const;
  // False for a line that begins neither with this name nor with a blank: it cannot be the key's. The last letter tells
  // numbered keys apart at once.
  [[nodiscard]] bool MayBegin(std::string_view line) const;

 private:
  ProfileEncoding encoding_;
  std::string encoded_;
  bool is_ascii_;
  std::string decoded_;
};

// False when a line of these names, in the encoding of the content, would not be found again.
[[nodiscard]] bool CanBeFoundAgain(const std::string& section, const std::string& key);

// The line end that the text uses; CR LF for a text that has none yet.
[[nodiscard]] std::string_view LineEndOf(std::string_view text);

}  // namespace kestrun
