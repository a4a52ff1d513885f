// Rotation lists on disk: section LIST with MAP0, MAP1 and so on and their number in TOTAL, section INFO with VERSION.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/profile/profile_snapshot.h"

namespace kestrun {

// More rows than this are refused: their number comes from a file.
inline constexpr int kMostListRows = 100000;

// The rows of a list file; "ERROR!" for a key that is missing, none for a file without a list. Error 13 when TOTAL is
// no number.
class MapList {
 public:
  explicit MapList(const std::string& file);
  [[nodiscard]] std::span<const std::string_view> rows() const { return rows_; }

 private:
  ProfileSnapshot file_;
  std::vector<std::string_view> rows_;
};

// Replaces and adds keys; those of a longer list that was there before stay. False when the file could
// not be written.
[[nodiscard]] bool WriteMapList(const std::string& file, const std::vector<std::string>& rows);

}  // namespace kestrun
