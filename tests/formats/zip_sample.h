// The files that other programs pack for the tests, made anew from what they are.
#pragma once

#include <map>
#include <string>

#include "formats/bms/bms_writer.h"

namespace kestrun {

// Numbers that no packer can predict.
inline std::string Noise(size_t bytes) {
  std::string noise;
  uint32_t state = 12345;
  for (size_t at = 0; at < bytes; ++at) {
    state = state * 1664525 + 1013904223;
    noise += static_cast<char>(state >> 24);
  }
  return noise;
}

// By name, with "/" between folders.
inline std::map<std::string, std::string> SampleFiles() {
  MissionFields fields;
  fields.mission_name = "River Crossing";
  fields.designer = "Somebody";
  fields.game_types = 0x1200;
  std::string mission(AsChars(WriteMission(fields)));
  for (int record = 0; record < 400; ++record) {
    mission += "OBJ" + std::string(9, '\0') + static_cast<char>(record) + static_cast<char>(record / 7) + "tree";
  }
  std::string readme;
  for (int line = 0; line < 200; ++line) readme += "Line " + std::to_string(line) + " of what nobody reads.\r\n";
  return {
      {"readme.txt", readme},
      {"maps/river.bms", mission},
      {"maps/deep/noise.bin", Noise(5000)},
      {"empty.txt", ""},
      // A match further back than 32 KB and one longer than 258 bytes: what only Deflate64 has.
      {"far.bin", Noise(40000) + Noise(40000) + std::string(70000, '\0')},
  };
}

}  // namespace kestrun
