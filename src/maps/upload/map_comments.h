// What goes with a map to the Mapping Center as words: comments and add-on notes, in one text file beside the map.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrun {

// What the site takes of each of the two, in characters. The program only warns.
inline constexpr size_t kMostCommentCharacters = 512;

struct MapComments {
  std::string comments;  // each line with CR LF behind it
  std::string addons;    // the same
};

// The lines in front of "[ADDONS]" are comments, those behind it add-on notes; this line and "[COMMENTS]" are part of
// neither. Lines end with CR LF, CR or LF.
[[nodiscard]] MapComments SplitComments(std::string_view text);

// In UTF-16 units, as the limit counts them.
[[nodiscard]] size_t CharacterCount(std::string_view text);

}  // namespace kestrun
