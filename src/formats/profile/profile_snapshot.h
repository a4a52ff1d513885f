// A profile file in memory, for reading many values: the file is read and taken apart once.
#pragma once

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "formats/profile/profile_content.h"

namespace kestrun {

// Keys that end in a number: MAP0, MAP1 and so on, `count` of them from the number `first`. The prefix is ASCII.
struct NumberedKeys {
  std::string_view prefix;
  size_t first = 0;
  size_t count = 0;
};

class ProfileSnapshot {
 public:
  explicit ProfileSnapshot(Bytes content);
  ProfileSnapshot(const ProfileSnapshot&) = delete;
  ProfileSnapshot& operator=(const ProfileSnapshot&) = delete;

  // What FindProfileValue gives for the content.
  [[nodiscard]] std::optional<std::string> Value(std::string_view section, std::string_view key, size_t limit) const;

  // What it gives for each of the keys, with `missing` in the place of nothing. The texts are the snapshot's.
  [[nodiscard]] std::vector<std::string_view> NumberedValues(std::string_view section, const NumberedKeys& keys,
                                                             size_t limit, std::string_view missing);

 private:
  struct Section {
    std::string_view name;
    size_t first_line;
    size_t end_line;
  };
  void TakeApart();
  [[nodiscard]] std::span<const std::string_view> LinesOf(std::string_view section) const;
  [[nodiscard]] std::string_view TextOf(std::string_view value, size_t limit);
  std::string_view Keep(std::string text) { return texts_.emplace_back(std::move(text)); }

  Bytes content_;
  ProfileContent profile_;
  std::vector<std::string_view> lines_;  // all that are no section lines
  std::vector<Section> sections_;        // the first has no name: it is what stands before the first section line
  std::deque<std::string> texts_;        // values that do not stand in the content as they are given
};

}  // namespace kestrun
