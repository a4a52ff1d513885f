// The lines of profile text and what each of them is.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace kestrun {

// Blank, tab, vertical tab, form feed and the end-of-file mark.
[[nodiscard]] inline bool IsProfileBlank(char c) {
  // One comparison tells most characters.
  return static_cast<unsigned char>(c) <= ' ' && (c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\x1A');
}

// Without the blanks of profile text at both ends.
[[nodiscard]] inline std::string_view TrimProfileBlanks(std::string_view text) {
  while (!text.empty() && IsProfileBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsProfileBlank(text.back())) text.remove_suffix(1);
  return text;
}

enum class ProfileLineKind { kBlank, kComment, kSection, kKey };

struct ProfileLine {
  ProfileLineKind kind = ProfileLineKind::kBlank;
  std::string_view name;   // of a section or a key
  std::string_view value;  // behind the first "=", trimmed, quotes and all
  bool has_value = false;
};

// A text without line ends. A section line ends at its last "]"; one without is a key line.
[[nodiscard]] ProfileLine ParseProfileLine(std::string_view line);

// False for a line that is surely none.
[[nodiscard]] inline bool MayBeSectionLine(std::string_view line) {
  return !line.empty() && (line.front() == '[' || IsProfileBlank(line.front()));
}

// Walks the lines. A line ends at CR LF, LF or CR.
class ProfileLineCursor {
 public:
  explicit ProfileLineCursor(std::string_view text);

  // Moves on to the next line; false behind the last one.
  [[nodiscard]] bool Next();
  [[nodiscard]] std::string_view line() const { return text_.substr(begin_, end_ - begin_); }
  // Positions of the present line: its first byte, the byte behind its text, and the byte behind its line end.
  [[nodiscard]] size_t begin() const { return begin_; }
  [[nodiscard]] size_t end() const { return end_; }
  [[nodiscard]] size_t next() const { return next_; }

 private:
  [[nodiscard]] size_t Find(char wanted, size_t& known) const;
  void FindMixedLineEnd();
  void FindLineFeed();

  std::string_view text_;
  size_t begin_ = 0;
  size_t end_ = 0;
  size_t next_ = 0;
  // The next of each line end at or behind next_, so that no byte is looked at twice.
  size_t line_feed_ = 0;
  size_t carriage_return_ = 0;
  bool searched_ = false;
  // Some line ends at a carriage return alone, so that both line ends have to be looked for.
  bool has_lone_return_;
};

inline void ProfileLineCursor::FindLineFeed() {
  const void* found = std::memchr(text_.data() + begin_, '\n', text_.size() - begin_);
  if (!found) {
    end_ = next_ = text_.size();
    return;
  }
  end_ = static_cast<size_t>(static_cast<const char*>(found) - text_.data());
  next_ = end_ + 1;
  if (end_ > begin_ && text_[end_ - 1] == '\r') --end_;
}

inline bool ProfileLineCursor::Next() {
  if (next_ >= text_.size()) return false;
  begin_ = next_;
  if (has_lone_return_) {
    FindMixedLineEnd();
  } else {
    FindLineFeed();
  }
  return true;
}

}  // namespace kestrun
