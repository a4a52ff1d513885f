// A profile file in memory, for setting many values: the file is read, taken apart and written once.
#pragma once

#include <deque>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "formats/profile/profile_content.h"

namespace kestrun {

// Numbered keys of one section, from 0: MAP0, MAP1 and so on. The prefix is ASCII and begins with a letter.
struct ProfileRows {
  std::string_view section;
  std::string_view prefix;
  std::span<const std::string> values;
};

// Gives the bytes that WithProfileValue, called for one value after the other, would give.
class ProfileDocument {
 public:
  explicit ProfileDocument(ByteView content);

  // A text that the code page cannot hold turns the content into UTF-8 with its mark, before the value is set.
  void Set(std::string_view section, std::string_view key, std::string_view value);

  // Sets them one after the other, in time linear in lines and rows.
  void SetRows(const ProfileRows& rows);

  [[nodiscard]] bool has_changed() const { return has_changed_; }
  [[nodiscard]] Bytes ToBytes() const;

 private:
  struct Line {
    std::string_view text;
    std::string_view end;
  };
  struct Section {
    std::string_view name;
    std::vector<Line> lines;  // its own line first, unless it is what stands before the first section
    size_t filled = 0;        // the place behind the last line that is not blank
  };

  void TakeApart(ByteView content);
  void TakeApartAgain(ByteView content);
  void AddLine(Section& section, const Line& line);
  // Lines whose bytes decide whether a content without a mark passes for UTF-8.
  void Count(std::string_view line, int change);

  [[nodiscard]] Section* FindSection(const WantedProfileName& wanted);
  [[nodiscard]] static Line* FindKey(Section& section, const WantedProfileName& wanted);
  // Sets rows up to one that makes the document take its lines apart again, and gives the number of the next.
  size_t SetRowsFrom(const ProfileRows& rows, size_t row);
  // For each row one more than the place of its key's first line; 0 for a row without one.
  [[nodiscard]] static std::vector<size_t> NumberedLines(const Section& section, const ProfileRows& rows);
  [[nodiscard]] bool HoldsText(std::string_view utf8) const;
  // Makes the line of the key, which may be there already, say the value; both in the encoding of the content. Plain
  // says that both are known to be so.
  void Store(Section& section, Line* line, std::string_view key, std::string_view value, bool is_plain);
  [[nodiscard]] std::string_view Keep(std::initializer_list<std::string_view> parts);
  void EndLastLine();
  void Insert(Section& section, std::string_view text);
  void FollowEncoding(std::string_view set_line, bool has_line_break);

  ProfileEncoding encoding_ = ProfileEncoding::kCodePage;
  std::string_view line_end_;
  std::deque<std::string> texts_;  // blocks that the lines' texts are pieces of
  std::deque<Section> sections_;
  int wide_lines_ = 0;     // bytes above 127 that form UTF-8
  int invalid_lines_ = 0;  // bytes above 127 that do not
  bool has_changed_ = false;
  int times_taken_apart_ = 0;
};

}  // namespace kestrun
