#include "game/simulated/stock_mission.h"

#include <cstdio>
#include <utility>

#include "base/crc32.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/bms/mission_layout.h"
#include "formats/bms/mission_reader.h"
#include "formats/pff/cls_pff.h"

namespace kestrun {
namespace {

// Empty for bytes that the game can play.
std::string RefusalOf(ByteView mission, bool plays_anything) {
  if (mission.empty()) return "it is empty";
  if (plays_anything) return {};
  if (mission.size() < bms::kKnownBytes) return "it is cut off";
  return StartsWith(AsChars(mission), bms::kSignature) ? "" : "it is no mission";
}

Bytes ArchiveEntry(const std::string& path, const std::string& name) {
  ClsPFF archive;
  archive.Recovered = [](const std::string&) {};
  int32_t index = -1;
  if (!archive.LoadPff(path)) Raise(error::kFileNotFound, "the archive cannot be read");
  if (!archive.PFFFileExists(name, index)) Raise(error::kFileNotFound, "it is not in the archive");
  Bytes bytes;
  static_cast<void>(archive.ExtractFile(index, bytes, ""));
  return bytes;
}

}  // namespace

std::string LoadedMission::CrcText() const {
  char digits[9];
  std::snprintf(digits, sizeof digits, "%08X", static_cast<unsigned>(crc));
  return digits;
}

LoadedMission MissionFromBytes(ByteView bytes, std::string source, bool plays_anything) {
  LoadedMission mission;
  mission.source = std::move(source);
  mission.refusal = RefusalOf(bytes, plays_anything);
  mission.name = MissionNameIn(bytes);
  mission.crc = ~crc32::Update(crc32::kStart, bytes);
  mission.bytes = bytes.size();
  return mission;
}

LoadedMission LoadStockMission(FileSystem& files, const GameOptions& options) {
  LoadedMission mission;
  try {
    const std::string loose = options.folder + "\\" + options.mission;
    const bool is_loose = files.Exists(loose);
    mission.source = is_loose ? "loose file" : "archive";
    const Bytes bytes =
        is_loose ? files.ReadAll(loose) : ArchiveEntry(options.folder + "\\" + options.archive, options.mission);
    return MissionFromBytes(bytes, mission.source, options.plays_anything);
  } catch (const RuntimeError& failure) {
    mission.refusal = failure.description();
  }
  return mission;
}

}  // namespace kestrun
