// A profile file in memory, for setting many values: the file is read, taken apart and written once.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/bytes.h"
#include "formats/profile/profile_content.h"

namespace kestrun {

// Gives the bytes that WithProfileValue, called for one value after the other, would give.
class ProfileDocument {
 public:
  explicit ProfileDocument(ByteView content);

  // A text that the code page cannot hold turns the content into UTF-8 with its mark, before the value is set.
  void Set(std::string_view section, std::string_view key, std::string_view value);

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
    // The first line of each key, by its name in small letters.
    std::unordered_map<std::string, size_t> keys;
  };

  void TakeApart(ByteView content);
  void TakeApartAgain(ByteView content);
  void AddLine(Section& section, const Line& line);
  // Lines whose bytes decide whether a content without a mark passes for UTF-8.
  void Count(std::string_view line, int change);

  [[nodiscard]] Section* FindSection(const WantedProfileName& wanted);
  [[nodiscard]] static Line* FindKey(Section& section, const WantedProfileName& wanted);
  [[nodiscard]] std::string_view Keep(std::string text);
  void EndLastLine();
  void Insert(Section& section, std::string_view text);
  void FollowEncoding(std::string_view set_line, bool has_line_break);

  ProfileEncoding encoding_ = ProfileEncoding::kCodePage;
  std::string_view line_end_;
  std::deque<std::string> texts_;  // what the lines' texts are pieces of
  std::deque<Section> sections_;
  int wide_lines_ = 0;     // bytes above 127 that form UTF-8
  int invalid_lines_ = 0;  // bytes above 127 that do not
  bool has_changed_ = false;
};

}  // namespace kestrun
