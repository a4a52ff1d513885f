// What all Cls_Zip objects share: the system has one archive open at a time, whichever object read it last.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun::zip {

struct OpenArchive {
  std::string path;
  int32_t count = 0;
  std::string comment;  // bytes as stored
  bool loaded = false;
};

[[nodiscard]] OpenArchive& TheOpenArchive();

}  // namespace kestrun::zip
