// The lines of profile text and what each of them is.
#pragma once

#include <cstddef>
#include <string_view>

namespace kestrun {

// Without the blanks of profile text at both ends: blank, tab, vertical tab, form feed and the end-of-file mark.
[[nodiscard]] std::string_view TrimProfileBlanks(std::string_view text);

enum class ProfileLineKind { kBlank, kComment, kSection, kKey };

struct ProfileLine {
  ProfileLineKind kind = ProfileLineKind::kBlank;
  std::string_view name;   // of a section or a key
  std::string_view value;  // behind the first "=", trimmed, quotes and all
  bool has_value = false;
};

// A text without line ends. A section line ends at its last "]"; one without is a key line.
[[nodiscard]] ProfileLine ParseProfileLine(std::string_view line);

// Walks the lines. A line ends at CR LF, LF or CR.
class ProfileLineCursor {
 public:
  explicit ProfileLineCursor(std::string_view text) : text_(text) {}

  // Moves on to the next line; false behind the last one.
  [[nodiscard]] bool Next();
  [[nodiscard]] std::string_view line() const { return text_.substr(begin_, end_ - begin_); }
  // Positions of the present line: its first byte, the byte behind its text, and the byte behind its line end.
  [[nodiscard]] size_t begin() const { return begin_; }
  [[nodiscard]] size_t end() const { return end_; }
  [[nodiscard]] size_t next() const { return next_; }

 private:
  [[nodiscard]] size_t Find(char wanted, size_t& known) const;

  std::string_view text_;
  size_t begin_ = 0;
  size_t end_ = 0;
  size_t next_ = 0;
  // The next of each line end at or behind next_, so that no byte is looked at twice.
  size_t line_feed_ = 0;
  size_t carriage_return_ = 0;
  bool searched_ = false;
};

}  // namespace kestrun
