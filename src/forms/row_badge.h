// A small picture and a word beside a row of a list, for eyes and for screen readers. They are no part of the row's
// text: scripts and whatever saves the list do not meet them.
#pragma once

#include <functional>
#include <string>

#include "forms/picture.h"

namespace kestrun {

struct RowBadge {
  Ref<Picture> picture;
  std::string word;  // empty for a row without a badge
  std::string note;  // more about it, for screen readers; may be empty
};

struct RowBadges {
  // Asked whenever a row is shown, and never for rows that nobody sees. Must answer at once. Not set: no badges.
  std::function<RowBadge(int row)> of_row;
  // Gives the room that all badges take.
  std::string widest_word;

  // The side of the picture in pixels at 96 dots per inch, and the gap behind it and behind the word.
  static constexpr int kPictureSide = 14;
  static constexpr int kGap = 4;
};

}  // namespace kestrun
