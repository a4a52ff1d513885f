// The user's own programs, which the actions menu starts, as packit.ini holds them. Their numbers may have gaps.
#pragma once

#include <string>
#include <vector>

namespace kestrun {

struct UserProgram {
  int number = 0;
  std::string name;
  std::string path;
};

struct UserPrograms {
  int highest = 0;  // number that is stored as the last one; 0 as well when there is no program
  std::vector<UserProgram> programs;
};

// Error 13 or 6 when the highest number is none. No more are read than a menu can show.
[[nodiscard]] UserPrograms ReadUserPrograms();

// Stores the highest number and these programs. False when they could not be stored.
bool WriteUserPrograms(const UserPrograms& programs);

}  // namespace kestrun
